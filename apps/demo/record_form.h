// Common base of the forms over one table: one row at a time, its buttons and its checks.
#pragma once

#include <QPointer>
#include <QWidget>

#include "tessaria/qt/record_form.h"
#include "tessaria/variant.h"

class QPushButton;

namespace tessaria::qt {
class Adodc;
class TsText;
}  // namespace tessaria::qt

namespace tessaria::demo {

class Database;

/// What a form edits, for its statements and its texts.
struct RecordKind {
  QString noun;       ///< "cliente"
  QString table;      ///< "clientes"
  QString key;        ///< the column of the key, a text of digits that is filled with zeros
  int keyLength;      ///< digits of the key
  QString keyField;   ///< the field of the key
  QString takenText;  ///< an SQL expression over a row: the message when its key is taken
};

/// A `qt::RecordForm` with the buttons, keys and notices of this program.
///
/// The form file has a data control "dados", a search field "localizar" and the buttons
/// "btnNovo", "btnSalvar", "btnCancelar" and "btnExcluir".
class RecordForm : public QWidget {
  Q_OBJECT

 public:
  bool isChanged() const { return record_->isChanged(); }
  /// As `qt::RecordForm::mayClose`.
  bool mayClose() { return record_->mayClose(); }
  /// Puts the focus on the first field that takes input.
  void focusFirstField();

 public slots:  // NOLINT
  void addRecord();
  /// Returns false when the row was refused; the operator has then been told why.
  bool save();
  void cancel();
  void deleteRecord();
  void moveFirst();
  void movePrevious();
  void moveNext();
  void moveLast();
  /// Puts the focus where a key can be typed.
  void startSearch();
  /// Reads all rows again and stays on the row.
  void reload();

 signals:
  /// A line about what has just been done. Empty when the last line is no longer true.
  void notice(const QString& text);
  /// A line about why the input on the screen is not stored. It is true until the next notice.
  void notSaved(const QString& text);
  /// The operator has typed, pasted or deleted something.
  void typed();

 protected:
  using Refusal = qt::RecordForm::Refusal;

  /// The database is open and outlives the form. Raises `Failure` when it has no such table.
  RecordForm(Database& database, const QString& file, const RecordKind& kind, QWidget* parent);
  /// Called at the end of the constructor of a form.
  void start();

  // What a form adds
  /// Another row is shown in the fields.
  virtual void showRow() = 0;
  /// A new row is open, and its key is proposed.
  virtual void proposeRow() {}
  /// Checks that no field can make by itself.
  virtual std::optional<Refusal> checkRow() { return {}; }
  /// What describes the row besides its key: "José".
  virtual QString describeRow() const = 0;

  Database& database() const { return database_; }
  qt::Adodc& rows() const { return *rows_; }
  qt::RecordForm& record() const { return *record_; }
  qt::TsText* field(const char* name) const;
  QString keyInRow() const { return fieldInRow(kind_.key); }
  /// Text of a column of the row; empty for Null and when there is no row.
  QString fieldInRow(const QString& column) const;

  /// Escape cancels, also when no field has the focus. Asks first when input would be lost.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void findWidgets();
  void goOnWorking();
  void loadRows();
  void connectFields();
  void connectButtons();
  void connectRecord();
  void rowShown();
  QString proposedKey() const;
  QString criteriaOf(const QString& key) const;
  void goTo(const QString& key);
  bool serverAnswers();
  std::optional<Refusal> checkKeyIsFree() const;
  QString capitalNoun() const;

  Database& database_;
  const RecordKind kind_;
  qt::Adodc* rows_;
  qt::RecordForm* record_;
  qt::TsText *key_, *search_;
  QPushButton *new_, *save_, *cancel_, *delete_;
  QPointer<QWidget> worked_;  ///< the widget that had the focus before a button
  QString nextNotice_;        ///< sent once the next row is shown
};

/// The first value of a statement's first row; Null without rows. Raises the database's errors.
Variant single(const Database& database, const QString& statement);

}  // namespace tessaria::demo
