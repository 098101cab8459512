// What the check asks of a real database, through each driver.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "tessaria/utf8.h"
#include "tests/check/planted_form.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::formcheck::test {
namespace {

using tessaria::test::PostgresCluster;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class CheckDatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    PostgresCluster::Shared().EnsureRunning();
    PostgresCluster::Shared().Run(
        "set client_min_messages = warning; drop table if exists clientes cascade; "
        "create table clientes (codigo varchar(6) primary key, nome varchar(40), "
        "cidade varchar(40), nascimento date, limite numeric(12, 2)); "
        "insert into clientes values ('1', 'Ana', 'Recife', '2000-01-01', 10); "
        "create or replace function apaga() returns int language sql as "
        "'delete from clientes returning 1'");
  }

  static Report CheckWithDatabase(const std::string& path) {
    const char* const driver = std::getenv("TESSARIA_DRIVER");
    Options options;
    options.files = {path};
    options.connection = ToUtf8(PostgresCluster::Shared().ConnectionString());
    options.driver = driver ? driver : "odbc";
    return Check(options);
  }

  /// One finding at the line of `at`, which begins so.
  static void ExpectFinding(const PlantedForm& form, const std::string& at,
                            const std::string& finding) {
    const Report report = CheckWithDatabase(form.Path());
    const std::string line = std::to_string(form.LineOf(at));
    EXPECT_THAT(report.out, StartsWith(form.Path() + ":" + line + ": error: " + finding));
    EXPECT_EQ(std::count(report.out.begin(), report.out.end(), '\n'), 1) << report.out;
    EXPECT_EQ(report.error, "");
    EXPECT_EQ(report.code, 1);
  }
};

TEST_F(CheckDatabaseTest, CleanFormIsAccepted) {
  const Report report = CheckWithDatabase(CleanPath());
  EXPECT_EQ(report.out + report.error, "");
  EXPECT_EQ(report.code, 0);
}

TEST_F(CheckDatabaseTest, TableIsMissing) {
  PostgresCluster::Shared().Run("drop table clientes cascade");
  const Report report = CheckWithDatabase(CleanPath());
  EXPECT_THAT(report.out, HasSubstr("error: codigo: BrowseTable is refused: "));
  EXPECT_THAT(report.out, HasSubstr("error: nome: BrowseTable is refused: "));
  EXPECT_THAT(report.out, HasSubstr("error: dados: RecordSource is refused: "));
  EXPECT_EQ(report.code, 1);
}

TEST_F(CheckDatabaseTest, ColumnOfTheListIsMissing) {
  const PlantedForm form("BrwCampoOutros=String:nascimento, limite",
                         "BrwCampoOutros=String:nascimento, limit_");
  ExpectFinding(form, "BrwCampoOutros", "codigo: BrwCampoOutros is refused: ");
}

TEST_F(CheckDatabaseTest, ColumnOfASearchIsMissing) {
  const PlantedForm form("Pesquisa.Pesquisa1Campo=String:nome",
                         "Pesquisa.Pesquisa1Campo=String:apelido");
  ExpectFinding(form, "Pesquisa1Campo", "codigo: Pesquisa.Pesquisa1Campo is refused: ");
}

TEST_F(CheckDatabaseTest, OrderOfASearchIsRefused) {
  const PlantedForm form("Pesquisa2OrderBy=String:nome", "Pesquisa2OrderBy=String:apelido");
  ExpectFinding(form, "Pesquisa2OrderBy", "codigo: Pesquisa.Pesquisa2OrderBy is refused: ");
}

TEST_F(CheckDatabaseTest, BoundColumnIsMissing) {
  const PlantedForm form("DataField=String:codigo", "DataField=String:codgo");
  ExpectFinding(form, "DataField",
                "codigo: 'dados' has no column 'codgo' (did you mean 'codigo'?)");
}

TEST_F(CheckDatabaseTest, RecordSourceIsRefused) {
  const PlantedForm form("select codigo, nome from clientes order by nome",
                         "select codigo, apelido from clientes");
  ExpectFinding(form, "RecordSource", "dados: RecordSource is refused: ");
}

TEST_F(CheckDatabaseTest, ConditionIsRefused) {
  const PlantedForm form("limite &gt;= @valor@", "limites &gt;= @valor@");
  ExpectFinding(form, "BrwWhere", "codigo: BrwWhere is refused: ");
}

// A number without quotes is compared with a column of texts.
TEST_F(CheckDatabaseTest, NumberForATextColumnIsRefused) {
  const PlantedForm form("cidade = '@cidade@'", "cidade = @valor@");
  ExpectFinding(form, "BrwWhere", "codigo: BrwWhere is refused: ");
}

TEST_F(CheckDatabaseTest, GroupIsRefused) {
  const PlantedForm form("<string>Browse.Outros1Nome",
                         "<string>Browse.BrwGroupBy=String:Group By nome</string>"
                         "<string>Browse.Outros1Nome");
  ExpectFinding(form, "BrwGroupBy", "codigo: BrwGroupBy is refused: ");
}

TEST_F(CheckDatabaseTest, NothingIsChanged) {
  const PlantedForm condition("limite &gt;= @valor@", "apaga() = @valor@");
  CheckWithDatabase(condition.Path());
  const PlantedForm source("select codigo, nome from clientes order by nome",
                           "select codigo, nome, apaga() from clientes");
  CheckWithDatabase(source.Path());
  const PlantedForm table("select codigo, nome from clientes order by nome",
                          "with a as (delete from clientes returning *) select * from a");
  EXPECT_EQ(CheckWithDatabase(table.Path()).code, 1);
  const PlantedForm second("select codigo, nome from clientes order by nome",
                           "select 1) a; delete from clientes; select * from (select 1");
  EXPECT_EQ(CheckWithDatabase(second.Path()).code, 1);
  const PlantedForm ended("select codigo, nome from clientes order by nome",
                          "select 1) a; commit; delete from clientes; select * from (select 1");
  EXPECT_THAT(CheckWithDatabase(ended.Path()).out, HasSubstr("would begin another statement"));
  PostgresCluster::Shared().Run(
      "do $$ begin if (select count(*) from clientes) != 1 then raise 'changed'; end if; end $$");
}

TEST_F(CheckDatabaseTest, DeadServerIsTold) {
  const char* const driver = std::getenv("TESSARIA_DRIVER");
  Options options;
  options.files = {CleanPath()};
  options.driver = driver ? driver : "odbc";
  options.connection =
      "Driver={PostgreSQL Unicode};Servername=/nirgends;Port=5432;Database=postgres;Uid=postgres;";
  const Report report = Check(options);
  EXPECT_EQ(report.code, 2);
  EXPECT_THAT(report.error, HasSubstr("tessaria-check: the database cannot be asked: "));
}

}  // namespace
}  // namespace tessaria::formcheck::test
