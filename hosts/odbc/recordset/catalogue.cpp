#include "hosts/odbc/recordset/catalogue.h"

#include "hosts/odbc/driver/diagnostics.h"
#include "hosts/odbc/session/key_columns.h"
#include "hosts/odbc/values/cell.h"
#include "tessaria/host/schema.h"
#include "tessaria/text.h"

namespace tessaria::odbc {
namespace {

using host::SchemaKind;
using host::SchemaRestrictions;
using SchemaRow = std::vector<Variant>;

Storage StorageOf(Long type) {
  if (type == host::type::Integer) return Storage::Int32;
  return type == host::type::Boolean ? Storage::Boolean : Storage::Text;
}

bool IsSized(Long type) {
  return type == host::type::WChar || type == host::type::VarWChar || type == host::type::Binary;
}

// Null for a missing name, which some drivers report as an empty text.
Variant TextOrNull(const std::optional<String>& text) {
  return text && !text->empty() ? Variant(*text) : Variant::Null();
}

// Catalogue calls take patterns, so the pattern characters of a name are escaped.
String Escaped(Session& session, const String& name) {
  char16_t escape[8] = {};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(session.Handle(), SQL_SEARCH_PATTERN_ESCAPE, escape, sizeof escape, &bytes);
  String pattern;
  for (const char16_t c : name) {
    if (c == u'_' || c == u'%' || String(1, c) == escape) pattern += escape;
    pattern += c;
  }
  return pattern;
}

bool IsAskedForRow(const SchemaRestrictions& asked, const std::optional<String>& catalogue,
                   const std::optional<String>& schema, const std::optional<String>& table) {
  return IsAskedFor(catalogue, asked.Catalog) && IsAskedFor(schema, asked.Schema) &&
         IsAskedFor(table, asked.Table);
}

// The rows of a catalogue call, whose first three columns identify the table.
class CatalogueRows {
 public:
  CatalogueRows(Session& session, const Statement& statement, const SchemaRestrictions& asked)
      : session_(session), statement_(statement), asked_(asked) {}

  /// Moves to the next row that was asked for. Returns false after the last one.
  bool Next() {
    while (NextRow(session_, statement_)) {
      row_ = {TextOrNull(Take(1)), TextOrNull(Take(2)), TextOrNull(Take(3))};
      if (IsAskedForRow(asked_, taken_[0], taken_[1], taken_[2])) return true;
    }
    return false;
  }
  /// Catalogue, schema and table of the current row.
  const SchemaRow& Place() const { return row_; }
  /// The columns after those. They are read in ascending order, because not all drivers support
  /// another.
  std::optional<String> Text(SQLUSMALLINT column) const {
    return ReadText(session_, statement_, column);
  }
  Long Number(SQLUSMALLINT column) const { return ReadLong(session_, statement_, column); }

 private:
  const std::optional<String>& Take(SQLUSMALLINT column) {
    return taken_[column - 1U] = Text(column);
  }

  Session& session_;
  const Statement& statement_;
  const SchemaRestrictions& asked_;
  std::optional<String> taken_[3];
  SchemaRow row_;
};

std::vector<SchemaRow> TableRows(Session& session, const SchemaRestrictions& asked) {
  const Statement statement = session.NewStatement();
  const String catalogue = Escaped(session, asked.Catalog);
  const String schema = Escaped(session, asked.Schema);
  const String table = Escaped(session, asked.Table);
  session.Check(
      SQLTablesW(statement.get(), NameOrNull(catalogue), NameLength(catalogue), NameOrNull(schema),
                 NameLength(schema), NameOrNull(table), NameLength(table), nullptr, 0),
      statement);
  std::vector<SchemaRow> rows;
  for (CatalogueRows found(session, statement, asked); found.Next();) {
    rows.push_back(found.Place());
    rows.back().push_back(found.Text(4).value_or(String()));
  }
  return rows;
}

std::vector<SchemaRow> ColumnRows(Session& session, const SchemaRestrictions& asked) {
  const bool postgres = session.ServerInfo().IsPostgres();
  const Statement statement = session.NewStatement();
  const String schema = Escaped(session, asked.Schema);
  const String table = Escaped(session, asked.Table);
  session.Check(SQLColumnsW(statement.get(), NameOrNull(asked.Catalog), NameLength(asked.Catalog),
                            NameOrNull(schema), NameLength(schema), NameOrNull(table),
                            NameLength(table), nullptr, 0),
                statement);
  std::vector<SchemaRow> rows;
  for (CatalogueRows found(session, statement, asked); found.Next();) {
    const String name = found.Text(4).value_or(String());
    const Long sqlType = found.Number(5);
    const Long type = FieldTypeOf(sqlType, found.Text(6).value_or(String()), postgres);
    const Long size = SizeOfType(sqlType, found.Number(7));
    const bool nullable = found.Number(11) != SQL_NO_NULLS;
    const Long ordinal = found.Number(17);
    SchemaRow row = found.Place();
    row.insert(row.end(),
               {name, ordinal, type, IsSized(type) ? Variant(size) : Variant::Null(), nullable});
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<SchemaRow> KeyRows(Session& session, const SchemaRestrictions& asked) {
  if (asked.Table.empty()) throw HostError(errors::InvalidCriteria);
  std::vector<SchemaRow> rows;
  for (const KeyPart& part : PrimaryKeyOf(session, asked.Catalog, asked.Schema, asked.Table)) {
    if (!IsAskedForRow(asked, part.catalogue, part.schema, part.table)) continue;
    rows.push_back({TextOrNull(part.catalogue), TextOrNull(part.schema), part.table, part.column,
                    part.ordinal, TextOrNull(part.key)});
  }
  return rows;
}

std::vector<SchemaRow> RowsOf(Session& session, SchemaKind kind, const SchemaRestrictions& asked) {
  switch (kind) {
    case SchemaKind::Tables:
      return TableRows(session, asked);
    case SchemaKind::Columns:
      return ColumnRows(session, asked);
    case SchemaKind::PrimaryKeys:
      return KeyRows(session, asked);
  }
  throw HostError(errors::InvalidCriteria);
}

}  // namespace

bool IsAskedFor(const std::optional<String>& name, const String& asked) {
  return asked.empty() || name == asked;
}

Columns SchemaResultColumns(SchemaKind kind) {
  Columns columns;
  for (const host::SchemaColumn& described : host::SchemaColumns(kind)) {
    Column column;
    column.name = String(described.Name);
    column.type = described.Type;
    column.storage = StorageOf(described.Type);
    column.definedSize = described.DefinedSize;
    column.nullable = described.Nullable;
    columns.push_back(std::move(column));
  }
  return columns;
}

ColumnStore ReadSchema(Session& session, SchemaKind kind, const SchemaRestrictions& restrictions) {
  const Columns columns = SchemaResultColumns(kind);
  ColumnStore store(columns);
  for (const SchemaRow& row : RowsOf(session, kind, restrictions)) {
    for (std::size_t i = 0; i < columns.size(); ++i) AppendValue(store, columns, i, row[i]);
    store.EndRows(1);
  }
  return store;
}

}  // namespace tessaria::odbc
