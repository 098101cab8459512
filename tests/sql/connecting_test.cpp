// The operator gives up while a connection is opened, by a server that does not answer.
#include <chrono>
#include <thread>

#include "tests/sql/database_test.h"
#include "tests/sql/running_threads.h"
#include "tests/sql/watcher.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::sql::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using tessaria::test::CuttingProxy;

class ConnectingTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    proxy_ = std::make_unique<CuttingProxy>(Cluster().Socket());
    other_ = Through(*proxy_);
  }

  static host::ConnectionPtr Through(const CuttingProxy& proxy) {
    auto connection = tessaria::test::NewConnectionOfTheDriver();
    connection->ConnectionString(Cluster().ConnectionString(proxy.Port()));
    return connection;
  }
  static bool EscapeAtOnce(const host::Wait& wait) {
    EXPECT_EQ(wait.What, host::Awaited::Connection);
    return wait.Elapsed > 300ms;
  }
  // Until the server answers again, nothing of it can be had.
  void ExpectGivenUp() {
    Watcher watcher;
    watcher.onPass = EscapeAtOnce;
    const auto start = Clock::now();
    try {
      other_->Open();
      FAIL() << "opened";
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::Cancelled);
      EXPECT_EQ(ToUtf8(error.Description()), "A operação foi cancelada. Nada foi gravado.");
    }
    EXPECT_LT(Clock::now() - start, 2s);
    EXPECT_EQ(watcher.ends, 1);
    EXPECT_EQ(other_->State(), host::state::Closed);
  }

  std::unique_ptr<CuttingProxy> proxy_;
  host::ConnectionPtr other_;
};

TEST_F(ConnectingTest, ServerThatNeverAnswersIsGivenUp) {
  proxy_->Swallow();
  ExpectGivenUp();
  proxy_->CancelCut();
  other_->Open();
  EXPECT_SAME(Get(other_->Execute(u"select 1"), 0), Long{1});
}

// Nor does the attempt stand in the way of other connections while it lasts.
TEST_F(ConnectingTest, OthersConnectWhileTheAttemptThatWasLeftLasts) {
  proxy_->Swallow();
  ExpectGivenUp();
  const auto start = Clock::now();
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
  EXPECT_SAME(Get(NewConnection()->Execute(u"select 2"), 0), Long{2});
  EXPECT_LT(Clock::now() - start, 2s);
}

TEST_F(ConnectingTest, AttemptThatWasLeftEndsWithItsTimeOut) {
  proxy_->Swallow();
  const int before = Threads();
  other_->ConnectionTimeout(2);
  ExpectGivenUp();
  other_.reset();
  EXPECT_TRUE(Comes([&] { return Threads() == before; }));
}

TEST_F(ConnectingTest, AttemptThatSucceedsTooLateLeavesNoSession) {
  const auto sessions = [this] {
    return CLng(
        Scalar(u"select count(*)::int from pg_stat_activity where backend_type = "
               u"'client backend'"));
  };
  EXPECT_TRUE(Comes([&] { return sessions() == 1; }));
  const int before = Threads();
  Run(u"alter system set pre_auth_delay = 1");
  Run(u"select pg_reload_conf()");
  std::this_thread::sleep_for(100ms);
  ExpectGivenUp();
  Run(u"alter system reset pre_auth_delay");
  Run(u"select pg_reload_conf()");
  EXPECT_TRUE(Comes([&] { return Threads() == before; }));
  EXPECT_TRUE(Comes([&] { return sessions() == 1; }));
}

TEST_F(ConnectingTest, ConnectionThatIsLetGoMeanwhileLivesToTheEndOfTheAttempt) {
  proxy_->Swallow();
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    other_.reset();
    return EscapeAtOnce(wait);
  };
  EXPECT_HOST_ERROR(other_->Open(), errors::Cancelled);
  EXPECT_EQ(other_, nullptr);
}

TEST_F(ConnectingTest, NothingElseIsDoneWithItMeanwhile) {
  proxy_->Swallow();
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    EXPECT_HOST_ERROR(other_->Open(), errors::StillExecuting);
    EXPECT_HOST_ERROR(other_->Execute(u"select 1"), errors::StillExecuting);
    EXPECT_HOST_ERROR(other_->Close(), errors::StillExecuting);
    return EscapeAtOnce(wait);
  };
  EXPECT_HOST_ERROR(other_->Open(), errors::Cancelled);
  EXPECT_GT(watcher.passes, 0);
}

class SecondSession : public ConnectingTest {
 protected:
  // Rows that are about to be read by a session of their own, which gets no answer.
  host::RecordsetPtr RowsOfASilentServer() {
    Run(u"create table muitas as select n as codigo from generate_series(1, 60000) n");
    other_->Open();
    auto rows = other_->OpenRecordset(u"select * from muitas order by codigo", CursorType::Static,
                                      LockType::ReadOnly);
    rows->AbsolutePosition(18432);
    EXPECT_EQ(rows->RowsRead(), 18432);
    proxy_->Swallow();
    return rows;
  }
};

// Nobody waits for the end of a reading over a line that is silent.
TEST_F(SecondSession, RowsAreLetGoOfOnASilentLine) {
  auto rows = RowsOfASilentServer();
  proxy_->CancelCut();
  rows->MoveLast();
  EXPECT_FALSE(rows->Holds(30000));
  proxy_->Swallow();
  rows.reset();
  EXPECT_EQ(rows, nullptr);
}

TEST_F(SecondSession, RequestIsGivenUpAndTheRowsGoOnWithoutIt) {
  const auto rows = RowsOfASilentServer();
  {
    Watcher watcher;
    watcher.onPass = EscapeAtOnce;
    EXPECT_HOST_ERROR(rows->MoveLast(), errors::Cancelled);
  }
  EXPECT_EQ(rows->AbsolutePosition(), 18432);
  EXPECT_EQ(rows->RowsRead(), 18432);
  proxy_->CancelCut();
  rows->MoveLast();
  EXPECT_EQ(rows->AbsolutePosition(), 60000);
  EXPECT_SAME(Get(rows, 0), Long{60000});
  EXPECT_TRUE(rows->Complete());
  EXPECT_TRUE(rows->Holds(30000)) << "read here, no session is asked for a second time";
}

TEST_F(SecondSession, StatementThatNeedsTheConnectionIsGivenUpAndNoRowIsLost) {
  const auto rows = RowsOfASilentServer();
  {
    Watcher watcher;
    watcher.onPass = EscapeAtOnce;
    EXPECT_HOST_ERROR(other_->Execute(u"delete from muitas"), errors::Cancelled);
  }
  proxy_->CancelCut();
  EXPECT_SAME(Get(other_->Execute(u"select count(*)::int from muitas"), 0), Long{60000});
  EXPECT_EQ(rows->RecordCount(), 60000);
  EXPECT_TRUE(rows->Complete());
}

TEST_F(SecondSession, ClosingTheConnectionReadsTheRest) {
  const auto rows = RowsOfASilentServer();
  {
    Watcher watcher;
    watcher.onPass = [this](const host::Wait& wait) {
      const bool isGivenUp = wait.What == host::Awaited::Connection && wait.Elapsed > 300ms;
      if (isGivenUp) proxy_->CancelCut();
      return isGivenUp;
    };
    other_->Close();
  }
  EXPECT_SAME(rows->ValueAt(60000, 0), Long{60000});
  EXPECT_TRUE(rows->Complete());
  other_->Open();
  EXPECT_SAME(Get(other_->Execute(u"select 3"), 0), Long{3});
}

}  // namespace
}  // namespace tessaria::sql::test
