#include "hosts/postgres/pg_types.h"

#include <algorithm>
#include <iterator>

#include "hosts/sql/values/sql_type.h"

namespace tessaria::postgres {
namespace {

namespace sql_type = sql::sql_type;

// What a type's modifier means.
enum class Modifier { None, Length, Digits, Time, Moment };

struct PgType {
  Oid oid;
  StringView name;
  Long sqlType;
  std::int64_t size;  // without a modifier; 0 for a text without a declared size
  Modifier modifier;
  AppendBinary read;
};

// The server's numbers of these types never change. Money has as many decimals as the server's
// country uses, which its binary form does not contain; a moment with a zone has to be shown in the
// zone of the session.
constexpr PgType kTypes[] = {
    {16, u"bool", sql_type::Bit, 5, Modifier::None, AppendBool},
    {kByteaType, u"bytea", sql_type::LongVarBinary, 0, Modifier::None, AppendBytea},
    {18, u"char", sql_type::WChar, 1, Modifier::None, nullptr},
    {19, u"name", sql_type::WVarChar, 63, Modifier::None, AppendPlainText},
    {20, u"int8", sql_type::BigInt, 19, Modifier::None, AppendInt8},
    {21, u"int2", sql_type::SmallInt, 5, Modifier::None, AppendInt2},
    {23, u"int4", sql_type::Integer, 10, Modifier::None, AppendInt4},
    {kTextType, u"text", sql_type::WLongVarChar, 0, Modifier::None, AppendPlainText},
    // Up to 4294967295.
    {26, u"oid", sql_type::BigInt, 10, Modifier::None, AppendOid},
    {142, u"xml", sql_type::WLongVarChar, 0, Modifier::None, nullptr},
    {650, u"cidr", sql_type::WVarChar, 50, Modifier::None, nullptr},
    {700, u"float4", sql_type::Real, 9, Modifier::None, AppendFloat4},
    {701, u"float8", sql_type::Double, 17, Modifier::None, AppendFloat8},
    {790, u"money", sql_type::Double, 10, Modifier::None, nullptr},
    {829, u"macaddr", sql_type::WVarChar, 17, Modifier::None, nullptr},
    {869, u"inet", sql_type::WVarChar, 50, Modifier::None, nullptr},
    {1042, u"bpchar", sql_type::WChar, 0, Modifier::Length, AppendPadded},
    {1043, u"varchar", sql_type::WVarChar, 0, Modifier::Length, AppendPlainText},
    {1082, u"date", sql_type::Date, 10, Modifier::None, AppendDate},
    {1083, u"time", sql_type::Time, 8, Modifier::Time, AppendTime},
    {1114, u"timestamp", sql_type::Timestamp, 26, Modifier::Moment, AppendTimestamp},
    {1184, u"timestamptz", sql_type::Timestamp, 26, Modifier::Moment, nullptr},
    {1186, u"interval", sql_type::WVarChar, 32, Modifier::None, nullptr},
    {1700, u"numeric", sql_type::Numeric, 28, Modifier::Digits, AppendNumeric},
    {2950, u"uuid", sql_type::Guid, 36, Modifier::None, AppendUuid},
};
constexpr PgType kUnknown = {0, u"unknown", sql_type::WVarChar, 0, Modifier::None, nullptr};

const PgType& TypeOf(Oid oid) {
  const auto* type = std::find_if(std::begin(kTypes), std::end(kTypes),
                                  [&](const PgType& t) { return t.oid == oid; });
  return type == std::end(kTypes) ? kUnknown : *type;
}

// The server counts four bytes of a header into these modifiers.
constexpr int kHeaderBytes = 4;

void TakeDigits(sql::ColumnDescription& told, int modifier) {
  constexpr Long kDigits = 28, kDecimals = 6;  // where none are declared
  const bool isDeclared = modifier >= kHeaderBytes;
  const int declared = modifier - kHeaderBytes;
  told.precision = isDeclared ? declared >> 16 & 0xFFFF : kDigits;
  // Eleven bits with a sign.
  told.scale = isDeclared ? ((declared & 0x7FF) ^ 0x400) - 0x400 : kDecimals;
  told.length = told.precision;
}

void TakeModifier(sql::ColumnDescription& told, Modifier kind, int modifier) {
  constexpr Long kFraction = 6;
  switch (kind) {
    case Modifier::None:
      return;
    case Modifier::Length:
      if (modifier > kHeaderBytes) told.length = modifier - kHeaderBytes;
      return;
    case Modifier::Digits:
      return TakeDigits(told, modifier);
    case Modifier::Time:
      told.precision = modifier < 0 ? kFraction : modifier;
      return;
    case Modifier::Moment:
      told.precision = modifier < 0 ? kFraction : modifier;
      told.length = told.precision == 0 ? 19 : 20 + told.precision;
      return;
  }
}

}  // namespace

sql::ColumnDescription DescriptionOf(Oid type, int modifier) {
  const PgType& known = TypeOf(type);
  sql::ColumnDescription told;
  told.typeName = String(known.name);
  told.sqlType = known.sqlType;
  told.length = known.size;
  TakeModifier(told, known.modifier, modifier);
  return told;
}

AppendBinary BinaryReaderOf(Oid type) { return TypeOf(type).read; }

}  // namespace tessaria::postgres
