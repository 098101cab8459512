// The entry of a menu that an event is about to trigger.
#pragma once

#include <QAction>
#include <QEvent>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace tessaria::qt {

/// Sees the events of menus ahead of them. Triggering an entry is the last thing a menu does with
/// an event, when its windows are closed; whoever wants to come between has to know it before.
class MenuPicks final {
 public:
  /// The entry that the event triggers; nullptr for none. Entries with a menu of their own open it.
  QAction* picked(QMenu& menu, const QEvent& event);
  static QAction* picked(QMenuBar& bar, const QEvent& event);

  /// Whether the menu, which is open, runs a loop of its own that returns what was picked.
  bool runsLoop(const QMenu& menu) const;
  /// Closes all menus.
  static void close();
  /// Triggers the entry in the loop of a menu that is closed.
  static void triggerInLoop(QMenu& menu, QAction& action);

 private:
  QPointer<QMenu> pressed_;         ///< saw the mouse go down
  QHash<const QMenu*, int> level_;  ///< depth of event loops when the menu was shown
};

}  // namespace tessaria::qt
