#include "lookup/dialect.h"
#include "lookup/literals.h"
#include "lookup/sql_family.h"

#include "tessaria/memory/connection.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

using mdlComum::TraduzSQL;
using mdlObjTxt::sqlFuncao;

using DialectTest = LookupTest;

struct NameCase {
  const char16_t* provider;
  SqlFamily family;
  bool postgres;
};

const NameCase kNames[] = {
    {u"MS JET", SqlFamily::Access, false},
    {u"ACCESS", SqlFamily::Access, false},
    {u"Access", SqlFamily::Access, false},
    {u"Microsoft SQL Server", SqlFamily::SqlServer, false},
    {u"PostgreSQL", SqlFamily::PostgreSQL, true},
    {u"postgresql", SqlFamily::PostgreSQL, true},
    {u"SQLite", SqlFamily::Unknown, false},
    {u"PostgreSQL ", SqlFamily::Unknown, false},
    {u"", SqlFamily::Unknown, false},
};

TEST_F(DialectTest, TheFamilyFollowsFromTheProvidersNameInAnyCase) {
  for (const auto& row : kNames) {
    SCOPED_TRACE(ToUtf8(row.provider));
    connection->Dbms(row.provider);
    EXPECT_EQ(FamilyOfDialect(DialectName(*connection)), row.family);
    EXPECT_EQ(IsPostgreSQL(*connection), row.postgres);
  }
}

TEST_F(DialectTest, TheConnectionIsAskedEachTime) {
  EXPECT_EQ(TraduzSQL(sql_fragment::Like), u"Like");
  connection->Dbms(u"PostgreSQL");
  EXPECT_EQ(TraduzSQL(sql_fragment::Like), u"ilike");
}

TEST_F(DialectTest, OneRowIsSelectedInTwoWays) {
  EXPECT_EQ(LimitToOneRow(true).Select, u"Select ");
  EXPECT_EQ(LimitToOneRow(true).Limit, u" Limit 1");
  EXPECT_EQ(LimitToOneRow(false).Select, u"Select Top 1 ");
  EXPECT_EQ(LimitToOneRow(false).Limit, u"");
}

struct FragmentCase {
  Long code;
  Long kind;
  const char16_t* access;
  const char16_t* sqlServer;
  const char16_t* postgres;
};

const FragmentCase kFragments[] = {
    {0, 0, u"Mid", u"Substring", u"Substring"},
    {1, 0, u"IIf(a = 1, 'S', 'N') as flag", u"Case When a = 1 Then 'S' Else 'N' End as flag",
     u"Case When a = 1 Then 'S' Else 'N' End as flag"},
    {2, 0, u"Cdate('25/12/2016')", u"'12/25/2016'", u"'2016-12-25'::date"},
    {3, 0, u"Cint(x)", u"Convert(int, x)", u"x::integer"},
    {3, 1, u"Cint(x)", u"Convert(SmallInt, x)", u"x::int2"},
    {3, 2, u"Cint(x)", u"", u""},
    {3, -1, u"Cint(x)", u"", u""},
    {4, 0, u"Trim", u"RTrim", u"Trim"},
    {5, 0, u"", u"", u""},
    {6, 0, u"&", u"&", u"||"},
    {7, 0, u"Like", u"Like", u"ilike"},
    {8, 0, u"", u"", u""},
    {-1, 0, u"", u"", u""},
};

TEST_F(DialectTest, EachFragmentInEachFamily) {
  for (const auto& row : kFragments) {
    const std::pair<const char16_t*, const char16_t*> cells[] = {
        {u"MS JET", row.access},
        {u"ACCESS", row.access},
        {u"Microsoft SQL Server", row.sqlServer},
        {u"PostgreSQL", row.postgres},
        {u"SQLite", u""},
    };
    for (const auto& [provider, fragment] : cells) {
      SCOPED_TRACE(std::to_string(row.code) + " " + std::to_string(row.kind) + " " +
                   ToUtf8(provider));
      connection->Dbms(provider);
      EXPECT_EQ(
          TraduzSQL(row.code, u"a = 1", u"'S'", u"'N'", u"flag", u"25/12/2016", row.kind, u"x"),
          fragment);
    }
  }
}

TEST_F(DialectTest, SqlServerConcatenatesWithAnAmpersandNotAPlus) {
  connection->Dbms(u"Microsoft SQL Server");
  EXPECT_EQ(TraduzSQL(sql_fragment::Concatenate), u"&");
  EXPECT_EQ(sqlFuncao(u"Microsoft SQL Server", u"sqlConcat"), u"&");
}

TEST_F(DialectTest, AnyConnectionHasItsOperator) {
  const auto other = memory::Connection::CreateOpen();
  EXPECT_EQ(Concatenation(*other), u"||");
  other->SetProperty(u"DBMS Name", u"MS Jet");
  EXPECT_EQ(Concatenation(*other), u"&");
  other->SetProperty(u"DBMS Name", u"SQLite");
  EXPECT_EQ(Concatenation(*other), u"");
}

TEST_F(DialectTest, AnEmptyAliasAppendsNothing) {
  EXPECT_EQ(TraduzSQL(1, u"a", u"b", u"c", u""), u"IIf(a, b, c)");
  connection->Dbms(u"PostgreSQL");
  EXPECT_EQ(TraduzSQL(1, u"a", u"b", u"c", u""), u"Case When a Then b Else c End");
}

TEST_F(DialectTest, ArgumentsAreNotTemplates) {
  EXPECT_EQ(TraduzSQL(1, u"{strEntao}", u"{", u"}", u"{strSenao}"),
            u"IIf({strEntao}, {, }) as {strSenao}");
}

TEST_F(DialectTest, AccessTakesTheDateAsTyped) {
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u"1/2/16"), u"Cdate('1/2/16')");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u"ontem"), u"Cdate('ontem')");
}

TEST_F(DialectTest, ATextThatIsNotADateIsReturnedBetweenApostrophes) {
  connection->Dbms(u"Microsoft SQL Server");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u"ontem"), u"'ontem'");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u""), u"''");
  connection->Dbms(u"PostgreSQL");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u"ontem"), u"'ontem'::date");
}

TEST_F(DialectTest, AnUnknownProviderLeavesASearchWithoutItsKeyword) {
  connection->Dbms(u"SQLite");
  EXPECT_EQ(u"campo " + TraduzSQL(7) + u" 'x%'", u"campo  'x%'");
}

TEST_F(DialectTest, WithoutAConnectionTheErrorReachesTheCaller) {
  State().dbConexao = nullptr;
  EXPECT_HOST_ERROR(TraduzSQL(0), errors::ObjectNotSet);
  State().dbConexao = connection;
  connection->Close();
  EXPECT_HOST_ERROR(TraduzSQL(0), errors::InvalidConnection);
  EXPECT_THAT(app.TakeBoxes(), testing::IsEmpty());
}

struct FunctionCase {
  const char16_t* dbms;
  const char16_t* substring;
  const char16_t* concat;
};

const FunctionCase kFunctions[] = {
    {u"ACCESS", u"Mid", u"&"},
    {u"access", u"Mid", u"&"},
    {u"Microsoft SQL Server", u"Substring", u"&"},
    {u"mIcRoSoFt sql SERVER", u"Substring", u"&"},
    {u"POSTGRESQL", u"Substring", u"||"},
    {u"PostgreSQL", u"Substring", u"||"},
    {u"SQLite", u"", u""},
    {u"", u"", u""},
};

TEST(SqlFuncao, GivesTheWordsOfEachDialect) {
  for (const auto& row : kFunctions) {
    SCOPED_TRACE(ToUtf8(row.dbms));
    EXPECT_EQ(sqlFuncao(row.dbms, u"sqlSubstring"), row.substring);
    EXPECT_EQ(sqlFuncao(row.dbms, u"SQLSUBSTRING"), row.substring);
    EXPECT_EQ(sqlFuncao(row.dbms, u"sqlConcat"), row.concat);
    EXPECT_EQ(sqlFuncao(row.dbms, u"sqlconcat"), row.concat);
    EXPECT_EQ(sqlFuncao(row.dbms, u"sqlTrim"), u"");
    EXPECT_EQ(sqlFuncao(row.dbms, u""), u"");
  }
}

TEST(SqlFuncao, DoesNotKnowMsJet) {
  EXPECT_EQ(sqlFuncao(u"MS JET", u"sqlSubstring"), u"");
  EXPECT_EQ(sqlFuncao(u"MS JET", u"sqlConcat"), u"");
}

TEST(SqlFuncao, NeedsNoConnection) { EXPECT_EQ(sqlFuncao(u"ACCESS", u"sqlConcat"), u"&"); }

struct VersionCase {
  const char16_t* text;
  Integer number;
};

const VersionCase kVersions[] = {
    {u"PostgreSQL 9.5.3 on x86_64", 953},
    {u"PostgreSQL 9.4.1 on x86_64", 941},
    {u"PostgreSQL 9.5.3", 953},
    {u"PostgreSQL 15.18.0", 1518},
    {u"PostgreSQL 12    ", 12},
    {u"Server PostgreSQL 9.6.1 ", 961},
    {u"0123456789"
     u"15.0.1",
     1501},  // without the name the text is cut at its 11th character
};

TEST_F(DialectTest, TheVersionIsANumberOfItsDigits) {
  for (const auto& row : kVersions) {
    SCOPED_TRACE(ToUtf8(row.text));
    connection->Dbms(u"PostgreSQL", row.text);
    EXPECT_EQ(PostgreSQLVersion(*connection), row.number);
  }
}

TEST_F(DialectTest, AnOldReleaseOfManyDigitsCountsAsANewOne) {
  connection->Dbms(u"PostgreSQL", u"PostgreSQL 8.4.22 ");
  EXPECT_EQ(PostgreSQLVersion(*connection), 8422);
}

struct BadVersionCase {
  const char16_t* text;
  Long error;
};

const BadVersionCase kBadVersions[] = {
    {u"PostgreSQL 10.1 on x", errors::TypeMismatch},
    {u"x postgresql 9.5.3", errors::TypeMismatch},  // the case of the name matters
    {u"9.5.3", errors::TypeMismatch},
    {u"PostgreSQL", errors::TypeMismatch},
    {u"", errors::TypeMismatch},
    {u"PostgreSQL 999999", errors::Overflow},
    {u"PostgreSQL 9,5.3 ",
     errors::TypeMismatch},  // accepted as numbers elsewhere, but not only digits
    {u"PostgreSQL -9.5.3", errors::TypeMismatch},
    {u"PostgreSQL  9.5.3", errors::TypeMismatch},
    {u"PostgreSQL &H1F", errors::TypeMismatch},
    {u"PostgreSQL 9e2", errors::TypeMismatch},
    {u"PostgreSQL 9 5 3", errors::TypeMismatch},
    {u"PostgreSQL ......", errors::TypeMismatch},
};

TEST_F(DialectTest, AVersionThatIsNotANumberIsAnError) {
  for (const auto& row : kBadVersions) {
    SCOPED_TRACE(ToUtf8(row.text));
    connection->Dbms(u"PostgreSQL", row.text);
    EXPECT_HOST_ERROR(PostgreSQLVersion(*connection), row.error);
  }
}

TEST_F(DialectTest, AnInvalidDateTextStaysBetweenItsApostrophes) {
  const String hostile = u"' or 1=1 --";
  connection->Dbms(u"ACCESS");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, hostile), u"Cdate(''' or 1=1 --')");
  connection->Dbms(u"Microsoft SQL Server");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, hostile), u"''' or 1=1 --'");
  connection->Dbms(u"PostgreSQL");
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, hostile), u"''' or 1=1 --'::date");
  connection->Backslashes(true);
  EXPECT_EQ(TraduzSQL(2, {}, {}, {}, {}, u"\\'"), u"'\\\\'''::date");
}

TEST(Quoting, DoublesEveryApostrophe) {
  EXPECT_EQ(DoubleApostrophes(u"d'água d'ouro"), u"d''água d''ouro");
}

}  // namespace
}  // namespace tessaria::test
