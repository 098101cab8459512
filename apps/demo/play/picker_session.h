// An operator's way through the calendar, the calculator and the folders of an order.
#pragma once

#include "apps/demo/play/player.h"

namespace tessaria::demo {

/// What lies on the disk for the session.
struct OrderPapers {
  QString document;  ///< a file to attach
  QString folder;    ///< where papers go, a folder beside it
  QString other;     ///< another file beside the first one
};

/// Picks 05/12/2026 as the day of delivery.
void playCalendar(Player& player);

/// Picks the document, then the folder.
void playFolders(Player& player, const OrderPapers& papers);

/// Works out a price in the field that holds the focus, by its calculator: opened with `key`, fed
/// with `keys` that end with "=".
void playCalculator(Player& player, const QString& key, const QString& keys,
                    const QString& picture);

}  // namespace tessaria::demo
