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
  void showNotice(const QString& text);

  Database& database_;
  CustomerForm* customers_;
};

}  // namespace tessaria::demo
