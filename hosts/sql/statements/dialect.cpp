#include "hosts/sql/statements/dialect.h"

#include <array>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

struct Pair {
  Dialect dialect;
  SqlFamily family;
};
constexpr std::array kPairs{Pair{Dialect::PostgreSql, SqlFamily::PostgreSQL},
                            Pair{Dialect::SqlServer, SqlFamily::SqlServer},
                            Pair{Dialect::Access, SqlFamily::Access},
                            Pair{Dialect::Other, SqlFamily::Unknown}};

}  // namespace

Dialect DialectOf(StringView dbmsName) {
  const SqlFamily family = FamilyOfDialect(UCase(dbmsName));
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

}  // namespace tessaria::sql
