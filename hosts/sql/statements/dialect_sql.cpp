#include "hosts/sql/statements/dialect_sql.h"

#include <algorithm>
#include <limits>
#include <string>

#include "tessaria/host/data.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

struct SettingRule {
  Dialect dialect;
  StringView statement;
};

constexpr SettingRule kSettings[] = {
    // The guard against second statements reads '' quotes this way.
    {Dialect::PostgreSql, u"SET standard_conforming_strings = on"},
    // A failed statement must not abort the transaction.
    {Dialect::SqlServer, u"SET XACT_ABORT OFF"},
    // The count of changed rows tells whether a row was still as it was read.
    {Dialect::SqlServer, u"SET NOCOUNT OFF"},
};

// How a parameter for a column of an SQL type is sent.
enum class Travel { Fixed, Exact, Date, Time, Moment, Bytes, Text };

struct TravelRule {
  Long columnType;
  Travel travel;
  Long sqlType;
  std::size_t size;
};

// Every SQL type that is not listed is sent as text.
constexpr TravelRule kTravelRules[] = {
    {sql_type::Bit, Travel::Fixed, sql_type::Bit, 1},
    // Whether it has a sign depends on the driver.
    {sql_type::TinyInt, Travel::Fixed, sql_type::SmallInt, 5},
    {sql_type::SmallInt, Travel::Fixed, sql_type::SmallInt, 5},
    {sql_type::Integer, Travel::Fixed, sql_type::Integer, 10},
    {sql_type::BigInt, Travel::Fixed, sql_type::BigInt, 19},
    {sql_type::Real, Travel::Fixed, sql_type::Real, 7},
    {sql_type::Float, Travel::Fixed, sql_type::Double, 15},
    {sql_type::Double, Travel::Fixed, sql_type::Double, 15},
    {sql_type::Guid, Travel::Fixed, sql_type::Guid, 36},
    {sql_type::Numeric, Travel::Exact, sql_type::Numeric, 0},
    {sql_type::Decimal, Travel::Exact, sql_type::Decimal, 0},
    {sql_type::Date, Travel::Date, sql_type::Date, 10},
    {sql_type::Time, Travel::Time, sql_type::Time, 8},
    {sql_type::Timestamp, Travel::Moment, sql_type::Timestamp, 19},
    {sql_type::Binary, Travel::Bytes, sql_type::VarBinary, 0},
    {sql_type::VarBinary, Travel::Bytes, sql_type::VarBinary, 0},
    {sql_type::LongVarBinary, Travel::Bytes, sql_type::LongVarBinary, 0},
};
constexpr TravelRule kTextRule = {sql_type::WVarChar, Travel::Text, sql_type::WVarChar, 0};

// The longest text and the most bytes that are sent as a plain value; what is longer is sent as a
// long one.
struct PlainLimits {
  Dialect dialect;
  std::size_t characters, bytes;
};
constexpr PlainLimits kPlainLimits[] = {
    {Dialect::SqlServer, 4000, 8000},
    {Dialect::Access, 255, 255},
};

// The most digits that any of the databases keeps exactly.
constexpr std::size_t kMostDigits = 38;

struct ComparisonRule {
  Dialect dialect;
  StringView typeName;
  StringView column, value;  // @ stands for the column
};

constexpr ComparisonRule kComparisons[] = {
    {Dialect::SqlServer, u"text", u"cast(@ as nvarchar(max))", u"cast(? as nvarchar(max))"},
    {Dialect::SqlServer, u"ntext", u"cast(@ as nvarchar(max))", u"cast(? as nvarchar(max))"},
    {Dialect::SqlServer, u"xml", u"cast(@ as nvarchar(max))", u"cast(? as nvarchar(max))"},
    {Dialect::SqlServer, u"image", u"cast(@ as varbinary(max))", u"cast(? as varbinary(max))"},
    // Its values are multiples of 1/300 second: a decimal fraction equals one only when it is
    // converted to the type.
    {Dialect::SqlServer, u"datetime", u"@", u"cast(? as datetime)"},
    {Dialect::SqlServer, u"smalldatetime", u"@", u"cast(? as smalldatetime)"},
    {Dialect::SqlServer, u"geography", u"", u""},
    {Dialect::SqlServer, u"geometry", u"", u""},
    {Dialect::SqlServer, u"hierarchyid", u"", u""},
};

const TravelRule& RuleOf(Long sqlType) {
  const auto* rule = std::find_if(std::begin(kTravelRules), std::end(kTravelRules),
                                  [&](const TravelRule& r) { return r.columnType == sqlType; });
  return rule == std::end(kTravelRules) ? kTextRule : *rule;
}

PlainLimits LimitsOf(Dialect dialect) {
  for (const PlainLimits& limits : kPlainLimits) {
    if (limits.dialect == dialect) return limits;
  }
  constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
  return {dialect, kNone, kNone};
}

Parameter AsText(const String& text, Dialect dialect) {
  const bool plain = text.size() <= LimitsOf(dialect).characters;
  return {text, static_cast<Long>(plain ? sql_type::WVarChar : sql_type::WLongVarChar),
          std::max<std::size_t>(text.size(), 1), 0};
}

// `text` is hexadecimal.
Parameter AsBytes(const String& text, Long sqlType, Dialect dialect) {
  const std::size_t bytes = text.size() / 2;
  const bool plain = bytes <= LimitsOf(dialect).bytes;
  return {text, plain ? sqlType : static_cast<Long>(sql_type::LongVarBinary),
          std::max<std::size_t>(bytes, 1), 0};
}

std::size_t DecimalsOf(StringView text) {
  const std::size_t point = text.find(u'.');
  return point == StringView::npos ? 0 : text.size() - point - 1;
}

// With as many decimals as the value has: the server rounds to its own, while the driver would
// refuse the value.
Parameter AsExact(const String& text, Long sqlType, Dialect dialect) {
  const auto digits = static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; }));
  const std::size_t others = text.find_first_not_of(u"-.0123456789");
  if (others != String::npos) {
    const bool exponent = others > 0 && (text[others] == u'e' || text[others] == u'E');
    if (!exponent) return AsText(text, dialect);
    return {text, sql_type::Double, 15, 0};
  }
  if (digits == 0 || digits > kMostDigits) return AsText(text, dialect);
  return {text, sqlType, digits, static_cast<Long>(DecimalsOf(text))};
}

// "yyyy-mm-dd hh:mm:ss", with the decimals that it needs.
Parameter AsMoment(String text, const TravelRule& rule) {
  const std::size_t point = text.find(u'.');
  if (point != String::npos) text.resize(text.find_last_not_of(u'0') + 1);
  if (text.back() == u'.') text.pop_back();
  const std::size_t decimals = DecimalsOf(text);
  const std::size_t size = rule.size + (decimals > 0 ? decimals + 1 : 0);
  return {std::move(text), rule.sqlType, size, static_cast<Long>(decimals)};
}

}  // namespace

std::vector<StringView> SettingsOf(Dialect dialect) {
  std::vector<StringView> statements;
  for (const SettingRule& rule : kSettings) {
    if (rule.dialect == dialect) statements.push_back(rule.statement);
  }
  return statements;
}

String TimeoutSettings(Dialect dialect, Long command, Long lock) {
  const auto milliseconds = [](Long seconds) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    return FromUtf8(std::to_string(std::min(std::int64_t{seconds} * 1000, kMost)));
  };
  switch (dialect) {
    case Dialect::PostgreSql:
      return u"SET statement_timeout = " + milliseconds(command) + u"; SET lock_timeout = " +
             milliseconds(lock);
    case Dialect::SqlServer:  // where -1 is no bound
      return u"SET LOCK_TIMEOUT " + (lock == 0 ? String(u"-1") : milliseconds(lock));
    case Dialect::Access:
    case Dialect::Other:
      break;
  }
  return {};
}

Parameter ParameterOf(const Column& column, const String& text, Dialect dialect) {
  if (dialect == Dialect::PostgreSql) return AsText(text, dialect);
  const TravelRule& rule = RuleOf(column.sqlType);
  switch (rule.travel) {
    case Travel::Fixed:
    case Travel::Date:
      return {text, rule.sqlType, rule.size, 0};
    case Travel::Exact:
      return AsExact(text, rule.sqlType, dialect);
    case Travel::Moment:
      return AsMoment(text, rule);
    case Travel::Time:  // the type has no fraction
      if (DecimalsOf(text) > 0) return AsText(text, dialect);
      return {text, rule.sqlType, rule.size, 0};
    case Travel::Bytes:
      return AsBytes(text, rule.sqlType, dialect);
    case Travel::Text:
      break;
  }
  return AsText(text, dialect);
}

// Types whose text PostgreSQL would read by the server's locale, or that have no plain text of
// their own, are converted from a text that is the same everywhere.
String ValueSlot(const Column& column, Dialect dialect) {
  if (dialect != Dialect::PostgreSql) return u"?";
  if (column.storage == Storage::Money) return u"cast(cast(? as numeric) as money)";
  return column.type == host::type::Binary ? u"decode(?, 'hex')" : u"?";
}

std::optional<String> ConditionOf(const Column& column, const String& name, Dialect dialect) {
  if (dialect == Dialect::PostgreSql) {
    const String left = column.comparable ? name : u"cast(" + name + u" as text)";
    return left + u" = " + ValueSlot(column, dialect);
  }
  if (dialect == Dialect::Access && column.sqlType == sql_type::LongVarBinary) return std::nullopt;
  for (const ComparisonRule& rule : kComparisons) {
    if (rule.dialect != dialect || !EqualNoCase(rule.typeName, column.typeName)) continue;
    if (rule.column.empty()) return std::nullopt;
    return Replace(rule.column, u"@", name) + u" = " + String(rule.value);
  }
  return name + u" = ?";
}

GivenKey GivenKeyOf(Dialect dialect) {
  switch (dialect) {
    case Dialect::PostgreSql:
      return GivenKey::Returned;
    case Dialect::SqlServer:
      return GivenKey::SameBatch;
    case Dialect::Access:
      return GivenKey::Afterwards;
    case Dialect::Other:
      break;
  }
  return GivenKey::Unknown;
}

// SQL Server has triggers, whose own inserts generate keys too: only those of the batch count.
StringView IdentityQuestion(Dialect dialect) {
  return dialect == Dialect::SqlServer ? u"SELECT SCOPE_IDENTITY()" : u"SELECT @@IDENTITY";
}

Outcome OutcomeOf(std::int64_t rows) {
  if (rows < 0) return Outcome::Unknown;
  return rows > 0 ? Outcome::Written : Outcome::Refused;
}

}  // namespace tessaria::sql
