// Works the modal windows of a test as they open.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPixmap>
#include <deque>
#include <functional>

#include "tests/qt/operator.h"

namespace tessaria::qt::tests {

/// While it lives, each window that comes to the front has its script run once, inside the modal
/// loop. A window that nobody expects, or that its script leaves open, is closed and fails the
/// test, as does one that never came.
class ModalDriver final : public QObject {
 public:
  using Script = std::function<void(QDialog& window)>;

  ModalDriver();
  ~ModalDriver() override;

  /// The script of the next window, which must have this name.
  void willShow(const QString& name, Script script);
  /// The names of the windows that came, in order.
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
  QList<QPointer<QDialog>> worked_;  ///< whose scripts run, outermost first: none is begun again
};

/// A widget of a window; fails the test, and gives a plain one, when there is none.
template <class Widget = QWidget>
Widget& at(const QWidget& window, const QString& name, int index = 0) {
  return *window.findChildren<Widget*>(name).at(index);
}

/// Presses a key on the widget that has the focus, with the text that it types; keypad too.
void strike(QWidget& window, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Writes a picture of the window when the environment names a folder for them.
void picture(QWidget& window, const QString& name);

}  // namespace tessaria::qt::tests
