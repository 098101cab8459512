// The items of an order: product, quantity and price.
#pragma once

#include <optional>

#include "tessaria/qt/item_grid.h"

namespace tessaria::demo {

/// The columns of the items, and where they are stored.
qt::ItemSettings orderItems();

/// What is wrong with an item; nothing when it may stay.
std::optional<qt::ItemGrid::Refusal> refusalOf(const qt::ItemRow& item);

/// Proposes the price of a product that was chosen.
void proposePrices(qt::ItemGrid& items);

}  // namespace tessaria::demo
