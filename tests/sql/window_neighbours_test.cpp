// Rows at the server beside other work: locks, closed connections, waits, poolers.
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "tessaria/conversion.h"
#include "tessaria/host/waiting.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tests/sql/window_test.h"
#include "tests/support/pgbouncer.h"

namespace tessaria::sql::test {
namespace {

using namespace std::chrono_literals;
using tessaria::test::Pgbouncer;

// Acts in the waits of the thread.
class Meanwhile final : public host::WaitView {
 public:
  explicit Meanwhile(std::function<bool(const host::Wait&)> act) : act_(std::move(act)) {
    State().waiting = this;
  }
  ~Meanwhile() override { State().waiting = nullptr; }
  bool Pass(const host::Wait& wait) override { return act_(wait); }
  void Over() override {}

 private:
  std::function<bool(const host::Wait&)> act_;
};

class WindowNeighboursTest : public WindowTest {
 protected:
  // A function and a table whose rows lock the table of the window.
  void MakeLockers() {
    Run(u"create function trava() returns int language plpgsql as"
        u" 'begin lock table t in access exclusive mode; return 1; end'");
    Run(u"create function travar() returns trigger language plpgsql as"
        u" 'begin perform trava(); return new; end'");
    Run(u"create table movimento (n int primary key)");
    Run(u"create trigger travar before insert on movimento for each row execute function"
        u" travar()");
    connection_->LockTimeout(1);
  }
  // Its rows after the first 50000 take their time.
  void MakeSlowView() {
    Run(u"create view lenta as select codigo, nome from t where codigo <= 50000 or"
        u" pg_sleep(0.01) is not null");
  }
  // Of the cluster, besides the one that asks; sessions end a moment after they are closed.
  static Long OtherSessions(const host::ConnectionPtr& asking, Long expected) {
    Long sessions = -1;
    for (int i = 0; i < 40 && sessions != expected; ++i) {
      if (i > 0) std::this_thread::sleep_for(50ms);
      sessions = CLng(Get(asking->Execute(u"select count(*)::int from pg_stat_activity where"
                                          u" backend_type = 'client backend' and pid <>"
                                          u" pg_backend_pid()"),
                          0));
    }
    return sessions;
  }
  static HostError ErrorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const HostError& error) {
      return error;
    }
    return HostError(0, u"");
  }
};

// --- Locks

TEST_F(WindowNeighboursTest, AStatementWhoseTriggerLocksTheTableSucceedsWhenItIsRepeated) {
  MakeLockers();
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  const HostError error = ErrorOf([&] { Run(u"insert into movimento values (1)"); });
  EXPECT_EQ(error.Number(), errors::TimeOut);
  EXPECT_GT(InStr(error.Description(), u"Tente outra vez"), 0) << ToUtf8(error.Description());
  EXPECT_EQ(OpenReadings(), 0);
  EXPECT_SAME(Scalar(u"select count(*)::int from movimento"), Long{0});
  Run(u"insert into movimento values (1)");
  EXPECT_SAME(Scalar(u"select count(*)::int from movimento"), Long{1});
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

TEST_F(WindowNeighboursTest, AFunctionThatLocksTheTableSucceedsWhenItIsRepeated) {
  MakeLockers();
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  const auto sorted = Ends(Read(u"select * from t order by codigo"));
  EXPECT_HOST_ERROR(Scalar(u"select trava()"), errors::TimeOut);
  EXPECT_EQ(OpenReadings(), 0);
  EXPECT_SAME(Scalar(u"select trava()"), Long{1});
}

TEST_F(WindowNeighboursTest, ANewRowWhoseTriggerLocksTheTableStaysAnEditAndIsStoredOnce) {
  MakeLockers();
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  const auto written = Edit(u"select * from movimento");
  connection_->BeginTrans();
  Run(u"update t set nome = 'x' where codigo = 1");
  written->AddNew();
  Set(written, u"n", Long{7});
  EXPECT_HOST_ERROR(written->Update(), errors::TimeOut);
  EXPECT_EQ(written->EditMode(), host::EditMode::Add);
  written->Update();
  connection_->CommitTrans();
  EXPECT_SAME(Scalar(u"select count(*)::int from movimento"), Long{1});
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"x");
}

TEST_F(WindowNeighboursTest, ARefusedEndOfATransactionLetsGoOfTheRowsInItsWay) {
  MakeLockers();
  Run(u"drop trigger travar on movimento");
  Run(u"create constraint trigger travar after insert on movimento deferrable initially deferred"
      u" for each row execute function travar()");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  connection_->BeginTrans();
  Run(u"insert into movimento values (1)");
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::TimeOut);
  EXPECT_EQ(OpenReadings(), 0);
  connection_->BeginTrans();
  Run(u"insert into movimento values (1)");
  connection_->CommitTrans();
  EXPECT_SAME(Scalar(u"select count(*)::int from movimento"), Long{1});
}

// The rows of a window would be brought here for nothing.
TEST_F(WindowNeighboursTest, ARowThatSomebodyElseHasLockedLeavesTheRowsAtTheServer) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  connection_->LockTimeout(1);
  const auto other = NewConnection();
  other->BeginTrans();
  other->Execute(u"update t set nome = 'Outro' where codigo = 1");
  EXPECT_HOST_ERROR(Run(u"update t set nome = 'meu' where codigo = 1"), errors::TimeOut);
  EXPECT_FALSE(rows->Holds(50000));
  other->RollbackTrans();
}

TEST_F(WindowNeighboursTest, OnlyTheRowsThatMayBeInTheWayAreLetGoOf) {
  MakeLockers();
  Run(u"create table alheia as select n as codigo from generate_series(1, 60000) n");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  const auto others = Ends(Read(u"select * from alheia order by codigo"));
  const auto other = NewConnection();
  other->BeginTrans();
  other->Execute(u"lock table alheia in access share mode");
  EXPECT_HOST_ERROR(Run(u"insert into movimento values (1)"), errors::TimeOut);
  EXPECT_TRUE(rows->Holds(50000));
  EXPECT_FALSE(others->Holds(50000));
  other->RollbackTrans();
}

TEST_F(WindowNeighboursTest, AnotherSessionsChangeOfTheTableWaitsForTheRowsAndHarmsNobody) {
  auto rows = Ends(Edit(u"select * from t order by codigo"));
  const auto other = NewConnection();
  other->LockTimeout(1);
  EXPECT_HOST_ERROR(other->Execute(u"alter table t add column nova int"), errors::TimeOut);
  rows->AbsolutePosition(40000);
  ExpectRow(rows, 40000);
  Set(rows, u"nome", u"meu");
  rows->Update();
  rows.reset();
  other->Execute(u"alter table t add column nova int");
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"meu");
}

// --- Rows that are brought here while they are sorted

TEST_F(WindowNeighboursTest, SortedRowsThatAreBroughtHereKeepTheOrderOfTheStatement) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->Sort(u"valor desc");
  rows->AbsolutePosition(10);
  Run(u"truncate t");
  EXPECT_EQ(OpenReadings(), 0);
  EXPECT_EQ(rows->AbsolutePosition(), 10);
  EXPECT_SAME(Get(rows, u"codigo"), kRows - 9);
  rows->Sort(u"");
  ExpectRow(rows, 1);
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
  rows->Sort(u"nome desc");
  EXPECT_SAME(Get(rows, u"nome"), u"nome 9999");
  rows->Sort(u"");
  ExpectRow(rows, 1);
}

// Rows that are the same in all columns cannot be told apart, and need not be.
TEST_F(WindowNeighboursTest, EqualRowsThatAreBroughtHereKeepTheOrderOfTheStatement) {
  const auto rows =
      Ends(Read(u"select case when codigo % 3 = 0 then null else codigo % 7 end as"
                u" resto, dia - dia as nada from t order by codigo"));
  rows->Sort(u"resto");
  Run(u"truncate t");
  rows->Sort(u"");
  for (const Long number : {1, 2, 3, 4, 50000, 59999, 60000}) {
    rows->AbsolutePosition(number);
    EXPECT_SAME(Get(rows, u"resto"), number % 3 == 0 ? Variant::Null() : Variant(number % 7));
  }
}

TEST_F(WindowNeighboursTest, EditsInSortedRowsThatAreBroughtHereStayWithTheirRows) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->Sort(u"valor desc");
  rows->AbsolutePosition(2);
  Set(rows, u"nome", u"editado");
  rows->Update();
  rows->AbsolutePosition(5);
  rows->Delete();
  rows->AddNew();
  Set(rows, u"codigo", Long{70000});
  rows->Update();
  Run(u"alter table t add column nova int");
  rows->Sort(u"");
  EXPECT_EQ(rows->RecordCount(), kRows);
  rows->AbsolutePosition(kRows - 2);
  EXPECT_SAME(Get(rows, u"nome"), u"editado");
  rows->MovePrevious();
  EXPECT_SAME(Get(rows, u"codigo"), kRows - 2);
  rows->AbsolutePosition(kRows - 5);
  EXPECT_SAME(Get(rows, u"codigo"), kRows - 5);
  rows->MoveLast();
  EXPECT_SAME(Get(rows, u"codigo"), Long{70000});
}

// --- Closed connections

TEST_F(WindowNeighboursTest, AClosedConnectionLeavesNoSessionAndTheRowsStayReadable) {
  const auto other = NewConnection();
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  const auto sorted = Ends(Read(u"select * from t order by codigo"));
  sorted->Sort(u"codigo desc");
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"meu");
  const auto unread = Read(u"select * from t order by codigo");
  connection_->Close();
  EXPECT_EQ(OtherSessions(other, 0), 0);
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
  Ends(unread)->AbsolutePosition(50000);
  ExpectRow(unread, 50000);
  EXPECT_SAME(rows->ValueAt(50000, 0), Long{50000});
  EXPECT_SAME(sorted->ValueAt(1, 0), kRows);
  sorted->Sort(u"");
  EXPECT_SAME(sorted->ValueAt(50000, 0), Long{50000});
  connection_->Open();
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"meu");
}

TEST_F(WindowNeighboursTest, RowsThatCannotBeReadBeforeTheConnectionIsClosedAreAnError) {
  const auto other = NewConnection();
  MakeSlowView();
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  const auto slow = Read(u"select * from lenta order by codigo");
  slow->AbsolutePosition(30000);
  connection_->CommandTimeout(1);
  connection_->Close();
  EXPECT_EQ(OtherSessions(other, 0), 0);
  EXPECT_SAME(slow->ValueAt(1000, 0), Long{1000});
  EXPECT_HOST_ERROR(slow->AbsolutePosition(59000), errors::TimeOut);
  EXPECT_SAME(rows->ValueAt(50000, 0), Long{50000});
}

TEST_F(WindowNeighboursTest, AnEditOfRowsThatCannotBeReadBeforeTheConnectionIsClosedIsStoredLater) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"meu");
  Run(u"select pg_terminate_backend(pid) from pg_stat_activity"
      u" where state like 'idle in transaction%'");
  connection_->Close();
  EXPECT_EQ(rows->AbsolutePosition(), 40000);
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
  EXPECT_ANY_THROW(rows->ValueAt(59000, 0));
  EXPECT_ANY_THROW(rows->Hold(59000, 59001)) << "a list must not take it for shown";
  connection_->Open();
  rows->Update();
  EXPECT_SAME(Scalar(u"select count(*)::int from t where nome = 'meu'"), Long{1});
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"meu");
}

// --- Waits

TEST_F(WindowNeighboursTest, RowsThatAreLetGoDuringAWaitEndTheirSession) {
  auto rows = Ends(Read(u"select * from t order by codigo"));
  {
    const Meanwhile view([&](const host::Wait&) { return rows.reset(), false; });
    Run(u"select pg_sleep(0.4)");
  }
  EXPECT_EQ(rows, nullptr);
  EXPECT_EQ(OpenReadings(), 0);
  EXPECT_EQ(OtherSessions(connection_, 0), 0);
}

TEST_F(WindowNeighboursTest, RowsThatAreLetGoWhileTheyAreReadEndTheirSession) {
  MakeSlowView();
  for (const bool isRead : {false, true}) {
    auto rows = Read(u"select codigo from lenta order by codigo");
    rows->AbsolutePosition(30000);
    {
      const Meanwhile view([&](const host::Wait& wait) {
        rows.reset();
        return wait.Elapsed > 400ms;
      });
      EXPECT_HOST_ERROR(isRead ? rows->AbsolutePosition(50100) : void(rows->RecordCount()),
                        errors::Cancelled);
    }
    EXPECT_EQ(rows, nullptr);
    EXPECT_EQ(OpenReadings(), 0);
    EXPECT_EQ(OtherSessions(connection_, 0), 0);
  }
}

// --- Searches

TEST_F(WindowNeighboursTest, ASearchThatTheServerRefusesLeavesTheCurrentRow) {
  Run(u"alter table t alter nome type text collate \"pt-BR-x-icu\"");
  Run(u"update t set nome = 'zebra ' || codigo where codigo % 300 = 0");
  Run(u"create view lenta as select codigo, nome from t where nome < 'z' or"
      u" pg_sleep(0.006) is not null");
  const auto rows = Ends(Read(u"select codigo, nome from lenta order by nome"));
  rows->AbsolutePosition(30000);
  const Variant current = Get(rows, u"codigo");
  connection_->CommandTimeout(1);
  EXPECT_HOST_ERROR(rows->Find(u"nome like 'zebra 9*'"), errors::TimeOut);
  EXPECT_EQ(rows->AbsolutePosition(), 30000);
  EXPECT_SAME(Get(rows, u"codigo"), current);
  connection_->CommandTimeout(30);
  rows->Find(u"nome like 'zebra 9*'");
  EXPECT_SAME(Get(rows, u"nome"), u"zebra 900");
}

// --- Poolers

class PooledWindowTest : public WindowNeighboursTest {
 protected:
  void SetUp() override {
    const std::string missing = Pgbouncer::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    WindowNeighboursTest::SetUp();
    direct_ = connection_;
    StartPooler();
  }
  void StartPooler(const std::string& settings = {}) {
    pooler_ = std::make_unique<Pgbouncer>(Cluster().Folder(), "session", settings);
    connection_ = tessaria::test::NewConnectionOfTheDriver();
    connection_->ConnectionString(pooler_->ConnectionString());
    connection_->Open();
  }
  void TearDown() override {
    if (connection_) connection_->Close();
  }

  std::unique_ptr<Pgbouncer> pooler_;
  host::ConnectionPtr direct_;
};

TEST_F(PooledWindowTest, RowsAtTheServerAreReadThroughAPoolerOfSessions) {
  auto rows = Ends(Edit(u"select * from t order by codigo"));
  EXPECT_FALSE(rows->Holds(50000));
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
  Set(rows, u"nome", u"meu");
  rows->Update();
  EXPECT_SAME(Get(direct_->Execute(u"select nome from t where codigo = 50000"), 0), u"meu");
  rows->Sort(u"codigo desc");
  EXPECT_SAME(Get(rows, u"codigo"), kRows);
  EXPECT_EQ(OpenReadings(), 1);
  rows.reset();
  EXPECT_EQ(OpenReadings(), 0);
}

TEST_F(PooledWindowTest, RowsAreHeldWhenThePoolerHasNoPlaceForAnotherSession) {
  StartPooler("default_pool_size=1\nmin_pool_size=1\nquery_wait_timeout=2\n");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  EXPECT_TRUE(rows->Holds(50000));
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

// A pooler throws a session away whose client leaves in a transaction.
TEST_F(PooledWindowTest, ASessionThatIsLetGoDuringAWaitGoesBackToThePooler) {
  auto rows = Ends(Read(u"select * from t order by codigo"));
  const auto ask = [&](const String& question) { return Get(direct_->Execute(question), 0); };
  const String process =
      CStr(ask(u"select pid from pg_stat_activity where state like 'idle in transaction%'"));
  {
    const Meanwhile view([&](const host::Wait&) { return rows.reset(), false; });
    Run(u"select pg_sleep(0.4)");
  }
  EXPECT_EQ(rows, nullptr);
  std::this_thread::sleep_for(200ms);
  EXPECT_SAME(
      ask(u"select count(*)::int from pg_stat_activity where state = 'idle' and pid = " + process),
      Long{1});
}

TEST_F(PooledWindowTest, AStatementThatLocksTheTableDoesNotWaitForRowsBehindAPooler) {
  MakeLockers();
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  EXPECT_HOST_ERROR(Run(u"insert into movimento values (1)"), errors::TimeOut);
  Run(u"insert into movimento values (1)");
  Run(u"truncate t");
  EXPECT_EQ(OpenReadings(), 0);
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

}  // namespace
}  // namespace tessaria::sql::test
