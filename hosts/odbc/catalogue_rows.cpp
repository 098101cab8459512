#include "hosts/odbc/catalogue_rows.h"

#include <algorithm>
#include <array>

#include "hosts/odbc/describe.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/odbc_statement.h"
#include "hosts/odbc/wide.h"

namespace tessaria::odbc {
namespace {

using host::SchemaRestrictions;

// A name as the catalogue calls take it: an empty name is a null pointer.
struct Name {
  explicit Name(const String& text)
      : start(text.empty() ? nullptr : Wide(text.c_str())),
        length(static_cast<SQLSMALLINT>(text.size())) {}
  explicit Name(const std::optional<String>& text) : Name(text ? *text : kNone) {}

  SQLWCHAR* start;
  SQLSMALLINT length;

 private:
  static inline const String kNone;
};

// Catalogue calls take patterns, so the pattern characters of a name are escaped.
String Escaped(const Line& line, const String& name) {
  char16_t escape[8] = {};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(line.Get(), SQL_SEARCH_PATTERN_ESCAPE, escape, sizeof escape, &bytes);
  String pattern;
  for (const char16_t c : name) {
    if (c == u'_' || c == u'%' || String(1, c) == escape) pattern += escape;
    pattern += c;
  }
  return pattern;
}

// The answer to a catalogue call. Columns are read in ascending order, because not all drivers
// support another.
class Answer {
 public:
  explicit Answer(const std::shared_ptr<Line>& line) : statement_(line) {}

  SQLHSTMT Call() const { return statement_.Get(); }
  void Check(SQLRETURN result) { statement_.Check(result); }
  bool Next() {
    const SQLRETURN result = SQLFetch(statement_.Get());
    statement_.Check(result);
    return result != SQL_NO_DATA;
  }
  std::optional<String> Text(SQLUSMALLINT column) {
    std::array<char16_t, 2048> buffer{};
    SQLLEN bytes = 0;
    statement_.Check(
        SQLGetData(statement_.Get(), column, SQL_C_WCHAR, buffer.data(), sizeof buffer, &bytes));
    if (bytes == SQL_NULL_DATA) return std::nullopt;
    return String(buffer.data());
  }
  Long Number(SQLUSMALLINT column) {
    SQLINTEGER value = 0;
    SQLLEN length = 0;
    statement_.Check(SQLGetData(statement_.Get(), column, SQL_C_SLONG, &value, 0, &length));
    return length == SQL_NULL_DATA ? 0 : value;
  }
  // The first three columns of all answers.
  sql::TablePlace Place() {
    sql::TablePlace place;
    place.catalogue = Text(1);
    place.schema = Text(2);
    place.table = Text(3);
    return place;
  }

 private:
  OdbcStatement statement_;
};

}  // namespace

std::vector<sql::TableFacts> ReadTables(const std::shared_ptr<Line>& line,
                                        const SchemaRestrictions& asked) {
  Answer answer(line);
  const String catalogue = Escaped(*line, asked.Catalog);
  const String schema = Escaped(*line, asked.Schema);
  const String table = Escaped(*line, asked.Table);
  const Name names[] = {Name(catalogue), Name(schema), Name(table)};
  answer.Check(SQLTablesW(answer.Call(), names[0].start, names[0].length, names[1].start,
                          names[1].length, names[2].start, names[2].length, nullptr, 0));
  std::vector<sql::TableFacts> tables;
  while (answer.Next()) {
    sql::TableFacts facts{answer.Place(), {}};
    facts.type = answer.Text(4).value_or(String());
    tables.push_back(std::move(facts));
  }
  return tables;
}

std::vector<sql::ColumnFacts> ReadTableColumns(const std::shared_ptr<Line>& line,
                                               const SchemaRestrictions& asked) {
  Answer answer(line);
  const String schema = Escaped(*line, asked.Schema);
  const String table = Escaped(*line, asked.Table);
  const Name names[] = {Name(asked.Catalog), Name(schema), Name(table)};
  answer.Check(SQLColumnsW(answer.Call(), names[0].start, names[0].length, names[1].start,
                           names[1].length, names[2].start, names[2].length, nullptr, 0));
  std::vector<sql::ColumnFacts> columns;
  while (answer.Next()) {
    sql::ColumnFacts facts;
    facts.place = answer.Place();
    facts.name = answer.Text(4).value_or(String());
    facts.sqlType = TypeOf(static_cast<Long>(answer.Number(5)));
    facts.typeName = answer.Text(6).value_or(String());
    facts.size = answer.Number(7);
    facts.nullable = answer.Number(11) != SQL_NO_NULLS;
    facts.ordinal = answer.Number(17);
    columns.push_back(std::move(facts));
  }
  return columns;
}

std::optional<std::vector<sql::KeyPart>> ReadPrimaryKey(const std::shared_ptr<Line>& line,
                                                        const sql::TablePlace& table) {
  Answer answer(line);
  const Name names[] = {Name(table.catalogue), Name(table.schema), Name(table.table)};
  try {
    answer.Check(SQLPrimaryKeysW(answer.Call(), names[0].start, names[0].length, names[1].start,
                                 names[1].length, names[2].start, names[2].length));
  } catch (const DriverError& error) {
    if (error.IsNotSupported()) return std::nullopt;
    throw;
  }
  std::vector<sql::KeyPart> parts;
  while (answer.Next()) {
    sql::KeyPart part;
    part.place = answer.Place();
    part.column = answer.Text(4).value_or(String());
    part.ordinal = answer.Number(5);
    part.key = answer.Text(6);
    parts.push_back(std::move(part));
  }
  std::ranges::stable_sort(parts, {}, &sql::KeyPart::ordinal);
  return parts;
}

// Returns an empty list when the driver does not support this call either, or rejects it for what
// is not a table of its own.
std::vector<sql::KeyPart> ReadUniqueIndexes(const std::shared_ptr<Line>& line,
                                            const sql::TablePlace& table) {
  Answer answer(line);
  const Name names[] = {Name(table.catalogue), Name(table.schema), Name(table.table)};
  try {
    answer.Check(SQLStatisticsW(answer.Call(), names[0].start, names[0].length, names[1].start,
                                names[1].length, names[2].start, names[2].length, SQL_INDEX_UNIQUE,
                                SQL_QUICK));
  } catch (const DriverError& error) {
    if (error.IsConnectionLoss()) throw;
    return {};
  }
  std::vector<sql::KeyPart> parts;
  while (answer.Next()) {
    sql::KeyPart part;
    part.place = answer.Place();
    part.key = answer.Text(6);
    // A row about the table itself has no index.
    if (answer.Number(7) == SQL_TABLE_STAT) continue;
    part.ordinal = answer.Number(8);
    part.column = answer.Text(9).value_or(String());
    parts.push_back(std::move(part));
  }
  return parts;
}

}  // namespace tessaria::odbc
