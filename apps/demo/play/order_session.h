// An operator's session with the orders.
#pragma once

#include "apps/demo/play/picker_session.h"
#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// Enters an order with three items by keyboard alone, after the customers' session. Another user
/// with a connection of that text is at work too.
void playOrderSession(Player& player, const OrderPapers& papers, const QString& connectionString);

/// The rows that the session leaves.
QList<ExpectedRow> rowsAfterOrderSession(const OrderPapers& papers);

}  // namespace tessaria::demo
