// The items of one row in the database: how they are read and written.
#pragma once

#include <optional>
#include <vector>

#include "tessaria/host/data.h"
#include "tessaria/qt/item_settings.h"

namespace tessaria::qt {

/// An item as it was read or written: its number, and a value for each column of the grid.
struct StoredItem {
  Variant number;
  std::vector<Variant> values;
};

/// An item that is to be stored, and what it was read as.
struct ItemToStore {
  std::optional<StoredItem> former;
  std::vector<Variant> values;
};

/// The values of the links, in their order.
using ParentValues = std::vector<Variant>;

/// Whether two values are stored alike.
bool isStoredAlike(const Variant& a, const Variant& b);

std::vector<StoredItem> readItems(const ItemSettings& settings,
                                  const host::ConnectionPtr& connection,
                                  const ParentValues& parents);

/// Makes the database hold exactly `items`, and returns them as they are stored. `loaded` is what
/// was read: error -2147217864 when the database holds anything else now, unless `overwrites` or
/// it holds `items` already.
std::vector<StoredItem> writeItems(const ItemSettings& settings,
                                   const host::ConnectionPtr& connection,
                                   const ParentValues& parents,
                                   const std::vector<StoredItem>& loaded,
                                   const std::vector<ItemToStore>& items, bool overwrites);

}  // namespace tessaria::qt
