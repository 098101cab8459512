// Two users who edit the same rows.
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

class RivalsTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo int primary key, nome varchar(10), valor int, obs text)");
    Run(u"insert into t values (1, 'Ana', 10, null), (2, 'Bia', 20, 'x')");
    rows_ = Edit(u"select * from t order by codigo");
    other_ = NewConnection();
  }
  void ExpectRowChanged(const std::function<void()>& action) {
    try {
      action();
      ADD_FAILURE() << "no error";
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::RowChanged);
      EXPECT_EQ(error.Description(),
                u"O registro foi alterado ou excluído por outro usuário desde que foi lido. "
                u"Nada foi gravado.");
    }
  }

  host::RecordsetPtr rows_;
  host::ConnectionPtr other_;
};

TEST_F(RivalsTest, AnotherUsersChangeOfTheColumnIsNotOverwritten) {
  Set(rows_, u"nome", u"Eva");
  other_->Execute(u"update t set nome = 'Ada' where codigo = 1");
  ExpectRowChanged([&] { rows_->Update(); });
  ExpectRowChanged([&] { rows_->MoveNext(); });
  EXPECT_EQ(rows_->AbsolutePosition(), 1);
  EXPECT_EQ(rows_->EditMode(), host::EditMode::InProgress);
  EXPECT_SAME(Get(rows_, u"nome"), u"Eva");
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"Ada");
  rows_->CancelUpdate();
  rows_->MoveNext();
}

TEST_F(RivalsTest, AnotherUsersChangeToOrFromNullIsDetected) {
  Set(rows_, u"obs", u"minha");
  other_->Execute(u"update t set obs = 'dele' where codigo = 1");
  ExpectRowChanged([&] { rows_->Update(); });
  rows_->CancelUpdate();
  rows_->MoveNext();
  Set(rows_, u"obs", u"minha");
  other_->Execute(u"update t set obs = null where codigo = 2");
  ExpectRowChanged([&] { rows_->Update(); });
}

TEST_F(RivalsTest, AnotherUsersChangeOfAnotherColumnIsKept) {
  Set(rows_, u"nome", u"Eva");
  other_->Execute(u"update t set valor = 99 where codigo = 1");
  rows_->Update();
  EXPECT_SAME(Get(rows_, u"valor"), Long{99});
  EXPECT_SAME(Scalar(u"select nome || valor from t where codigo = 1"), u"Eva99");
}

TEST_F(RivalsTest, DeletedRowIsDetected) {
  Set(rows_, u"nome", u"Eva");
  other_->Execute(u"delete from t where codigo = 1");
  ExpectRowChanged([&] { rows_->Update(); });
  rows_->CancelUpdate();
  ExpectRowChanged([&] { rows_->Delete(); });
  EXPECT_EQ(rows_->RecordCount(), 2);
}

TEST_F(RivalsTest, ChangedRowIsNotDeleted) {
  other_->Execute(u"update t set obs = 'espere' where codigo = 1");
  ExpectRowChanged([&] { rows_->Delete(); });
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{2});
  rows_->Requery();
  rows_->Delete();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
}

TEST_F(RivalsTest, SecondOfTwoWritersGetsAnError) {
  const auto second = other_->OpenRecordset(u"select * from t order by codigo", CursorType::Static,
                                            LockType::Optimistic);
  Set(rows_, u"valor", Long{11});
  Set(second, u"valor", Long{12});
  rows_->Update();
  ExpectRowChanged([&] { second->Update(); });
  second->CancelUpdate();
  second->Requery();
  EXPECT_SAME(Get(second, u"valor"), Long{11});
  Set(second, u"valor", Long{12});
  second->Update();
  EXPECT_SAME(Scalar(u"select valor from t where codigo = 1"), Long{12});
}

TEST_F(RivalsTest, WaitForALockedRowEndsWithTheTimeoutOfTheServer) {
  other_->BeginTrans();
  other_->Execute(u"update t set valor = 0 where codigo = 1");
  Run(u"set lock_timeout = 100");
  Set(rows_, u"nome", u"Eva");
  try {
    rows_->Update();
    ADD_FAILURE() << "written";
  } catch (const HostError& error) {
    EXPECT_GT(InStr(error.Description(), u"lock timeout"), 0) << ToUtf8(error.Description());
  }
  EXPECT_EQ(rows_->EditMode(), host::EditMode::InProgress);
  other_->RollbackTrans();
  rows_->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"Eva");
}

TEST_F(RivalsTest, ReadingHoldsNoLocksOnceItIsComplete) {
  const auto rows = Read(u"select * from t");
  other_->Execute(u"set lock_timeout = 1000");
  other_->Execute(u"alter table t add nova int");
}

}  // namespace
}  // namespace tessaria::sql::test
