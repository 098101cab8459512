// An operator's session with a customer that somebody else changes meanwhile.
#pragma once

#include "apps/demo/play/player.h"
#include "apps/demo/play/rows.h"

namespace tessaria::demo {

/// Changes customer 12 while another user does; the operator chooses field by field. Then begins to
/// change it once more, is asked when the window is to be closed, and stays. The customers' form
/// must be in front.
void playConflictSession(Player& player, const QString& connectionString);

/// The row that must be stored afterwards.
QList<ExpectedRow> rowsAfterConflictSession();

}  // namespace tessaria::demo
