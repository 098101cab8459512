// Finds the table that a record set can write to, and its key.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/session/session.h"
#include "hosts/sql/values/column.h"

namespace tessaria::sql {

/// The only table behind the columns of a result.
struct KeyTable {
  String name;                    ///< as `TableNameOf` gives it
  std::vector<std::size_t> keys;  ///< columns of the result that are the primary key
};

/// The table when all columns that have one have the same, no column of it appears twice, and its
/// whole key is there: the primary key, or a unique index when the driver cannot report primary
/// keys.
std::optional<KeyTable> FindKeyTable(Session& session, const Columns& columns);

}  // namespace tessaria::sql
