// An operator's use of the calendar, the calculator and the folder picker of an order.
#pragma once

#include "apps/demo/play/player.h"

namespace tessaria::demo {

/// The files and folders that the session needs.
struct OrderPapers {
  QString document;  ///< a file to attach
  QString folder;    ///< the folder of the papers, beside the file
  QString other;     ///< another file beside the first one
};

/// Picks 05/12/2026 as the day of delivery.
void playCalendar(Player& player);

/// Picks the document, then the folder.
void playFolders(Player& player, const OrderPapers& papers);

/// Computes a price in the field that has the focus, with its calculator: opens it with `key` and
/// types `keys`, which end with "=".
void playCalculator(Player& player, const QString& key, const QString& keys,
                    const QString& picture);

}  // namespace tessaria::demo
