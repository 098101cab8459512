// Which table a record set can write to, and by which key.
#pragma once

#include <optional>
#include <vector>

#include "hosts/odbc/session/session.h"
#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// The one table behind a result's columns.
struct KeyTable {
  String name;                    ///< as `TableNameOf` gives it
  std::vector<std::size_t> keys;  ///< columns of the result that are the primary key
};

/// The table when all columns that have one have the same, no column of it comes twice, and its
/// whole key is there: the primary key, or a unique index with a driver that cannot tell that.
std::optional<KeyTable> FindKeyTable(Session& session, const Columns& columns);

}  // namespace tessaria::odbc
