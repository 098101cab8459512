#include "hosts/qt/focus/action_gate.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/qt/surface.h"

namespace tessaria::qt {
namespace {

bool settlesField(const QObject& action) {
  const QVariant wish = action.property("settlesField");
  return !wish.isValid() || wish.toBool();
}

/// The window that a menu, or the widget with the focus, belongs to.
QWidget* windowBehind(QWidget* widget) {
  while (widget && widget->window()->windowType() == Qt::Popup)
    widget = widget->window()->parentWidget();
  return widget ? widget->window() : nullptr;
}

QWidget* windowInFocus(QWidget* menu = nullptr) {
  for (QWidget* each : {QApplication::focusWidget(), menu, QApplication::activeWindow()})
    if (QWidget* window = windowBehind(each)) return window;
  return nullptr;
}

bool takesFocusByClick(const QWidget& widget) {
  const QWidget* target = &widget;
  while (target->focusProxy()) target = target->focusProxy();
  return widget.isEnabled() && (widget.focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus &&
         (target->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus;
}

bool opensMenuOnly(const QWidget& widget) {
  if (const auto* tool = qobject_cast<const QToolButton*>(&widget))
    return tool->popupMode() == QToolButton::InstantPopup;
  const auto* button = qobject_cast<const QPushButton*>(&widget);
  return button && button->menu();
}

template <class... Classes>
bool isAnyOf(const QWidget& widget) {
  return (qobject_cast<const Classes*>(&widget) || ...);
}

/// Widgets whose clicks programs handle.
bool runsByPress(const QWidget& widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
  if (view && view->viewport() == &widget) return true;
  if (isAnyOf<QScrollBar>(widget) || opensMenuOnly(widget)) return false;
  return isAnyOf<QAbstractButton, QComboBox, QAbstractSpinBox, QAbstractSlider>(widget);
}

/// A data control settles the field for its own shortcuts.
bool settlesByItself(const QObject* owner) {
  const auto* control = dynamic_cast<const FormControl*>(owner);
  return control && control->settlesByItself();
}

/// The menu of a field, its box or its button.
bool belongsToField(const QMenu& menu) { return surfaceOf(menu.parentWidget()); }

}  // namespace

bool settleFor(QWidget& widget, const StandIn& standIn) {
  QPointer<QWidget> window(widget.window());
  for (bool floats = true; floats && window;) {
    FocusCycle* cycle = FocusCycle::existing(window);
    if (cycle && !cycle->settleField(standIn)) return false;
    floats = window && window->parentWidget() && isAnyOf<QToolBar, QDockWidget>(*window);
    if (floats) window = window->parentWidget()->window();
  }
  return true;
}

bool ActionGate::runsWithoutFocus(const QWidget& widget) {
  if (!widget.isEnabled() || !runsByPress(widget) || !settlesField(widget)) return false;
  for (const QWidget* w = &widget; w; w = w->isWindow() ? nullptr : w->parentWidget())
    if (takesFocusByClick(*w)) return false;
  return true;
}

bool ActionGate::turnsByWheel(const QWidget& widget) {
  return widget.isEnabled() && settlesField(widget) && !isAnyOf<QScrollBar>(widget) &&
         isAnyOf<QComboBox, QAbstractSpinBox, QAbstractSlider>(widget);
}

bool ActionGate::holdsBack(QObject* receiver, QEvent* event) {
  if (!MenuPicks::heeds(event->type())) return false;
  if (auto* menu = qobject_cast<QMenu*>(receiver))
    return menu != replaying_ && holdsBackPick(*menu, *event);
  if (auto* bar = qobject_cast<QMenuBar*>(receiver)) return holdsBackPick(*bar, *event);
  return event->type() == QEvent::Shortcut && holdsBackShortcut(receiver, *event);
}

bool ActionGate::holdsBackShortcut(QObject* receiver, const QEvent& event) {
  const QPointer<QObject> alive(receiver);
  if (auto* button = qobject_cast<QAbstractButton*>(receiver)) {
    if (!button->isVisible() || !button->isEnabled() || !settlesField(*button)) return false;
    return !takeFocusBeforePress(button);
  }
  const bool ambiguous = static_cast<const QShortcutEvent&>(event).isAmbiguous();
  const bool isAction = qobject_cast<QAction*>(receiver) && !ambiguous;
  const bool isShortcut =
      qobject_cast<QShortcut*>(receiver) && !settlesByItself(receiver->parent());
  QWidget* window = windowInFocus();
  if (!window || !(isAction || isShortcut) || !settlesField(*receiver)) return false;
  return !settleFor(*window, standInOf(*receiver, *window)) || !alive;
}

bool ActionGate::holdsBackPick(QMenu& menu, const QEvent& event) {
  const QPointer<QAction> action(picks_.picked(menu, event));
  QWidget* window = windowInFocus(&menu);
  if (!action || !window || !settlesField(*action) || belongsToField(menu)) return false;
  FocusCycle* cycle = FocusCycle::existing(window);
  const StandIn standIn = standInOf(*action, *window);
  if (!cycle || !cycle->wouldSettle(standIn)) return false;
  const QPointer<QMenu> alive(&menu);
  const bool inLoop = picks_.runsLoop(menu);
  MenuPicks::close();
  if (!settleFor(*window, standIn) || !action) return true;
  if (!inLoop) {
    action->trigger();
  } else if (alive) {
    replaying_ = alive;
    MenuPicks::triggerInLoop(*alive, *action);
    replaying_ = nullptr;
  }
  return true;
}

bool ActionGate::holdsBackPick(QMenuBar& bar, const QEvent& event) {
  const QAction* action = MenuPicks::picked(bar, event);
  if (!action || !settlesField(*action)) return false;
  const QPointer<QMenuBar> alive(&bar);
  return !settleFor(bar, standInOf(*action, *bar.window())) || !alive;
}

}  // namespace tessaria::qt
