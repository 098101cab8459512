// What is peculiar to the ODBC driver, against a real server.
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "hosts/odbc/block_reader.h"
#include "hosts/odbc/odbc_link.h"
#include "hosts/odbc/odbc_statement.h"
#include "tests/sql/database_test.h"

namespace tessaria::odbc {
namespace {

class OdbcTest : public sql::test::DatabaseTest {};

TEST_F(OdbcTest, OpensByDataSourceName) {
  const std::string file = Cluster().Folder() + "/odbc.ini";
  std::ofstream(file) << "[vendas]\nDriver=PostgreSQL Unicode\nServername=" << Cluster().Folder()
                      << "\nDatabase=postgres\nUsername=postgres\nProtocol=7.4-2\n"
                      << "UseDeclareFetch=1\n";
  setenv("ODBCINI", file.c_str(), 1);
  auto connection = tessaria::test::NewConnectionOfTheDriver();
  connection->ConnectionString(u"DSN=vendas");
  connection->Open();
  EXPECT_SAME(Get(connection->Execute(u"select 'ok'"), 0), u"ok");
  unsetenv("ODBCINI");
}

// A request to cancel comes from another thread, at any time.
TEST_F(OdbcTest, AProcessIsNotedWhileSomethingElseIsCancelled) {
  OdbcLink link(Cluster().ConnectionString(), 5, sql::SettingsScope::Transaction);
  std::atomic<bool> isOver = false;
  std::thread canceller([&] {
    for (int i = 0; i < 10; ++i) link.Cancel();
    isOver = true;
  });
  while (!isOver) {
    try {
      link.Begin();
      link.NoteProcess();
    } catch (const sql::DriverError& error) {
      EXPECT_EQ(error.SqlState(), "57014");
    }
    link.Rollback();
  }
  canceller.join();
  EXPECT_FALSE(link.IsLost());
  EXPECT_NO_THROW(link.NewStatement()->Run(u"select 1"));
}

// The way in which rows are read with drivers that cannot read a bound cell again.
TEST_F(OdbcTest, CellByCellGivesTheSameRows) {
  OdbcStatement statement(std::make_shared<Line>(Cluster().ConnectionString(), 0));
  statement.Run(u"select 7, repeat('é', 20000), null::text, '', '2020-02-29'::date");
  const Columns columns = statement.Describe();
  BlockReader reader(statement.Get(), columns, false);
  ColumnStore store(columns);
  ASSERT_EQ(reader.Fetch(), 1U);
  reader.Take(store);
  EXPECT_EQ(store.Fixed<std::int32_t>(0, 0), 7);
  EXPECT_EQ(FromUtf8(store.Text(0, 1)), String(20000, u'é'));
  EXPECT_TRUE(store.IsNull(0, 2));
  EXPECT_FALSE(store.IsNull(0, 3));
  EXPECT_EQ(store.Text(0, 3), "");
  EXPECT_EQ(store.Fixed<std::int32_t>(0, 4), 43890);
  EXPECT_EQ(reader.Fetch(), 0U);
}

}  // namespace
}  // namespace tessaria::odbc
