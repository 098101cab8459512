// Waits for the server: their bounds, the operator who gives up, and what asks meanwhile.
#include <signal.h>

#include <chrono>
#include <functional>
#include <stdexcept>

#include "tests/sql/database_test.h"
#include "tests/sql/watcher.h"

namespace tessaria::sql::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class WaitingTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (k int primary key, nome varchar(20))");
    Run(u"insert into t values (1, 'Ana'), (2, 'Bia')");
    other_ = NewConnection();
  }
  void TearDown() override {
    if (other_ && other_->State() == host::state::Open) other_->Close();
  }
  // Another user holds the first row.
  void LockFirstRow() {
    other_->BeginTrans();
    other_->Execute(u"update t set nome = 'Outro' where k = 1");
  }
  host::RecordsetPtr EditedFirstRow() {
    auto rows = Edit(u"select * from t order by k");
    Set(rows, u"nome", u"Eva");
    return rows;
  }

  host::ConnectionPtr other_;
};

TEST_F(WaitingTest, BoundsHaveDefaultsAndCanBeSet) {
  EXPECT_EQ(connection_->CommandTimeout(), 30);
  EXPECT_EQ(connection_->LockTimeout(), 10);
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"30s");
  EXPECT_SAME(Scalar(u"show lock_timeout"), u"10s");
  connection_->CommandTimeout(0);
  connection_->LockTimeout(3);
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"0");
  EXPECT_SAME(Scalar(u"show lock_timeout"), u"3s");
  connection_->Close();
  connection_->CommandTimeout(7);
  connection_->Open();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"7s");
  EXPECT_SAME(Scalar(u"show lock_timeout"), u"3s");
}

TEST_F(WaitingTest, StatementThatTakesTooLongIsGivenUp) {
  connection_->CommandTimeout(1);
  const auto start = Clock::now();
  EXPECT_HOST_ERROR(Run(u"select pg_sleep(20)"), errors::TimeOut);
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
}

// The operator gives up while the savepoint before the statement is awaited: cancelling that would
// make the transaction fail.
TEST_F(WaitingTest, GivingUpBeforeAStatementGivesUpTheStatementAndNotTheTransaction) {
  connection_->BeginTrans();
  Run(u"insert into t values (3, 'Caio')");
  const auto process = static_cast<pid_t>(CLng(Scalar(u"select pg_backend_pid()")));
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    if (wait.Elapsed > 600ms) kill(process, SIGCONT);
    return watcher.passes == 1;
  };
  kill(process, SIGSTOP);
  EXPECT_HOST_ERROR(Run(u"select pg_sleep(25)"), errors::Cancelled);
  kill(process, SIGCONT);
  Run(u"insert into t values (4, 'Davi')");
  connection_->CommitTrans();
  EXPECT_SAME(Scalar(u"select count(*)::integer from t"), Long{4});
}

TEST_F(WaitingTest, LockedRowIsGivenUpAndTheEditStays) {
  connection_->LockTimeout(1);
  const auto rows = EditedFirstRow();
  LockFirstRow();
  EXPECT_HOST_ERROR(rows->Update(), errors::TimeOut);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_FALSE(rows->IsInDoubt());
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
  other_->RollbackTrans();
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where k = 1"), u"Eva");
}

TEST_F(WaitingTest, LockedRowInATransactionLeavesTheTransactionAsItWas) {
  connection_->LockTimeout(1);
  connection_->BeginTrans();
  Run(u"update t set nome = 'Carla' where k = 2");
  const auto rows = EditedFirstRow();
  LockFirstRow();
  EXPECT_HOST_ERROR(rows->Update(), errors::TimeOut);
  rows->CancelUpdate();
  connection_->CommitTrans();
  other_->RollbackTrans();
  EXPECT_SAME(Scalar(u"select nome from t where k = 2"), u"Carla");
  EXPECT_SAME(Scalar(u"select nome from t where k = 1"), u"Ana");
}

// Also on a machine that is busy with other things: not every statement is late.
TEST_F(WaitingTest, ShortStatementShowsNoWait) {
  int shown = 0;
  for (int i = 0; i < 20; ++i) {
    Watcher watcher;
    EXPECT_SAME(Scalar(u"select 1"), Long{1});
    EXPECT_EQ(watcher.ends, watcher.passes > 0 ? 1 : 0);
    if (watcher.passes > 0) ++shown;
  }
  EXPECT_LT(shown, 20);
}

TEST_F(WaitingTest, LongStatementIsPassedAndEndsByItself) {
  Watcher watcher;
  std::chrono::milliseconds last{0};
  watcher.onPass = [&](const host::Wait& wait) {
    EXPECT_GE(wait.Elapsed, last);
    last = wait.Elapsed;
    return false;
  };
  EXPECT_SAME(Scalar(u"select 'fim' from pg_sleep(1)"), u"fim");
  EXPECT_GT(watcher.passes, 5);
  EXPECT_GE(last, 500ms);
  EXPECT_EQ(watcher.ends, 1);
}

TEST_F(WaitingTest, ViewThatThrowsChangesNothingInWhatBecomesOfTheStatement) {
  Watcher watcher;
  watcher.onPass = [&](const host::Wait&) -> bool {
    if (watcher.passes == 2) throw std::runtime_error("a handler of the program");
    return false;
  };
  EXPECT_NO_THROW(Run(u"insert into t select 3, 'Eva' from pg_sleep(0.5)"));
  EXPECT_GT(watcher.passes, 5) << "windows stay alive";
  EXPECT_SAME(Scalar(u"select nome from t where k = 3"), u"Eva");
  watcher.passes = 0;
  auto rows = Edit(u"select * from t order by k");
  Run(u"create function espera() returns trigger language plpgsql as $$ begin perform "
      u"pg_sleep(0.5); return new; end $$");
  Run(u"create trigger espera before insert or update on t for each row execute function espera()");
  rows->AddNew();
  Set(rows, u"k", Long{4});
  Set(rows, u"nome", u"Ivo");
  EXPECT_NO_THROW(rows->Update());
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(CLng(Scalar(u"select count(*) from t where k = 4")), 1);
}

TEST_F(WaitingTest, ErrorOfALongStatementIsRaised) {
  Watcher watcher;
  EXPECT_HOST_ERROR(Run(u"do $$ begin perform pg_sleep(0.5); raise division_by_zero; end $$"),
                    errors::ValueRefused);
  EXPECT_EQ(watcher.ends, 1);
}

TEST_F(WaitingTest, OperatorGivesUpALockedRowAndTheEditStays) {
  const auto rows = EditedFirstRow();
  LockFirstRow();
  Watcher watcher;
  watcher.onPass = [](const host::Wait& wait) { return wait.Elapsed > 300ms; };
  const auto start = Clock::now();
  try {
    rows->Update();
    FAIL() << "written";
  } catch (const HostError& error) {
    EXPECT_EQ(error.Number(), errors::Cancelled);
    EXPECT_EQ(ToUtf8(error.Description()), "A operação foi cancelada. Nada foi gravado.");
  }
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_FALSE(rows->IsInDoubt());
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
  other_->RollbackTrans();
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where k = 1"), u"Eva");
}

TEST_F(WaitingTest, CancelMeansNoLaterStatement) {
  Watcher watcher;
  // Comes at about the time at which the statement ends by itself.
  watcher.onPass = [](const host::Wait&) { return true; };
  for (int i = 0; i < 15; ++i) {
    try {
      Run(u"select pg_sleep(" + FromUtf8(std::to_string(0.15 + i * 0.002)) + u")");
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::Cancelled);
    }
    EXPECT_SAME(Scalar(u"select 1"), Long{1});
  }
}

TEST_F(WaitingTest, StatementThatSomethingElseAsksForMeanwhileIsRefused) {
  const auto others = Edit(u"select * from t order by k");
  Watcher watcher;
  watcher.onPass = [&](const host::Wait&) {
    EXPECT_HOST_ERROR(Run(u"select 1"), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->BeginTrans(), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->Close(), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->OpenSchema(host::SchemaKind::Tables), errors::StillExecuting);
    EXPECT_HOST_ERROR(others->Requery(), errors::StillExecuting);
    EXPECT_HOST_ERROR(others->Close(), errors::StillExecuting);
    EXPECT_SAME(Get(others, u"nome"), u"Ana");
    return false;
  };
  EXPECT_SAME(Scalar(u"select 'fim' from pg_sleep(0.5)"), u"fim");
  EXPECT_GT(watcher.passes, 0);
  EXPECT_EQ(others->State(), host::state::Open);
  EXPECT_EQ(others->RecordCount(), 2);
}

TEST_F(WaitingTest, RowIsNotEditedWhileItIsWritten) {
  const auto rows = EditedFirstRow();
  LockFirstRow();
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    EXPECT_HOST_ERROR(Set(rows, u"nome", u"Outra"), errors::StillExecuting);
    EXPECT_HOST_ERROR(rows->CancelUpdate(), errors::StillExecuting);
    EXPECT_HOST_ERROR(rows->MoveNext(), errors::StillExecuting);
    EXPECT_HOST_ERROR(rows->Delete(), errors::StillExecuting);
    return wait.Elapsed > 250ms;
  };
  EXPECT_HOST_ERROR(rows->Update(), errors::Cancelled);
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
  other_->RollbackTrans();
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where k = 1"), u"Eva");
}

TEST_F(WaitingTest, WaitTellsWhatIsAwaited) {
  using host::Awaited;
  const std::pair<Awaited, std::function<void(host::Recordset&)>> requests[] = {
      {Awaited::Rows, [](host::Recordset& rows) { rows.AbsolutePosition(5500); }},
      {Awaited::Rows, [](host::Recordset& rows) { rows.FetchMore(5000); }},
      {Awaited::Rows, [this](host::Recordset&) { Read(u"select pg_sleep(0.4)"); }},
      {Awaited::Count, [](host::Recordset& rows) { rows.RecordCount(); }},
      {Awaited::LastRow, [](host::Recordset& rows) { rows.MoveLast(); }},
      {Awaited::Match, [](host::Recordset& rows) { rows.Find(u"n = 5500"); }},
      {Awaited::Order, [](host::Recordset& rows) { rows.Sort(u"n desc"); }},
  };
  for (const auto& request : requests) {
    const auto what = request.first;
    const auto& act = request.second;
    // The rows after the first ones take their time.
    const auto rows = Read(
        u"select n, case when n = 5000 then pg_sleep(0.4)::text end as espera from "
        u"generate_series(1, 6000) n");
    Watcher watcher;
    watcher.onPass = [&](const host::Wait& wait) {
      EXPECT_EQ(int(wait.What), int(what));
      return false;
    };
    act(*rows);
    EXPECT_GT(watcher.passes, 0) << int(what);
    EXPECT_GT(watcher.ends, 0);
  }
}

TEST_F(WaitingTest, WaitOfAStatementOfTheProgramIsForItsAnswer) {
  Watcher watcher;
  watcher.onPass = [](const host::Wait& wait) {
    EXPECT_EQ(int(wait.What), int(host::Awaited::Answer));
    return false;
  };
  Run(u"do 'begin perform pg_sleep(0.4); end'");
  EXPECT_GT(watcher.passes, 0);
}

TEST_F(WaitingTest, WaitOfAWriteIsThatOfTheWriteAlsoBeforeAMove) {
  using host::Awaited;
  const auto rows = EditedFirstRow();
  LockFirstRow();
  const std::pair<Awaited, std::function<void()>> requests[] = {
      {Awaited::Write, [&] { rows->Update(); }},
      {Awaited::Write, [&] { rows->MoveLast(); }},
      {Awaited::Write, [&] { rows->Sort(u"nome"); }},
      {Awaited::Write, [&] { rows->Find(u"k = 2"); }},
      {Awaited::Deletion, [&] { rows->Delete(); }},
  };
  for (const auto& request : requests) {
    const auto what = request.first;
    const auto& act = request.second;
    Watcher watcher;
    watcher.onPass = [&](const host::Wait& wait) {
      EXPECT_EQ(int(wait.What), int(what));
      return wait.Elapsed > 200ms;
    };
    EXPECT_HOST_ERROR(act(), errors::Cancelled);
  }
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
}

TEST_F(WaitingTest, WriteIsNotSentWhenTheRowsBeforeItAreGivenUp) {
  Run(u"create table muitos as select n as k, repeat('x', 200) as nome from "
      u"generate_series(1, 400000) n");
  const auto rows = Read(u"select *, random() from muitos");
  Watcher watcher;
  watcher.onPass = [](const host::Wait&) { return true; };
  EXPECT_HOST_ERROR(Run(u"update t set nome = 'Nova' where k = 2"), errors::Cancelled);
  watcher.onPass = [](const host::Wait&) { return false; };
  EXPECT_SAME(Scalar(u"select nome from t where k = 2"), u"Bia");
}

TEST_F(WaitingTest, BoundsSetInATransactionSurviveItsEnd) {
  connection_->BeginTrans();
  connection_->CommandTimeout(600);
  connection_->RollbackTrans();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"10min");
  EXPECT_EQ(connection_->CommandTimeout(), 600);
}

TEST_F(WaitingTest, LongestBoundOfALongTextCanBeAwaited) {
  connection_->CommandTimeout(2147483);
  const Watcher watcher;
  EXPECT_SAME(Scalar(u"select length('" + String(100000, u';') + u"')"), Long{100000});
}

TEST_F(WaitingTest, BoundsAreNotSetWhileAStatementRuns) {
  Watcher watcher;
  watcher.onPass = [&](const host::Wait&) {
    EXPECT_HOST_ERROR(connection_->CommandTimeout(7), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->Open(), errors::StillExecuting);
    return false;
  };
  Run(u"select pg_sleep(0.4)");
  EXPECT_EQ(connection_->CommandTimeout(), 30);
}

TEST_F(WaitingTest, ConnectionThatIsLetGoMeanwhileLivesToTheEndOfTheStatement) {
  Watcher watcher;
  watcher.onPass = [&](const host::Wait&) {
    connection_.reset();
    return false;
  };
  connection_->Execute(u"update t set nome = 'Nova' where k = (select 2 from pg_sleep(0.4))");
  EXPECT_EQ(connection_, nullptr);
  const auto rows = other_->Execute(u"select nome from t where k = 2");
  EXPECT_SAME(Get(rows, 0), u"Nova");
}

TEST_F(WaitingTest, WaitEndsWithTheStatementThatIsOpened) {
  Watcher watcher;
  const auto rows = Read(
      u"select n, case when n = 1 then pg_sleep(0.4)::text end from "
      u"generate_series(1, 3000) n");
  EXPECT_EQ(watcher.ends, 1);
  EXPECT_FALSE(rows->Eof());
}

TEST_F(WaitingTest, RecordSetThatIsLetGoMeanwhileLivesToTheEndOfTheWait) {
  auto rows = EditedFirstRow();
  LockFirstRow();
  Watcher watcher;
  watcher.onPass = [&](const host::Wait& wait) {
    rows.reset();
    return wait.Elapsed > 250ms;
  };
  EXPECT_HOST_ERROR(rows->Update(), errors::Cancelled);
  EXPECT_EQ(rows, nullptr);
}

TEST_F(WaitingTest, ReadingManyRowsIsPassedWithTheirNumber) {
  Run(u"create table muitos as select n as k, repeat('x', 200) as nome from "
      u"generate_series(1, 400000) n");
  Watcher watcher;
  Long most = 0;
  watcher.onPass = [&](const host::Wait& wait) {
    EXPECT_GE(wait.Rows, most);
    most = wait.Rows;
    return false;
  };
  const auto rows = Read(u"select *, random() from muitos");
  EXPECT_EQ(rows->RecordCount(), 400000);
  EXPECT_GT(watcher.passes, 0);
  EXPECT_GT(most, 0);
  EXPECT_EQ(watcher.ends, 1);
}

TEST_F(WaitingTest, OperatorGivesUpReadingAndTheRowsThatCameStay) {
  Run(u"create table muitos as select n as k, repeat('x', 200) as nome from "
      u"generate_series(1, 400000) n");
  const auto rows = Read(u"select * from muitos order by k");
  Watcher watcher;
  watcher.onPass = [](const host::Wait&) { return true; };
  try {
    rows->RecordCount();
    FAIL() << "read to the end";
  } catch (const HostError& error) {
    EXPECT_EQ(error.Number(), errors::Cancelled);
    EXPECT_EQ(ToUtf8(error.Description()), "A leitura foi cancelada.");
  }
  EXPECT_FALSE(rows->Complete());
  EXPECT_GT(rows->RowsRead(), 0);
  EXPECT_SAME(rows->ValueAt(1, 0), Long{1});
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{2});
}

TEST_F(WaitingTest, MoreRowsAreNotReadWhileAnotherStatementRuns) {
  Run(u"create table muitos as select n as k from generate_series(1, 20000) n");
  const auto rows = Read(u"select * from muitos");
  Watcher watcher;
  bool asked = false;
  // A statement of the connection reads what is left of the rows first.
  Run(u"set statement_timeout = 0");
  watcher.onPass = [&](const host::Wait&) {
    asked = true;
    EXPECT_FALSE(rows->FetchMore(100));
    return false;
  };
  Run(u"select pg_sleep(0.4)");
  EXPECT_TRUE(asked);
  EXPECT_EQ(rows->RecordCount(), 20000);
}

}  // namespace
}  // namespace tessaria::sql::test
