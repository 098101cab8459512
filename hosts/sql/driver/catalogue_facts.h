// What drivers report about tables, columns and keys.
#pragma once

#include <cstdint>
#include <optional>

#include "tessaria/host/data.h"

namespace tessaria::sql {

/// Where a table is. Some drivers report a missing name as an empty text.
struct TablePlace {
  std::optional<String> catalogue, schema, table;
};

struct TableFacts {
  TablePlace place;
  String type;  ///< "TABLE", "VIEW", "SYSTEM TABLE", ...
};

struct ColumnFacts {
  TablePlace place;
  String name;
  Long sqlType = 0;  ///< one of sql_type
  String typeName;
  std::int64_t size = 0;
  bool nullable = true;
  Long ordinal = 0;  ///< from 1
};

/// One column of a key or an index.
struct KeyPart {
  TablePlace place;
  String column;
  Long ordinal = 0;  ///< from 1
  std::optional<String> key;
};

}  // namespace tessaria::sql
