// The SQL of the documentation runs on a real server.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {
namespace {

using test::PostgresCluster;

class DocumentedStatements : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
  }
  static void Run(const std::string& page) {
    PostgresCluster::Shared().RunFile(std::string(TESSARIA_BLOCKS "/sql/") + page);
  }
};

TEST_F(DocumentedStatements, Run) {
  for (const auto& entry : std::filesystem::directory_iterator(TESSARIA_BLOCKS "/sql")) {
    SCOPED_TRACE(entry.path().filename().string());
    EXPECT_NO_THROW(Run(entry.path().filename().string()));
  }
}

}  // namespace
}  // namespace tessaria::tests
