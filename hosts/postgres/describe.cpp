#include "hosts/postgres/describe.h"

#include <cstdlib>
#include <string>

#include "hosts/postgres/pg_types.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

using Descriptions = std::vector<sql::ColumnDescription>;

// Names that are not qualified could be others in the session's path.
constexpr const char* kTablesAsked =
    "SELECT c.oid, n.nspname, c.relname, a.attnum, a.attname, a.attnotnull"
    " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
    " JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid WHERE c.oid = ANY "
    "($1::pg_catalog.oid[])";

const KnownColumn* ColumnIn(const KnownTables& tables, Oid table, int number) {
  const auto known = tables.find(table);
  if (known == tables.end()) return nullptr;
  const auto column = known->second.columns.find(number);
  return column == known->second.columns.end() ? nullptr : &column->second;
}

// The tables of which a column is not known, as an array for the server; empty when there is none.
std::string UnknownTables(const KnownTables& tables, const PGresult* result) {
  std::string unknown;
  for (int i = 0; i < PQnfields(result); ++i) {
    const Oid table = PQftable(result, i);
    if (table == InvalidOid || ColumnIn(tables, table, PQftablecol(result, i))) continue;
    unknown += (unknown.empty() ? "{" : ",") + std::to_string(table);
  }
  return unknown.empty() ? unknown : unknown + "}";
}

void LearnTables(Wire& wire, const PGresult* result) {
  KnownTables& tables = wire.Tables();
  const std::string unknown = UnknownTables(tables, result);
  if (unknown.empty()) return;
  const Result answer = wire.Ask(kTablesAsked, {unknown});
  for (int row = 0; row < PQntuples(answer.get()); ++row) {
    const auto text = [&](int column) { return FromUtf8(CellOf(answer.get(), row, column)); };
    const auto oid = std::strtoul(PQgetvalue(answer.get(), row, 0), nullptr, 10);
    KnownTable& table = tables[static_cast<Oid>(oid)];
    table.schema = text(1);
    table.table = text(2);
    table.columns[std::atoi(PQgetvalue(answer.get(), row, 3))] = {
        text(4), CellOf(answer.get(), row, 5) != "t"};
  }
}

void TakeSources(Wire& wire, const PGresult* result, Descriptions& told) {
  LearnTables(wire, result);
  const String catalogue = FromUtf8(PQdb(wire.Get()));
  for (int i = 0; i < PQnfields(result); ++i) {
    const Oid table = PQftable(result, i);
    const KnownColumn* const known = ColumnIn(wire.Tables(), table, PQftablecol(result, i));
    if (known == nullptr) continue;
    sql::ColumnDescription& column = told[static_cast<std::size_t>(i)];
    column.catalogue = catalogue;
    column.schema = wire.Tables().at(table).schema;
    column.table = wire.Tables().at(table).table;
    column.baseColumn = known->name;
    column.nullable = known->nullable;
  }
}

}  // namespace

sql::Columns DescribeColumns(Wire& wire, const PGresult* result) {
  Descriptions told;
  told.reserve(static_cast<std::size_t>(PQnfields(result)));
  for (int i = 0; i < PQnfields(result); ++i) {
    told.push_back(DescriptionOf(PQftype(result, i), PQfmod(result, i)));
    told.back().name = FromUtf8(PQfname(result, i));
  }
  // What a write returns has happened: no question may fail after it.
  const std::string_view command = PQcmdStatus(const_cast<PGresult*>(result));
  if (command.starts_with("SELECT") || command.starts_with("FETCH"))
    TakeSources(wire, result, told);
  sql::Columns columns;
  columns.reserve(told.size());
  for (sql::ColumnDescription& description : told) {
    const auto i = static_cast<int>(columns.size());
    const bool isBinary = PQfformat(result, i) != 0;
    columns.push_back(sql::ColumnOf(std::move(description), true));
    columns.back().asText = isBinary && BinaryReaderOf(PQftype(result, i)) == nullptr;
  }
  return columns;
}

}  // namespace tessaria::postgres
