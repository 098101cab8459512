#include "wizard/foreign_key.h"

#include "lookup/sql_family.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::wizard {
namespace {

String PostgresStatement(const String& from, const String& to) {
  const auto oid = [](const String& table) {
    return u"E'" + Replace(Replace(table, u"\\", u"\\\\"), u"'", u"''") + u"'::regclass";
  };
  return u"Select a.attname, b.attname From pg_constraint k"
         u" Join pg_attribute a On a.attrelid = k.conrelid And a.attnum = k.conkey[1]"
         u" Join pg_attribute b On b.attrelid = k.confrelid And b.attnum = k.confkey[1]"
         u" Where k.contype = 'f' And array_length(k.conkey, 1) = 1 And k.conrelid = " +
         oid(from) + u" And k.confrelid = " + oid(to) + u" Order By k.conname";
}

String SqlServerStatement(const String& from, const String& to) {
  const auto id = [](const String& table) {
    return u"OBJECT_ID(N'" + Replace(table, u"'", u"''") + u"')";
  };
  return u"Select a.name, b.name From sys.foreign_keys k"
         u" Join sys.foreign_key_columns c On c.constraint_object_id = k.object_id"
         u" Join sys.columns a On a.object_id = c.parent_object_id"
         u" And a.column_id = c.parent_column_id"
         u" Join sys.columns b On b.object_id = c.referenced_object_id"
         u" And b.column_id = c.referenced_column_id"
         u" Where (Select Count(*) From sys.foreign_key_columns n"
         u" Where n.constraint_object_id = k.object_id) = 1 And k.parent_object_id = " +
         id(from) + u" And k.referenced_object_id = " + id(to) + u" Order By k.name";
}

/// The statement for the fields of the keys by which `from` refers to `to`; "" where the catalogue
/// does not tell. Access keeps them in a table that its driver does not let anybody read.
String StatementFor(SqlFamily family, const String& from, const String& to) {
  if (family == SqlFamily::PostgreSQL) return PostgresStatement(from, to);
  if (family == SqlFamily::SqlServer) return SqlServerStatement(from, to);
  return {};
}

}  // namespace

std::optional<FieldPair> ForeignKey(host::Connection& connection, const String& parent,
                                    const String& child) {
  const SqlFamily family = FamilyOfDialect(DialectName(connection));
  const auto names = [&](const String& from, const String& to) -> std::optional<FieldPair> {
    const String statement = StatementFor(family, from, to);
    if (statement.empty()) return std::nullopt;
    const auto rows = connection.Execute(statement);
    if (rows->Eof()) return std::nullopt;
    const auto text = [&](Long ordinal) { return CStr(rows->Fields().Item(ordinal)->Value()); };
    return FieldPair{text(0), text(1)};
  };
  if (const auto refers = names(parent, child)) return refers;
  if (const auto back = names(child, parent)) return FieldPair{back->child, back->parent};
  return std::nullopt;
}

}  // namespace tessaria::wizard
