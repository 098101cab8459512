// What the check of a server reports: of a sound one, of poolers, of a standby, and of mistakes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "apps/check-server/check_server.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/utf8.h"
#include "tests/support/pgbouncer.h"
#include "tests/support/postgres_cluster.h"
#include "tests/support/replicated_cluster.h"

namespace tessaria::check::test {
namespace {

using tessaria::test::Pgbouncer;
using tessaria::test::PostgresCluster;
using tessaria::test::ReplicatedCluster;
using ::testing::HasSubstr;
using ::testing::Not;

struct Report {
  int code = 0;
  std::string out, error;
};

std::string Driver() {
  const char* const name = std::getenv("TESSARIA_DRIVER");
  return name == nullptr ? "odbc" : name;
}

Report Check(const String& connection, const std::string& schema = "conferido") {
  Options options;
  options.connection = ToUtf8(connection);
  options.driver = Driver();
  options.schema = schema;
  std::ostringstream out, error;
  const int code = CheckServer(options, out, error);
  return {code, out.str(), error.str()};
}

class CheckServerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = Pgbouncer::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    Cluster().EnsureRunning();
    Cluster().Run("set client_min_messages = warning; drop schema if exists conferido cascade");
  }
  static PostgresCluster& Cluster() { return PostgresCluster::Shared(); }
  static bool IsSchemaLeft() {
    const auto connection = odbc::CreateConnection();
    connection->ConnectionString(Cluster().ConnectionString());
    connection->Open();
    return !connection->Execute(u"select 1 from pg_namespace where nspname = 'conferido'")->Eof();
  }
};

TEST_F(CheckServerTest, SoundServerKeepsAll) {
  const Report report = Check(Cluster().ConnectionString());
  EXPECT_EQ(report.code, 0) << report.out << report.error;
  EXPECT_THAT(report.out, HasSubstr("PostgreSQL "));
  EXPECT_THAT(report.out, HasSubstr("kept         one statement a call\n"));
  EXPECT_THAT(report.out, HasSubstr(" kept, 0 not kept, 0 cannot be told\n"));
  EXPECT_EQ(report.error, "");
  EXPECT_FALSE(IsSchemaLeft());
}

TEST_F(CheckServerTest, PoolerInSessionModeKeepsAll) {
  const Pgbouncer pooler(Cluster().Folder(), "session");
  const Report report = Check(pooler.ConnectionString());
  EXPECT_EQ(report.code, 0) << report.out << report.error;
  EXPECT_FALSE(IsSchemaLeft());
}

TEST_F(CheckServerTest, PoolerInTransactionModeKeepsAllWithTheSetting) {
  const Pgbouncer pooler(Cluster().Folder(), "transaction");
  const Report report = Check(pooler.ConnectionString() + u"Pooling=transaction");
  EXPECT_EQ(report.code, 0) << report.out << report.error;
  EXPECT_FALSE(IsSchemaLeft());
}

TEST_F(CheckServerTest, PoolerInTransactionModeWithoutTheSettingIsFound) {
  const Pgbouncer pooler(Cluster().Folder(), "transaction");
  const Report report = Check(pooler.ConnectionString());
  EXPECT_EQ(report.code, 1);
  EXPECT_THAT(report.out, HasSubstr("NOT kept     time-outs belong to their connection"));
  EXPECT_FALSE(IsSchemaLeft());
}

TEST_F(CheckServerTest, StandbyIsTold) {
  const ReplicatedCluster servers;
  const Report report = Check(servers.ConnectionString(5433));
  EXPECT_EQ(report.code, 2);
  EXPECT_EQ(report.out, "");
  EXPECT_THAT(report.error, HasSubstr("it is a standby, or is set to be read-only"));
}

TEST_F(CheckServerTest, SchemaThatExistsIsLeftAlone) {
  Cluster().Run("create schema conferido");
  const Report report = Check(Cluster().ConnectionString());
  EXPECT_EQ(report.code, 2);
  EXPECT_THAT(report.error, HasSubstr("exists"));
  EXPECT_TRUE(IsSchemaLeft());
}

TEST_F(CheckServerTest, DeadServerIsTold) {
  const Report report = Check(
      u"Driver={PostgreSQL "
      u"Unicode};Servername=/nirgends;Port=5432;Database=postgres;Uid=postgres;");
  EXPECT_EQ(report.code, 2);
  EXPECT_THAT(report.error, HasSubstr("the server cannot be reached"));
}

TEST_F(CheckServerTest, MissingRightsAreTold) {
  Cluster().Run(
      "set client_min_messages = warning; drop role if exists pobre; create role pobre login");
  String connection = Cluster().ConnectionString();
  connection.replace(connection.find(u"Uid=postgres"), 12, u"Uid=pobre");
  const Report report = Check(connection);
  EXPECT_EQ(report.code, 2);
  EXPECT_THAT(report.error, HasSubstr("the schema cannot be created"));
}

TEST(CheckServerOptions, AreRead) {
  const Options options = ParseOptions({"--driver=postgres", "--schema=abc_1", "host=a"});
  EXPECT_EQ(options.driver, "postgres");
  EXPECT_EQ(options.schema, "abc_1");
  EXPECT_EQ(options.connection, "host=a");
  EXPECT_TRUE(ParseOptions({"--help"}).help);
}

TEST(CheckServerOptions, MistakesAreTold) {
  const std::vector<std::vector<std::string>> mistakes = {
      {},
      {"host=a"},
      {"--schema=abc"},
      {"--schema=abc", "host=a", "host=b"},
      {"--schema=abc", "--driver=oci", "host=a"},
      {"--schema=a b", "host=a"},
      {"--schema=1a", "host=a"},
      {"--schema=a;drop", "host=a"},
      {"--schema=abc", "--fast", "host=a"}};
  for (const auto& arguments : mistakes)
    EXPECT_THROW(ParseOptions(arguments), std::invalid_argument);
}

}  // namespace
}  // namespace tessaria::check::test
