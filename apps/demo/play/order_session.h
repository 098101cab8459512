// An operator's session with the orders.
#pragma once

#include "apps/demo/play/picker_session.h"
#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// Enters an order with three items by keyboard alone, after the customers' session. Another user
/// works at the same time, with the connection string `connectionString`.
void playOrderSession(Player& player, const OrderPapers& papers, const QString& connectionString);

/// The rows that must be stored after the session.
QList<ExpectedRow> rowsAfterOrderSession(const OrderPapers& papers);

}  // namespace tessaria::demo
