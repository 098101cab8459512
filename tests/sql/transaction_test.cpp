#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

class TransactionTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (a int primary key)");
  }

  /// Rows as another session sees them.
  Long Committed() {
    return CLng(Get(NewConnection()->Execute(u"select count(*)::int from t"), 0));
  }
};

TEST_F(TransactionTest, CommitKeepsAndRollbackDrops) {
  connection_->BeginTrans();
  Run(u"insert into t values (1)");
  EXPECT_EQ(Committed(), 0);
  connection_->CommitTrans();
  EXPECT_EQ(Committed(), 1);
  connection_->BeginTrans();
  Run(u"insert into t values (2)");
  connection_->RollbackTrans();
  EXPECT_EQ(Committed(), 1);
  Run(u"insert into t values (3)");
  EXPECT_EQ(Committed(), 2);
}

TEST_F(TransactionTest, CannotBeNestedNorEndedTwice) {
  connection_->BeginTrans();
  EXPECT_HOST_ERROR(connection_->BeginTrans(), errors::ProviderError);
  connection_->RollbackTrans();
  EXPECT_HOST_ERROR(connection_->RollbackTrans(), errors::ProviderError);
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::ProviderError);
}

// A syntax error in particular: the driver's own handling silently undoes everything.
TEST_F(TransactionTest, FailingStatementLeavesTheTransactionUsable) {
  for (const StringView settings : {u"", u"Protocol=7.4-0;", u"Protocol=7.4-1;", u"Protocol=7.4-2;",
                                    u"UseDeclareFetch=1;", u"UseServerSidePrepare=0;"}) {
    SCOPED_TRACE(ToUtf8(settings));
    connection_ = NewConnection(String(settings));
    Run(u"truncate t");
    connection_->BeginTrans();
    Run(u"insert into t values (1)");
    for (const StringView failing :
         {u"selec 1", u"select nada from t", u"insert into t values (1)", u"insert into t value (",
          u"select 1/0", u"update nada set a = 1", u"select a/0 from t"}) {
      EXPECT_ANY_THROW(Run(String(failing))) << ToUtf8(failing);
      EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1}) << ToUtf8(failing);
    }
    Run(u"insert into t values (2)");
    connection_->CommitTrans();
    EXPECT_EQ(Committed(), 2);
  }
}

// As lookups, relation checks and lists send them: some fail only after rows have arrived.
TEST_F(TransactionTest, FailingLookupLeavesTheTransactionUsable) {
  connection_->BeginTrans();
  Run(u"insert into t select generate_series(1, 20000)");
  for (const StringView failing :
       {u"Select a From t Where a = abc Limit 1",
        u"Select a, nada From t Where cast(a as integer) = 15 Limit 1",
        u"Select a From t Where cast(a || 'x' as integer) = 15 Limit 1",
        u"Select a, nada From t Where a Is Not Null  Order by 1",
        u"Select a, current_date From t Where 1 / (a - 15000) < 9  Order by 1",
        u"Select a From t Where 1 / (a - 15000) < 9 Order by 1", u"Select a From t Where ("}) {
    SCOPED_TRACE(ToUtf8(failing));
    EXPECT_ANY_THROW(Read(String(failing))->RecordCount());
    EXPECT_ANY_THROW(connection_->Execute(String(failing))->RecordCount());
    EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{20000});
  }
  connection_->CommitTrans();
  EXPECT_EQ(Committed(), 20000);
}

TEST_F(TransactionTest, CanBeControlledByStatements) {
  Run(u"begin");
  Run(u"insert into t values (1)");
  EXPECT_ANY_THROW(Run(u"selec"));
  Run(u"commit");
  EXPECT_EQ(Committed(), 1);
  Run(u"Start Transaction isolation level serializable");
  EXPECT_SAME(Scalar(u"show transaction_isolation"), u"serializable");
  Run(u"insert into t values (2)");
  Run(u"rollback");
  EXPECT_EQ(Committed(), 1);
}

TEST_F(TransactionTest, HasSavepointsOfTheApplication) {
  connection_->BeginTrans();
  Run(u"insert into t values (1)");
  Run(u"savepoint meu");
  Run(u"insert into t values (2)");
  EXPECT_ANY_THROW(Run(u"rollback to savepoint outro"));
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{2});
  Run(u"rollback to savepoint meu");
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
  Run(u"release savepoint meu");
  Run(u"insert into t values (3)");
  connection_->CommitTrans();
  EXPECT_EQ(Committed(), 2);
}

TEST_F(TransactionTest, RefusedCommitIsReportedAndLeavesTheConnectionUsable) {
  Run(u"alter table t add p int references t deferrable initially deferred");
  connection_->BeginTrans();
  Run(u"insert into t values (1, 99)");
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::IntegrityViolation);
  EXPECT_EQ(Committed(), 0);
  Run(u"insert into t values (2, 2)");
  EXPECT_EQ(Committed(), 1);
  connection_->BeginTrans();
  connection_->RollbackTrans();
}

// A query whose function writes is read in a transaction of this layer's own; a check at its end
// may refuse it.
TEST_F(TransactionTest, RefusedEndOfAReadingLeavesTheConnectionUsable) {
  Run(u"alter table t add p int references t deferrable initially deferred");
  Run(u"create function f() returns int language plpgsql as"
      u" $$begin insert into t values (1, 99); return 7; end$$");
  EXPECT_HOST_ERROR(Read(u"select f()"), errors::IntegrityViolation);
  EXPECT_EQ(Committed(), 0);
  Run(u"insert into t values (2, 2)");
  EXPECT_EQ(Committed(), 1);
  connection_->BeginTrans();
  Run(u"insert into t values (3, 3)");
  connection_->CommitTrans();
  EXPECT_EQ(Committed(), 2);
}

TEST_F(TransactionTest, IsUndoneByClose) {
  connection_->BeginTrans();
  Run(u"insert into t values (1)");
  connection_->Close();
  connection_->Open();
  EXPECT_EQ(Committed(), 0);
  connection_->BeginTrans();
  connection_->RollbackTrans();
}

}  // namespace
}  // namespace tessaria::sql::test
