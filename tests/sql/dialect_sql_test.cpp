// What is sent to each database: parameter types, comparisons, names, settings.
#include "hosts/sql/statements/dialect_sql.h"

#include <gtest/gtest.h>
#include "hosts/sql/session/session.h"
#include "tessaria/host/data.h"
#include "tests/support/printers.h"

namespace tessaria::sql {
namespace {

struct ParameterCase {
  Long columnType;
  StringView text;
  Dialect dialect;
  Long sqlType;
  std::size_t size;
  Long decimals;
};

constexpr Dialect kAccess = Dialect::Access;
constexpr Dialect kServer = Dialect::SqlServer;

constexpr ParameterCase kParameters[] = {
    // PostgreSQL reads the text by the column's own type.
    {sql_type::Integer, u"15", Dialect::PostgreSql, sql_type::WVarChar, 2, 0},
    {sql_type::Timestamp, u"2020-02-29 10:00:00", Dialect::PostgreSql, sql_type::WVarChar, 19, 0},
    {sql_type::VarChar, u"", Dialect::PostgreSql, sql_type::WVarChar, 1, 0},
    // whole numbers
    {sql_type::Bit, u"1", kServer, sql_type::Bit, 1, 0},
    {sql_type::TinyInt, u"200", kServer, sql_type::SmallInt, 5, 0},
    {sql_type::SmallInt, u"-7", kAccess, sql_type::SmallInt, 5, 0},
    {sql_type::Integer, u"15", kAccess, sql_type::Integer, 10, 0},
    {sql_type::Integer, u"15", Dialect::Other, sql_type::Integer, 10, 0},
    {sql_type::BigInt, u"9007199254740993", kServer, sql_type::BigInt, 19, 0},
    // inexact numbers
    {sql_type::Real, u"1.1", kServer, sql_type::Real, 7, 0},
    {sql_type::Float, u"1e+20", kServer, sql_type::Double, 15, 0},
    {sql_type::Double, u"0.1", kAccess, sql_type::Double, 15, 0},
    // exact numbers are sent with the decimals of the value: the server rounds, a driver refuses
    {sql_type::Numeric, u"1.239", kServer, sql_type::Numeric, 4, 3},
    {sql_type::Decimal, u"-10.5000", kServer, sql_type::Decimal, 6, 4},
    {sql_type::Decimal, u"7", kAccess, sql_type::Decimal, 1, 0},
    {sql_type::Numeric, u"1e+20", kServer, sql_type::Double, 15, 0},
    {sql_type::Numeric, u"NaN", kServer, sql_type::WVarChar, 3, 0},
    {sql_type::Numeric, u"123456789012345678901234567890123456789", kServer, sql_type::WVarChar, 39,
     0},
    // dates: "yyyy-mm-dd" as text is read day first by a Brazilian login of SQL Server
    {sql_type::Date, u"2020-02-29", kServer, sql_type::Date, 10, 0},
    {sql_type::Timestamp, u"2020-02-29 10:00:00", kServer, sql_type::Timestamp, 19, 0},
    {sql_type::Timestamp, u"2020-02-29 10:00:00.003000", kServer, sql_type::Timestamp, 23, 3},
    {sql_type::Timestamp, u"2020-02-29 10:00:00.000000", kServer, sql_type::Timestamp, 19, 0},
    {sql_type::Timestamp, u"2020-02-29 00:00:00", kAccess, sql_type::Timestamp, 19, 0},
    {sql_type::Time, u"10:20:30", Dialect::Other, sql_type::Time, 8, 0},
    {sql_type::Time, u"10:20:30.500000", Dialect::Other, sql_type::WVarChar, 15, 0},
    // the rest
    {sql_type::Guid, u"6F9619FF-8B86-D011-B42D-00C04FC964FF", kAccess, sql_type::Guid, 36, 0},
    {sql_type::Binary, u"00FF10", kServer, sql_type::VarBinary, 3, 0},
    {sql_type::VarBinary, u"", kServer, sql_type::VarBinary, 1, 0},
    {sql_type::LongVarBinary, u"00FF", kServer, sql_type::LongVarBinary, 2, 0},
    {sql_type::VarChar, u"Ana", kServer, sql_type::WVarChar, 3, 0},
    {sql_type::WLongVarChar, u"Ana", kAccess, sql_type::WVarChar, 3, 0},
    {-155 /* a type of one database's own */, u"2020-02-29 10:00:00 -03:00", kServer,
     sql_type::WVarChar, 26, 0},
};

TEST(ParameterOf, HasTheTypeOfTheColumn) {
  for (const ParameterCase& c : kParameters) {
    SCOPED_TRACE(ToUtf8(c.text) + " for type " + std::to_string(c.columnType));
    Column column;
    column.sqlType = c.columnType;
    const Parameter parameter = ParameterOf(column, String(c.text), c.dialect);
    EXPECT_EQ(parameter.sqlType, c.sqlType);
    EXPECT_EQ(parameter.size, c.size);
    EXPECT_EQ(parameter.decimals, c.decimals);
  }
}

TEST(ParameterOf, KeepsTheTextExceptForNeedlessDecimalsOfASecond) {
  Column moment;
  moment.sqlType = sql_type::Timestamp;
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:00.500000", kServer).text,
            u"2020-02-29 10:00:00.5");
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:00.500000", Dialect::PostgreSql).text,
            u"2020-02-29 10:00:00.500000");
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:10", kServer).text, u"2020-02-29 10:00:10");
}

struct LengthCase {
  Dialect dialect;
  std::size_t characters;
  Long sqlType;
};

constexpr LengthCase kLengths[] = {
    {kServer, 4000, sql_type::WVarChar},
    {kServer, 4001, sql_type::WLongVarChar},
    {kAccess, 255, sql_type::WVarChar},
    {kAccess, 256, sql_type::WLongVarChar},
    {Dialect::PostgreSql, 100'000, sql_type::WVarChar},
    {Dialect::Other, 100'000, sql_type::WVarChar},
};

TEST(ParameterOf, IsALongTextWhenAPlainOneIsTooShort) {
  for (const LengthCase& c : kLengths) {
    const Parameter parameter = ParameterOf({}, String(c.characters, u'a'), c.dialect);
    EXPECT_EQ(parameter.sqlType, c.sqlType) << c.characters;
    EXPECT_EQ(parameter.size, c.characters);
  }
  Column bytes;
  bytes.sqlType = sql_type::VarBinary;
  EXPECT_EQ(ParameterOf(bytes, String(2 * 8000, u'0'), kServer).sqlType, sql_type::VarBinary);
  EXPECT_EQ(ParameterOf(bytes, String(2 * 8001, u'0'), kServer).sqlType, sql_type::LongVarBinary);
}

struct ConditionCase {
  Dialect dialect;
  StringView typeName;
  std::int64_t sqlType;
  StringView condition;  // empty: cannot be compared
};

constexpr ConditionCase kConditions[] = {
    {kServer, u"varchar", sql_type::VarChar, u"[a] = ?"},
    {kServer, u"text", sql_type::LongVarChar,
     u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"ntext", sql_type::WLongVarChar,
     u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"xml", -152, u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"image", sql_type::LongVarBinary,
     u"cast([a] as varbinary(max)) = cast(? as varbinary(max))"},
    {kServer, u"datetime", sql_type::Timestamp, u"[a] = cast(? as datetime)"},
    {kServer, u"smalldatetime", sql_type::Timestamp, u"[a] = cast(? as smalldatetime)"},
    {kServer, u"datetime2", sql_type::Timestamp, u"[a] = ?"},
    {kServer, u"geography", -151, u""},
    {kAccess, u"LONGBINARY", sql_type::LongVarBinary, u""},
    {kAccess, u"LONGCHAR", sql_type::WLongVarChar, u"[a] = ?"},
    {Dialect::Other, u"text", sql_type::LongVarChar, u"[a] = ?"},
    {Dialect::PostgreSql, u"text", sql_type::WLongVarChar, u"[a] = ?"},
};

TEST(ConditionOf, ComparesAsTheDatabaseCan) {
  for (const ConditionCase& c : kConditions) {
    SCOPED_TRACE(ToUtf8(c.typeName));
    Column column;
    column.typeName = String(c.typeName);
    column.sqlType = c.sqlType;
    EXPECT_EQ(ConditionOf(column, u"[a]", c.dialect).value_or(String()), c.condition);
  }
}

TEST(ConditionOf, CastsWhatPostgresCannotCompare) {
  Column json;
  json.comparable = false;
  EXPECT_EQ(ConditionOf(json, u"a", Dialect::PostgreSql), u"cast(a as text) = ?");
  Column bytes;
  bytes.type = host::type::Binary;
  EXPECT_EQ(ConditionOf(bytes, u"a", Dialect::PostgreSql), u"a = decode(?, 'hex')");
  Column money;
  money.storage = Storage::Money;
  EXPECT_EQ(ValueSlot(money, Dialect::PostgreSql), u"cast(cast(? as numeric) as money)");
  EXPECT_EQ(ValueSlot(money, kServer), u"?");
}

struct NameCase {
  Dialect dialect;
  StringView catalogue, schema, whole;
};

constexpr NameCase kNames[] = {
    {kServer, u"outro", u"dbo", u"\"outro\".\"dbo\".\"t\""},
    {kServer, u"outro", u"", u"\"outro\"..\"t\""},
    {kServer, u"", u"dbo", u"\"dbo\".\"t\""},
    {kServer, u"", u"", u"\"t\""},
    // For these a catalogue is the connection's own database, or a file.
    {Dialect::PostgreSql, u"postgres", u"public", u"\"public\".\"t\""},
    {kAccess, u"C:\\dados", u"", u"\"t\""},
};

TEST(TableName, IncludesTheDatabaseWhenItMayBeAnother) {
  Server server;
  server.quote = u"\"";
  for (const NameCase& c : kNames) {
    server.dialect = c.dialect;
    EXPECT_EQ(TableNameOf(server, String(c.catalogue), String(c.schema), u"t"), c.whole);
  }
}

TEST(TableName, CapitalsCountWhenTheDriverReportsTheName) {
  EXPECT_TRUE(IsSameName(kServer, u"CODIGO", u"Codigo"));
  EXPECT_TRUE(IsSameName(kAccess, u"CODIGO", u"Codigo"));
  EXPECT_FALSE(IsSameName(Dialect::PostgreSql, u"CODIGO", u"Codigo"));
}

TEST(Settings, AreThoseOfTheDatabase) {
  using Texts = std::vector<StringView>;
  EXPECT_EQ(SettingsOf(Dialect::PostgreSql), (Texts{u"SET standard_conforming_strings = on"}));
  EXPECT_EQ(SettingsOf(kServer), (Texts{u"SET XACT_ABORT OFF", u"SET NOCOUNT OFF"}));
  EXPECT_TRUE(SettingsOf(kAccess).empty());
  EXPECT_TRUE(SettingsOf(Dialect::Other).empty());
}

TEST(Settings, BoundsOfStatementsAreThoseOfTheDatabase) {
  EXPECT_EQ(TimeoutSettings(Dialect::PostgreSql, 30, 10),
            u"SET statement_timeout = 30000; SET lock_timeout = 10000");
  EXPECT_EQ(TimeoutSettings(Dialect::PostgreSql, 0, 0),
            u"SET statement_timeout = 0; SET lock_timeout = 0");
  EXPECT_EQ(TimeoutSettings(Dialect::PostgreSql, 2147483647, 3000000),
            u"SET statement_timeout = 2147483647; SET lock_timeout = 2147483647");
  EXPECT_EQ(TimeoutSettings(kServer, 30, 10), u"SET LOCK_TIMEOUT 10000");
  EXPECT_EQ(TimeoutSettings(kServer, 30, 0), u"SET LOCK_TIMEOUT -1");
  EXPECT_EQ(TimeoutSettings(kAccess, 30, 10), u"");
  EXPECT_EQ(TimeoutSettings(Dialect::Other, 30, 10), u"");
}

TEST(GivenKey, IsObtainedInTheWayOfEachDatabase) {
  EXPECT_EQ(GivenKeyOf(Dialect::PostgreSql), GivenKey::Returned);
  EXPECT_EQ(GivenKeyOf(kServer), GivenKey::SameBatch);
  EXPECT_EQ(IdentityQuestion(kServer), u"SELECT SCOPE_IDENTITY()");
  EXPECT_EQ(GivenKeyOf(kAccess), GivenKey::Afterwards);
  EXPECT_EQ(IdentityQuestion(kAccess), u"SELECT @@IDENTITY");
  EXPECT_EQ(GivenKeyOf(Dialect::Other), GivenKey::Unknown);
}

TEST(Outcome, IsUnknownWhenTheServerDoesNotCount) {
  EXPECT_EQ(OutcomeOf(-1), Outcome::Unknown);
  EXPECT_EQ(OutcomeOf(0), Outcome::Refused);
  EXPECT_EQ(OutcomeOf(1), Outcome::Written);
}

}  // namespace
}  // namespace tessaria::sql
