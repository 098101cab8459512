#include "hosts/sql/rows/key_table.h"

#include <algorithm>
#include <set>

#include "hosts/sql/session/key_columns.h"

namespace tessaria::sql {
namespace {

// The column that names the table for all of them; nullptr when they do not agree.
const Column* CommonSource(const Columns& columns) {
  const Column* source = nullptr;
  std::set<String> seen;
  for (const Column& column : columns) {
    if (column.baseColumn.empty()) continue;
    if (source == nullptr) source = &column;
    if (column.table != source->table || column.schema != source->schema) return nullptr;
    if (!seen.insert(column.baseColumn).second) return nullptr;
  }
  return source == nullptr || source->table.empty() ? nullptr : source;
}

}  // namespace

std::optional<KeyTable> FindKeyTable(Session& session, const Columns& columns) {
  const Column* source = CommonSource(columns);
  if (source == nullptr) return std::nullopt;
  const Server& server = session.ServerInfo();
  KeyTable found;
  for (const String& key : RowKeyOf(session, *source, columns)) {
    const auto column = std::find_if(columns.begin(), columns.end(), [&](const Column& c) {
      return IsSameName(server.dialect, c.baseColumn, key);
    });
    if (column == columns.end()) return std::nullopt;
    found.keys.push_back(static_cast<std::size_t>(column - columns.begin()));
  }
  if (found.keys.empty()) return std::nullopt;
  found.name = TableNameOf(server, source->catalogue, source->schema, source->table);
  return found;
}

}  // namespace tessaria::sql
