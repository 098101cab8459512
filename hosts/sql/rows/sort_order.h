// Sorting the rows of a record set.
#pragma once

#include <vector>

#include "hosts/sql/rows/row_table.h"

namespace tessaria::sql {

/// "field [ASC|DESC], ...". Names as `ReadOrder` takes them. Errors: 3265 for an unknown field,
/// 3001 for a text that cannot be read.
std::vector<SortKey> ParseSortOrder(const Columns& columns, const String& text);

/// Sorts by the first key, then by the next ones; rows that are equal in all keep their order. Null
/// comes before every value. Texts are compared as in `CompareText`.
void SortRows(const RowTable& table, const std::vector<SortKey>& keys, std::vector<RowId>& rows);

}  // namespace tessaria::sql
