// What an action of the operator does with a connection that was lost before it.
#include "tessaria/conversion.h"
#include "tests/sql/database_test.h"
#include "tests/sql/fake_operator.h"
#include "tests/sql/watcher.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::sql::test {
namespace {

class ReconnectTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo int primary key, nome varchar(20))");
    Run(u"insert into t select n, 'nome ' || n from generate_series(1, 5000) n");
    other_ = NewConnection();
    process_ = CStr(Scalar(u"select pg_backend_pid()"));
  }
  void TearDown() override {
    State().reconnecting = nullptr;
    Cluster().EnsureRunning();
  }
  // Kills the session of the connection, and no other.
  void Lose() { other_->Execute(u"select pg_terminate_backend(" + process_ + u")"); }
  // Loses the connection in an action, which fails.
  void LoseInAction() {
    Lose();
    EXPECT_ANY_THROW(Run(u"select 1"));
    EXPECT_EQ(connection_->State(), host::state::Closed);
    EXPECT_EQ(operator_.asked, 0);
  }
  Variant Stored(const String& statement) { return Get(other_->Execute(statement), 0); }

  host::ConnectionPtr other_;
  String process_;  // of the connection on the server
  FakeOperator operator_;
};

TEST_F(ReconnectTest, NextActionAsksAndGoesOn) {
  LoseInAction();
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);  // still the same action
  EXPECT_EQ(operator_.asked, 0);
  operator_.Act();
  EXPECT_TRUE(connection_->CanReconnect());
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_FALSE(connection_->CanReconnect());
}

TEST_F(ReconnectTest, NoIsTheErrorAndTheNextActionAsksAgain) {
  LoseInAction();
  operator_.says = false;
  operator_.Act();
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 1);
  operator_.Act();
  operator_.says = true;
  EXPECT_SAME(Scalar(u"select 7"), Long{7});
  EXPECT_EQ(operator_.asked, 2);
}

TEST_F(ReconnectTest, FailedAttemptTellsWhyAndTheNextActionAsksAgain) {
  Cluster().Stop();
  EXPECT_ANY_THROW(Run(u"select 1"));
  operator_.Act();
  try {
    Run(u"select 1");
    FAIL() << "no error";
  } catch (const HostError& error) {
    EXPECT_EQ(error.Number(), errors::InvalidConnection);
    EXPECT_EQ(error.Description().find(u"A conexão com o banco de dados"), 0U);
    EXPECT_GT(error.Description().size(), 80U);  // the driver's own text is behind it
  }
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 1);
  Cluster().Start();
  operator_.Act();
  EXPECT_SAME(Scalar(u"select 7"), Long{7});
  EXPECT_EQ(operator_.asked, 2);
}

TEST_F(ReconnectTest, AttemptThatIsGivenUpIsRefusedAsCancelledAndTheNextActionAsksAgain) {
  tessaria::test::CuttingProxy proxy(Cluster().Socket());
  connection_ = tessaria::test::NewConnectionOfTheDriver();
  connection_->ConnectionString(Cluster().ConnectionString(proxy.Port()));
  connection_->Open();
  proxy.CutNow();
  EXPECT_ANY_THROW(Run(u"select 1"));
  proxy.Swallow();
  operator_.Act();
  {
    Watcher watcher;
    watcher.onPass = [](const host::Wait& wait) { return wait.Elapsed.count() > 300; };
    EXPECT_HOST_ERROR(Run(u"select 1"), errors::Cancelled);
    EXPECT_EQ(watcher.ends, 1);
  }
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_TRUE(connection_->CanReconnect());
  proxy.CancelCut();
  operator_.Act();
  EXPECT_SAME(Scalar(u"select 7"), Long{7});
  EXPECT_EQ(operator_.asked, 2);
}

TEST_F(ReconnectTest, WorkThatNobodyHasAskedForNeverAsks) {
  LoseInAction();
  operator_.action = 0;
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 0);
  operator_.action = 5;
  Run(u"select 1");
  EXPECT_EQ(operator_.asked, 1);
}

TEST_F(ReconnectTest, WithoutAViewTheErrorStays) {
  LoseInAction();
  State().reconnecting = nullptr;
  EXPECT_FALSE(connection_->CanReconnect());
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->Properties(u"DBMS Name"), errors::InvalidConnection);
  connection_->Open();
  Run(u"select 1");
}

TEST_F(ReconnectTest, ConnectionThatTheProgramClosedStaysClosed) {
  LoseInAction();
  connection_->Close();
  operator_.Act();
  EXPECT_FALSE(connection_->CanReconnect());
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 0);
}

TEST_F(ReconnectTest, ProviderPropertiesStayKnown) {
  LoseInAction();
  operator_.Act();
  EXPECT_SAME(connection_->Properties(u"DBMS Name"), u"PostgreSQL");
  EXPECT_EQ(operator_.asked, 0);
}

TEST_F(ReconnectTest, TransactionIsEndedBeforeAnythingIsOffered) {
  connection_->BeginTrans();
  Run(u"delete from t where codigo = 1");
  LoseInAction();
  operator_.Act();
  EXPECT_FALSE(connection_->CanReconnect());
  EXPECT_HOST_ERROR(Run(u"delete from t where codigo = 2"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->BeginTrans(), errors::InvalidConnection);
  EXPECT_EQ(operator_.asked, 0);
  connection_->RollbackTrans();
  EXPECT_EQ(operator_.asked, 0);
  operator_.Act();
  Run(u"delete from t where codigo = 3");
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_SAME(Stored(u"select count(*)::int from t"), Long{4999});
}

TEST_F(ReconnectTest, TransactionOfAStatementIsEndedByOne) {
  Run(u"begin");
  Run(u"delete from t where codigo = 1");
  LoseInAction();
  operator_.Act();
  EXPECT_HOST_ERROR(Run(u"savepoint a"), errors::InvalidConnection);
  Run(u"rollback");
  operator_.Act();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
  EXPECT_EQ(operator_.asked, 1);
}

TEST_F(ReconnectTest, CommitOfALostTransactionIsAnErrorAndEndsIt) {
  connection_->BeginTrans();
  Run(u"delete from t where codigo = 1");
  LoseInAction();
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->RollbackTrans(), errors::InvalidConnection);
  operator_.Act();
  connection_->BeginTrans();
  EXPECT_EQ(operator_.asked, 1);
  connection_->RollbackTrans();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
}

TEST_F(ReconnectTest, RollbackThatFindsTheLossSucceeds) {
  connection_->BeginTrans();
  Run(u"delete from t where codigo = 1");
  Lose();
  connection_->RollbackTrans();
  EXPECT_EQ(connection_->State(), host::state::Closed);
  operator_.Act();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{5000});
}

TEST_F(ReconnectTest, PendingEditIsSavedAfterIt) {
  const auto rows = Edit(u"select * from t where codigo <= 3 order by codigo");
  Set(rows, u"nome", u"mudado");
  LoseInAction();
  operator_.says = false;
  operator_.Act();
  EXPECT_HOST_ERROR(rows->Update(), errors::InvalidConnection);
  EXPECT_SAME(Get(rows, u"nome"), u"mudado");
  operator_.says = true;
  operator_.Act();
  rows->Update();
  EXPECT_EQ(operator_.asked, 2);
  EXPECT_SAME(Stored(u"select nome from t where codigo = 1"), u"mudado");
}

TEST_F(ReconnectTest, WriteWithALostAnswerIsLookedForAndNotRepeated) {
  tessaria::test::CuttingProxy proxy(Cluster().Socket());
  connection_ = tessaria::test::NewConnectionOfTheDriver();
  connection_->ConnectionString(Cluster().ConnectionString(proxy.Port()));
  connection_->Open();
  const auto rows = Edit(u"select * from t where codigo = 1");
  Set(rows, u"nome", u"uma vez");
  proxy.CutAt(tessaria::test::CuttingProxy::Side::Server, {"UPDATE 1"});
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  EXPECT_EQ(operator_.asked, 0);
  operator_.Act();
  rows->Update();
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_SAME(Stored(u"select nome from t where codigo = 1"), u"uma vez");
}

TEST_F(ReconnectTest, RowsThatDidNotArriveAreReadByARequery) {
  const auto rows = Read(u"select * from t order by codigo");
  Lose();
  EXPECT_ANY_THROW(rows->RecordCount());
  operator_.Act();
  EXPECT_ANY_THROW(rows->RecordCount());  // they were of another connection
  rows->AbsolutePosition(900);
  EXPECT_EQ(operator_.asked, 0);
  rows->Requery();
  EXPECT_EQ(operator_.asked, 1);
  EXPECT_EQ(rows->RecordCount(), 5000);
}

TEST_F(ReconnectTest, CatalogueAsksToo) {
  LoseInAction();
  operator_.Act();
  EXPECT_FALSE(connection_->OpenSchema(host::SchemaKind::Tables)->Eof());
  EXPECT_EQ(operator_.asked, 1);
}

TEST_F(ReconnectTest, BoundsHoldAgain) {
  connection_->CommandTimeout(7);
  LoseInAction();
  operator_.Act();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"7s");
}

TEST_F(ReconnectTest, NothingElseUsesTheConnectionWhileTheOperatorIsAsked) {
  LoseInAction();
  operator_.Act();
  operator_.whileAsked = [this] {
    EXPECT_HOST_ERROR(Run(u"select 1"), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->Open(), errors::StillExecuting);
    EXPECT_HOST_ERROR(connection_->Close(), errors::StillExecuting);
  };
  EXPECT_SAME(Scalar(u"select 7"), Long{7});
}

TEST_F(ReconnectTest, ConnectionMayBeLetGoWhileTheOperatorIsAsked) {
  LoseInAction();
  operator_.Act();
  operator_.whileAsked = [this] { connection_.reset(); };
  connection_->Execute(u"delete from t where codigo = 1");
  EXPECT_EQ(connection_, nullptr);
  EXPECT_SAME(Stored(u"select count(*)::int from t"), Long{4999});
}

TEST_F(ReconnectTest, NobodyIsAskedWhenObjectsGo) {
  auto rows = Edit(u"select * from t order by codigo");
  LoseInAction();
  operator_.Act();
  rows.reset();
  connection_.reset();
  EXPECT_EQ(operator_.asked, 0);
}

}  // namespace
}  // namespace tessaria::sql::test
