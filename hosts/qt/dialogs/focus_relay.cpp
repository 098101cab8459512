#include "hosts/qt/dialogs/focus_relay.h"

#include <QApplication>
#include <QEvent>
#include <utility>

namespace tessaria::qt {

FocusRelay::FocusRelay(QWidget& face, const DialogGate& gate, FindItem find)
    : face_(face), gate_(gate), find_(std::move(find)) {
  face.installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { moved(now); });
}

/// A surface that is hidden keeps its focus without an event, and gets it anew when it shows again.
bool FocusRelay::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous()) inside_ = nullptr;
  return false;
}

void FocusRelay::moved(const QWidget* now) {
  if (!now || now->window() != face_.window()) return;
  DialogItem* item = find_(now);
  if (item == inside_) return;
  const boundary::Entry entry;  // what a handler destroys lives until the end
  DialogItem* before = std::exchange(inside_, item);
  if (before) gate_.raise(before->port().OnLostFocus);
  if (item && inside_ == item) gate_.raise(item->port().OnGotFocus);
}

}  // namespace tessaria::qt
