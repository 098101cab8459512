#include "hosts/sql/values/column.h"

#include <algorithm>
#include <utility>

#include "hosts/sql/values/sql_type.h"
#include "tessaria/host/data.h"

namespace tessaria::sql {
namespace {

namespace type = host::type;

struct TypeRule {
  Long sqlType;
  Long type;
  Storage storage;
};

// Every SQL type that is not listed is read as text.
constexpr TypeRule kTypeRules[] = {
    {sql_type::Char, type::WChar, Storage::Text},
    {sql_type::WChar, type::WChar, Storage::Text},
    {sql_type::Bit, type::Boolean, Storage::Boolean},
    {sql_type::TinyInt, type::TinyInt, Storage::Int16},
    {sql_type::SmallInt, type::SmallInt, Storage::Int16},
    {sql_type::Integer, type::Integer, Storage::Int32},
    {sql_type::BigInt, type::Numeric, Storage::Int64},
    {sql_type::Real, type::Single, Storage::Single},
    {sql_type::Float, type::Double, Storage::Double},
    {sql_type::Double, type::Double, Storage::Double},
    {sql_type::Numeric, type::Numeric, Storage::Number},
    {sql_type::Decimal, type::Numeric, Storage::Number},
    {sql_type::Date, type::DBDate, Storage::Day},
    {sql_type::Time, type::DBTime, Storage::TimeOfDay},
    {sql_type::Timestamp, type::DBTimeStamp, Storage::Moment},
    {sql_type::Binary, type::Binary, Storage::Text},
    {sql_type::VarBinary, type::Binary, Storage::Text},
    {sql_type::LongVarBinary, type::Binary, Storage::Text},
};
constexpr TypeRule kTextTypeRule = {sql_type::WVarChar, type::VarWChar, Storage::Text};
constexpr TypeRule kBooleanRule = {sql_type::Bit, type::Boolean, Storage::Boolean};
constexpr TypeRule kMoneyRule = {sql_type::Double, type::Currency, Storage::Money};

constexpr Long kUuidLength = 36;
constexpr Long kBigIntDigits = 19;
// The greatest size that PostgreSQL lets a text declare, which is more than in the other databases:
// a longer text has no declared size.
constexpr std::int64_t kMostSize = 10'485'760;

const TypeRule& TypeRuleOf(Long sqlType) {
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

const TypeRule& RuleFor(Long sqlType, const String& typeName, bool postgres) {
  return postgres ? PostgresRule(typeName, TypeRuleOf(sqlType)) : TypeRuleOf(sqlType);
}

void RefinePostgres(Column& column, Long sqlType, const String& typeName) {
  if (sqlType == sql_type::Guid) column.lowerCase = true;
  // The driver has no name for json, enumerations and arrays, and "xml" has no equality.
  if (typeName == u"unknown" || typeName == u"xml") column.comparable = false;
}

bool StorageHasDigits(Storage storage) {
  return storage != Storage::Text && storage != Storage::Boolean;
}

}  // namespace

bool HasDigits(Long sqlType, const String& typeName, bool postgres) {
  return StorageHasDigits(RuleFor(sqlType, typeName, postgres).storage);
}

Column ColumnOf(ColumnDescription description, bool postgres) {
  const Long sqlType = description.sqlType;
  const TypeRule& rule = RuleFor(sqlType, description.typeName, postgres);
  Column column;
  column.sqlType = sqlType;
  column.name = std::move(description.name);
  column.type = rule.type;
  column.storage = rule.storage;
  column.padded = rule.type == type::WChar;
  column.nullable = description.nullable;
  column.definedSize = SizeOfType(sqlType, description.length);
  if (StorageHasDigits(rule.storage)) {
    column.precision = std::max<Long>(0, description.precision);
    column.scale = std::max<Long>(0, description.scale);
  }
  if (rule.storage == Storage::Int64) column.precision = kBigIntDigits;
  column.table = std::move(description.table);
  column.baseColumn = std::move(description.baseColumn);
  column.schema = std::move(description.schema);
  column.catalogue = std::move(description.catalogue);
  if (postgres) RefinePostgres(column, sqlType, description.typeName);
  column.typeName = std::move(description.typeName);
  return column;
}

Long FieldTypeOf(Long sqlType, const String& typeName, bool postgres) {
  return RuleFor(sqlType, typeName, postgres).type;
}

Long SizeOfType(Long sqlType, std::int64_t size) {
  if (sqlType == sql_type::Guid) return kUuidLength;
  return size < 0 || size > kMostSize ? 0 : static_cast<Long>(size);
}

}  // namespace tessaria::sql
