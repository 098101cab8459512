#include "hosts/odbc/statements/dialect.h"

#include <array>

#include "tessaria/text.h"

namespace tessaria::odbc {
namespace {

struct Pair {
  Dialect dialect;
  FamiliaSql family;
};
constexpr std::array kPairs{Pair{Dialect::PostgreSql, FamiliaSql::PostgreSQL},
                            Pair{Dialect::SqlServer, FamiliaSql::SqlServer},
                            Pair{Dialect::Access, FamiliaSql::Access},
                            Pair{Dialect::Other, FamiliaSql::Desconhecida}};

}  // namespace

Dialect DialectOf(StringView dbmsName) {
  const FamiliaSql family = FamiliaDoDialeto(UCase(dbmsName));
  for (const Pair& pair : kPairs) {
    if (pair.family == family) return pair.dialect;
  }
  return Dialect::Other;
}

SqlRules RulesOf(Dialect dialect, bool backslashes) {
  for (const Pair& pair : kPairs) {
    if (pair.dialect == dialect) return {pair.family, backslashes};
  }
  return {};
}

}  // namespace tessaria::odbc
