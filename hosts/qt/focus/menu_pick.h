// The entry of a menu that an event is about to trigger.
#pragma once

#include <QAction>
#include <QEvent>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace tessaria::qt {

/// Sees the events of menus before the menus do. Triggering an entry is the last thing that a menu
/// does with an event, after its windows are closed; code that must run before has to find out
/// earlier.
class MenuPicks final {
 public:
  /// The entry that the event triggers; nullptr for none. Entries with a submenu only open it.
  QAction* picked(QMenu& menu, const QEvent& event);
  static QAction* picked(QMenuBar& bar, const QEvent& event);

  /// Whether events of the type can trigger an entry, or tell which one the next event triggers.
  static bool heeds(QEvent::Type type);

  /// Whether the open menu runs a loop of its own that returns the chosen entry.
  bool runsLoop(const QMenu& menu) const;
  /// Closes all menus.
  static void close();
  /// Triggers the entry in the loop of a closed menu.
  static void triggerInLoop(QMenu& menu, QAction& action);

 private:
  QPointer<QMenu> pressed_;         ///< the menu that received the mouse press
  QHash<const QMenu*, int> level_;  ///< depth of event loops when each menu was shown
};

}  // namespace tessaria::qt
