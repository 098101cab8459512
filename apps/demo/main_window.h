// The window around the forms: menus, tool bar, status bar.
#pragma once

#include <QList>
#include <QMainWindow>
#include <QPointer>

class QStackedWidget;

namespace tessaria::demo {

class Database;
class RecordForm;

class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  /// The database is open and outlives the window. Raises `Failure` when it is not this
  /// program's.
  explicit MainWindow(Database& database);

 protected:
  /// Asks before typed input is lost.
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A form and the field that the operator left it in.
  struct Page {
    RecordForm* form;
    QPointer<QWidget> focus;
  };

  void addForm(const char* action, RecordForm* form);
  void connectActions();
  void connectRefusals();
  RecordForm* current() const;
  void showForm(int index);
  void showTitle();
  void reconnect();
  /// How long a line of the status bar is shown, unless another replaces it.
  enum class Until { Typing, FieldIsRight, NextNotice };
  void showNotice(const QString& text, Until until = Until::Typing);
  void clearNotice(Until until);

  Database& database_;
  QStackedWidget* stack_;
  QList<Page> pages_;
  Until noticeStands_ = Until::Typing;
};

}  // namespace tessaria::demo
