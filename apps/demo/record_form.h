// What the forms over one table have in common: a row at a time, its buttons and its checks.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

#include "tessaria/error.h"
#include "tessaria/variant.h"

class QPushButton;

namespace tessaria::qt {
class Adodc;
class TsText;
}  // namespace tessaria::qt

namespace tessaria::demo {

class Database;

/// What a form shows, for its statements and its texts.
struct RecordKind {
  QString noun;        ///< "cliente"
  QString table;       ///< "clientes"
  QString key;         ///< the column of the key, a text of digits that is filled with zeros
  int keyLength;       ///< digits of the key
  QString keyField;    ///< the field of the key
  QString takenText;   ///< an expression over a row: what is said of it when its key is taken
  QStringList fields;  ///< all fields, in the order in which they are checked
};

/// A row is checked as a whole when it is saved, and whenever it is left. What was typed stays on
/// the screen until the database has taken it or the operator cancels.
///
/// The form file has a data control "dados", a search field "localizar" and the buttons
/// "btnNovo", "btnSalvar", "btnCancelar" and "btnExcluir".
class RecordForm : public QWidget {
  Q_OBJECT

 public:
  /// Whether something was typed that is not saved.
  bool hasUnsavedInput() const;
  const QString& noun() const { return kind_.noun; }
  /// Puts the focus on the first field that takes input.
  void focusFirstField();

 public slots:  // NOLINT
  void addRecord();
  /// False when the row was refused; the operator then knows why.
  bool save();
  void cancel();
  void deleteRecord();
  void moveFirst();
  void movePrevious();
  void moveNext();
  void moveLast();
  /// Puts the focus where a key can be typed.
  void startSearch();
  /// Reads all rows anew and stays on the row.
  void reload();

 signals:
  /// One line on what has just been done. An empty one when the last is no longer true.
  void notice(const QString& text);
  /// One line on why what stands on the screen is not stored. True until a notice comes.
  void notSaved(const QString& text);
  /// The operator has typed, pasted or deleted something.
  void typed();

 protected:
  /// The database is open and outlives the form. Raises `Failure` when it has no such table.
  RecordForm(Database& database, const QString& file, RecordKind kind, QWidget* parent);
  /// Called at the end of a form's own making.
  void start();

  // What a form adds
  /// Another row stands in the fields.
  virtual void showRow() = 0;
  /// A new row is open, and its key proposed.
  virtual void proposeRow() {}
  /// Checks that no field can make by itself, and tells what is wrong.
  virtual bool checkRow() { return true; }
  /// Writes the pending edit. Raises what the database says; the edit is pending then.
  virtual void writeRow();
  /// Whether nobody knows if the last write of the row was stored. `writeRow()` finds that out.
  virtual bool isInDoubt() const;
  /// What tells the row from others, behind its key: "José".
  virtual QString describeRow() const = 0;

  Database& database() const { return database_; }
  qt::Adodc& rows() const { return *rows_; }
  qt::TsText* field(const char* name) const;
  bool isNewRow() const;
  QString keyInRow() const { return fieldInRow(kind_.key); }
  /// Text of a column of the row; empty for Null and where there is no row.
  QString fieldInRow(const QString& column) const;
  QString criteriaOf(const QString& key) const;
  /// Tells what is wrong with a field and goes there. False.
  bool refuse(qt::TsText* field, const QString& text);

  /// Escape cancels, also where no field holds the focus. Asks first when input would be lost.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void findWidgets();
  void watchInput(qt::TsText* each);
  void noteInput();
  bool mayDropInput();
  void goOnWorking();
  void loadRows();
  void connectFields();
  void connectButtons();
  void rowShown();
  QString proposedKey() const;
  void goTo(const QString& key);
  bool check();
  bool checkFields();
  bool checkKeyIsFree();
  bool write();
  void tellRefusal(const HostError& error);
  void tellDoubt(const HostError& error);
  QString capitalNoun() const;

  Database& database_;
  const RecordKind kind_;
  qt::Adodc* rows_;
  QList<qt::TsText*> fields_;
  qt::TsText *key_, *search_;
  QPushButton *new_, *save_, *cancel_, *delete_;
  QPointer<QWidget> worked_;  ///< where the operator was before a button
  QString nextNotice_;        ///< to be told once the next row is shown
  bool hasTyped_ = false;     ///< something that is not in the row yet
  bool isStale_ = false;      ///< the row in the database may be another than the one on the screen
};

/// The first value of a statement's first row; Null without rows. Raises what the database says.
Variant single(const Database& database, const QString& statement);

}  // namespace tessaria::demo
