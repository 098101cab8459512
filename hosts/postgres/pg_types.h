// The types of the server that this driver knows.
#pragma once

#include <libpq-fe.h>

#include "hosts/postgres/binary_cells.h"
#include "hosts/sql/values/column.h"

namespace tessaria::postgres {

inline constexpr Oid kByteaType = 17;
inline constexpr Oid kTextType = 25;

/// Type, size and digits of a column; `modifier` is what the server adds to the type, -1 for
/// nothing. An unknown type is described as a text of the type "unknown".
sql::ColumnDescription DescriptionOf(Oid type, int modifier);

/// How a cell of the type is read in binary form. A null pointer where it must be asked for as a
/// text.
AppendBinary BinaryReaderOf(Oid type);

}  // namespace tessaria::postgres
