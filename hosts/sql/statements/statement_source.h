// Reads from the text of a query which table and columns it shows.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/statements/dialect.h"
#include "hosts/sql/values/column.h"

namespace tessaria::sql {

/// The only table of a query, for drivers that do not report it.
struct StatementSource {
  String catalogue, schema, table;           ///< empty where the text has none
  bool isWhole = false;                      ///< "*": all columns under their own names
  std::vector<std::optional<String>> items;  ///< a column's name, or nothing for an expression
};

/// For "Select items From table ..." with one table, as the guard has determined. Nothing for a
/// text that cannot be read this way: a temporary table, a name of four parts.
std::optional<StatementSource> SourceOf(StringView text, Dialect dialect);

/// Sets the origin of the columns, unless the driver reported one of them or their number is not
/// that of the items.
void FillSource(Columns& columns, const StatementSource& source);

}  // namespace tessaria::sql
