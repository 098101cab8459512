// The description of one column of a result.
#pragma once

#include <cstdint>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::sql {

/// How the cells of a column are kept.
enum class Storage {
  Int16,
  Int32,
  Int64,
  Single,
  Double,
  Boolean,
  Money,      ///< 64-bit count of ten-thousandths
  Day,        ///< 32-bit count of days since 30 December 1899
  TimeOfDay,  ///< microseconds since midnight
  Moment,     ///< microseconds since the start of 30 December 1899
  Number,     ///< exact decimal, as the driver's text
  Text
};

struct Column {
  String name;
  Long type = 0;  ///< one of host::type
  Storage storage = Storage::Text;
  Long definedSize = 0;
  Long precision = 0;
  Long scale = 0;
  bool nullable = true;
  bool padded = false;     ///< char(n): trailing blanks are not part of the value
  bool lowerCase = false;  ///< the driver returns capitals, the server does not (uuid)
  bool comparable = true;  ///< the type has its own equality operator
  bool asText = false;     ///< arrives unharmed only when the query casts it to a text
  Long sqlType = 0;        ///< one of sql_type, as the driver reports it
  String typeName;         ///< as the database calls it; empty when the driver cannot tell
  String catalogue, schema, table, baseColumn;  ///< where it comes from; empty for an expression
};

using Columns = std::vector<Column>;

/// A column of a result as its driver describes it.
struct ColumnDescription {
  String name;
  Long sqlType = 0;  ///< one of sql_type
  String typeName;   ///< as the database calls it; empty when the driver cannot tell
  std::int64_t length = 0;
  Long precision = 0, scale = 0;  ///< where `HasDigits`
  bool nullable = true;
  String catalogue, schema, table, baseColumn;  ///< the last only with a table
};

/// `postgres` says that type names are those of PostgreSQL, here and below.
TESSARIA_SQL_API Column ColumnOf(ColumnDescription description, bool postgres);
/// Whether columns of the type have a precision and a scale.
TESSARIA_SQL_API bool HasDigits(Long sqlType, const String& typeName, bool postgres);

/// The number of `host::type` for an SQL type, and the size that a field of it reports: 0 when none
/// is declared.
Long FieldTypeOf(Long sqlType, const String& typeName, bool postgres);
Long SizeOfType(Long sqlType, std::int64_t size);

}  // namespace tessaria::sql
