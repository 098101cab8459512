#include "wizard/foreign_key.h"

#include "lookup/sql_family.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::wizard {
namespace {

/// A literal that every server reads alike.
String Escaped(const String& text) {
  return u"E'" + Replace(Replace(text, u"\\", u"\\\\"), u"'", u"''") + u"'";
}

String StatementFor(const String& from, const String& to) {
  return u"Select a.attname, b.attname From pg_constraint k"
         u" Join pg_attribute a On a.attrelid = k.conrelid And a.attnum = k.conkey[1]"
         u" Join pg_attribute b On b.attrelid = k.confrelid And b.attnum = k.confkey[1]"
         u" Where k.contype = 'f' And array_length(k.conkey, 1) = 1 And k.conrelid = " +
         Escaped(from) + u"::regclass And k.confrelid = " + Escaped(to) +
         u"::regclass Order By k.conname";
}

}  // namespace

std::optional<FieldPair> ForeignKey(host::Connection& connection, const String& parent,
                                    const String& child) {
  if (!IsPostgreSQL(connection)) return std::nullopt;
  const auto names = [&](const String& from, const String& to) -> std::optional<FieldPair> {
    const auto rows = connection.Execute(StatementFor(from, to));
    if (rows->Eof()) return std::nullopt;
    const auto text = [&](Long ordinal) { return CStr(rows->Fields().Item(ordinal)->Value()); };
    return FieldPair{text(0), text(1)};
  };
  if (const auto refers = names(parent, child)) return refers;
  if (const auto back = names(child, parent)) return FieldPair{back->child, back->parent};
  return std::nullopt;
}

}  // namespace tessaria::wizard
