#include "hosts/odbc/session/key_columns.h"

#include <algorithm>
#include <array>

#include "hosts/odbc/driver/diagnostics.h"
#include "hosts/odbc/driver/wide.h"
#include "tessaria/text.h"

namespace tessaria::odbc {
namespace {

// The name that Access gives to the index of a primary key.
constexpr StringView kPrimaryIndex = u"PrimaryKey";

// Drivers other than PostgreSQL's cannot run a second statement while rows arrive.
Statement CatalogueStatement(Session& session) {
  return session.ServerInfo().IsPostgres() ? session.InnerStatement() : session.NewStatement();
}

// Returns nothing when the driver does not support the call.
std::optional<std::vector<KeyPart>> AskedPrimaryKey(Session& session, const String& catalogue,
                                                    const String& schema, const String& table) {
  const Statement statement = CatalogueStatement(session);
  try {
    session.Check(SQLPrimaryKeysW(statement.get(), NameOrNull(catalogue), NameLength(catalogue),
                                  NameOrNull(schema), NameLength(schema), Wide(table.c_str()),
                                  NameLength(table)),
                  statement);
  } catch (const OdbcError& error) {
    if (error.IsNotSupported()) return std::nullopt;
    throw;
  }
  std::vector<KeyPart> parts;
  while (NextRow(session, statement)) {
    KeyPart part;
    part.catalogue = ReadText(session, statement, 1);
    part.schema = ReadText(session, statement, 2);
    part.table = ReadText(session, statement, 3).value_or(String());
    part.column = ReadText(session, statement, 4).value_or(String());
    part.ordinal = ReadLong(session, statement, 5);
    part.key = ReadText(session, statement, 6);
    parts.push_back(std::move(part));
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const KeyPart& a, const KeyPart& b) { return a.ordinal < b.ordinal; });
  return parts;
}

// Returns an empty list when the driver does not support this call either, or rejects it for what
// is not a table of its own.
std::vector<KeyPart> UniqueIndexesOf(Session& session, const String& catalogue,
                                     const String& schema, const String& table) {
  const Statement statement = CatalogueStatement(session);
  try {
    session.Check(SQLStatisticsW(statement.get(), NameOrNull(catalogue), NameLength(catalogue),
                                 NameOrNull(schema), NameLength(schema), Wide(table.c_str()),
                                 NameLength(table), SQL_INDEX_UNIQUE, SQL_QUICK),
                  statement);
  } catch (const OdbcError& error) {
    if (error.IsConnectionLoss()) throw;
    return {};
  }
  std::vector<KeyPart> parts;
  while (NextRow(session, statement)) {
    KeyPart part;
    part.catalogue = ReadText(session, statement, 1);
    part.schema = ReadText(session, statement, 2);
    part.table = ReadText(session, statement, 3).value_or(String());
    part.key = ReadText(session, statement, 6);
    // A row about the table itself has no index.
    if (ReadLong(session, statement, 7) == SQL_TABLE_STAT) continue;
    part.ordinal = ReadLong(session, statement, 8);
    part.column = ReadText(session, statement, 9).value_or(String());
    parts.push_back(std::move(part));
  }
  return parts;
}

// The position after the last part of the index that starts at `start`.
std::vector<KeyPart>::const_iterator EndOfIndex(std::vector<KeyPart>::const_iterator start,
                                                const std::vector<KeyPart>& parts) {
  return std::find_if(start, parts.end(), [&](const KeyPart& p) { return p.key != start->key; });
}

bool IsPrimaryIndex(const KeyPart& part) {
  return part.key && EqualNoCase(*part.key, kPrimaryIndex);
}

bool IsInResult(const String& name, const Columns& columns) {
  return std::any_of(columns.begin(), columns.end(), [&](const Column& column) {
    return EqualNoCase(column.baseColumn, name) && !column.nullable;
  });
}

}  // namespace

SQLWCHAR* NameOrNull(const String& name) { return name.empty() ? nullptr : Wide(name.c_str()); }

SQLSMALLINT NameLength(const String& name) { return static_cast<SQLSMALLINT>(name.size()); }

bool NextRow(Session& session, const Statement& statement) {
  const SQLRETURN result = SQLFetch(statement.get());
  session.Check(result, statement);
  return result != SQL_NO_DATA;
}

std::optional<String> ReadText(Session& session, const Statement& statement, SQLUSMALLINT column) {
  std::array<char16_t, 2048> buffer{};
  SQLLEN bytes = 0;
  session.Check(
      SQLGetData(statement.get(), column, SQL_C_WCHAR, buffer.data(), sizeof buffer, &bytes),
      statement);
  if (bytes == SQL_NULL_DATA) return std::nullopt;
  return String(buffer.data());
}

Long ReadLong(Session& session, const Statement& statement, SQLUSMALLINT column) {
  SQLINTEGER value = 0;
  SQLLEN length = 0;
  session.Check(SQLGetData(statement.get(), column, SQL_C_SLONG, &value, 0, &length), statement);
  return length == SQL_NULL_DATA ? 0 : value;
}

std::optional<String> LastText(Session& session, const Statement& statement) {
  std::optional<String> text;
  for (;;) {
    SQLSMALLINT columns = 0;
    session.Check(SQLNumResultCols(statement.get(), &columns), statement);
    if (columns > 0 && NextRow(session, statement)) text = ReadText(session, statement, 1);
    const SQLRETURN result = SQLMoreResults(statement.get());
    session.Check(result, statement);
    if (result == SQL_NO_DATA) return text;
  }
}

std::vector<KeyPart> PrimaryKeyOf(Session& session, const String& catalogue, const String& schema,
                                  const String& table) {
  if (auto key = AskedPrimaryKey(session, catalogue, schema, table)) return std::move(*key);
  std::vector<KeyPart> parts = UniqueIndexesOf(session, catalogue, schema, table);
  parts.erase(std::remove_if(parts.begin(), parts.end(),
                             [](const KeyPart& part) { return !IsPrimaryIndex(part); }),
              parts.end());
  return parts;
}

std::vector<String> ChooseUniqueIndex(const std::vector<KeyPart>& parts, const Columns& columns) {
  std::vector<String> chosen;
  for (auto start = parts.begin(); start != parts.end();) {
    const auto end = EndOfIndex(start, parts);
    const bool usable = std::all_of(
        start, end, [&](const KeyPart& part) { return IsInResult(part.column, columns); });
    if (usable && (chosen.empty() || IsPrimaryIndex(*start))) {
      chosen.clear();
      std::transform(start, end, std::back_inserter(chosen),
                     [](const KeyPart& part) { return part.column; });
    }
    start = end;
  }
  return chosen;
}

std::vector<String> RowKeyOf(Session& session, const Column& source, const Columns& columns) {
  const auto key = AskedPrimaryKey(session, source.catalogue, source.schema, source.table);
  if (!key) {
    return ChooseUniqueIndex(
        UniqueIndexesOf(session, source.catalogue, source.schema, source.table), columns);
  }
  std::vector<String> names;
  for (const KeyPart& part : *key) names.push_back(part.column);
  return names;
}

}  // namespace tessaria::odbc
