#include "hosts/sql/session/first_row.h"

#include "hosts/sql/values/cell.h"

namespace tessaria::sql {

TextRow FirstRow(Statement& statement) {
  const Columns columns = statement.Describe();
  if (columns.empty()) return {};
  statement.Bind(columns);
  ColumnStore store(columns);
  if (statement.Fetch() == 0) return {};
  statement.Take(store);
  TextRow row;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    row.push_back(store.IsNull(0, i) ? std::nullopt
                                     : std::optional(CellParameter(store, columns, 0, i)));
  }
  return row;
}

std::optional<String> LastText(Statement& statement) {
  std::optional<String> text;
  do {
    const TextRow row = FirstRow(statement);
    if (!row.empty()) text = row[0];
  } while (statement.NextResult());
  return text;
}

}  // namespace tessaria::sql
