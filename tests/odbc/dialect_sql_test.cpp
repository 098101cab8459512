// What is sent to each database: parameter types, comparisons, names, settings.
#include "hosts/odbc/statements/dialect_sql.h"

#include <gtest/gtest.h>
#include <sqlext.h>

#include "hosts/odbc/session/session.h"
#include "tessaria/host/data.h"
#include "tests/support/printers.h"

namespace tessaria::odbc {
namespace {

struct ParameterCase {
  SQLLEN columnType;
  StringView text;
  Dialect dialect;
  SQLSMALLINT sqlType;
  SQLULEN size;
  SQLSMALLINT decimals;
};

constexpr Dialect kAccess = Dialect::Access;
constexpr Dialect kServer = Dialect::SqlServer;

constexpr ParameterCase kParameters[] = {
    // PostgreSQL reads the text by the column's own type.
    {SQL_INTEGER, u"15", Dialect::PostgreSql, SQL_WVARCHAR, 2, 0},
    {SQL_TYPE_TIMESTAMP, u"2020-02-29 10:00:00", Dialect::PostgreSql, SQL_WVARCHAR, 19, 0},
    {SQL_VARCHAR, u"", Dialect::PostgreSql, SQL_WVARCHAR, 1, 0},
    // whole numbers
    {SQL_BIT, u"1", kServer, SQL_BIT, 1, 0},
    {SQL_TINYINT, u"200", kServer, SQL_SMALLINT, 5, 0},
    {SQL_SMALLINT, u"-7", kAccess, SQL_SMALLINT, 5, 0},
    {SQL_INTEGER, u"15", kAccess, SQL_INTEGER, 10, 0},
    {SQL_INTEGER, u"15", Dialect::Other, SQL_INTEGER, 10, 0},
    {SQL_BIGINT, u"9007199254740993", kServer, SQL_BIGINT, 19, 0},
    // inexact numbers
    {SQL_REAL, u"1.1", kServer, SQL_REAL, 7, 0},
    {SQL_FLOAT, u"1e+20", kServer, SQL_DOUBLE, 15, 0},
    {SQL_DOUBLE, u"0.1", kAccess, SQL_DOUBLE, 15, 0},
    // exact numbers are sent with the decimals of the value: the server rounds, a driver refuses
    {SQL_NUMERIC, u"1.239", kServer, SQL_NUMERIC, 4, 3},
    {SQL_DECIMAL, u"-10.5000", kServer, SQL_DECIMAL, 6, 4},
    {SQL_DECIMAL, u"7", kAccess, SQL_DECIMAL, 1, 0},
    {SQL_NUMERIC, u"1e+20", kServer, SQL_DOUBLE, 15, 0},
    {SQL_NUMERIC, u"NaN", kServer, SQL_WVARCHAR, 3, 0},
    {SQL_NUMERIC, u"123456789012345678901234567890123456789", kServer, SQL_WVARCHAR, 39, 0},
    // dates: "yyyy-mm-dd" as text is read day first by a Brazilian login of SQL Server
    {SQL_TYPE_DATE, u"2020-02-29", kServer, SQL_TYPE_DATE, 10, 0},
    {SQL_TYPE_TIMESTAMP, u"2020-02-29 10:00:00", kServer, SQL_TYPE_TIMESTAMP, 19, 0},
    {SQL_TYPE_TIMESTAMP, u"2020-02-29 10:00:00.003000", kServer, SQL_TYPE_TIMESTAMP, 23, 3},
    {SQL_TYPE_TIMESTAMP, u"2020-02-29 10:00:00.000000", kServer, SQL_TYPE_TIMESTAMP, 19, 0},
    {SQL_TYPE_TIMESTAMP, u"2020-02-29 00:00:00", kAccess, SQL_TYPE_TIMESTAMP, 19, 0},
    {SQL_TYPE_TIME, u"10:20:30", Dialect::Other, SQL_TYPE_TIME, 8, 0},
    {SQL_TYPE_TIME, u"10:20:30.500000", Dialect::Other, SQL_WVARCHAR, 15, 0},
    // the rest
    {SQL_GUID, u"6F9619FF-8B86-D011-B42D-00C04FC964FF", kAccess, SQL_GUID, 36, 0},
    {SQL_BINARY, u"00FF10", kServer, SQL_VARBINARY, 3, 0},
    {SQL_VARBINARY, u"", kServer, SQL_VARBINARY, 1, 0},
    {SQL_LONGVARBINARY, u"00FF", kServer, SQL_LONGVARBINARY, 2, 0},
    {SQL_VARCHAR, u"Ana", kServer, SQL_WVARCHAR, 3, 0},
    {SQL_WLONGVARCHAR, u"Ana", kAccess, SQL_WVARCHAR, 3, 0},
    {-155 /* a type of one database's own */, u"2020-02-29 10:00:00 -03:00", kServer, SQL_WVARCHAR,
     26, 0},
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
  moment.sqlType = SQL_TYPE_TIMESTAMP;
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:00.500000", kServer).text,
            u"2020-02-29 10:00:00.5");
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:00.500000", Dialect::PostgreSql).text,
            u"2020-02-29 10:00:00.500000");
  EXPECT_EQ(ParameterOf(moment, u"2020-02-29 10:00:10", kServer).text, u"2020-02-29 10:00:10");
}

struct LengthCase {
  Dialect dialect;
  std::size_t characters;
  SQLSMALLINT sqlType;
};

constexpr LengthCase kLengths[] = {
    {kServer, 4000, SQL_WVARCHAR},
    {kServer, 4001, SQL_WLONGVARCHAR},
    {kAccess, 255, SQL_WVARCHAR},
    {kAccess, 256, SQL_WLONGVARCHAR},
    {Dialect::PostgreSql, 100'000, SQL_WVARCHAR},
    {Dialect::Other, 100'000, SQL_WVARCHAR},
};

TEST(ParameterOf, IsALongTextWhenAPlainOneIsTooShort) {
  for (const LengthCase& c : kLengths) {
    const Parameter parameter = ParameterOf({}, String(c.characters, u'a'), c.dialect);
    EXPECT_EQ(parameter.sqlType, c.sqlType) << c.characters;
    EXPECT_EQ(parameter.size, c.characters);
  }
  Column bytes;
  bytes.sqlType = SQL_VARBINARY;
  EXPECT_EQ(ParameterOf(bytes, String(2 * 8000, u'0'), kServer).sqlType, SQL_VARBINARY);
  EXPECT_EQ(ParameterOf(bytes, String(2 * 8001, u'0'), kServer).sqlType, SQL_LONGVARBINARY);
}

struct ConditionCase {
  Dialect dialect;
  StringView typeName;
  SQLLEN sqlType;
  StringView condition;  // empty: cannot be compared
};

constexpr ConditionCase kConditions[] = {
    {kServer, u"varchar", SQL_VARCHAR, u"[a] = ?"},
    {kServer, u"text", SQL_LONGVARCHAR, u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"ntext", SQL_WLONGVARCHAR, u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"xml", -152, u"cast([a] as nvarchar(max)) = cast(? as nvarchar(max))"},
    {kServer, u"image", SQL_LONGVARBINARY,
     u"cast([a] as varbinary(max)) = cast(? as varbinary(max))"},
    {kServer, u"datetime", SQL_TYPE_TIMESTAMP, u"[a] = cast(? as datetime)"},
    {kServer, u"smalldatetime", SQL_TYPE_TIMESTAMP, u"[a] = cast(? as smalldatetime)"},
    {kServer, u"datetime2", SQL_TYPE_TIMESTAMP, u"[a] = ?"},
    {kServer, u"geography", -151, u""},
    {kAccess, u"LONGBINARY", SQL_LONGVARBINARY, u""},
    {kAccess, u"LONGCHAR", SQL_WLONGVARCHAR, u"[a] = ?"},
    {Dialect::Other, u"text", SQL_LONGVARCHAR, u"[a] = ?"},
    {Dialect::PostgreSql, u"text", SQL_WLONGVARCHAR, u"[a] = ?"},
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
}  // namespace tessaria::odbc
