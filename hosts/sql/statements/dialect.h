// The databases whose SQL dialects this layer knows.
#pragma once

#include "lookup/sql_scanner.h"
#include "tessaria/export.h"

namespace tessaria::sql {

/// A database whose dialect is known.
enum class Dialect {
  PostgreSql,  ///< E'' and dollar quotes, nested comments
  SqlServer,   ///< [identifiers]; statements may follow each other without a semicolon
  Access,      ///< [identifiers]; one statement at a time
  Other        ///< nothing is known beyond '' and ""
};

/// Whether [names] are quoted.
constexpr bool IsBracketed(Dialect dialect) {
  return dialect == Dialect::SqlServer || dialect == Dialect::Access;
}

/// The dialect of a database by the name that its driver reports ("PostgreSQL", "ACCESS", ...).
TESSARIA_SQL_API Dialect DialectOf(StringView dbmsName);

/// How its statements are read. For `backslashes` see `SqlRules`.
TESSARIA_SQL_API SqlRules RulesOf(Dialect dialect, bool backslashes = false);

}  // namespace tessaria::sql
