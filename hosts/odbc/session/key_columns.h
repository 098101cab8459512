// The keys of a table, as the driver's catalogue tells them.
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

/// Names must agree exactly; an empty catalogue or schema stands for all. In the order of the
/// key. A driver that cannot tell primary keys is asked for the unique indexes, and one that is
/// named as a primary key is taken for it.
std::vector<KeyPart> PrimaryKeyOf(Session& session, const String& catalogue, const String& schema,
                                  const String& table);

/// The columns by which a row of the result can be found again: the primary key, or, with a driver
/// that cannot tell that, a unique index whose columns are all in the result.
std::vector<String> RowKeyOf(Session& session, const Column& source, const Columns& columns);

/// The unique index by which a row is known: the one named as a primary key, else the first, of
/// those whose columns are all in the result and never Null. Empty when there is none. `parts` are
/// the columns of all unique indexes, those of one index together.
std::vector<String> ChooseUniqueIndex(const std::vector<KeyPart>& parts, const Columns& columns);

/// A name as the catalogue calls take it: no name is a null pointer.
SQLWCHAR* NameOrNull(const String& name);
SQLSMALLINT NameLength(const String& name);

/// To the next row of a result; false behind the last.
bool NextRow(Session& session, const Statement& statement);
/// A column of the present row: nothing for a Null text, 0 for a Null number.
std::optional<String> ReadText(Session& session, const Statement& statement, SQLUSMALLINT column);
Long ReadLong(Session& session, const Statement& statement, SQLUSMALLINT column);
/// The first column of the first row of a statement's last result that has columns.
std::optional<String> LastText(Session& session, const Statement& statement);

}  // namespace tessaria::odbc
