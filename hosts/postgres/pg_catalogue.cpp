#include "hosts/postgres/pg_catalogue.h"

#include <charconv>

#include "hosts/postgres/pg_types.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

using host::SchemaRestrictions;

// The beginning of every answer.
constexpr const char* kPlace = "SELECT pg_catalog.current_database(), n.nspname, c.relname";
constexpr const char* kNotOfTheServer =
    " n.nspname <> 'information_schema' AND n.nspname !~ '^pg_'"
    " AND c.relkind IN ('r', 'p', 'v', 'm', 'f')";

constexpr const char* kTables =
    ", CASE c.relkind WHEN 'v' THEN 'VIEW' WHEN 'm' THEN 'MATVIEW' WHEN 'f' THEN 'FOREIGN TABLE'"
    " ELSE 'TABLE' END"
    " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace WHERE";

// The type below each domain, through all domains between.
constexpr const char* kBelowDomains =
    "WITH RECURSIVE below AS ("
    "SELECT oid AS domain, typbasetype AS type, typtypmod AS modifier"
    " FROM pg_catalog.pg_type WHERE typtype = 'd'"
    " UNION ALL "
    "SELECT b.domain, t.typbasetype, t.typtypmod"
    " FROM below b JOIN pg_catalog.pg_type t ON t.oid = b.type WHERE t.typtype = 'd') ";
constexpr const char* kColumns =
    ", a.attname, COALESCE(b.type, a.atttypid), COALESCE(b.modifier, a.atttypmod),"
    " NOT a.attnotnull, a.attnum"
    " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
    " JOIN pg_catalog.pg_attribute a"
    " ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped"
    " LEFT JOIN (below b JOIN pg_catalog.pg_type t ON t.oid = b.type AND t.typtype <> 'd')"
    " ON b.domain = a.atttypid WHERE";

// Columns that an index only carries come after those of its key; servers before 11 have none.
constexpr const char* kKeys =
    ", a.attname, part.place, k.relname"
    " FROM pg_catalog.pg_index i JOIN pg_catalog.pg_class c ON c.oid = i.indrelid"
    " JOIN pg_catalog.pg_class k ON k.oid = i.indexrelid"
    " JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
    " CROSS JOIN LATERAL pg_catalog.unnest(i.indkey::pg_catalog.int2[])"
    " WITH ORDINALITY AS part (number, place)"
    " JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum = part.number"
    " WHERE part.place <= COALESCE("
    "(pg_catalog.to_jsonb(i) ->> 'indnkeyatts')::pg_catalog.int4, i.indnatts)";

// What restricts an answer. The database is always the one of the connection.
struct Asked {
  Asked(const String& schema, const String& table) {
    Add("n.nspname", schema);
    Add("c.relname", table);
  }

  std::string conditions;
  Values values;

 private:
  void Add(const char* column, const String& name) {
    if (name.empty()) return;
    values.emplace_back(ToUtf8(name));
    conditions += std::string(" AND ") + column + " = $" + std::to_string(values.size()) +
                  "::pg_catalog.name";
  }
};

// The rows of an answer, whose first three columns are a place.
class Answer {
 public:
  explicit Answer(Result result) : result_(std::move(result)) {}

  bool Next() { return ++row_ < PQntuples(result_.get()); }
  String Text(int column) const { return FromUtf8(Cell(column)); }
  bool Flag(int column) const { return Cell(column) == "t"; }
  std::int64_t Number(int column) const {
    std::int64_t value = 0;
    const std::string_view text = Cell(column);
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  }
  sql::TablePlace Place() const { return {Text(0), Text(1), Text(2)}; }

 private:
  std::string_view Cell(int column) const { return CellOf(result_.get(), row_, column); }

  Result result_;
  int row_ = -1;
};

std::vector<sql::KeyPart> ReadKeys(Wire& wire, const sql::TablePlace& table,
                                   const std::string& which) {
  const Asked asked(table.schema.value_or(String()), table.table.value_or(String()));
  Answer answer(wire.Ask(std::string(kPlace) + kKeys + which + asked.conditions +
                             " ORDER BY n.nspname, c.relname, k.relname, part.place",
                         asked.values));
  std::vector<sql::KeyPart> parts;
  while (answer.Next()) {
    parts.push_back(
        {answer.Place(), answer.Text(3), static_cast<Long>(answer.Number(4)), answer.Text(5)});
  }
  return parts;
}

}  // namespace

std::vector<sql::TableFacts> ReadTables(Wire& wire, const SchemaRestrictions& restrictions) {
  const Asked asked(restrictions.Schema, restrictions.Table);
  Answer answer(wire.Ask(std::string(kPlace) + kTables + kNotOfTheServer + asked.conditions +
                             " ORDER BY n.nspname, c.relname",
                         asked.values));
  std::vector<sql::TableFacts> tables;
  while (answer.Next()) tables.push_back({answer.Place(), answer.Text(3)});
  return tables;
}

std::vector<sql::ColumnFacts> ReadTableColumns(Wire& wire, const SchemaRestrictions& restrictions) {
  const Asked asked(restrictions.Schema, restrictions.Table);
  Answer answer(wire.Ask(std::string(kBelowDomains) + kPlace + kColumns + kNotOfTheServer +
                             asked.conditions + " ORDER BY n.nspname, c.relname, a.attnum",
                         asked.values));
  std::vector<sql::ColumnFacts> columns;
  while (answer.Next()) {
    const sql::ColumnDescription type =
        DescriptionOf(static_cast<Oid>(answer.Number(4)), static_cast<int>(answer.Number(5)));
    columns.push_back({answer.Place(), answer.Text(3), type.sqlType, type.typeName, type.length,
                       answer.Flag(6), static_cast<Long>(answer.Number(7))});
  }
  return columns;
}

std::vector<sql::KeyPart> ReadPrimaryKey(Wire& wire, const sql::TablePlace& table) {
  return ReadKeys(wire, table, " AND i.indisprimary");
}

std::vector<sql::KeyPart> ReadUniqueIndexes(Wire& wire, const sql::TablePlace& table) {
  return ReadKeys(wire, table, " AND i.indisunique AND i.indpred IS NULL AND i.indexprs IS NULL");
}

}  // namespace tessaria::postgres
