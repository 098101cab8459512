// Sorting by the server, in the order that this layer's own sorting has.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/rows/sort_key.h"
#include "hosts/sql/session/snapshot.h"

namespace tessaria::sql {

/// The query with its rows in another order, and its columns in the form in which they arrive; the
/// statement's own order without keys. Null comes before every value, as in `SortRows`. A column of
/// texts is sorted by its own collation, which an index may provide. Nothing when that does not put
/// letters in the order of a dictionary, when a column is of another type than numbers, dates and
/// texts, or when the server refuses it.
std::optional<String> OrderedQuery(Snapshot& snapshot, const Columns& columns, const String& query,
                                   const std::vector<SortKey>& keys);

// For other questions about such a query.
/// It as a source of rows, whose columns are named by `ServerName`.
String ServerSource(const Columns& columns, const String& query);
String ServerName(const SortKey& key);
/// Whether the server sorts such a column as `SortRows` does, if `DictionaryQuestion` is answered
/// with 1.
bool IsSortedByServer(const Column& column);
/// An expression that gives 1 when a column's collation puts letters in the order of a dictionary,
/// and for a column that is no text. It does not read any row.
String DictionaryQuestion(const Columns& columns, const SortKey& key, const String& from);

}  // namespace tessaria::sql
