#include "hosts/postgres/describe.h"

#include <cstdlib>
#include <string>

#include "hosts/postgres/pg_types.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

using Descriptions = std::vector<sql::ColumnDescription>;

// Each column with the place of its description. Names that are not qualified could be others in
// the session's path.
constexpr const char* kSources =
    "SELECT asked.place, n.nspname, c.relname, a.attname, a.attnotnull"
    " FROM ROWS FROM (pg_catalog.unnest($1::pg_catalog.oid[]),"
    " pg_catalog.unnest($2::pg_catalog.int2[]), pg_catalog.unnest($3::pg_catalog.int4[]))"
    " AS asked (table_oid, number, place)"
    " JOIN pg_catalog.pg_attribute a ON a.attrelid = asked.table_oid AND a.attnum = asked.number"
    " JOIN pg_catalog.pg_class c ON c.oid = a.attrelid"
    " JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace";

// An array as the server reads it.
class ArrayText {
 public:
  template <class T>
  void Add(T number) {
    text_ += (text_.empty() ? "{" : ",") + std::to_string(number);
  }
  bool IsEmpty() const { return text_.empty(); }
  std::string Text() const { return text_ + "}"; }

 private:
  std::string text_;
};

void TakeSources(Wire& wire, const PGresult* result, Descriptions& told) {
  ArrayText tables, numbers, places;
  for (int i = 0; i < PQnfields(result); ++i) {
    if (PQftable(result, i) == InvalidOid) continue;
    tables.Add(PQftable(result, i));
    numbers.Add(PQftablecol(result, i));
    places.Add(i);
  }
  if (tables.IsEmpty()) return;
  const String catalogue = FromUtf8(PQdb(wire.Get()));
  const Result sources = wire.Ask(kSources, {tables.Text(), numbers.Text(), places.Text()});
  for (int row = 0; row < PQntuples(sources.get()); ++row) {
    const auto text = [&](int column) { return FromUtf8(CellOf(sources.get(), row, column)); };
    sql::ColumnDescription& column =
        told[static_cast<std::size_t>(std::atoi(PQgetvalue(sources.get(), row, 0)))];
    column.catalogue = catalogue;
    column.schema = text(1);
    column.table = text(2);
    column.baseColumn = text(3);
    column.nullable = CellOf(sources.get(), row, 4) != "t";
  }
}

}  // namespace

sql::Columns DescribeColumns(Wire& wire, const PGresult* result) {
  Descriptions told;
  for (int i = 0; i < PQnfields(result); ++i) {
    told.push_back(DescriptionOf(PQftype(result, i), PQfmod(result, i)));
    told.back().name = FromUtf8(PQfname(result, i));
  }
  TakeSources(wire, result, told);
  sql::Columns columns;
  for (sql::ColumnDescription& description : told) {
    const auto i = static_cast<int>(columns.size());
    const bool isBinary = PQfformat(result, i) != 0;
    columns.push_back(sql::ColumnOf(std::move(description), true));
    columns.back().asText = isBinary && BinaryReaderOf(PQftype(result, i)) == nullptr;
  }
  return columns;
}

}  // namespace tessaria::postgres
