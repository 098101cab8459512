// A request to cancel that reaches the server late: it must not meet a later statement.
#include <chrono>
#include <memory>
#include <optional>

#include "tests/sql/database_test.h"
#include "tests/sql/fake_operator.h"
#include "tests/sql/running_threads.h"
#include "tests/sql/watcher.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::sql::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using tessaria::test::CuttingProxy;

/// The request travels over a connection of its own, which is held on its way.
class SlowCancel : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    proxy_ = std::make_unique<CuttingProxy>(Cluster().Socket());
    line_ = tessaria::test::NewConnectionOfTheDriver();
    line_->ConnectionString(Cluster().ConnectionString(proxy_->Port()));
    line_->Open();
    proxy_->HoldNext();
  }
  /// Runs a statement that the operator gives up at once; the request arrives after that time, or
  /// not at all yet. Returns the number of the error, 0 for none.
  Long RunGivenUp(const String& statement, std::optional<Clock::duration> arrival = {}) {
    Watcher watcher;
    const auto start = Clock::now();
    watcher.onPass = [&](const host::Wait&) {
      if (arrival && Clock::now() - start > *arrival) proxy_->Release();
      return true;
    };
    try {
      line_->Execute(statement);
      return 0;
    } catch (const HostError& error) {
      return error.Number();
    }
  }
  /// How many sessions run a statement with that comment.
  Long Running(const String& comment) {
    return CLng(
        Scalar(u"select count(*)::int from pg_stat_activity where pid <> pg_backend_pid() "
               u"and state = 'active' and query like '%/* " +
               comment + u" */%'"));
  }

  std::unique_ptr<CuttingProxy> proxy_;
  host::ConnectionPtr line_;
  FakeOperator operator_;
};

TEST_F(SlowCancel, IsAwaitedWhenTheStatementEndsBeforeIt) {
  const auto start = Clock::now();
  EXPECT_EQ(RunGivenUp(u"select pg_sleep(0.5)", 2s), 0) << "it was too late";
  EXPECT_GT(Clock::now() - start, 2s);
  EXPECT_LT(Clock::now() - start, 4s);
  EXPECT_NO_THROW(line_->Execute(u"select pg_sleep(1)"));
  EXPECT_EQ(line_->State(), host::state::Open);
}

TEST_F(SlowCancel, GivesUpTheConnectionAndMeetsTheStatementThatWasLeft) {
  line_->CommandTimeout(0);
  const auto start = Clock::now();
  EXPECT_EQ(RunGivenUp(u"do $$ begin perform pg_sleep(100) /* first */; end $$"),
            errors::WriteInDoubt);
  EXPECT_LT(Clock::now() - start, 15s);
  EXPECT_TRUE(proxy_->Holds());
  EXPECT_EQ(line_->State(), host::state::Closed);
  operator_.Act();
  line_->Execute(u"select 1");
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_EQ(Running(u"first"), 1) << "the server has not heard of anything";
  // The request arrives while a later statement runs.
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    if (wait.Elapsed > 500ms) proxy_->Release();
    return false;
  };
  EXPECT_NO_THROW(line_->Execute(u"select pg_sleep(3)"));
  EXPECT_FALSE(proxy_->Holds());
  EXPECT_TRUE(Comes([&] { return Running(u"first") == 0; }));
}

// The answer may have come, and yet nothing more can be run on that connection.
TEST_F(SlowCancel, GivesUpTheConnectionAlsoWhenTheStatementEndsBeforeIt) {
  EXPECT_EQ(RunGivenUp(u"create table feita as select 1 as k from pg_sleep(1)"),
            errors::WriteInDoubt);
  EXPECT_EQ(line_->State(), host::state::Closed);
  EXPECT_SAME(Scalar(u"select count(*)::int from feita"), Long{1});
  operator_.Act();
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    if (wait.Elapsed > 500ms) proxy_->Release();
    return false;
  };
  EXPECT_NO_THROW(line_->Execute(u"select pg_sleep(2)"));
  EXPECT_EQ(operator_.asked, 1);
}

}  // namespace
}  // namespace tessaria::sql::test
