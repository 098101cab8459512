#include <fstream>

#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

using ConnectionTest = DatabaseTest;

TEST_F(ConnectionTest, ReportsItsState) {
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_EQ(connection_->ConnectionString(), Cluster().ConnectionString());
  EXPECT_HOST_ERROR(connection_->Open(), errors::ObjectOpen);
  connection_->Close();
  EXPECT_EQ(connection_->State(), host::state::Closed);
  connection_->Close();
  connection_->Open();
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
}

TEST_F(ConnectionTest, ClosedConnectionRefusesEverything) {
  connection_->Close();
  EXPECT_HOST_ERROR(connection_->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(Read(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->Properties(u"DBMS Name"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->BeginTrans(), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::InvalidConnection);
}

TEST_F(ConnectionTest, NamesTheDatabaseAndItsVersion) {
  EXPECT_SAME(connection_->Properties(u"DBMS Name"), u"PostgreSQL");
  EXPECT_SAME(connection_->Properties(u"dbms name"), u"PostgreSQL");
  const String version = CStr(connection_->Properties(u"DBMS Version"));
  EXPECT_TRUE(StartsWith(version, u"PostgreSQL ")) << ToUtf8(version);
  EXPECT_GE(CInt(Replace(Mid(version, 12, 6), u".", u"")), 950);
  EXPECT_HOST_ERROR(connection_->Properties(u"Outra"), errors::ItemNotFound);
}

TEST_F(ConnectionTest, AConnectionStringThatWouldBeCutIsRefused) {
  auto connection = tessaria::test::NewConnectionOfTheDriver();
  connection->ConnectionString(Cluster().ConnectionString() + String(u"\0Uid=outro;", 11));
  EXPECT_HOST_ERROR(connection->Open(), errors::InvalidArgument);
  EXPECT_EQ(connection->State(), host::state::Closed);
}

TEST_F(ConnectionTest, NamesThatWouldBeCutAreRefused) {
  EXPECT_HOST_ERROR(
      connection_->OpenSchema(host::SchemaKind::Columns,
                              {.Catalog = {}, .Schema = {}, .Table = String(u"a\0", 2)}),
      errors::InvalidArgument);
}

TEST_F(ConnectionTest, ReportsWhyItCannotOpen) {
  auto connection = tessaria::test::NewConnectionOfTheDriver();
  connection->ConnectionString(u"Driver={PostgreSQL Unicode};Servername=/nenhum;Database=x");
  try {
    connection->Open();
    FAIL() << "opened";
  } catch (const DriverError& error) {
    EXPECT_EQ(error.Number(), errors::ProviderError);
    EXPECT_TRUE(error.IsConnectionLoss());
    EXPECT_GT(InStr(error.Description(), u"/nenhum/.s.PGSQL"), 0) << ToUtf8(error.Description());
  }
  EXPECT_EQ(connection->State(), host::state::Closed);
  connection->ConnectionString(u"DSN=nenhuma fonte de dados");
  EXPECT_HOST_ERROR(connection->Open(), errors::ProviderError);
}

struct ErrorCase {
  StringView statement;
  const char* state;
  Long number;
  StringView part;  // of the driver's text
};

constexpr ErrorCase kErrors[] = {
    {u"selec 1", "42601", errors::ErrorsInCommand, u"syntax error at or near \"selec\""},
    {u"select Top 1 a from t", "42601", errors::ErrorsInCommand, u"syntax error"},
    {u"select b from t", "42703", errors::ErrorsInCommand, u"column \"b\" does not exist"},
    {u"select a from nenhuma", "42P01", errors::ErrorsInCommand, u"\"nenhuma\" does not exist"},
    {u"insert into t values (1)", "23505", errors::IntegrityViolation, u"duplicate key"},
    {u"select 1 / (a - 1) from t", "22012", errors::ValueRefused, u"division by zero"},
    {u"select cast('x' as integer) from t", "22P02", errors::ValueRefused, u"\"x\""},
    {u"do $$begin raise exception 'Não é possível'; end$$", "P0001", errors::ProviderError,
     u"Não é possível"},
    {u"select 1; select 2", "", errors::ErrorsInCommand, u"mais de um comando"},
};

TEST_F(ConnectionTest, ErrorsCarryTheDriversText) {
  Run(u"create table t (a int primary key)");
  Run(u"insert into t values (1)");
  for (const ErrorCase& c : kErrors) {
    SCOPED_TRACE(ToUtf8(c.statement));
    try {
      Run(String(c.statement));
      ADD_FAILURE() << "no error";
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), c.number);
      EXPECT_GT(InStr(error.Description(), c.part), 0) << ToUtf8(error.Description());
      const auto* odbc = dynamic_cast<const DriverError*>(&error);
      EXPECT_EQ(odbc ? odbc->SqlState() : "", c.state);
    }
    EXPECT_EQ(connection_->State(), host::state::Open);
    EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
  }
}

TEST_F(ConnectionTest, ServerTimeOutHasItsOwnError) {
  Run(u"set statement_timeout = 100");
  EXPECT_HOST_ERROR(Run(u"select pg_sleep(5)"), errors::TimeOut);
  EXPECT_EQ(connection_->State(), host::state::Open);
}

struct TextCase {
  StringView literal, value;
};

constexpr TextCase kTexts[] = {
    {u"'São João'", u"São João"},
    {u"'Copo d''água'", u"Copo d'água"},
    {u"'50%'", u"50%"},
    {u"'quem?'", u"quem?"},
    {u"'{fn now()}'", u"{fn now()}"},
    {u"'{d ''2020-01-01''}'", u"{d '2020-01-01'}"},
    {u"'c:\\dados\\novo'", u"c:\\dados\\novo"},
    {u"'a;b'", u"a;b"},
    {u"$$é 'assim' ?$$", u"é 'assim' ?"},
    {u"E'linha\\n\\'2\\''", u"linha\n'2'"},
    {u"'€ \U0001F600'", u"€ \U0001F600"},
    {u"to_char('2020-02-29'::date, 'dd/mm/yyyy')", u"29/02/2020"},
};

TEST_F(ConnectionTest, TextsOfStatementsReachTheServerUnchanged) {
  Run(u"create table t (a text)");
  for (const TextCase& c : kTexts) {
    SCOPED_TRACE(ToUtf8(c.literal));
    Run(u"truncate t");
    Run(u"insert into t values (" + String(c.literal) + u")");
    EXPECT_SAME(Scalar(u"select a from t where a = " + String(c.literal)), String(c.value));
  }
}

TEST_F(ConnectionTest, TypedValueCannotAppendAStatement) {
  Run(u"create table t (a int)");
  Run(u"insert into t values (1)");
  for (const StringView typed : {u"1; drop table t", u"1);drop table t--", u"'x'; delete from t"}) {
    EXPECT_HOST_ERROR(Run(u"select a from t where a = " + String(typed)), errors::ErrorsInCommand);
  }
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
}

TEST_F(ConnectionTest, StatementWithoutRowsReturnsAClosedRecordset) {
  const auto created = connection_->Execute(u"create table t (a int)");
  EXPECT_EQ(created->State(), host::state::Closed);
  EXPECT_HOST_ERROR(created->Eof(), errors::ObjectClosed);
  EXPECT_EQ(connection_->Execute(u"update t set a = 1")->State(), host::state::Closed);
  const auto returned = connection_->Execute(u"insert into t values (7) returning a");
  ASSERT_EQ(returned->State(), host::state::Open);
  EXPECT_SAME(Get(returned, 0), Long{7});
  EXPECT_EQ(connection_->Execute(u"select a from t where 1 = Null")->Fields().Count(), 1);
}

TEST_F(ConnectionTest, OpensATableByItsName) {
  Run(u"create table \"Clientes\" (a int)");
  Run(u"insert into \"Clientes\" values (3)");
  EXPECT_SAME(Get(Read(u"\"Clientes\""), u"A"), Long{3});
  EXPECT_SAME(Get(Read(u"public.\"Clientes\""), 0), Long{3});
}

}  // namespace
}  // namespace tessaria::sql::test
