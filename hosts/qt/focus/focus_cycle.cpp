#include "hosts/qt/focus/focus_cycle.h"

#include <QMenuBar>
#include <utility>

#include "hosts/qt/form/widget_tree.h"
#include "hosts/qt/keys/line_edit.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {
namespace {

/// A menu bar that is worked by keys gives the focus back: it takes it from nobody.
QWidget* focusOf(const QWidget* window) {
  QWidget* focus = window->focusWidget();
  return qobject_cast<QMenuBar*>(focus) ? nullptr : focus;
}

}  // namespace

FocusCycle::FocusCycle(QWidget* window) : QObject(window) {}

FocusCycle* FocusCycle::existing(const QWidget* window) {
  return window->findChild<FocusCycle*>({}, Qt::FindDirectChildrenOnly);
}

FocusCycle* FocusCycle::of(QWidget* window) {
  FocusCycle* cycle = existing(window);
  return cycle ? cycle : new FocusCycle(window);
}

void FocusCycle::focusMoved() {
  QWidget* focus = focusOf(window());
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

bool FocusCycle::settlePending(const StandIn& standIn) {
  if (!queued_) return true;
  const QPointer<FocusCycle> self(this);
  standIn_ = standIn.control;
  const bool settled = run();
  if (self) standIn_ = nullptr;
  return settled;
}

bool FocusCycle::run() {
  if (running_) return true;
  const QPointer<FocusCycle> self(this);
  running_ = true;
  unsettled_ = false;
  while (self && step()) continue;
  if (!self) return true;
  running_ = false;
  queued_ = false;
  return !unsettled_;
}

/// Leaves or enters one control. False when the control inside is the one with the focus. A
/// control that takes the focus back while it is left is entered again, and the other one hears
/// of nothing.
bool FocusCycle::step() {
  QWidget* focus = focusOf(window());
  if (!focus) return false;
  TsText* target = surfaceOf(focus);
  if (target == inside_) return false;
  if (inside_) {
    leave(*inside_);
  } else {
    inside_ = target;
    target->enterSurface();
  }
  return true;
}

void FocusCycle::leave(TsText& field) {
  const QPointer<FocusCycle> self(this);
  inside_ = nullptr;
  const ExitVerdict verdict = field.leaveSurface();
  if (self && verdict != ExitVerdict::Left) unsettled_ = true;
}

bool FocusCycle::hasFieldToSettle(const StandIn& standIn) const {
  return inside_ && !running_ && inside_->hasToSettle() &&
         !standIn.names.contains(inside_->objetoCancelar(), Qt::CaseInsensitive);
}

bool FocusCycle::wouldSettle(const StandIn& standIn) const {
  return queued_ || hasFieldToSettle(standIn);
}

bool FocusCycle::settleField(const StandIn& standIn) {
  const QPointer<FocusCycle> self(this);
  if (!settlePending()) return false;
  if (!self || !hasFieldToSettle(standIn)) return true;
  // With the focus on its own button a field does not check its text.
  inside_->setFocus(Qt::OtherFocusReason);
  if (!self || !inside_) return true;
  running_ = true;
  unsettled_ = false;
  standIn_ = standIn.control;
  leave(*inside_);
  if (!self) return true;
  standIn_ = nullptr;
  running_ = false;
  const bool settled = !unsettled_;
  run();
  return settled;
}

void FocusCycle::enterAgain() {
  if (inside_ && !queued_ && !running_) inside_->enterSurface();
}

void FocusCycle::windowHidden() {
  inside_ = nullptr;
  box_ = nullptr;
}

}  // namespace tessaria::qt
