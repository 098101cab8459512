#include "hosts/qt/focus_cycle.h"

#include <utility>

#include "hosts/qt/line_edit.h"
#include "hosts/qt/tstext.h"
#include "hosts/qt/widget_tree.h"

namespace tessaria::qt {

FocusCycle::FocusCycle(QWidget* window) : QObject(window) {}

FocusCycle* FocusCycle::existing(const QWidget* window) {
  return window->findChild<FocusCycle*>({}, Qt::FindDirectChildrenOnly);
}

FocusCycle* FocusCycle::of(QWidget* window) {
  FocusCycle* cycle = existing(window);
  return cycle ? cycle : new FocusCycle(window);
}

void FocusCycle::focusMoved() {
  QWidget* focus = window()->focusWidget();
  if (!focus) return;
  auto* box = qobject_cast<LineEdit*>(focus);
  if (box != box_) {
    const QPointer<FocusCycle> self(this);
    const QPointer<LineEdit> now(box);
    const QPointer<LineEdit> before = std::exchange(box_, now);
    if (before) before->deliverLostFocus();
    if (now) now->deliverGotFocus();
    if (!self) return;
  }
  if (surfaceOf(window()->focusWidget()) == inside_ || queued_) return;
  queued_ = true;
  QMetaObject::invokeMethod(
      this, [this] { settlePending(); }, Qt::QueuedConnection);
}

bool FocusCycle::settlePending() { return !queued_ || run(); }

bool FocusCycle::run() {
  if (running_) return true;
  const QPointer<FocusCycle> self(this);
  running_ = true;
  refused_ = false;
  while (self && step()) continue;
  if (!self) return true;
  running_ = false;
  queued_ = false;
  return !refused_;
}

/// Leaves or enters one control. False when the control inside is the one with the focus. A
/// control that takes the focus back while it is left is entered again, and the other one hears
/// of nothing.
bool FocusCycle::step() {
  QWidget* focus = window()->focusWidget();
  if (!focus) return false;
  TsText* target = surfaceOf(focus);
  if (target == inside_) return false;
  if (inside_) {
    const QPointer<FocusCycle> self(this);
    const bool accepted = std::exchange(inside_, nullptr)->leaveSurface();
    if (self && !accepted) refused_ = true;
  } else {
    inside_ = target;
    target->enterSurface();
  }
  return true;
}

bool FocusCycle::settleField() {
  const QPointer<FocusCycle> self(this);
  if (!settlePending()) return false;
  if (!self) return true;
  const QPointer<TsText> field = inside_;
  if (!field || running_) return true;
  // With the focus on its own button a field does not check its text.
  field->setFocus(Qt::OtherFocusReason);
  running_ = true;
  inside_ = nullptr;
  const bool accepted = field->leaveSurface();
  if (!self) return accepted;
  running_ = false;
  run();
  return accepted;
}

void FocusCycle::enterAgain() {
  if (inside_ && !queued_ && !running_) inside_->enterSurface();
}

void FocusCycle::windowHidden() {
  inside_ = nullptr;
  box_ = nullptr;
}

bool settle(QWidget* widget) {
  FocusCycle* cycle = FocusCycle::existing(widget->window());
  return !cycle || cycle->settleField();
}

}  // namespace tessaria::qt
