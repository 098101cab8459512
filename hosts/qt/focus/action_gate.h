// Settles the field in focus before running an action that does not take the focus.
#pragma once

#include <QWidget>

#include "hosts/qt/focus/menu_pick.h"
#include "hosts/qt/focus/stand_in.h"

namespace tessaria::qt {

/// Sees the events of the application before their receivers: shortcuts, menu entries, and presses
/// on buttons and other controls that do not take the focus when clicked. A field that refuses its
/// text, or whose value could not be stored, prevents the action.
///
/// An action, shortcut or button whose property "settlesField" is false runs without settling: the
/// commands of a menu "Edit" work on the selection in the field.
class ActionGate final {
 public:
  /// Returns true if the event must not be delivered.
  bool holdsBack(QObject* receiver, QEvent* event);
  /// Whether a mouse press on a widget would run something without moving the focus.
  static bool runsWithoutFocus(const QWidget& widget);
  /// Whether the mouse wheel would change the widget's value.
  static bool turnsByWheel(const QWidget& widget);

 private:
  bool holdsBackShortcut(QObject* receiver, const QEvent& event);
  bool holdsBackPick(QMenu& menu, const QEvent& event);
  bool holdsBackPick(QMenuBar& bar, const QEvent& event);

  MenuPicks picks_;
  QPointer<QMenu> replaying_;  ///< the menu that triggers its entry in its own loop
};

/// Settles the field of the window of `widget`, or of the window that its floating tool bar or dock
/// belongs to. Returns false if an action must not run.
bool settleFor(QWidget& widget, const StandIn& standIn);

}  // namespace tessaria::qt
