// An operator's use of the lists of an order's codes.
#pragma once

#include "apps/demo/play/player.h"

namespace tessaria::demo {

/// The customers' list on an empty field: its menu, a sorted list, a combined search and one by
/// date. Nothing is chosen.
void playCustomerList(Player& player);

/// A state without cities, then the cities of Minas Gerais: one is found by its name and chosen.
void playCityList(Player& player);

/// A list whose table another user has renamed temporarily, then the same list again, in which the
/// term of three instalments is chosen. `connectionString` is the other user's.
void playTermList(Player& player, const QString& connectionString);

/// The products up to a price; one is chosen.
void playProductList(Player& player);

}  // namespace tessaria::demo
