// Keys of a dialog on their way to the widget that has the focus.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>

#include "hosts/qt/dialogs/dialog_item.h"

namespace tessaria::qt {

/// Shows each key to the window's handlers, then to the widget's, key-down first and then
/// key-press for each character, before the widget acts. A key set to 0 goes no further, nor
/// does one that hid the window.
class KeyRelay final : public QObject {
 public:
  using FindItem = std::function<DialogItem*(const QWidget* widget)>;
  KeyRelay(QWidget& window, const DialogGate& gate, const host::Dialog& dialog, FindItem find);

  /// Watches all widgets that the window has now.
  void watchAll();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool takes(QKeyEvent& event, const host::DialogWidget* widget);
  template <class Slot, class... Arguments>
  bool asks(const Slot& slot, Integer& code, Arguments&... arguments);

  QWidget& window_;
  const DialogGate& gate_;
  const host::Dialog& dialog_;
  FindItem find_;
};

}  // namespace tessaria::qt
