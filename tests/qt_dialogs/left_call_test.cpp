// The end of a program while a call that was given up still stands in the driver.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>

#include "tessaria/error.h"
#include "tessaria/utf8.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

constexpr int kSoon = 5'000;  // milliseconds

class LeftCall : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
  }
  /// Runs the program to its end. Its line is cut just as it ends, or stays silent.
  static void expectEnd(const QString& what, Long number, bool isCut) {
    auto& cluster = test::PostgresCluster::Shared();
    test::CuttingProxy proxy(cluster.Socket());
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QStringLiteral(TESSARIA_LEFT_CALL_PROGRAM),
                  {QString::fromStdU16String(cluster.ConnectionString(proxy.Port())), what});
    EXPECT_EQ(lineOf(program), "ready");
    proxy.Swallow();
    program.write("\n");
    EXPECT_EQ(lineOf(program), QByteArray::number(number));
    if (isCut) proxy.CutNow();
    EXPECT_TRUE(program.waitForFinished(kSoon)) << "hangs";
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
  }
  static QByteArray lineOf(QProcess& program) {
    while (!program.canReadLine() && program.waitForReadyRead(4 * kSoon)) continue;
    return program.readLine().trimmed();
  }

 private:
  int count_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  QCoreApplication application_{count_, arguments_};
};

TEST_F(LeftCall, DoesNotKeepTheProgramFromEnding) {
  expectEnd(QStringLiteral("call"), errors::ProviderError, false);
  expectEnd(QStringLiteral("connect"), errors::Cancelled, false);
}

TEST_F(LeftCall, MayEndAsTheProgramDoes) {
  expectEnd(QStringLiteral("call"), errors::ProviderError, true);
  for (int i = 0; i < 10; ++i) expectEnd(QStringLiteral("connect"), errors::Cancelled, true);
}

}  // namespace
}  // namespace tessaria::qt::tests
