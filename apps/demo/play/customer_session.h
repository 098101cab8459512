// An operator's session with the customers.
#pragma once

#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// Fills in a new customer; a wrong date, an unknown state and a blank name are refused and
/// corrected. Then saves, moves through the customers and changes one. The main window must be in
/// front, with the data as they are first loaded.
void playCustomerSession(Player& player);

/// The rows that must be stored after this session and that of the locked customer.
QList<ExpectedRow> rowsAfterCustomerSession();

}  // namespace tessaria::demo
