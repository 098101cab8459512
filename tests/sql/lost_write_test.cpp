// Writes while the line or a reading fails at each step: a write that was accepted is over.
#include <optional>

#include "tests/sql/database_test.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::sql::test {
namespace {

using host::EditMode;
using tessaria::test::CuttingProxy;
using Side = CuttingProxy::Side;

class LostWriteTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo serial primary key, nome varchar(20), data date)");
    Run(u"insert into t (nome) select 'nome ' || n from generate_series(1, 20000) n");
    proxy_.emplace(Cluster().Socket());
    line_ = tessaria::test::NewConnectionOfTheDriver();
    line_->ConnectionString(Cluster().ConnectionString(proxy_->Port()));
    line_->Open();
  }
  host::RecordsetPtr EditOnLine(const String& statement) {
    return line_->OpenRecordset(statement, CursorType::Static, LockType::Optimistic);
  }
  /// Rows of which some arrived before reading the rest failed.
  host::RecordsetPtr BrokenRows() {
    auto rows = EditOnLine(u"select * from t order by codigo");
    proxy_->CutNow();
    EXPECT_HOST_ERROR(rows->RecordCount(), errors::ProviderError);
    line_->Open();
    return rows;
  }
  Long CountOf(const String& name) {
    return CLng(Scalar(u"select count(*)::int from t where nome = '" + name + u"'"));
  }

  std::optional<CuttingProxy> proxy_;
  host::ConnectionPtr line_;
};

TEST_F(LostWriteTest, NewRowIsStoredOnceWhenTheOtherRowsCannotBeRead) {
  const auto rows = BrokenRows();
  const Long behind = rows->RowsRead() + 1;
  rows->AddNew();
  EXPECT_EQ(rows->AbsolutePosition(), behind);
  Set(rows, u"nome", u"Davi");
  for (int i = 0; i < 4; ++i) rows->Update();
  EXPECT_EQ(CountOf(u"Davi"), 1);
  EXPECT_EQ(rows->EditMode(), EditMode::None);
  EXPECT_SAME(Get(rows, u"nome"), u"Davi");
  EXPECT_EQ(rows->AbsolutePosition(), behind);
  Set(rows, u"nome", u"Davi 2");
  rows->Update();
  EXPECT_EQ(CountOf(u"Davi 2"), 1);
}

// Rows that did not arrive stay missing: an incomplete set never counts as complete.
TEST_F(LostWriteTest, RowsThatCouldNotBeReadAreStillAnErrorAfterAWrite) {
  const auto rows = BrokenRows();
  rows->AddNew();
  rows->Update();
  EXPECT_FALSE(rows->Complete());
  for (int i = 0; i < 2; ++i) {
    EXPECT_HOST_ERROR(rows->MoveNext(), errors::ProviderError);
    EXPECT_HOST_ERROR(rows->RecordCount(), errors::ProviderError);
    EXPECT_HOST_ERROR(rows->MoveLast(), errors::ProviderError);
    EXPECT_HOST_ERROR(rows->Sort(u"nome"), errors::ProviderError);
    EXPECT_HOST_ERROR(rows->FetchMore(1), errors::ProviderError);
    EXPECT_EQ(rows->AbsolutePosition(), rows->RowsRead());
  }
  rows->MoveFirst();
  EXPECT_SAME(Get(rows, u"codigo"), Long{1});
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 20001);
}

TEST_F(LostWriteTest, DeletedRowIsGoneWhenTheOtherRowsCannotBeRead) {
  const auto rows = BrokenRows();
  rows->Delete();
  EXPECT_EQ(rows->EditMode(), EditMode::Delete);
  EXPECT_EQ(CountOf(u"nome 1"), 0);
  rows->MoveNext();
  EXPECT_SAME(Get(rows, u"codigo"), Long{2});
  EXPECT_HOST_ERROR(rows->FetchMore(1), errors::ProviderError);
}

TEST_F(LostWriteTest, EditIsOverWhenTheMoveAfterItFails) {
  const auto rows = BrokenRows();
  const Long last = rows->RowsRead();
  rows->AbsolutePosition(last);
  Set(rows, u"nome", u"Davi");
  EXPECT_HOST_ERROR(rows->MoveNext(), errors::ProviderError);
  EXPECT_EQ(rows->EditMode(), EditMode::None);
  EXPECT_EQ(rows->AbsolutePosition(), last);
  EXPECT_EQ(CountOf(u"Davi"), 1);
}

// The row shows what was written; the next call raises the error.
TEST_F(LostWriteTest, WriteIsOverWhenTheRowCannotBeReadAgain) {
  const auto rows = EditOnLine(u"select * from t where codigo = 1");
  const auto cutReading = [&] { proxy_->CutAt(Side::Client, {"SELECT "}); };
  Set(rows, u"nome", u"Davi");
  cutReading();
  rows->Update();
  EXPECT_EQ(rows->EditMode(), EditMode::None);
  EXPECT_SAME(Get(rows, u"nome"), u"Davi");
  EXPECT_EQ(CountOf(u"Davi"), 1);
  EXPECT_EQ(line_->State(), host::state::Closed);
  line_->Open();
  rows->AddNew();
  Set(rows, u"nome", u"Eva");
  cutReading();
  rows->Update();
  EXPECT_EQ(rows->EditMode(), EditMode::None);
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
  EXPECT_EQ(CountOf(u"Eva"), 1);
  EXPECT_EQ(proxy_->Cuts(), 2);
}

TEST_F(LostWriteTest, NewRowWhoseKeyTheDatabaseGivesIsWrittenAgainOnlyWhenTheRowsWereReadAgain) {
  for (const bool stored : {true, false}) {
    const auto rows = EditOnLine(u"select * from t where codigo > 19999 order by codigo");
    const String name = stored ? u"Davi" : u"Eva";
    const Long before = rows->RecordCount();
    rows->AddNew();
    Set(rows, u"nome", name);
    if (stored) {
      proxy_->CutAt(Side::Server, {"INSERT 0 1"});
    } else {
      proxy_->CutAt(Side::Client, {"INSERT INTO"});
    }
    EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
    line_->Open();
    for (int i = 0; i < 3; ++i) EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
    EXPECT_HOST_ERROR(rows->MoveFirst(), errors::WriteInDoubt);
    EXPECT_SAME(Get(rows, u"nome"), name);
    rows->Requery();
    EXPECT_SAME(Get(rows, u"nome"), name);
    EXPECT_EQ(rows->RecordCount(), before + (stored ? 1 : 0));
    stored ? rows->CancelUpdate() : rows->Update();
    EXPECT_EQ(CountOf(name), 1);
  }
}

TEST_F(LostWriteTest, AQueryWhoseAnswerIsLostIsNotInDoubt) {
  proxy_->CutAt(Side::Client, {"SELECT count"});
  EXPECT_HOST_ERROR(line_->Execute(u"SELECT count(*) from t"), errors::ProviderError);
}

TEST_F(LostWriteTest, AStatementThatMayBeDoneIsReportedInPlainWords) {
  proxy_->CutAt(Side::Server, {"INSERT 0 1"});
  try {
    line_->Execute(u"insert into t (nome) values ('Davi')");
    ADD_FAILURE() << "answered";
  } catch (const HostError& error) {
    EXPECT_EQ(error.Number(), errors::WriteInDoubt);
    EXPECT_TRUE(error.Description().starts_with(u"O comando pode ter sido executado ou não"));
  }
  EXPECT_EQ(CountOf(u"Davi"), 1);
}

TEST_F(LostWriteTest, DoubtIsReportedInPlainWords) {
  const auto rows = EditOnLine(u"select * from t where codigo = 1");
  Set(rows, u"nome", u"Davi");
  proxy_->CutAt(Side::Server, {"UPDATE 1"});
  try {
    rows->Update();
    ADD_FAILURE() << "written";
  } catch (const HostError& error) {
    EXPECT_TRUE(error.Description().starts_with(u"O registro pode ter sido gravado ou não"));
  }
}

TEST_F(LostWriteTest, AnEditIsFoundAsItsColumnsStoreIt) {
  Run(u"create table aparado (id int primary key, preco numeric(11,2), sigla char(5), "
      u"curto varchar(3), dinheiro money, marca uuid, livre numeric, hora timestamp(0))");
  Run(u"insert into aparado (id, livre) values (1, 1)");
  const auto rows = EditOnLine(u"select * from aparado");
  Set(rows, u"preco", u"1,239");
  Set(rows, u"sigla", u"ab  ");
  Set(rows, u"curto", u"abc  ");
  Set(rows, u"dinheiro", u"2,345");
  Set(rows, u"marca", u"A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11");
  Set(rows, u"livre", u"1,000000015");
  Set(rows, u"hora", Date{45000.5});
  proxy_->CutAt(Side::Server, {"UPDATE 1"});
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  line_->Open();
  rows->Update();
  EXPECT_EQ(rows->EditMode(), EditMode::None);
  EXPECT_EQ(CStr(Get(rows, u"preco")), u"1,24");
  EXPECT_EQ(CStr(Get(rows, u"livre")), u"1,000000015");
}

TEST_F(LostWriteTest, ARowThatHoldsTheNewKeyAlreadyIsNotTheEditedOne) {
  const auto rows = EditOnLine(u"select * from t where codigo < 3 order by codigo");
  Set(rows, u"codigo", Long{2});
  proxy_->CutAt(Side::Client, {"UPDATE "});
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  line_->Open();
  EXPECT_HOST_ERROR(rows->Update(), errors::IntegrityViolation);
  rows->CancelUpdate();
  EXPECT_SAME(Get(rows, u"nome"), u"nome 1");
}

TEST_F(LostWriteTest, ARowInAnUnknownStateIsReportedInPlainWords) {
  const auto rows = EditOnLine(u"select * from t where codigo = 1");
  Set(rows, u"nome", u"Davi");
  proxy_->CutAt(Side::Server, {"UPDATE 1"});
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  line_->Open();
  Run(u"update t set nome = 'Eva' where codigo = 1");
  try {
    rows->Update();
    ADD_FAILURE() << "written";
  } catch (const HostError& error) {
    EXPECT_TRUE(error.Description().starts_with(u"Não se sabe se a alteração foi gravada"));
  }
  EXPECT_EQ(CountOf(u"Eva"), 1);
}

// Wherever the line is cut: there is never a second row, and an accepted row is never lost.
TEST_F(LostWriteTest, NewRowIsStoredOnceWhereverTheAnswerIsCut) {
  for (std::size_t bytes = 0; bytes < 400; bytes += 13) {
    SCOPED_TRACE(bytes);
    if (line_->State() == host::state::Closed) line_->Open();
    Run(u"delete from t where codigo < 0");
    const auto rows = EditOnLine(u"select * from t where codigo = 1");
    rows->AddNew();
    Set(rows, u"codigo", Long{-1});
    Set(rows, u"nome", u"Davi");
    proxy_->CutAfter(Side::Server, bytes);
    for (int i = 0; i < 4; ++i) {
      try {
        rows->Update();
      } catch (const HostError&) {
        EXPECT_EQ(rows->EditMode(), EditMode::Add);
      }
      if (line_->State() == host::state::Closed) line_->Open();
    }
    proxy_->CancelCut();
    EXPECT_EQ(rows->EditMode(), EditMode::None);
    EXPECT_EQ(CountOf(u"Davi"), 1);
  }
}

}  // namespace
}  // namespace tessaria::sql::test
