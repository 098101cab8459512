// An operator's session with the orders.
#pragma once

#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// What lies on the disk for the session.
struct OrderPapers {
  QString document;  ///< a file to attach
  QString folder;    ///< where papers go
};

/// Enters an order with three items by keyboard alone, after the customers' session.
void playOrderSession(Player& player, const OrderPapers& papers);

/// The rows that the session leaves.
QList<ExpectedRow> rowsAfterOrderSession(const OrderPapers& papers);

}  // namespace tessaria::demo
