// Which table and columns a query shows, read from its text.
#pragma once

#include <optional>
#include <vector>

#include "hosts/odbc/statements/dialect.h"
#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// The one table behind a query, for drivers that do not tell.
struct StatementSource {
  String catalogue, schema, table;           ///< empty where the text has none
  bool isWhole = false;                      ///< "*": all columns under their own names
  std::vector<std::optional<String>> items;  ///< a column's name, or nothing for an expression
};

/// Of "Select items From table ..." with one table, which the guard has found it to be. Nothing for
/// a text that cannot be read so: a temporary table, a name of four parts.
std::optional<StatementSource> SourceOf(StringView text, Dialect dialect);

/// Tells the columns where they come from, unless the driver told of one or their number is not
/// that of the items.
void FillSource(Columns& columns, const StatementSource& source);

}  // namespace tessaria::odbc
