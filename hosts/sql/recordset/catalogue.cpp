#include "hosts/sql/recordset/catalogue.h"

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/session/key_columns.h"
#include "hosts/sql/values/cell.h"
#include "tessaria/host/schema.h"
#include "tessaria/text.h"

namespace tessaria::sql {
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

bool IsAskedForPlace(const SchemaRestrictions& asked, const TablePlace& place) {
  return IsAskedFor(place.catalogue, asked.Catalog) && IsAskedFor(place.schema, asked.Schema) &&
         IsAskedFor(place.table, asked.Table);
}

SchemaRow RowOf(const TablePlace& place) {
  return {TextOrNull(place.catalogue), TextOrNull(place.schema), TextOrNull(place.table)};
}

SchemaRow RowOf(const TableFacts& table) {
  SchemaRow row = RowOf(table.place);
  row.push_back(table.type);
  return row;
}

SchemaRow RowOf(const ColumnFacts& column, bool postgres) {
  const Long type = FieldTypeOf(column.sqlType, column.typeName, postgres);
  const Long size = SizeOfType(column.sqlType, column.size);
  SchemaRow row = RowOf(column.place);
  row.insert(row.end(), {column.name, column.ordinal, type,
                         IsSized(type) ? Variant(size) : Variant::Null(), column.nullable});
  return row;
}

SchemaRow RowOf(const KeyPart& part) {
  SchemaRow row = RowOf(part.place);
  row.insert(row.end(), {part.column, part.ordinal, TextOrNull(part.key)});
  return row;
}

// The rows of those that were asked for.
template <class Facts, class... More>
std::vector<SchemaRow> RowsOf(const std::vector<Facts>& all, const SchemaRestrictions& asked,
                              More... more) {
  std::vector<SchemaRow> rows;
  for (const Facts& facts : all) {
    if (IsAskedForPlace(asked, facts.place)) rows.push_back(RowOf(facts, more...));
  }
  return rows;
}

std::vector<SchemaRow> KeyRows(Session& session, const SchemaRestrictions& asked) {
  if (asked.Table.empty()) throw HostError(errors::InvalidCriteria);
  return RowsOf(PrimaryKeyOf(session, {asked.Catalog, asked.Schema, asked.Table}), asked);
}

std::vector<SchemaRow> RowsOf(Session& session, SchemaKind kind, const SchemaRestrictions& asked) {
  switch (kind) {
    case SchemaKind::Tables:
      return RowsOf(session.AskCatalogue([asked](Link& link) { return link.Tables(asked); }),
                    asked);
    case SchemaKind::Columns:
      return RowsOf(session.AskCatalogue([asked](Link& link) { return link.TableColumns(asked); }),
                    asked, session.ServerInfo().IsPostgres());
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

}  // namespace tessaria::sql
