#include "hosts/odbc/key_table.h"

#include <algorithm>
#include <array>
#include <set>

namespace tessaria::odbc {
namespace {

// A name as the catalogue calls take it: no name is a null pointer.
SQLWCHAR* NameOrNull(const String& name) { return name.empty() ? nullptr : Wide(name.c_str()); }
SQLSMALLINT Length(const String& name) { return static_cast<SQLSMALLINT>(name.size()); }

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

std::optional<String> ReadText(Session& session, const Statement& statement, SQLUSMALLINT column) {
  std::array<char16_t, 2048> buffer{};
  SQLLEN bytes = 0;
  session.Check(
      SQLGetData(statement.get(), column, SQL_C_WCHAR, buffer.data(), sizeof buffer, &bytes),
      statement);
  if (bytes == SQL_NULL_DATA) return std::nullopt;
  return String(buffer.data());
}

std::vector<String> PrimaryKeyOf(Session& session, const Statement& statement,
                                 const String& catalogue, const String& schema,
                                 const String& table) {
  session.Check(
      SQLPrimaryKeysW(statement.get(), NameOrNull(catalogue), Length(catalogue), NameOrNull(schema),
                      Length(schema), Wide(table.c_str()), Length(table)),
      statement);
  std::vector<std::pair<int, String>> parts;
  for (;;) {
    const SQLRETURN result = SQLFetch(statement.get());
    session.Check(result, statement);
    if (result == SQL_NO_DATA) break;
    String name = ReadText(session, statement, 4).value_or(String());
    SQLSMALLINT sequence = 0;
    SQLLEN length = 0;
    session.Check(SQLGetData(statement.get(), 5, SQL_C_SSHORT, &sequence, 0, &length), statement);
    parts.emplace_back(sequence, std::move(name));
  }
  std::sort(parts.begin(), parts.end());
  std::vector<String> names;
  for (auto& part : parts) names.push_back(std::move(part.second));
  return names;
}

std::optional<KeyTable> FindKeyTable(Session& session, const Columns& columns) {
  const Column* source = CommonSource(columns);
  if (source == nullptr) return std::nullopt;
  const Server& server = session.ServerInfo();
  // Other drivers than PostgreSQL's cannot run a second statement beside arriving rows.
  const Statement statement =
      server.IsPostgres() ? session.InnerStatement() : session.NewStatement();
  KeyTable found;
  for (const String& key :
       PrimaryKeyOf(session, statement, source->catalogue, source->schema, source->table)) {
    const auto column = std::find_if(columns.begin(), columns.end(),
                                     [&](const Column& c) { return c.baseColumn == key; });
    if (column == columns.end()) return std::nullopt;
    found.keys.push_back(static_cast<std::size_t>(column - columns.begin()));
  }
  if (found.keys.empty()) return std::nullopt;
  if (!source->schema.empty()) found.name = QuoteName(server, source->schema) + u".";
  found.name += QuoteName(server, source->table);
  return found;
}

}  // namespace tessaria::odbc
