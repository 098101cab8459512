#include "lookup/sql_family.h"

#include <array>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {
namespace {

struct DialectFamily {
  StringView Name;
  SqlFamily Family;
};

constexpr std::array kDialects{
    DialectFamily{u"MS JET", SqlFamily::Access},
    DialectFamily{u"ACCESS", SqlFamily::Access},
    DialectFamily{u"MICROSOFT SQL SERVER", SqlFamily::SqlServer},
    DialectFamily{u"POSTGRESQL", SqlFamily::PostgreSQL},
};

}  // namespace

host::ConnectionPtr CurrentConnection() {
  if (!State().dbConexao) throw HostError(errors::ObjectNotSet);
  return State().dbConexao;
}

String DialectName(const host::Connection& connection) {
  return UCase(CStr(connection.Properties(u"DBMS Name")));
}

SqlFamily FamilyOfDialect(StringView dialect) {
  for (const DialectFamily& row : kDialects) {
    if (row.Name == dialect) return row.Family;
  }
  return SqlFamily::Unknown;
}

bool IsPostgreSQL(const host::Connection& connection) {
  return FamilyOfDialect(DialectName(connection)) == SqlFamily::PostgreSQL;
}

Integer PostgreSQLVersion(const host::Connection& connection) {
  const String version = CStr(connection.Properties(u"DBMS Version"));
  const Long position = InStr(version, u"PostgreSQL");
  const String digits = RTrim(Replace(Mid(version, position + 11, 6), u".", u""));
  const bool onlyDigits = digits.find_first_not_of(u"0123456789") == String::npos;
  if (digits.empty() || !onlyDigits) throw HostError(errors::TypeMismatch);
  return CInt(digits);
}

}  // namespace tessaria
