#include "hosts/odbc/values/column.h"

#include <algorithm>
#include <array>
#include <limits>

#include "hosts/odbc/driver/diagnostics.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {
namespace {

namespace type = host::type;

struct TypeRule {
  SQLLEN sqlType;
  Long type;
  Storage storage;
};

// Every SQL type that is not listed is read as text.
constexpr TypeRule kTypeRules[] = {
    {SQL_CHAR, type::WChar, Storage::Text},
    {SQL_WCHAR, type::WChar, Storage::Text},
    {SQL_BIT, type::Boolean, Storage::Boolean},
    {SQL_TINYINT, type::TinyInt, Storage::Int16},
    {SQL_SMALLINT, type::SmallInt, Storage::Int16},
    {SQL_INTEGER, type::Integer, Storage::Int32},
    {SQL_BIGINT, type::Numeric, Storage::Int64},
    {SQL_REAL, type::Single, Storage::Single},
    {SQL_FLOAT, type::Double, Storage::Double},
    {SQL_DOUBLE, type::Double, Storage::Double},
    {SQL_NUMERIC, type::Numeric, Storage::Number},
    {SQL_DECIMAL, type::Numeric, Storage::Number},
    {SQL_TYPE_DATE, type::DBDate, Storage::Day},
    {SQL_TYPE_TIME, type::DBTime, Storage::TimeOfDay},
    {SQL_TYPE_TIMESTAMP, type::DBTimeStamp, Storage::Moment},
    {SQL_BINARY, type::Binary, Storage::Text},
    {SQL_VARBINARY, type::Binary, Storage::Text},
    {SQL_LONGVARBINARY, type::Binary, Storage::Text},
};
constexpr TypeRule kTextTypeRule = {SQL_WVARCHAR, type::VarWChar, Storage::Text};
constexpr TypeRule kBooleanRule = {SQL_BIT, type::Boolean, Storage::Boolean};
constexpr TypeRule kMoneyRule = {SQL_DOUBLE, type::Currency, Storage::Money};

constexpr Long kUuidLength = 36;
constexpr Long kBigIntDigits = 19;
// The greatest size that PostgreSQL lets a text declare, which is more than in the other databases:
// a longer text has no declared size.
constexpr SQLLEN kMostSize = 10'485'760;

// Returns false when the driver does not support the attribute: the rows can still be read without
// it.
bool IsAnswered(SQLRETURN result, const Statement& statement) {
  if (SQL_SUCCEEDED(result)) return true;
  const OdbcError error = DiagnosticsOf(SQL_HANDLE_STMT, statement.get());
  if (error.IsNotSupported()) return false;
  throw error;
}

String TextAttribute(const Statement& statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<char16_t, 512> buffer{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN result = SQLColAttributeW(statement.get(), column, attribute, buffer.data(),
                                            sizeof buffer, &bytes, nullptr);
  if (!IsAnswered(result, statement)) return {};
  const std::size_t length = static_cast<std::size_t>(bytes) / sizeof(char16_t);
  return String(buffer.data(), std::min(length, buffer.size() - 1));
}

SQLLEN NumberAttribute(const Statement& statement, SQLUSMALLINT column, SQLUSMALLINT attribute,
                       SQLLEN unknown = 0) {
  SQLLEN value = 0;
  const SQLRETURN result =
      SQLColAttributeW(statement.get(), column, attribute, nullptr, 0, nullptr, &value);
  return IsAnswered(result, statement) ? value : unknown;
}

const TypeRule& TypeRuleOf(SQLLEN sqlType) {
  const auto* rule = std::find_if(std::begin(kTypeRules), std::end(kTypeRules),
                                  [&](const TypeRule& r) { return r.sqlType == sqlType; });
  return rule == std::end(kTypeRules) ? kTextTypeRule : *rule;
}

// Types that the PostgreSQL driver describes as something else.
const TypeRule& PostgresRule(const String& typeName, const TypeRule& rule) {
  if (typeName == u"bool") return kBooleanRule;
  if (typeName == u"money") return kMoneyRule;
  return rule;
}

const TypeRule& RuleFor(SQLLEN sqlType, const String& typeName, bool postgres) {
  return postgres ? PostgresRule(typeName, TypeRuleOf(sqlType)) : TypeRuleOf(sqlType);
}

void RefinePostgres(Column& column, SQLLEN sqlType, const String& typeName) {
  if (sqlType == SQL_GUID) column.lowerCase = true;
  // The driver has no name for json, enumerations and arrays, and "xml" has no equality.
  if (typeName == u"unknown" || typeName == u"xml") column.comparable = false;
}

void TakeSizes(Column& column, const Statement& statement, SQLUSMALLINT number, SQLLEN sqlType) {
  const auto attribute = [&](SQLUSMALLINT which) {
    return static_cast<Long>(NumberAttribute(statement, number, which));
  };
  column.definedSize = SizeOfType(sqlType, attribute(SQL_DESC_LENGTH));
  if (column.storage == Storage::Text || column.storage == Storage::Boolean) return;
  column.precision = std::max<Long>(0, attribute(SQL_DESC_PRECISION));
  column.scale = std::max<Long>(0, attribute(SQL_DESC_SCALE));
  if (column.storage == Storage::Int64) column.precision = kBigIntDigits;
}

void TakeBase(Column& column, const Statement& statement, SQLUSMALLINT number) {
  column.table = TextAttribute(statement, number, SQL_DESC_BASE_TABLE_NAME);
  // Drivers give an expression its own name as base column, but no table.
  if (column.table.empty()) return;
  column.baseColumn = TextAttribute(statement, number, SQL_DESC_BASE_COLUMN_NAME);
  column.schema = TextAttribute(statement, number, SQL_DESC_SCHEMA_NAME);
  column.catalogue = TextAttribute(statement, number, SQL_DESC_CATALOG_NAME);
}

Column Describe(const Statement& statement, SQLUSMALLINT number, bool postgres) {
  Column column;
  const SQLLEN sqlType = NumberAttribute(statement, number, SQL_DESC_CONCISE_TYPE);
  const String typeName = TextAttribute(statement, number, SQL_DESC_TYPE_NAME);
  const TypeRule& rule = RuleFor(sqlType, typeName, postgres);
  column.sqlType = sqlType;
  column.typeName = typeName;
  column.name = TextAttribute(statement, number, SQL_DESC_NAME);
  column.type = rule.type;
  column.storage = rule.storage;
  column.padded = rule.type == type::WChar;
  column.nullable =
      NumberAttribute(statement, number, SQL_DESC_NULLABLE, SQL_NULLABLE_UNKNOWN) != SQL_NO_NULLS;
  TakeSizes(column, statement, number, sqlType);
  TakeBase(column, statement, number);
  if (postgres) RefinePostgres(column, sqlType, typeName);
  return column;
}

}  // namespace

Long FieldTypeOf(SQLLEN sqlType, const String& typeName, bool postgres) {
  return RuleFor(sqlType, typeName, postgres).type;
}

Long SizeOfType(SQLLEN sqlType, SQLLEN size) {
  if (sqlType == SQL_GUID) return kUuidLength;
  return size < 0 || size > kMostSize ? 0 : static_cast<Long>(size);
}

Columns DescribeColumns(const Statement& statement, bool postgres) {
  SQLSMALLINT count = 0;
  Check(SQLNumResultCols(statement.get(), &count), SQL_HANDLE_STMT, statement.get());
  Columns columns;
  for (SQLUSMALLINT number = 1; number <= count; ++number) {
    columns.push_back(Describe(statement, number, postgres));
  }
  return columns;
}

}  // namespace tessaria::odbc
