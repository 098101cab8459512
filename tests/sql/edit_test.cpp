#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

using host::EditMode;

class EditTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo serial primary key, nome varchar(10) not null default 'novo',"
        u" valor numeric(10,2) check (valor >= 0), nascido date)");
    Run(u"insert into t (nome, valor) values ('Ana', 1), ('Bruno', 2), ('Célia', 3)");
    rows_ = Edit(u"select * from t order by codigo");
  }
  Variant NameOf(int code) {
    return Scalar(u"select nome from t where codigo = " + FromUtf8(std::to_string(code)));
  }
  Long Count() { return CLng(Scalar(u"select count(*)::int from t")); }

  host::RecordsetPtr rows_;
};

TEST_F(EditTest, UpdateWritesTheRow) {
  Set(rows_, u"nome", u"d'água ?{}");
  EXPECT_EQ(rows_->EditMode(), EditMode::InProgress);
  EXPECT_SAME(Get(rows_, u"nome"), u"d'água ?{}");
  EXPECT_SAME(NameOf(1), u"Ana");
  rows_->Update();
  EXPECT_EQ(rows_->EditMode(), EditMode::None);
  EXPECT_SAME(NameOf(1), u"d'água ?{}");
  EXPECT_SAME(NameOf(2), u"Bruno");
}

TEST_F(EditTest, CancelUpdateDropsTheEdit) {
  Set(rows_, u"nome", u"X");
  rows_->CancelUpdate();
  EXPECT_EQ(rows_->EditMode(), EditMode::None);
  EXPECT_SAME(Get(rows_, u"nome"), u"Ana");
  rows_->MoveNext();
  EXPECT_SAME(NameOf(1), u"Ana");
}

TEST_F(EditTest, MovingWritesTheEditFirst) {
  Set(rows_, u"nome", u"Amélia");
  rows_->MoveNext();
  EXPECT_SAME(NameOf(1), u"Amélia");
  Set(rows_, u"nome", u"Beto");
  rows_->Find(u"codigo = 3");
  EXPECT_SAME(NameOf(2), u"Beto");
  Set(rows_, u"nome", u"Cid");
  rows_->Sort(u"nome desc");
  EXPECT_SAME(NameOf(3), u"Cid");
  EXPECT_SAME(Get(rows_, u"nome"), u"Cid");
}

TEST_F(EditTest, RefusedWriteStaysOnTheRowWithTheEdit) {
  Set(rows_, u"valor", Long{-5});
  Set(rows_, u"nome", u"Ane");
  const auto moves = {&host::Recordset::MoveNext,  &host::Recordset::MovePrevious,
                      &host::Recordset::MoveFirst, &host::Recordset::MoveLast,
                      &host::Recordset::Update,    &host::Recordset::AddNew};
  for (const auto move : moves) {
    try {
      ((*rows_).*move)();
      ADD_FAILURE() << "written";
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::IntegrityViolation);
      EXPECT_GT(InStr(error.Description(), u"check constraint \"t_valor_check\""), 0);
    }
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
    EXPECT_EQ(rows_->EditMode(), EditMode::InProgress);
    EXPECT_SAME(Get(rows_, u"nome"), u"Ane");
  }
  EXPECT_SAME(NameOf(1), u"Ana");
  Set(rows_, u"valor", Long{5});
  rows_->MoveNext();
  EXPECT_SAME(NameOf(1), u"Ane");
}

TEST_F(EditTest, EqualValueIsNoEdit) {
  Run(u"update t set nascido = '2000-01-02' where codigo = 1");
  rows_->Requery();
  for (const auto& rows : {rows_, Read(u"select * from t order by codigo")}) {
    Set(rows, u"codigo", 1.0);
    Set(rows, u"nome", u"Ana");
    Set(rows, u"valor", 1.0);
    Set(rows, u"valor", u"1,00");
    Set(rows, u"nascido", FromCivil({2000, 1, 2, 0, 0, 0}));
    EXPECT_EQ(rows->EditMode(), EditMode::None);
    rows->MoveNext();
    Set(rows, u"nascido", Variant::Null());
    Set(rows, u"nascido", u"");
    EXPECT_EQ(rows->EditMode(), EditMode::None);
  }
}

// The digits that a double shows are its value: 0.1 is 0.1, and 2^53 is not 2^53 + 1.
TEST_F(EditTest, NumberIsComparedExactlyByExactTypes) {
  Run(u"create table n (k int primary key, i bigint, v numeric, r real, d double precision,"
      u" m money)");
  Run(u"insert into n values (1, 9007199254740993, 12345.670, 1.1, 0.1, 0.1)");
  const auto rows = Edit(u"select * from n");
  const auto isEdit = [&](const String& name, const Variant& value) {
    Set(rows, name, value);
    const bool edits = rows->EditMode() != EditMode::None;
    rows->CancelUpdate();
    return edits;
  };
  EXPECT_FALSE(isEdit(u"i", u"9.007.199.254.740.993"));
  EXPECT_FALSE(isEdit(u"i", DecimalFromText(u"9007199254740993.0")));
  EXPECT_TRUE(isEdit(u"i", 9007199254740992.0));
  EXPECT_FALSE(isEdit(u"v", 12345.67));
  EXPECT_FALSE(isEdit(u"v", u"12345,67"));
  EXPECT_TRUE(isEdit(u"v", 12345.6700001));
  EXPECT_TRUE(isEdit(u"v", u"12345,67000000000000000001"));
  EXPECT_FALSE(isEdit(u"r", 1.1));
  EXPECT_FALSE(isEdit(u"r", CDbl(1.1F)));
  EXPECT_FALSE(isEdit(u"d", DecimalFromText(u"0.1")));
  EXPECT_TRUE(isEdit(u"d", 0.1 + 1e-17 + 1e-16));
  EXPECT_FALSE(isEdit(u"m", 0.1));
  EXPECT_FALSE(isEdit(u"m", u"R$ 0,10"));
}

TEST_F(EditTest, LargeDoubleIsWrittenWithAllItsDigits) {
  Run(u"create table n (k int primary key, i bigint)");
  Run(u"insert into n values (1, 0)");
  const auto rows = Edit(u"select * from n");
  Set(rows, u"i", 9007199254740992.0);
  rows->Update();
  EXPECT_SAME(Scalar(u"select i::text from n"), u"9007199254740992");
}

TEST_F(EditTest, ReadOnlySetRefusesToWrite) {
  const auto readOnly = Read(u"select * from t order by codigo");
  EXPECT_HOST_ERROR(Set(readOnly, u"nome", u"X"), errors::NotUpdatable);
  EXPECT_SAME(Get(readOnly, u"nome"), u"Ana");
  EXPECT_HOST_ERROR(readOnly->AddNew(), errors::NotUpdatable);
  EXPECT_HOST_ERROR(readOnly->Delete(), errors::NotUpdatable);
  readOnly->Update();
}

// Rows that cannot be traced with certainty to one row of one table.
TEST_F(EditTest, SetWithoutATableAndItsKeyIsReadOnly) {
  Run(u"create table u (codigo int)");
  Run(u"insert into u values (1)");
  Run(u"create view v as select * from t");
  for (const StringView statement :
       {u"select nome from t", u"select codigo as a, codigo as b, nome from t",
        u"select a.codigo, b.nome from t a join t b on a.codigo = b.codigo + 1",
        u"select a.codigo, b.nome from t a, t b", u"select t.*, u.* from t, u", u"select * from u",
        u"select * from v", u"select distinct codigo from t",
        u"select codigo from t group by codigo", u"select codigo + 1 as codigo from t",
        u"select codigo from t union select codigo from u"}) {
    const auto rows = Edit(String(statement));
    EXPECT_HOST_ERROR(rows->AddNew(), errors::NotUpdatable) << ToUtf8(statement);
    EXPECT_HOST_ERROR(rows->Fields().Item(0)->Value(Long{77}), errors::NotUpdatable);
  }
}

TEST_F(EditTest, ColumnsMayHaveOtherNamesInTheSet) {
  const auto rows = Edit(
      u"Select codigo as k, nome as \"Nome do Cliente\", upper(nome) as g"
      u" From t Where codigo = 2");
  Set(rows, u"Nome do Cliente", u"Bia");
  EXPECT_HOST_ERROR(Set(rows, u"g", u"X"), errors::NotUpdatable);
  rows->Update();
  EXPECT_SAME(NameOf(2), u"Bia");
  EXPECT_SAME(Get(rows, u"g"), u"BIA");
}

TEST_F(EditTest, RowShowsWhatTheDatabaseStored) {
  Run(u"create function f() returns trigger language plpgsql as"
      u" $$begin new.nome := upper(new.nome); return new; end$$");
  Run(u"create trigger g before insert or update on t for each row execute function f()");
  Set(rows_, u"nome", u"zé");
  Set(rows_, u"valor", u"1,239");
  rows_->Update();
  EXPECT_SAME(Get(rows_, u"nome"), u"ZÉ");
  EXPECT_SAME(Get(rows_, u"valor"), Variant(DecimalFromText(u"1.24")));
  Set(rows_, u"nome", u"again");  // and is the original of the next edit
  rows_->Update();
  EXPECT_SAME(NameOf(1), u"AGAIN");
}

TEST_F(EditTest, RowThatNoLongerMeetsTheConditionStaysInTheSet) {
  const auto rows = Edit(u"select codigo, nome, nome || '!' as n from t where nome = 'Ana'");
  Set(rows, u"nome", u"Eva");
  rows->Update();
  EXPECT_SAME(Get(rows, u"nome"), u"Eva");
  EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_F(EditTest, AddNewInsertsAndReturnsTheKeyAndTheDefaults) {
  rows_->AddNew();
  EXPECT_EQ(rows_->EditMode(), EditMode::Add);
  EXPECT_FALSE(rows_->Eof());
  EXPECT_EQ(rows_->AbsolutePosition(), 4);
  EXPECT_SAME(Get(rows_, u"nome"), Variant::Null());
  Set(rows_, u"valor", Long{9});
  EXPECT_SAME(Get(rows_, u"valor"), Variant(DecimalFromText(u"9")));
  rows_->Update();
  EXPECT_SAME(Get(rows_, u"codigo"), Long{4});
  EXPECT_SAME(Get(rows_, u"nome"), u"novo");
  EXPECT_EQ(rows_->RecordCount(), 4);
  EXPECT_EQ(rows_->AbsolutePosition(), 4);
  Set(rows_, u"nome", u"Davi");
  rows_->MoveFirst();
  EXPECT_SAME(NameOf(4), u"Davi");
}

TEST_F(EditTest, AddNewWithNothingAssignedInsertsTheDefaults) {
  rows_->AddNew();
  rows_->MoveFirst();
  EXPECT_EQ(Count(), 4);
  rows_->MoveLast();
  EXPECT_SAME(Get(rows_, u"nome"), u"novo");
}

TEST_F(EditTest, CancelledNewRowIsRemoved) {
  rows_->MoveNext();
  rows_->AddNew();
  Set(rows_, u"nome", u"X");
  rows_->CancelUpdate();
  EXPECT_SAME(Get(rows_, u"nome"), u"Bruno");
  EXPECT_EQ(rows_->RecordCount(), 3);
  rows_->AddNew();
  rows_->Delete();
  EXPECT_EQ(Count(), 3);
}

TEST_F(EditTest, RefusedNewRowStays) {
  rows_->AddNew();
  Set(rows_, u"codigo", Long{1});
  EXPECT_HOST_ERROR(rows_->MoveFirst(), errors::IntegrityViolation);
  EXPECT_EQ(rows_->EditMode(), EditMode::Add);
  EXPECT_SAME(Get(rows_, u"codigo"), Long{1});
  Set(rows_, u"codigo", Long{10});
  rows_->Update();
  EXPECT_EQ(Count(), 4);
}

TEST_F(EditTest, TooLongTextIsRefusedByTheDatabase) {
  Set(rows_, u"nome", u"12345678901");
  EXPECT_HOST_ERROR(rows_->Update(), errors::ValueRefused);
  EXPECT_SAME(Get(rows_, u"nome"), u"12345678901");
}

TEST_F(EditTest, IdentityKeyIsReadBack) {
  Run(u"create table i (a int generated always as identity, b text, primary key (b, a))");
  const auto rows = Edit(u"select b, a from i");
  rows->AddNew();
  Set(rows, u"b", u"x");
  rows->Update();
  EXPECT_SAME(Get(rows, u"a"), Long{1});
  Set(rows, u"b", u"y");
  rows->Update();
  EXPECT_SAME(Scalar(u"select b from i"), u"y");
}

TEST_F(EditTest, KeyItselfCanBeChanged) {
  Set(rows_, u"codigo", Long{100});
  rows_->Update();
  EXPECT_SAME(NameOf(100), u"Ana");
  Set(rows_, u"nome", u"Ada");
  rows_->Update();
  EXPECT_SAME(NameOf(100), u"Ada");
}

TEST_F(EditTest, DeleteRemovesTheRow) {
  rows_->MoveNext();
  rows_->Delete();
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(rows_->EditMode(), EditMode::Delete);
  EXPECT_FALSE(rows_->Eof());
  EXPECT_HOST_ERROR(Get(rows_, u"nome"), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(rows_->Delete(), errors::NoCurrentRecord);
  rows_->MoveNext();
  EXPECT_SAME(Get(rows_, u"nome"), u"Célia");
  rows_->Delete();
  rows_->MovePrevious();
  EXPECT_SAME(Get(rows_, u"nome"), u"Ana");
  rows_->Delete();
  rows_->MoveNext();
  EXPECT_TRUE(rows_->Eof());
  EXPECT_TRUE(rows_->Bof());
  EXPECT_EQ(rows_->RecordCount(), 0);
}

TEST_F(EditTest, RefusedDeleteKeepsTheRow) {
  Run(u"create table filha (codigo int references t)");
  Run(u"insert into filha values (1)");
  EXPECT_HOST_ERROR(rows_->Delete(), errors::IntegrityViolation);
  EXPECT_SAME(Get(rows_, u"nome"), u"Ana");
  EXPECT_EQ(rows_->RecordCount(), 3);
}

TEST_F(EditTest, RequeryWithAPendingEditIsAnError) {
  Set(rows_, u"nome", u"X");
  EXPECT_HOST_ERROR(rows_->Requery(), errors::EditPending);
  EXPECT_SAME(Get(rows_, u"nome"), u"X");
  rows_->Close();
  EXPECT_SAME(NameOf(1), u"Ana");
}

TEST_F(EditTest, NothingCanBeAssignedBeyondTheRows) {
  rows_->MoveLast();
  rows_->MoveNext();
  EXPECT_HOST_ERROR(Set(rows_, u"nome", u"X"), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(rows_->Delete(), errors::NoCurrentRecord);
}

TEST_F(EditTest, WritesInsideTheApplicationsTransaction) {
  connection_->BeginTrans();
  Set(rows_, u"nome", u"Bia");
  rows_->Update();
  Set(rows_, u"valor", Long{-1});
  EXPECT_HOST_ERROR(rows_->Update(), errors::IntegrityViolation);
  rows_->CancelUpdate();
  EXPECT_SAME(NameOf(1), u"Bia");
  connection_->RollbackTrans();
  EXPECT_SAME(NameOf(1), u"Ana");
}

TEST_F(EditTest, NamesWithCapitalsAndQuotesAreWritten) {
  Run(u"create schema \"Meu Esquema\"");
  Run(u"create table \"Meu Esquema\".\"T\"\"1\" (\"Chave\" int primary key, \"Valor X\" text)");
  Run(u"insert into \"Meu Esquema\".\"T\"\"1\" values (1, 'a')");
  const auto rows = Edit(u"select * from \"Meu Esquema\".\"T\"\"1\"");
  Set(rows, u"valor x", u"b");
  rows->Update();
  EXPECT_SAME(Scalar(u"select \"Valor X\" from \"Meu Esquema\".\"T\"\"1\""), u"b");
  Run(u"drop schema \"Meu Esquema\" cascade");
}

TEST_F(EditTest, LongTextIsWrittenAndReadWhole) {
  Run(u"create table longa (k int primary key, v text)");
  Run(u"insert into longa values (1, 'curta')");
  const auto rows = Edit(u"select * from longa");
  const String text = String(100'000, u'ç') + u"fim";
  Set(rows, u"v", text);
  rows->Update();
  EXPECT_SAME(Get(rows, u"v"), text);
  EXPECT_SAME(Scalar(u"select length(v) from longa"), Long{100'003});
  Set(rows, u"v", u"curta");
  rows->Update();
}

}  // namespace
}  // namespace tessaria::sql::test
