// Connections through a pooler, in both of its modes.
#include <chrono>
#include <thread>

#include "hosts/sql/session/local_settings.h"
#include "tessaria/conversion.h"
#include "tessaria/host/waiting.h"
#include "tessaria/thread_state.h"
#include "tests/sql/database_test.h"
#include "tests/support/pgbouncer.h"

namespace tessaria::sql::test {
namespace {

using namespace std::chrono_literals;
using tessaria::test::Pgbouncer;

TEST(Pooling, IsTakenOutOfTheConnectionString) {
  const auto take = [](String text) {
    const bool isTransaction = TakePooling(text) == SettingsScope::Transaction;
    return std::pair(isTransaction, text);
  };
  using Taken = std::pair<bool, String>;
  EXPECT_EQ(take(u"Uid=a;Pooling=Transaction;Port=1"), Taken(true, u"Uid=a;Port=1"));
  EXPECT_EQ(take(u"Uid=a;Port=1;pooling = transaction"), Taken(true, u"Uid=a;Port=1"));
  EXPECT_EQ(take(u"host=a pooling=transaction port=1"), Taken(true, u"host=a port=1"));
  EXPECT_EQ(take(u"postgresql://a/b?pooling=transaction"), Taken(true, u"postgresql://a/b"));
  EXPECT_EQ(take(u"postgresql://a/b?pooling=transaction&x=1"),
            Taken(true, u"postgresql://a/b?x=1"));
  EXPECT_EQ(take(u"Pooling=session;Uid=a"), Taken(false, u"Uid=a"));
  EXPECT_EQ(take(u"Uid=a"), Taken(false, u"Uid=a"));
  EXPECT_EQ(take(u"Pwd={;Pooling=transaction}"), Taken(false, u"Pwd={;Pooling=transaction}"));
  EXPECT_EQ(take(u"password='x pooling=y'"), Taken(false, u"password='x pooling=y'"));
  EXPECT_HOST_ERROR(take(u"Pooling=statement"), errors::InvalidCriteria);
}

class PoolerTest : public DatabaseTest, public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    const std::string missing = Pgbouncer::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    DatabaseTest::SetUp();
    Run(u"create table t (codigo int primary key, nome varchar(20))");
    Run(u"insert into t select n, 'nome ' || n from generate_series(1, 5000) n");
    direct_ = connection_;
    pooler_ = std::make_unique<Pgbouncer>(Cluster().Folder(), GetParam());
    connection_ = Pooled();
    neighbour_ = Pooled();
  }
  void TearDown() override { State().waiting = nullptr; }

  host::ConnectionPtr Pooled() {
    auto connection = tessaria::test::NewConnectionOfTheDriver();
    const String setting = u"Pooling=" + FromUtf8(GetParam());
    connection->ConnectionString(pooler_->ConnectionString() + setting);
    connection->Open();
    return connection;
  }

  host::ConnectionPtr direct_, neighbour_;
  std::unique_ptr<Pgbouncer> pooler_;
};

TEST_P(PoolerTest, BoundsHoldForEveryStatement) {
  connection_->CommandTimeout(1);
  for (int i = 0; i < 6; ++i) {
    EXPECT_SAME(Scalar(u"show statement_timeout"), u"1s");
    EXPECT_SAME(Get(neighbour_->Execute(u"show statement_timeout"), 0), u"30s");
  }
  EXPECT_HOST_ERROR(Run(u"select pg_sleep(5)"), errors::TimeOut);
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
  connection_->BeginTrans();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"1s");
  connection_->CommandTimeout(20);
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"20s");
  connection_->RollbackTrans();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"20s");
}

TEST_P(PoolerTest, LargeResultsAreReadWhileNeighboursWork) {
  const auto rows = Read(u"select * from t order by codigo");
  neighbour_->Execute(u"update t set nome = 'outro' where codigo = 1");
  EXPECT_EQ(rows->RecordCount(), 5000);
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"outro");
}

TEST_P(PoolerTest, EditsAreWrittenAndConflictsTold) {
  const auto rows = Edit(u"select * from t where codigo < 10 order by codigo");
  Set(rows, u"nome", u"mudado");
  rows->Update();
  EXPECT_SAME(Get(direct_->Execute(u"select nome from t where codigo = 1"), 0), u"mudado");
  Set(rows, u"nome", u"outra vez");
  direct_->Execute(u"update t set nome = 'do outro' where codigo = 1");
  EXPECT_HOST_ERROR(rows->Update(), errors::RowChanged);
  rows->CancelUpdate();
  rows->AddNew();
  Set(rows, u"codigo", Long{9000});
  Set(rows, u"nome", u"nova");
  rows->Update();
  EXPECT_SAME(Get(direct_->Execute(u"select nome from t where codigo = 9000"), 0), u"nova");
}

TEST_P(PoolerTest, FailedStatementLeavesTheTransaction) {
  connection_->BeginTrans();
  Run(u"delete from t where codigo = 1");
  EXPECT_ANY_THROW(Run(u"insert into t values (2, 'dois')"));
  EXPECT_ANY_THROW(Run(u"selec"));
  connection_->CommitTrans();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{4999});
}

TEST_P(PoolerTest, FailedStatementOutsideATransactionLeavesNothing) {
  EXPECT_ANY_THROW(Run(u"insert into t values (2, 'dois')"));
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
  EXPECT_SAME(Get(direct_->Execute(u"select count(*)::int from pg_stat_activity where state like "
                                   u"'idle in transaction%'"),
                  0),
              Long{0});
}

TEST_P(PoolerTest, StatementThatNoTransactionTakesRuns) {
  Run(u"vacuum t");
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
}

// Gives up after a moment.
class Impatient final : public host::WaitView {
 public:
  Impatient() { State().waiting = this; }
  ~Impatient() override { State().waiting = nullptr; }
  bool Pass(const host::Wait& wait) override { return wait.Elapsed > 400ms; }
  void Over() override {}
};

TEST_P(PoolerTest, CancelReachesTheStatementAndNoOther) {
  {
    const Impatient view;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_HOST_ERROR(Run(u"update t set nome = (select 'x' from pg_sleep(20)) where codigo = 1"),
                      errors::Cancelled);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 8s);
  }
  EXPECT_SAME(Get(neighbour_->Execute(u"select 1"), 0), Long{1});
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"nome 1");
}

TEST_P(PoolerTest, TransactionWithModesKeepsThem) {
  Run(u"begin isolation level repeatable read");
  EXPECT_SAME(Scalar(u"show transaction_isolation"), u"repeatable read");
  Run(u"commit");
}

INSTANTIATE_TEST_SUITE_P(Modes, PoolerTest, ::testing::Values("session", "transaction"),
                         [](const auto& mode) { return std::string(mode.param); });

}  // namespace
}  // namespace tessaria::sql::test
