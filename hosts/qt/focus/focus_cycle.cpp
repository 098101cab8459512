#include "hosts/qt/focus/focus_cycle.h"

#include <QHash>
#include <QMenuBar>
#include <QPointer>
#include <utility>

#include "hosts/qt/boundary/operator_action.h"
#include "hosts/qt/boundary/wait_input.h"
#include "hosts/qt/form/active_control.h"
#include "hosts/qt/form/widget_tree.h"

namespace tessaria::qt {
namespace {

/// A menu bar that is operated by keys returns the focus: it does not take it from a field.
QWidget* focusOf(const QWidget* window) {
  QWidget* focus = window->focusWidget();
  return qobject_cast<QMenuBar*>(focus) ? nullptr : focus;
}

/// The cycles by their windows, which own them. A window has too many children to search them for
/// its cycle at each key and each field.
QHash<const QWidget*, FocusCycle*>& cycles() {
  static thread_local QHash<const QWidget*, FocusCycle*> instance;
  return instance;
}

}  // namespace

FocusCycle::FocusCycle(QWidget* window) : QObject(window) { cycles().insert(window, this); }

FocusCycle::~FocusCycle() { cycles().remove(window()); }

FocusCycle* FocusCycle::existing(const QWidget* window) { return cycles().value(window); }

FocusCycle* FocusCycle::of(QWidget* window) {
  FocusCycle* cycle = existing(window);
  return cycle ? cycle : new FocusCycle(window);
}

void FocusCycle::focusMoved() {
  QWidget* focus = focusOf(window());
  if (!focus) return;
  auto* box = dynamic_cast<FocusedEdit*>(focus);
  if (box != box_) {
    const QPointer<FocusCycle> self(this);
    const ControlPointer<FocusedEdit> now(box);
    const ControlPointer<FocusedEdit> before = std::exchange(box_, now);
    if (before) before->deliverLostFocus();
    if (now) now->deliverGotFocus();
    if (!self) return;
  }
  if (surfaceOf(window()->focusWidget()) == inside_ || queued_) return;
  queued_ = true;
  runLater(this, [this, action = presentAction()] {
    const DuringAction during(action);
    settlePending();
  });
}

bool FocusCycle::settlePending(const StandIn& standIn) {
  if (!queued_) return true;
  const QPointer<FocusCycle> self(this);
  setActiveStandIn(*window(), standIn.control);
  const bool settled = run();
  if (self) setActiveStandIn(*window(), nullptr);
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

/// Leaves or enters one control. Returns false if the entered control is the one with the focus. A
/// control that takes the focus back while it is left is entered again, and the other one gets no
/// event.
bool FocusCycle::step() {
  QWidget* focus = focusOf(window());
  if (!focus) return false;
  Surface* target = surfaceOf(focus);
  if (target == inside_) return false;
  if (inside_) {
    leave(*inside_);
  } else {
    inside_ = target;
    target->entered();
  }
  return true;
}

void FocusCycle::leave(Surface& field) {
  const QPointer<FocusCycle> self(this);
  inside_ = nullptr;
  const ExitVerdict verdict = field.left();
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
  // A field does not check its text while its own button has the focus.
  inside_->widget().setFocus(Qt::OtherFocusReason);
  if (!self || !inside_) return true;
  running_ = true;
  unsettled_ = false;
  setActiveStandIn(*window(), standIn.control);
  leave(*inside_);
  if (!self) return true;
  setActiveStandIn(*window(), nullptr);
  running_ = false;
  const bool settled = !unsettled_;
  run();
  return settled;
}

void FocusCycle::enterAgain() {
  if (inside_ && !queued_ && !running_) inside_->entered();
}

void FocusCycle::windowHidden() {
  inside_ = nullptr;
  box_ = nullptr;
}

}  // namespace tessaria::qt
