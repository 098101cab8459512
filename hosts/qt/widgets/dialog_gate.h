// Delivery of Qt's signals to the handlers of a dialog.
#pragma once

#include <QWidget>
#include <functional>

#include "tessaria/qt/event_boundary.h"

namespace tessaria::qt {

/// Calls a copy of the slot: the handler may destroy its owner.
template <class Slot, class... Arguments>
void callSlot(const Slot& slot, Arguments&... arguments) {
  if (const Slot copy = slot) copy(arguments...);
}

/// Owned by a dialog; its widgets raise their events through it. Once closed, it raises no events:
/// the owner of the slots may be gone.
class DialogGate {
 public:
  explicit DialogGate(QWidget& window) : window_(&window) {}

  bool isOpen() const { return open_; }
  void close() { open_ = false; }

  /// Runs an event at the boundary, and the action set by `afterFailure` if the event fails.
  template <class Body>
  void enter(Body&& body) const {
    if (!open_ || guarded(window_, std::forward<Body>(body))) return;
    if (open_ && afterFailure_) guarded(window_, afterFailure_);
  }
  template <class Slot, class... Arguments>
  void raise(const Slot& slot, Arguments&... arguments) const {
    enter([&] { callSlot(slot, arguments...); });
  }
  /// For the one widget whose contents a failing event may leave incomplete.
  void afterFailure(std::function<void()> repair) { afterFailure_ = std::move(repair); }

 private:
  QWidget* window_;
  bool open_ = true;
  std::function<void()> afterFailure_;
};

}  // namespace tessaria::qt
