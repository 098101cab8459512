// An operator's session with a customer that somebody else has locked.
#pragma once

#include "apps/demo/play/player.h"

namespace tessaria::demo {

/// Changes customer 8, whose form must be in front, while another program has locked its row: the
/// wait is shown, Escape gives up, the edit stays, and is saved once the row is free.
void playLockSession(Player& player, const QString& connectionString);

}  // namespace tessaria::demo
