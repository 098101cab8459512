// Passes the keys of a dialog to its handlers before the focused widget acts.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>

#include "hosts/qt/dialogs/dialog_item.h"

namespace tessaria::qt {

/// Passes each key to the window's handlers and then to the widget's, first key-down and then
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
