// The data sources that are offered, over files of the driver manager that the test writes. The
// driver manager keeps what it has read: one program, one set of files.
#include "tessaria/odbc/data_sources.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tessaria/odbc/connection.h"
#include "tests/support/postgres_cluster.h"
#include "tests/support/printers.h"

namespace tessaria::odbc {
namespace {

/// A server, and files with entries for it.
class DataSources : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!test::PostgresCluster::Missing().empty()) return;
    const std::string folder = test::PostgresCluster::Shared().Folder();
    setenv("ODBCINI", (folder + "/odbc.ini").c_str(), 1);
    std::filesystem::create_directory(folder + "/sistema");
    setenv("ODBCSYSINI", (folder + "/sistema").c_str(), 1);
    std::filesystem::copy_file("/etc/odbcinst.ini", folder + "/sistema/odbcinst.ini");
    Write(folder + "/odbc.ini", {"vendas", "contas a pagar", "d{e}=f", "g,h(i)?*!@", "'q'", "a/b",
                                 "Default", kLongest, kLongest + "n", "Peças", "a;b", "{c}"});
    std::ofstream(folder + "/odbc.ini", std::ios::app)
        << "[ODBC Data Sources]\nvendas=PostgreSQL\n[ODBC]\nTrace=No\n";
    Write(folder + "/sistema/odbc.ini", {"estoque", "vendas"});
  }
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
  }
  static bool IsListed(StringView name) {
    return std::ranges::count(DataSourceNames(), String(name)) > 0;
  }

  static inline const std::string kLongest = std::string(32, 'n');

 private:
  static void Write(const std::string& file, const std::vector<std::string>& names) {
    std::ofstream text(file);
    for (const std::string& name : names)
      text << "[" << name << "]\nDriver=PostgreSQL Unicode\nServername="
           << test::PostgresCluster::Shared().Folder()
           << "\nDatabase=postgres\nUsername=postgres\n";
  }
};

TEST_F(DataSources, ThoseOfTheUserAndOfTheSystemAreListedEachOnce) {
  for (const auto* name : {u"vendas", u"contas a pagar", u"estoque"})
    EXPECT_EQ(std::ranges::count(DataSourceNames(), String(name)), 1);
}

TEST_F(DataSources, ASectionWithoutADriverIsNone) {
  EXPECT_FALSE(IsListed(u"ODBC"));
  EXPECT_FALSE(IsListed(u"ODBC Data Sources"));
}

TEST_F(DataSources, NamesThatNoConnectionStringReachesAreLeftOut) {
  EXPECT_THAT(DataSourceNames(), testing::UnorderedElementsAre(
                                     u"vendas", u"contas a pagar", u"d{e}=f", u"g,h(i)?*!@", u"'q'",
                                     u"a/b", u"Default", String(32, u'n'), u"estoque"));
}

TEST_F(DataSources, EveryNameThatIsListedIsReached) {
  test::PostgresCluster::Shared().EnsureRunning();
  for (const String& name : DataSourceNames()) {
    const auto connection = CreateConnection();
    connection->ConnectionString(u"DSN=" + name);
    EXPECT_NO_THROW(connection->Open()) << ToUtf8(name);
  }
}

}  // namespace
}  // namespace tessaria::odbc
