// A server that falls silent while a statement runs: it answers nothing any more, not even the
// request to cancel, and its line stays open.
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>

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

class SilentServer : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    CreateNames(u"t", 60000);
    proxy_ = std::make_unique<CuttingProxy>(Cluster().Socket());
    line_ = tessaria::test::NewConnectionOfTheDriver();
    line_->ConnectionString(Cluster().ConnectionString(proxy_->Port()));
    line_->Open();
  }
  host::RecordsetPtr OnLine(const String& statement, LockType lock = LockType::ReadOnly) {
    return line_->OpenRecordset(statement, CursorType::Static, lock);
  }
  /// Over a server that is silent from the first look at the wait on; `isEscape` is the operator.
  HostError Awaited(const std::function<void()>& work, bool isEscape = true) {
    Watcher watcher;
    Clock::duration longest{0};
    auto last = Clock::now();
    watcher.onPass = [&](const host::Wait&) {
      longest = std::max(longest, Clock::now() - last);
      last = Clock::now();
      proxy_->Swallow();
      return isEscape;
    };
    try {
      work();
      ADD_FAILURE() << "no error";
    } catch (const HostError& error) {
      EXPECT_LT(longest, 1s) << "nothing freezes";
      EXPECT_GT(watcher.passes, 100);
      EXPECT_EQ(watcher.ends, 1);
      EXPECT_EQ(line_->State(), host::state::Closed);
      EXPECT_EQ(proxy_->Cuts(), 0) << "the line is open all the time";
      return error;
    }
    return HostError(0);
  }
  /// Lets go of something over a server that is silent, without an operator.
  void ExpectLetGoOf(const std::function<void()>& letGo) {
    Watcher watcher;
    Clock::duration longest{0};
    const auto start = Clock::now();
    auto last = start;
    watcher.onPass = [&](const host::Wait&) {
      longest = std::max(longest, Clock::now() - last);
      last = Clock::now();
      return false;
    };
    letGo();
    EXPECT_LT(longest, 1s) << "nothing freezes";
    EXPECT_GT(watcher.passes, 100);
    EXPECT_LT(Clock::now() - start, 20s);
  }
  static void ExpectSilence(const HostError& error) {
    EXPECT_EQ(error.Number(), errors::ProviderError);
    EXPECT_EQ(ToUtf8(error.Description()),
              "O servidor parou de responder, e a conexão com ele foi abandonada.");
  }

  std::unique_ptr<CuttingProxy> proxy_;
  host::ConnectionPtr line_;
  FakeOperator operator_;
};

TEST_F(SilentServer, IsGivenUpByTheOperatorAndTheNextActionConnectsAgain) {
  const auto start = Clock::now();
  ExpectSilence(Awaited([&] { line_->Execute(u"select pg_sleep(1)"); }));
  EXPECT_LT(Clock::now() - start, 15s);
  EXPECT_HOST_ERROR(line_->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 0) << "still the same action";
  proxy_->CancelCut();
  operator_.Act();
  EXPECT_SAME(Get(line_->Execute(u"select 7"), 0), Long{7});
  EXPECT_EQ(operator_.asked, 1);
}

// Whatever else was used on the connection can be let go of while its call stands in the driver.
TEST_F(SilentServer, LetsGoOfEverythingElse) {
  auto rows = OnLine(u"select * from t where codigo < 9", LockType::Optimistic);
  EXPECT_EQ(rows->RecordCount(), 8);
  line_->BeginTrans();
  auto manyRows = OnLine(u"select * from t order by codigo");
  proxy_->Swallow();
  ExpectSilence(Awaited([&] { manyRows->MoveLast(); }));
  const auto start = Clock::now();
  line_->RollbackTrans();
  manyRows.reset();
  EXPECT_SAME(Get(rows, 1), u"nome 1");
  rows.reset();
  line_->Close();
  EXPECT_LT(Clock::now() - start, 2s);
}

TEST_F(SilentServer, IsGivenUpAfterTheTimeOutOfTheStatement) {
  line_->CommandTimeout(1);
  const auto start = Clock::now();
  ExpectSilence(Awaited([&] { line_->Execute(u"select pg_sleep(2)"); }, false));
  EXPECT_GT(Clock::now() - start, 5s);
  EXPECT_LT(Clock::now() - start, 15s);
}

// The server takes the request to cancel, and its process goes on standing still.
TEST_F(SilentServer, IsGivenUpWhenTheStatementDoesNotEndAfterTheRequest) {
  line_->CommandTimeout(0);
  const auto process = static_cast<pid_t>(CLng(Get(line_->Execute(u"select pg_backend_pid()"), 0)));
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    kill(process, SIGSTOP);
    return wait.Elapsed > 300ms;
  };
  const auto start = Clock::now();
  EXPECT_HOST_ERROR(line_->Execute(u"select pg_sleep(1)"), errors::ProviderError);
  EXPECT_GT(Clock::now() - start, 5s);
  EXPECT_LT(Clock::now() - start, 20s);
  EXPECT_EQ(line_->State(), host::state::Closed);
  kill(process, SIGCONT);
}

// The operator need not wait for what encloses a statement either.
TEST_F(SilentServer, IsGivenUpByTheOperatorAroundAStatement) {
  struct Around {
    const char* what;
    bool isInTransaction;
    std::function<void()> call;
  };
  const Around arounds[] = {
      {"BEGIN", false,
       [this] {
         line_->BeginTrans();  // with some drivers the next statement sends it
         line_->Execute(u"select 1");
       }},
      {"BEGIN before rows", false, [this] { OnLine(u"select * from t"); }},
      {"SAVEPOINT", true, [this] { line_->Execute(u"select 1"); }},
      {"SET", false, [this] { line_->CommandTimeout(7); }},
  };
  for (const Around& around : arounds) {
    SCOPED_TRACE(around.what);
    proxy_->CancelCut();
    line_->Close();
    line_->Open();
    if (around.isInTransaction) line_->BeginTrans();
    proxy_->Swallow();
    const auto start = Clock::now();
    ExpectSilence(Awaited(around.call));
    EXPECT_LT(Clock::now() - start, 15s);
  }
}

TEST_F(SilentServer, LetsGoOfATransactionWhileWindowsLive) {
  line_->BeginTrans();
  line_->Execute(u"delete from t where codigo = 5");
  proxy_->Swallow();
  ExpectLetGoOf([&] { line_->Close(); });
  EXPECT_TRUE(Comes([&] { return CLng(Scalar(u"select count(*)::int from t")) == 60000; }));
}

// Rows that stay at the server, in a transaction of another session.
TEST_F(SilentServer, LetsGoOfRowsWhileWindowsLive) {
  auto rows = OnLine(u"select * from t order by codigo");
  rows->MoveLast();
  EXPECT_FALSE(rows->Holds(30000));
  proxy_->Swallow();
  ExpectLetGoOf([&] { rows.reset(); });
}

// The rows have come, and the end of the answer has not. One driver waits for it with the rows, the
// other when they are let go of.
TEST_F(SilentServer, LetsGoOfAnAnswerWithoutAnEndWhileWindowsLive) {
  line_->CommandTimeout(1);
  const std::string readyForQuery("Z\0\0\0\5", 5);
  proxy_->SwallowAt(CuttingProxy::Side::Server, readyForQuery);
  ExpectLetGoOf([&] {
    try {
      EXPECT_SAME(Get(line_->Execute(u"show server_encoding"), 0), u"UTF8");
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::WriteInDoubt);
    }
  });
  EXPECT_EQ(line_->State(), host::state::Closed);
}

TEST_F(SilentServer, LeavesAWriteInDoubt) {
  const auto rows = OnLine(u"select * from t where codigo = 5", LockType::Optimistic);
  Run(u"create function espera() returns trigger language plpgsql as $$ begin perform "
      u"pg_sleep(1); return new; end $$");
  Run(u"create trigger espera before update on t for each row execute function espera()");
  Set(rows, u"nome", u"Eva");
  const HostError error = Awaited([&] { rows->Update(); });
  EXPECT_EQ(error.Number(), errors::WriteInDoubt);
  EXPECT_TRUE(rows->IsInDoubt());
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  proxy_->CancelCut();
  operator_.Act();
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 5"), u"Eva");
}

// A question of the catalogue is left too, and what was left ends with its line.
TEST_F(SilentServer, ThreadThatWasLeftEndsWithTheLine) {
  const int before = Threads();
  Run(u"begin");
  Run(u"lock table pg_catalog.pg_class in access exclusive mode");
  ExpectSilence(Awaited([&] { line_->OpenSchema(host::SchemaKind::Tables); }));
  Run(u"rollback");
  line_.reset();
  proxy_.reset();
  EXPECT_TRUE(Comes([&] { return Threads() == before - 1; })) << "that of the proxy has gone too";
}

}  // namespace
}  // namespace tessaria::sql::test
