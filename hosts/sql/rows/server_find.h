// Searching by the server.
#pragma once

#include <cstdint>
#include <optional>

#include "hosts/sql/rows/find_criterion.h"
#include "hosts/sql/rows/server_order.h"

namespace tessaria::sql {

/// The number of rows, of a query whose rows come in ascending order of the criterion's column,
/// that come before every row that matches: so many need not be looked at. Nothing where that
/// cannot be told without reading them.
std::optional<std::uint32_t> RowsBeforeMatches(Snapshot& snapshot, const Columns& columns,
                                               const String& query, const FindCriterion& criterion);

}  // namespace tessaria::sql
