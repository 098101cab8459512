// Sorting by the server, in the order that this layer's own sorting has.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/rows/sort_key.h"
#include "hosts/sql/session/snapshot.h"

namespace tessaria::sql {

/// The query with its rows in another order, and its columns in the form in which they arrive; the
/// statement's own order without keys. Null comes before every value, as in `SortRows`. A column of
/// texts is sorted by its own collation, which an index may provide, where that puts letters in the
/// order of a dictionary; otherwise as in `CompareText`. Nothing when a column is of a type that
/// cannot be sorted this way, or the server refuses it.
std::optional<String> OrderedQuery(Snapshot& snapshot, const Columns& columns, const String& query,
                                   const std::vector<SortKey>& keys);

}  // namespace tessaria::sql
