// Which table a record set can write to, and by which key.
#pragma once

#include <optional>
#include <vector>

#include "hosts/odbc/column.h"
#include "hosts/odbc/session.h"

namespace tessaria::odbc {

/// The one table behind a result's columns.
struct KeyTable {
  String name;                    ///< schema and table, in quotation marks
  std::vector<std::size_t> keys;  ///< columns of the result that are the primary key
};

/// The table when all columns that have one have the same, no column of it comes twice, and its
/// whole primary key is there.
std::optional<KeyTable> FindKeyTable(Session& session, const Columns& columns);

/// The column names of a table's primary key, in its order. `statement` is a fresh one.
std::vector<String> PrimaryKeyOf(Session& session, const Statement& statement,
                                 const String& catalogue, const String& schema,
                                 const String& table);

/// The text of a column of the present row; nothing for Null.
std::optional<String> ReadText(Session& session, const Statement& statement, SQLUSMALLINT column);

}  // namespace tessaria::odbc
