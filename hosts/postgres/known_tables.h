// What a connection knows about tables.
#pragma once

#include <libpq-fe.h>

#include <map>

#include "tessaria/string.h"

namespace tessaria::postgres {

struct KnownColumn {
  String name;
  bool nullable = true;
};

struct KnownTable {
  String schema, table;
  std::map<int, KnownColumn> columns;  ///< by the server's number
};

using KnownTables = std::map<Oid, KnownTable>;

}  // namespace tessaria::postgres
