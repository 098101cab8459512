// The keys of a table, as the driver's catalogue reports them.
#pragma once

#include <optional>
#include <vector>

#include "hosts/odbc/session/session.h"
#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// One column of a key.
struct KeyPart {
  std::optional<String> catalogue, schema;
  String table, column;
  Long ordinal = 0;  ///< from 1
  std::optional<String> key;
};

/// The parts of the primary key, in its order. Names must match exactly; an empty catalogue or
/// schema stands for all. When the driver cannot report primary keys, its unique indexes are
/// searched for one that is named as a primary key.
std::vector<KeyPart> PrimaryKeyOf(Session& session, const String& catalogue, const String& schema,
                                  const String& table);

/// The columns by which a row of the result can be found again: the primary key, or, when the
/// driver cannot report it, a unique index whose columns are all in the result.
std::vector<String> RowKeyOf(Session& session, const Column& source, const Columns& columns);

/// The unique index that identifies a row: the one named as a primary key, otherwise the first, of
/// those whose columns are all in the result and never Null. Empty when there is none. `parts` are
/// the columns of all unique indexes, with those of one index together.
std::vector<String> ChooseUniqueIndex(const std::vector<KeyPart>& parts, const Columns& columns);

/// A name as the catalogue calls take it: an empty name is a null pointer.
SQLWCHAR* NameOrNull(const String& name);
SQLSMALLINT NameLength(const String& name);

/// Moves to the next row of a result. Returns false after the last one.
bool NextRow(Session& session, const Statement& statement);
/// A column of the current row: nothing for a Null text, 0 for a Null number.
std::optional<String> ReadText(Session& session, const Statement& statement, SQLUSMALLINT column);
Long ReadLong(Session& session, const Statement& statement, SQLUSMALLINT column);
/// The first column of the first row of a statement's last result that has columns.
std::optional<String> LastText(Session& session, const Statement& statement);

}  // namespace tessaria::odbc
