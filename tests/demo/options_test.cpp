#include "apps/demo/options.h"

#include <gmock/gmock.h>

#include "apps/demo/cluster.h"
#include "apps/demo/failure.h"

namespace tessaria::demo {
namespace {

std::string refusalOf(const QStringList& arguments) {
  try {
    readOptions(QStringList{"tessaria-demo"} + arguments);
    return {};
  } catch (const Failure& failure) {
    return failure.what();
  }
}

TEST(Options, DefaultToTheUsersOwnData) {
  const Options options = readOptions({"tessaria-demo"});
  EXPECT_EQ(options.dataFolder, Cluster::defaultFolder());
  EXPECT_TRUE(options.connectionString.isEmpty());
  EXPECT_TRUE(options.playFolder.isEmpty());
  EXPECT_FALSE(options.isDark);
}

TEST(Options, AreRead) {
  EXPECT_EQ(readOptions({"x", "--data", "/tmp/a"}).dataFolder, "/tmp/a");
  EXPECT_EQ(readOptions({"x", "--connection", "DSN=a;Uid=b"}).connectionString, "DSN=a;Uid=b");
  EXPECT_EQ(readOptions({"x", "--play", "p"}).playFolder, "p");
  EXPECT_EQ(readOptions({"x", "--driver=odbc"}).driver, Driver::Odbc);
  EXPECT_EQ(readOptions({"x", "--driver", "postgres"}).driver, Driver::Postgres);
  EXPECT_TRUE(readOptions({"x", "--dark"}).isDark);
}

TEST(Options, AreRefusedWhenTheyCannotBeRead) {
  using testing::HasSubstr;
  EXPECT_THAT(refusalOf({"--dta", "x"}), HasSubstr("Opção desconhecida"));
  EXPECT_THAT(refusalOf({"--data"}), HasSubstr("incompleta"));
  EXPECT_THAT(refusalOf({"--driver", "x"}), HasSubstr("os drivers são odbc e postgres"));
  EXPECT_THAT(refusalOf({"--play", ""}), HasSubstr("Falta a pasta"));
  EXPECT_THAT(refusalOf({"lixo"}), HasSubstr("--connection"));
  EXPECT_THAT(refusalOf({"--play", "p", "--connection", "DSN=a"}), HasSubstr("não a combine"));
}

}  // namespace
}  // namespace tessaria::demo
