// What is peculiar to the PostgreSQL driver, against a real server.
#include "hosts/postgres/pg_link.h"
#include "tests/sql/database_test.h"

namespace tessaria::postgres {
namespace {

class PostgresTest : public sql::test::DatabaseTest {
 protected:
  static host::ConnectionPtr Open(const String& text) {
    auto connection = tessaria::test::NewConnectionOfTheDriver();
    connection->ConnectionString(text);
    connection->Open();
    return connection;
  }
  static std::shared_ptr<PgLink> NewLink() {
    return std::make_shared<PgLink>(Cluster().ConnectionString(), 0, sql::SettingsScope::Session);
  }
  /// The first column of a present result, one number a row.
  static std::vector<std::int32_t> Numbers(sql::Statement& statement) {
    const sql::Columns columns = statement.Describe();
    statement.Bind(columns);
    sql::ColumnStore store(columns);
    std::vector<std::int32_t> numbers;
    if (statement.Fetch() > 0) statement.Take(store);
    for (std::uint32_t row = 0; row < store.RowCount(); ++row) {
      numbers.push_back(store.Fixed<std::int32_t>(row, 0));
    }
    return numbers;
  }
};

using Ints = std::vector<std::int32_t>;

TEST_F(PostgresTest, OpensByTheLibrarysOwnTexts) {
  const String folder = FromUtf8(Cluster().Folder());
  for (const String& text : {u"host=" + folder + u" dbname=postgres user=postgres",
                             u"postgresql://postgres@/postgres?host=" + folder + u"&port=5432"}) {
    EXPECT_SAME(Get(Open(text)->Execute(u"select 'ação'"), 0), u"ação");
  }
}

TEST_F(PostgresTest, RunsTheStatementsOfTheConnectionString) {
  const auto connection =
      Open(Cluster().ConnectionString() + u"ConnSettings=set+application_name%3D'vendas'");
  EXPECT_SAME(Get(connection->Execute(u"show application_name"), 0), u"vendas");
  EXPECT_HOST_ERROR(Open(Cluster().ConnectionString() + u"ConnSettings=selec"),
                    sql::errors::ErrorsInCommand);
}

// Whatever the database is set to, cells arrive in the form that is read.
TEST_F(PostgresTest, SettingsOfTheDatabaseDoNotChangeWhatIsRead) {
  Run(u"alter role postgres set datestyle = 'German'");
  Run(u"alter role postgres set bytea_output = 'escape'");
  Run(u"alter role postgres set extra_float_digits = 0");
  Run(u"alter role postgres set client_encoding = 'LATIN1'");
  const auto connection = NewConnection();
  Run(u"alter role postgres reset all");
  const auto rows = connection->Execute(
      u"select date '2020-02-29', '\\x00ff'::bytea, 0.1::float8 + 0.2::float8, '€' limit 1");
  EXPECT_SAME(Get(rows, 0), Variant(FromCivil({2020, 2, 29, 0, 0, 0})));
  EXPECT_SAME(Get(rows, 1), u"00ff");
  EXPECT_SAME(Get(rows, 2), 0.1 + 0.2);
  EXPECT_SAME(Get(rows, 3), u"€");
}

TEST_F(PostgresTest, ErrorsHaveTheServersDetailAndHint) {
  try {
    Run(u"do $$begin raise exception 'Sem saldo' using detail = 'Faltam 10', hint = 'Espere';"
        u" end$$");
    FAIL() << "no error";
  } catch (const sql::DriverError& error) {
    EXPECT_EQ(error.Description(), u"ERROR: Sem saldo\r\nDETAIL: Faltam 10\r\nHINT: Espere");
  }
}

TEST_F(PostgresTest, CopyWithTheProgramIsRefused) {
  Run(u"create table t (a int)");
  Run(u"insert into t values (1)");
  for (const bool inTransaction : {false, true}) {
    if (inTransaction) connection_->BeginTrans();
    for (const StringView copy : {u"copy t to stdout", u"copy t from stdin"}) {
      EXPECT_HOST_ERROR(Run(String(copy)), sql::errors::ProviderError);
      EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
    }
    if (inTransaction) connection_->CommitTrans();
  }
}

TEST_F(PostgresTest, ACommitThatTheServerTurnsIntoARollbackIsAnError) {
  const auto link = NewLink();
  link->Begin();
  EXPECT_HOST_ERROR(link->NewStatement()->Run(u"selec"), sql::errors::ErrorsInCommand);
  EXPECT_HOST_ERROR(link->Commit(), sql::errors::ProviderError);
  EXPECT_FALSE(link->IsLost());
  EXPECT_NO_THROW(link->Begin());
  EXPECT_NO_THROW(link->Commit());
}

// Statements beside a batch wait until its results are kept.
TEST_F(PostgresTest, ResultsOfABatchStayWhileAnotherStatementRuns) {
  const auto link = NewLink();
  const auto batch = link->NewStatement();
  batch->Run(u"select 1; select 2 union all select 3; select 4");
  EXPECT_EQ(Numbers(*batch), Ints{1});
  const auto other = link->NewStatement();
  other->Run(u"select 7");
  EXPECT_EQ(Numbers(*other), Ints{7});
  ASSERT_TRUE(batch->NextResult());
  EXPECT_EQ(Numbers(*batch), (Ints{2, 3}));
  ASSERT_TRUE(batch->NextResult());
  EXPECT_EQ(Numbers(*batch), Ints{4});
  EXPECT_FALSE(batch->NextResult());
  batch->Run(u"select 5; select 6");
  batch->Run(u"select 8");  // the rest is given up
  EXPECT_EQ(Numbers(*batch), Ints{8});
}

TEST_F(PostgresTest, AFailureInABatchIsRaisedWhereItStandsAndWhereItHarms) {
  const auto link = NewLink();
  const auto batch = link->NewStatement();
  batch->Run(u"select 1; select 2; select 1 / 0; select 3");
  EXPECT_HOST_ERROR(link->NewStatement()->Run(u"select 7"), sql::errors::ValueRefused);
  EXPECT_EQ(Numbers(*batch), Ints{1});
  ASSERT_TRUE(batch->NextResult());
  EXPECT_EQ(Numbers(*batch), Ints{2});
  EXPECT_HOST_ERROR(batch->NextResult(), sql::errors::ValueRefused);
  EXPECT_FALSE(batch->NextResult());
  EXPECT_NO_THROW(link->NewStatement()->Run(u"select 7"));
}

TEST_F(PostgresTest, AChangedTableIsDescribedForWritingAsItIsNow) {
  Run(u"create table t (a int primary key, b int)");
  Run(u"insert into t values (1, 2)");
  Read(u"select * from t");
  Run(u"alter table t rename column b to c");
  Run(u"alter table t rename to u");
  const auto now = Edit(u"select * from u");
  Set(now, u"c", Long{3});
  now->Update();
  EXPECT_SAME(Scalar(u"select c from u"), Long{3});
  Run(u"alter table u add d int not null default 4");
  const auto added = Read(u"select * from u");
  EXPECT_EQ(added->Fields().Item(u"d")->Attributes() & host::attribute::IsNullable, 0);
}

// In the schema's path a table may hide one of the catalogue.
TEST_F(PostgresTest, TablesNamedAsTheCataloguesAreNotAsked) {
  Run(u"create table pg_class (oid int primary key, relname text)");
  Run(u"create table pg_attribute (attrelid int)");
  Run(u"set search_path = public, pg_catalog");
  Run(u"insert into public.pg_class values (1, 'a')");
  const auto rows = Edit(u"select * from public.pg_class");
  Set(rows, u"relname", u"b");
  rows->Update();
  EXPECT_SAME(Scalar(u"select relname from public.pg_class"), u"b");
}

TEST_F(PostgresTest, ADomainOverADomainHasTheTypeBelowIt) {
  Run(u"create domain curto as varchar(7)");
  Run(u"create domain apelido as curto");
  Run(u"create table t (a apelido)");
  const auto column = connection_->OpenSchema(host::SchemaKind::Columns, {{}, u"public", u"t"});
  EXPECT_SAME(Get(column, u"DATA_TYPE"), host::type::VarWChar);
  EXPECT_SAME(Get(column, u"CHARACTER_MAXIMUM_LENGTH"), Long{7});
  EXPECT_EQ(Read(u"select a from t")->Fields().Item(0)->DefinedSize(), 7);
}

TEST_F(PostgresTest, UniqueIndexesAreThoseOverPlainColumns) {
  Run(u"create table t (a int, b int, c int)");
  Run(u"create unique index um on t (b, a) include (c)");
  Run(u"create unique index dois on t ((a + 1))");
  Run(u"create unique index tres on t (c) where a > 1");
  const auto parts = NewLink()->UniqueIndexes({{}, u"public", u"t"});
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].column, u"b");
  EXPECT_EQ(parts[1].column, u"a");
  EXPECT_EQ(parts[1].key, u"um");
}

}  // namespace
}  // namespace tessaria::postgres
