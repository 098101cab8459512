// The customers: one at a time, with their rows to move among.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

#include "apps/demo/documents.h"
#include "tessaria/error.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace tessaria::qt {
class Adodc;
class TsText;
}  // namespace tessaria::qt

namespace tessaria::demo {

class Database;

/// A customer is checked as a whole when it is saved, and whenever its row is left. What was
/// typed stays on the screen until the database has taken it or the operator cancels.
class CustomerForm final : public QWidget {
  Q_OBJECT

 public:
  /// The database is open and outlives the form. Raises `Failure` when it has no customers'
  /// table.
  explicit CustomerForm(Database& database, QWidget* parent = nullptr);

  /// Whether something was typed that is not saved.
  bool hasUnsavedInput() const;

 public slots:  // NOLINT
  void addCustomer();
  /// False when the customer was refused; the operator then knows why.
  bool save();
  void cancel();
  void deleteCustomer();
  void moveFirst();
  void movePrevious();
  void moveNext();
  void moveLast();
  /// Puts the focus where a code can be typed.
  void startSearch();
  /// Reads all rows anew and stays on the customer.
  void reload();

 signals:
  /// One line on what has just been done.
  void notice(const QString& text);

 protected:
  /// Escape cancels, also where no field holds the focus.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void findWidgets();
  void connectFields();
  void connectButtons();
  void loadRows();

  // A row
  void rowShown();
  void proposeCode();
  QString codeInRow() const;
  QString fieldInRow(const char16_t* name) const;
  void goToCode(const QString& code);

  // Checks before a row is written
  bool checkCustomer();
  bool checkFields();
  bool checkDocument();
  bool checkCodeIsFree();
  bool writeRow();
  void tellRefusal(const HostError& error);
  bool refuse(qt::TsText* field, const QString& text);

  // Fields that the form looks after itself
  void showPerson(Person person);
  Person person() const;
  void fitTelephone();
  void takePassword();
  void showPasswordState();

  Database& database_;
  qt::Adodc* rows_;
  QList<qt::TsText*> fields_;  ///< in the order in which they are checked
  qt::TsText *code_, *search_, *document_, *telephone_, *password_;
  QLabel *documentLabel_, *birthLabel_, *passwordState_;
  QRadioButton *natural_, *legal_;
  QPushButton *new_, *save_, *cancel_, *delete_;
  bool isStale_ = false;  ///< another user has changed the row on the screen
};

}  // namespace tessaria::demo
