// Passes the keys of a surface to its handlers before the focused widget acts.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

/// Passes each key to the surface's handlers and then to the widget's, first key-down and then
/// key-press for each character, before the widget acts. A key set to 0 goes no further, nor
/// does one that hid the surface.
class KeyRelay final : public QObject {
 public:
  using FindItem = std::function<DialogItem*(const QWidget* widget)>;
  KeyRelay(QWidget& face, const DialogGate& gate, const host::Surface& surface, FindItem find);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void watchAll();
  bool takes(QKeyEvent& event, const host::DialogWidget* widget);
  template <class Slot, class... Arguments>
  bool asks(const Slot& slot, Integer& code, Arguments&... arguments);

  QWidget& face_;
  const DialogGate& gate_;
  const host::Surface& surface_;
  FindItem find_;
};

}  // namespace tessaria::qt
