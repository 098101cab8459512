// An operator's session with the customers.
#pragma once

#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// Fills a new customer, is refused a wrong date, an unknown state and a blank name, corrects
/// them and saves; moves through the customers and changes one. `window` is the main window in
/// front of the data as they are first loaded.
void playCustomerSession(Player& player);

/// The rows that the session leaves.
QList<ExpectedRow> rowsAfterCustomerSession();

}  // namespace tessaria::demo
