// The window around the forms: menus, status bar.
#pragma once

#include <QMainWindow>

namespace tessaria::demo {

class CustomerForm;
class Database;

class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  /// The database is open and outlives the window. Raises `Failure` when it is not this
  /// program's.
  explicit MainWindow(Database& database);

 protected:
  /// Asks before what was typed is lost.
  void closeEvent(QCloseEvent* event) override;

 private:
  void connectActions();
  void reconnect();
  /// In the status bar, for a time or, with 0, until the next one.
  void showNotice(const QString& text, int milliseconds = 0);

  Database& database_;
  CustomerForm* customers_;
};

}  // namespace tessaria::demo
