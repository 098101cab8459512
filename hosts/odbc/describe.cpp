#include "hosts/odbc/describe.h"

#include <sqlext.h>

#include <algorithm>
#include <array>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/wide.h"
#include "hosts/sql/values/sql_type.h"

namespace tessaria::odbc {
namespace {

namespace sql_type = sql::sql_type;

static_assert(sql_type::Char == SQL_CHAR && sql_type::VarChar == SQL_VARCHAR &&
              sql_type::LongVarChar == SQL_LONGVARCHAR && sql_type::WChar == SQL_WCHAR &&
              sql_type::WVarChar == SQL_WVARCHAR && sql_type::WLongVarChar == SQL_WLONGVARCHAR);
static_assert(sql_type::TinyInt == SQL_TINYINT && sql_type::SmallInt == SQL_SMALLINT &&
              sql_type::Integer == SQL_INTEGER && sql_type::BigInt == SQL_BIGINT &&
              sql_type::Bit == SQL_BIT && sql_type::Real == SQL_REAL &&
              sql_type::Float == SQL_FLOAT && sql_type::Double == SQL_DOUBLE &&
              sql_type::Numeric == SQL_NUMERIC && sql_type::Decimal == SQL_DECIMAL);
static_assert(sql_type::Date == SQL_TYPE_DATE && sql_type::Time == SQL_TYPE_TIME &&
              sql_type::Timestamp == SQL_TYPE_TIMESTAMP && sql_type::Binary == SQL_BINARY &&
              sql_type::VarBinary == SQL_VARBINARY &&
              sql_type::LongVarBinary == SQL_LONGVARBINARY && sql_type::Guid == SQL_GUID);

// Returns false when the driver does not support the attribute: the rows can still be read without
// it.
bool IsAnswered(SQLRETURN result, SQLHSTMT statement) {
  if (SQL_SUCCEEDED(result)) return true;
  const DriverError error = DiagnosticsOf(SQL_HANDLE_STMT, statement);
  if (error.IsNotSupported()) return false;
  throw error;
}

String TextAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<char16_t, 512> buffer{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN result =
      SQLColAttributeW(statement, column, attribute, buffer.data(), sizeof buffer, &bytes, nullptr);
  if (!IsAnswered(result, statement)) return {};
  const std::size_t length = static_cast<std::size_t>(bytes) / sizeof(char16_t);
  return String(buffer.data(), std::min(length, buffer.size() - 1));
}

SQLLEN NumberAttribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute,
                       SQLLEN unknown = 0) {
  SQLLEN value = 0;
  const SQLRETURN result =
      SQLColAttributeW(statement, column, attribute, nullptr, 0, nullptr, &value);
  return IsAnswered(result, statement) ? value : unknown;
}

void TakeBase(sql::ColumnDescription& column, SQLHSTMT statement, SQLUSMALLINT number) {
  column.table = TextAttribute(statement, number, SQL_DESC_BASE_TABLE_NAME);
  // Drivers give an expression its own name as base column, but no table.
  if (column.table.empty()) return;
  column.baseColumn = TextAttribute(statement, number, SQL_DESC_BASE_COLUMN_NAME);
  column.schema = TextAttribute(statement, number, SQL_DESC_SCHEMA_NAME);
  column.catalogue = TextAttribute(statement, number, SQL_DESC_CATALOG_NAME);
}

// PostgreSQL's driver parses dates itself and loses what its own type cannot hold: it drops "BC",
// cuts a year of five digits and turns an infinite moment into the last second of 9999.
bool IsHarmed(const sql::Column& column) {
  return column.storage == sql::Storage::Day || column.storage == sql::Storage::Moment;
}

sql::Column Describe(SQLHSTMT statement, SQLUSMALLINT number, bool postgres) {
  const auto attribute = [&](SQLUSMALLINT which) {
    return static_cast<Long>(NumberAttribute(statement, number, which));
  };
  sql::ColumnDescription told;
  told.sqlType = TypeOf(attribute(SQL_DESC_CONCISE_TYPE));
  told.typeName = TextAttribute(statement, number, SQL_DESC_TYPE_NAME);
  told.name = TextAttribute(statement, number, SQL_DESC_NAME);
  told.nullable =
      NumberAttribute(statement, number, SQL_DESC_NULLABLE, SQL_NULLABLE_UNKNOWN) != SQL_NO_NULLS;
  told.length = NumberAttribute(statement, number, SQL_DESC_LENGTH);
  if (sql::HasDigits(told.sqlType, told.typeName, postgres)) {
    told.precision = attribute(SQL_DESC_PRECISION);
    told.scale = attribute(SQL_DESC_SCALE);
  }
  TakeBase(told, statement, number);
  sql::Column column = sql::ColumnOf(std::move(told), postgres);
  column.asText = postgres && IsHarmed(column);
  return column;
}

}  // namespace

Long TypeOf(Long reported) {
  switch (reported) {
    case SQL_DATE:
      return sql_type::Date;
    case SQL_TIME:
      return sql_type::Time;
    case SQL_TIMESTAMP:
      return sql_type::Timestamp;
    default:
      return reported;
  }
}

sql::Columns DescribeColumns(SQLHSTMT statement, bool postgres) {
  SQLSMALLINT count = 0;
  Check(SQLNumResultCols(statement, &count), SQL_HANDLE_STMT, statement);
  sql::Columns columns;
  for (SQLUSMALLINT number = 1; number <= count; ++number) {
    columns.push_back(Describe(statement, number, postgres));
  }
  return columns;
}

}  // namespace tessaria::odbc
