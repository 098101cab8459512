// The description of one column of a result.
#pragma once

#include <sql.h>

#include <vector>

#include "hosts/odbc/driver/handles.h"
#include "tessaria/string.h"

namespace tessaria::odbc {

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
  SQLLEN sqlType = 0;      ///< as the driver reports it
  String typeName;         ///< as the database calls it; empty when the driver cannot tell
  String catalogue, schema, table, baseColumn;  ///< where it comes from; empty for an expression
};

using Columns = std::vector<Column>;

/// The columns of an executed statement; empty when it returns no rows. `postgres` says that type
/// names are those of PostgreSQL.
Columns DescribeColumns(const Statement& statement, bool postgres);

/// The number of `host::type` for an SQL type, and the size that a field of it reports: 0 when none
/// is declared.
Long FieldTypeOf(SQLLEN sqlType, const String& typeName, bool postgres);
Long SizeOfType(SQLLEN sqlType, SQLLEN size);

}  // namespace tessaria::odbc
