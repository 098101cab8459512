// Operates the modal windows of a test as they open.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPixmap>
#include <deque>
#include <functional>

#include "tests/qt/operator.h"

namespace tessaria::qt::tests {

/// During its lifetime, the script of each window that comes to the front runs once, inside the
/// modal loop. An unexpected window, or one that its script leaves open, is closed and fails the
/// test, as does an expected window that never opens.
class ModalDriver final : public QObject {
 public:
  using Script = std::function<void(QDialog& window)>;

  ModalDriver();
  ~ModalDriver() override;

  /// The script of the next window, which must have this name.
  void willShow(const QString& name, Script script);
  /// The names of the windows that have opened, in order.
  const QStringList& shown() const { return shown_; }

 private:
  struct Expected {
    QString name;
    Script script;
  };
  void lookSoon();
  void look();

  std::deque<Expected> expected_;
  QStringList shown_;
  QList<QPointer<QDialog>> worked_;  ///< windows with a running script, which is not started again
};

/// A widget of a window; if there is none, fails the test and returns a plain one.
template <class Widget = QWidget>
Widget& at(const QWidget& window, const QString& name, int index = 0) {
  return *window.findChildren<Widget*>(name).at(index);
}

/// Presses a key on the widget that has the focus, with the text that it types; keypad too.
void strike(QWidget& window, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Saves a picture of the window if the environment names a folder for pictures.
void picture(QWidget& window, const QString& name);

}  // namespace tessaria::qt::tests
