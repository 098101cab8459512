// Settles the field in focus before an action runs that takes no focus.
#pragma once

#include <QWidget>

#include "hosts/qt/focus/menu_pick.h"
#include "hosts/qt/focus/stand_in.h"

namespace tessaria::qt {

/// Sees the events of the application ahead of their receivers: shortcuts, picks from menus, and
/// presses on buttons and other controls that take no focus by the mouse. A field that refuses, or
/// whose value could not be taken, holds the action back.
///
/// An action, shortcut or button whose property "settlesField" is false runs as it is: the commands
/// of a menu "Edit" work on what is selected in the field.
class ActionGate final {
 public:
  /// Whether the event ends here.
  bool holdsBack(QObject* receiver, QEvent* event);
  /// A mouse press on a widget: whether it would run something while the focus stays where it is.
  static bool runsWithoutFocus(const QWidget& widget);
  /// Whether the wheel of the mouse would change the widget's value.
  static bool turnsByWheel(const QWidget& widget);

 private:
  bool holdsBackShortcut(QObject* receiver, const QEvent& event);
  bool holdsBackPick(QMenu& menu, const QEvent& event);
  bool holdsBackPick(QMenuBar& bar, const QEvent& event);

  MenuPicks picks_;
  QPointer<QMenu> replaying_;  ///< triggers its entry in its own loop
};

/// Settles the field of the window of `widget`, or of the window that its floating tool bar or dock
/// belongs to. False when an action must not run.
bool settleFor(QWidget& widget, const StandIn& standIn);

}  // namespace tessaria::qt
