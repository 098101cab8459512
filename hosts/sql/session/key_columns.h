// The keys of a table, as the driver's catalogue reports them.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/session/session.h"
#include "hosts/sql/values/column.h"

namespace tessaria::sql {

/// The parts of the primary key, in its order. Names must match exactly; an empty catalogue or
/// schema stands for all. When the driver cannot report primary keys, its unique indexes are
/// searched for one that is named as a primary key.
std::vector<KeyPart> PrimaryKeyOf(Session& session, const TablePlace& table);

/// The columns by which a row of the result can be found again: the primary key, or, when the
/// driver cannot report it, a unique index whose columns are all in the result.
std::vector<String> RowKeyOf(Session& session, const Column& source, const Columns& columns);

/// The unique index that identifies a row: the one named as a primary key, otherwise the first, of
/// those whose columns are all in the result and never Null. Empty when there is none. `parts` are
/// the columns of all unique indexes, with those of one index together.
std::vector<String> ChooseUniqueIndex(const std::vector<KeyPart>& parts, const Columns& columns);

}  // namespace tessaria::sql
