#include "hosts/qt/program/form_events.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>

#include "hosts/qt/boundary/wait_input.h"
#include "hosts/qt/boundary/window_in_front.h"
#include "hosts/qt/dialogs/dialog_window.h"
#include "hosts/qt/focus/delegate_editor.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/focus/focused_edit.h"
#include "hosts/qt/form/first_show.h"
#include "hosts/qt/form/pages.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/qt/settle.h"

namespace tessaria::qt {
namespace {

/// First shows process events, and inside the show of an outer widget Qt still iterates over its
/// children, where it would meet an object that is deleted meanwhile. A window is shown after all
/// its children, and its forms with it; a form that is shown later waits for the event loop.
void formShows(QWidget* widget) {
  if (!widget->isWindow() || WaitInput::isUnderWay()) {
    showFirstSoon(widget);
    return;
  }
  QList<QPointer<QWidget>> forms{widget};
  for (QWidget* inner : widget->findChildren<QWidget*>())
    if (isForm(inner) && inner->isVisible()) forms << inner;
  for (const auto& form : forms)
    if (form) showFirst(form);
}

}  // namespace

FormEvents::FormEvents(QObject* parent) : QObject(parent) {
  qApp->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { focusChanged(now); });
}

bool FormEvents::eventFilter(QObject* object, QEvent* event) {
  if (actions_.holdsBack(object, event)) return true;
  return object->isWidgetType() && swallows(static_cast<QWidget*>(object), event);
}

bool FormEvents::swallows(QWidget* widget, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      watchShow(widget);
      return false;
    case QEvent::Hide:
      if (widget->isWindow() && !event->spontaneous())
        if (FocusCycle* cycle = FocusCycle::existing(widget)) cycle->windowHidden();
      return false;
    case QEvent::WindowActivate:
      if (widget->isWindow()) noteActive(*widget);
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return swallowsPress(widget, *static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
      return swallowsWheel(widget);
    case QEvent::KeyPress:
      return swallowsKey(widget) || movesToNextPage(widget, *static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
      return swallowsKey(widget);
    case QEvent::Close:
      return closesByFrame(*widget, *event) &&
             swallowsClose(widget, *static_cast<QCloseEvent*>(event));
    default:
      return false;
  }
}

void FormEvents::focusChanged(QWidget* now) {
  if (!now) return;
  if (FocusCycle* cycle = FocusCycle::existing(now->window())) cycle->focusMoved();
}

void FormEvents::watchShow(QWidget* widget) {
  if (widget->isWindow() && widget->isModal()) ++modalShows_;
  if (isForm(widget)) formShows(widget);
}

/// The mouse has moved the focus, and the field that had it is not yet settled.
bool FormEvents::hasMoved(const QWidget& widget) {
  const FocusCycle* cycle = FocusCycle::existing(widget.window());
  return cycle && cycle->hasPending();
}

/// Returns false if the mouse event must not reach the widget.
bool FormEvents::settlesAhead(QWidget* widget, bool moved, bool stays) {
  const QPointer<QWidget> alive(widget);
  const QPointer<QWidget> focus(widget->window()->focusWidget());
  const StandIn standIn = stays ? standInOf(*widget) : StandIn();
  const bool settled = moved ? FocusCycle::existing(widget->window())->settlePending(standIn)
                             : settleFor(*widget, standIn);
  return alive && settled && (!moved || alive->window()->focusWidget() == focus);
}

/// The wheel can change a box that does not have the focus.
bool FormEvents::swallowsWheel(QWidget* widget) {
  const bool moved = hasMoved(*widget);
  const bool stays = !moved && ActionGate::turnsByWheel(*widget);
  return (moved || stays) && !settlesAhead(widget, moved, stays);
}

/// The press has already moved the focus, unless the widget does not take it. Under a modal window
/// the release went elsewhere, and the widget would stay half pressed: a button is clicked instead.
bool FormEvents::swallowsPress(QWidget* widget, const QMouseEvent& press) {
  const bool moved = hasMoved(*widget);
  const bool stays = ActionGate::runsWithoutFocus(*widget);
  if (!moved && !stays) return false;
  const int modals = modalShows_;
  if (!settlesAhead(widget, moved, stays)) return true;
  if (modalShows_ != modals) {
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button && press.button() == Qt::LeftButton) button->click();
    return true;
  }
  if (auto* edit = dynamic_cast<FocusedEdit*>(widget)) edit->keepSelectionOverClick();
  return false;
}

/// The frame of a window asks it to close, which cancels the library's own dialogs. A form that
/// asks its operator what to do does so whether its field has refused or not.
bool FormEvents::swallowsClose(QWidget* window, QCloseEvent& close) {
  if (qobject_cast<DialogWindow*>(window)) return false;
  const QPointer<QWidget> alive(window);
  if (settle(window) || (alive && window->property("asksBeforeClosing").toBool())) return !alive;
  close.ignore();
  return true;
}

/// The keys work from any widget of a form with fields; widgets that write or navigate with the key
/// keep it.
bool FormEvents::movesToNextPage(QWidget* widget, const QKeyEvent& key) {
  const bool back = key.key() == Qt::Key_Backtab ||
                    (key.key() == Qt::Key_Tab && key.modifiers().testFlag(Qt::ShiftModifier));
  if (!back && key.key() != Qt::Key_Tab) return false;
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  QWidget* window = widget->window();
  if (widget != window->focusWidget() || !FocusCycle::existing(window)) return false;
  Surface* field = surfaceOf(widget);
  if (field && isCellEditor(&field->widget())) return false;
  return !qobject_cast<QAbstractScrollArea*>(widget) && focusNextPage(window, !back);
}

/// A key for a field that the focus did not reach.
bool FormEvents::swallowsKey(QWidget* widget) {
  FocusCycle* cycle = FocusCycle::existing(widget->window());
  if (!cycle || !cycle->hasPending() || widget->window()->focusWidget() != widget) return false;
  const QPointer<QWidget> alive(widget);
  cycle->settlePending();
  return !alive || alive->window()->focusWidget() != alive;
}

}  // namespace tessaria::qt
