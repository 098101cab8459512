// Large results, of which only the rows around the current one are held.
#include <vector>

#include "tests/sql/window_test.h"

namespace tessaria::sql::test {
namespace {

TEST_F(WindowTest, OnlyTheRowsAroundTheCurrentOneAreHeld) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  EXPECT_EQ(OpenReadings(), 1);
  EXPECT_TRUE(rows->Holds(1));
  EXPECT_FALSE(rows->Holds(50000));
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
  EXPECT_TRUE(rows->Holds(50000));
  EXPECT_FALSE(rows->Holds(30000));
  rows->Hold(29990, 30010);
  EXPECT_TRUE(rows->Holds(29990));
  EXPECT_TRUE(rows->Holds(30010));
  ExpectRow(rows, 50000);
}

TEST_F(WindowTest, EveryRowIsReadInBothDirections) {
  const auto rows = Read(u"select * from t order by codigo");
  for (Long number = 1; !rows->Eof(); rows->MoveNext(), ++number)
    ASSERT_TRUE(tessaria::test::Same(Get(rows, u"codigo"), number));
  rows->MoveLast();
  for (Long number = kRows; !rows->Bof(); rows->MovePrevious(), --number)
    ASSERT_TRUE(tessaria::test::Same(Get(rows, u"codigo"), number));
}

TEST_F(WindowTest, EndsAndPositionsAreThoseOfAllRows) {
  const auto rows = Read(u"select * from t order by codigo");
  rows->MoveLast();
  ExpectRow(rows, kRows);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->AbsolutePosition(), -3);
  rows->MovePrevious();
  ExpectRow(rows, kRows);
  rows->AbsolutePosition(31234);
  ExpectRow(rows, 31234);
  EXPECT_HOST_ERROR(rows->AbsolutePosition(kRows + 1), errors::NoCurrentRecord);
  ExpectRow(rows, 31234);
  EXPECT_HOST_ERROR(rows->ValueAt(kRows + 1, 0), errors::NoCurrentRecord);
  rows->MoveFirst();
  ExpectRow(rows, 1);
}

TEST_F(WindowTest, OtherUsersAndTheProgramItselfDoNotChangeWhatIsShown) {
  const auto rows = Ends(Read(u"select * from t"));
  Run(u"delete from t where codigo between 20000 and 30000");
  Run(u"update t set nome = 'outro' where codigo = 59000");
  Run(u"insert into t values (70000, 'novo')");
  EXPECT_EQ(rows->RecordCount(), kRows);
  rows->AbsolutePosition(25000);
  ExpectRow(rows, 25000);
  rows->AbsolutePosition(59000);
  ExpectRow(rows, 59000);
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), kRows - 10000);
}

TEST_F(WindowTest, RowsOutliveTransactionsAndTheConnectionOfTheProgram) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  connection_->BeginTrans();
  Run(u"update t set nome = 'x' where codigo = 1");
  connection_->RollbackTrans();
  connection_->BeginTrans();
  connection_->CommitTrans();
  rows->AbsolutePosition(40000);
  ExpectRow(rows, 40000);
  connection_->Close();
  rows->AbsolutePosition(45000);
  ExpectRow(rows, 45000);
  connection_->Open();
  rows->Requery();
  ExpectRow(rows, 1);
}

TEST_F(WindowTest, TheReadingEndsWithTheRecordSet) {
  auto rows = Ends(Read(u"select * from t order by codigo"));
  EXPECT_EQ(OpenReadings(), 1);
  rows->Requery();
  EXPECT_EQ(OpenReadings(), 1) << "the one before has ended, the new one has not begun";
}

TEST_F(WindowTest, AClosedRecordSetHasNoTransaction) {
  auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->Close();
  EXPECT_EQ(OpenReadings(), 0);
}

// Each would wait for the other.
TEST_F(WindowTest, AStatementThatLocksTheTableDoesNotWaitForTheRows) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  connection_->LockTimeout(1);
  Run(u"alter table t add column novo int");
  Run(u"truncate t");
  EXPECT_EQ(OpenReadings(), 0);
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

TEST_F(WindowTest, WhatASecondSessionWouldNotSeeIsHeld) {
  Run(u"create temp table minha as select * from t");
  const auto own = Ends(Read(u"select * from minha order by codigo"));
  EXPECT_TRUE(own->Holds(50000));
  EXPECT_EQ(OpenReadings(), 0);
  own->AbsolutePosition(50000);
  ExpectRow(own, 50000);
}

TEST_F(WindowTest, SettingsOfTheSessionDecideWhatANameMeans) {
  Run(u"create schema outra");
  Run(u"create table outra.t as select n + 1 as codigo, 'outra' as nome from"
      u" generate_series(1, 60000) n");
  Run(u"set search_path = outra, public");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->AbsolutePosition(50000);
  EXPECT_SAME(Get(rows, u"codigo"), Long{50001});
  EXPECT_SAME(Get(rows, u"nome"), u"outra");
  Run(u"drop schema outra cascade");
}

TEST_F(WindowTest, ATransactionShowsItsOwnChanges) {
  connection_->BeginTrans();
  Run(u"update t set nome = 'meu' where codigo = 50000");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->AbsolutePosition(50000);
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
  connection_->RollbackTrans();
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
}

TEST_F(WindowTest, AQueryWithEffectsRunsOnce) {
  Run(u"create sequence contador");
  const auto rows = Ends(Read(u"select codigo, nextval('contador')::int as n from t"));
  rows->MoveLast();
  EXPECT_SAME(Get(rows, u"n"), kRows);
  EXPECT_SAME(Scalar(u"select last_value::int from contador"), kRows);
}

// --- Editing

TEST_F(WindowTest, AnEditIsStoredAndShownWhereverItIs) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"Quarenta mil");
  rows->MoveFirst();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"Quarenta mil");
  rows->AbsolutePosition(1000);
  rows->AbsolutePosition(40000);
  EXPECT_SAME(Get(rows, u"nome"), u"Quarenta mil");
}

TEST_F(WindowTest, ARowChangedBySomebodyElseIsNotOverwritten) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  Run(u"update t set nome = 'outro' where codigo = 40000");
  Set(rows, u"nome", u"meu");
  EXPECT_HOST_ERROR(rows->Update(), errors::RowChanged);
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"outro");
}

TEST_F(WindowTest, ANewRowComesAfterAllOthersAndCountsNone) {
  const auto rows = Edit(u"select * from t order by codigo");
  rows->AddNew();
  Set(rows, u"codigo", Long{70000});
  Set(rows, u"nome", u"Nova");
  rows->Update();
  EXPECT_EQ(rows->PositionIfKnown(), 0);
  EXPECT_FALSE(rows->Complete());
  EXPECT_SAME(Get(rows, u"nome"), u"Nova");
  EXPECT_EQ(rows->AbsolutePosition(), kRows + 1);
  EXPECT_EQ(rows->PositionIfKnown(), kRows + 1);
  rows->MovePrevious();
  ExpectRow(rows, kRows);
  rows->MoveNext();
  EXPECT_SAME(Get(rows, u"nome"), u"Nova");
  EXPECT_EQ(rows->RecordCount(), kRows + 1);
  EXPECT_SAME(rows->ValueAt(kRows + 1, 1), u"Nova");
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  rows->MoveLast();
  EXPECT_SAME(Get(rows, u"nome"), u"Nova");
}

TEST_F(WindowTest, StepsFromANewRowCountTheOthersFirst) {
  const auto rows = Edit(u"select * from t order by codigo");
  rows->AddNew();
  Set(rows, u"codigo", Long{70000});
  rows->Update();
  rows->MovePrevious();
  ExpectRow(rows, kRows);
}

TEST_F(WindowTest, ADeletedRowIsGone) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  rows->Delete();
  EXPECT_EQ(rows->RecordCount(), kRows - 1);
  rows->MoveNext();
  EXPECT_EQ(rows->AbsolutePosition(), 40000);
  EXPECT_SAME(Get(rows, u"codigo"), Long{40001});
  rows->MovePrevious();
  EXPECT_SAME(Get(rows, u"codigo"), Long{39999});
  rows->MoveLast();
  EXPECT_SAME(Get(rows, u"codigo"), kRows);
  EXPECT_EQ(rows->AbsolutePosition(), kRows - 1);
}

// --- Order and search

TEST_F(WindowTest, AnotherOrderIsAskedOfTheServer) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->Sort(u"codigo desc");
  EXPECT_EQ(rows->Sort(), u"codigo desc");
  EXPECT_EQ(rows->RowsRead(), kRows);
  EXPECT_SAME(Get(rows, u"codigo"), kRows);
  EXPECT_FALSE(rows->Holds(50000));
  rows->AbsolutePosition(50000);
  EXPECT_SAME(Get(rows, u"codigo"), kRows - 50000 + 1);
  rows->Sort(u"valor, codigo desc");
  EXPECT_SAME(Get(rows, u"codigo"), Long{1});
  rows->Sort(u"dia desc");
  EXPECT_SAME(Get(rows, u"codigo"), kRows);
  rows->Sort(u"");
  ExpectRow(rows, 1);
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

TEST_F(WindowTest, SortedRowsAreThoseOfTheSameMoment) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  Run(u"delete from t where codigo > 100");
  rows->Sort(u"codigo desc");
  EXPECT_EQ(rows->RecordCount(), kRows);
  EXPECT_SAME(Get(rows, u"codigo"), kRows);
}

TEST_F(WindowTest, AnOrderAfterAnEditShowsIt) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"Aa");
  rows->Update();
  rows->AddNew();
  Set(rows, u"codigo", Long{70000});
  Set(rows, u"nome", u"Ab");
  rows->Update();
  rows->Sort(u"nome");
  EXPECT_SAME(Get(rows, u"nome"), u"Aa");
  rows->MoveNext();
  EXPECT_SAME(Get(rows, u"nome"), u"Ab");
  EXPECT_EQ(rows->RecordCount(), kRows + 1);
  Set(rows, u"nome", u"Ac");
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 70000"), u"Ac");
}

TEST_F(WindowTest, AnEditOfAnOpenTransactionIsInTheOrderToo) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  connection_->BeginTrans();
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"Aa");
  rows->Update();
  rows->Sort(u"nome");
  EXPECT_SAME(Get(rows, u"nome"), u"Aa");
  connection_->RollbackTrans();
}

// Letters without regard to case, then accents; Null first: as with rows that are held.
TEST_F(WindowTest, TheServerSortsTextsAsThisLayerDoes) {
  Run(u"update t set nome = null where codigo = 300");
  Run(u"update t set nome = 'Ábaco' where codigo = 40000");
  Run(u"update t set nome = 'abacate' where codigo = 50000");
  Run(u"update t set nome = 'ABACO' where codigo = 20000");
  Run(u"update t set nome = 'Zé' where codigo = 10");
  Run(u"update t set nome = 'São' where codigo = 11");
  Run(u"update t set nome = 'sapo' where codigo = 12");
  for (const StringView collation : {u"C", u"pt-BR-x-icu"}) {
    Run(u"alter table t alter nome type text collate \"" + String(collation) + u"\"");
    const auto rows = Ends(Read(u"select * from t"));
    rows->Sort(u"nome");
    EXPECT_EQ(rows->Holds(30000), collation == u"C") << "held to be sorted here";
    for (const Long expected : {300, 50000, 20000, 40000, 1}) {
      EXPECT_SAME(Get(rows, u"codigo"), expected) << ToUtf8(collation);
      rows->MoveNext();
    }
    rows->MoveLast();
    for (const Long expected : {10, 12, 11}) {
      EXPECT_SAME(Get(rows, u"codigo"), expected) << ToUtf8(collation);
      rows->MovePrevious();
    }
    rows->Sort(u"nome desc");
    EXPECT_SAME(Get(rows, u"nome"), u"Zé");
    rows->MoveLast();
    EXPECT_SAME(Get(rows, u"codigo"), Long{300});
  }
}

TEST_F(WindowTest, ABooleanIsSortedTrueFirst) {
  const auto rows = Ends(Read(u"select codigo, codigo % 2 = 0 as par from t"));
  rows->Sort(u"par");
  EXPECT_SAME(Get(rows, u"par"), true);
  rows->MoveLast();
  EXPECT_SAME(Get(rows, u"par"), false);
}

TEST_F(WindowTest, WhatTheServerWouldSortOtherwiseIsSortedHere) {
  const auto rows = Ends(Read(u"select codigo, array[codigo] as lista from t"));
  rows->Sort(u"lista, codigo");
  EXPECT_TRUE(rows->Holds(50000));
  EXPECT_SAME(Get(rows, u"codigo"), Long{10000}) << "as texts: {10000}, {10001}";
  rows->MoveNext();
  EXPECT_SAME(Get(rows, u"codigo"), Long{10001});
}

TEST_F(WindowTest, RowsAreFoundWhereverTheyAre) {
  const auto rows = Read(u"select * from t order by codigo");
  rows->Find(u"codigo = 45678");
  ExpectRow(rows, 45678);
  rows->Find(u"nome like 'NOME 5999*'");
  ExpectRow(rows, 59990);
  rows->MoveFirst();
  rows->Find(u"nome = 'não há'");
  EXPECT_TRUE(rows->Eof());
}

// The rows before it are not looked at when they are in the order of the searched column.
TEST_F(WindowTest, ARowThatIsHereIsFoundWithoutReadingMore) {
  const auto rows = Read(u"select * from t order by codigo");
  rows->Find(u"codigo = 1");
  ExpectRow(rows, 1);
  rows->Find(u"codigo = 500");
  ExpectRow(rows, 500);
  EXPECT_LT(rows->RowsRead(), 3000) << "what was read to open it";
  rows->Find(u"codigo = 500");
  ExpectRow(rows, 500);
}

TEST_F(WindowTest, ANewRowIsSearchedAndNothingBehindIt) {
  for (const auto* statement : {u"select * from t where codigo <= 10", u"select * from t"}) {
    const auto rows = Edit(statement);
    rows->AddNew();
    Set(rows, u"codigo", Long{70000});
    rows->Update();
    rows->Find(u"codigo = 70000");
    EXPECT_SAME(Get(rows, u"codigo"), Long{70000});
    rows->Find(u"codigo = 3");
    EXPECT_TRUE(rows->Eof());
    Run(u"delete from t where codigo = 70000");
  }
}

TEST_F(WindowTest, TheFirstOfTheRowsThatMatchIsFoundInAnyOrder) {
  Run(u"alter table t alter nome type text collate \"pt-BR-x-icu\"");
  Run(u"update t set nome = 'Zélia' where codigo = 7");
  Run(u"update t set nome = 'zebra' where codigo = 40000");
  Run(u"update t set nome = 'Ázimo' where codigo = 8");
  Run(u"update t set nome = 'ZÉLIA' where codigo = 50000");
  Run(u"update t set nome = null where codigo = 9");
  for (const StringView order : {u"nome", u"NOME asc, codigo", u"2", u"nome desc", u"codigo",
                                 u"nome nulls first", u"lower(nome)"}) {
    const auto rows = Read(u"select codigo, nome from t order by " + String(order));
    rows->Find(u"nome like 'z*'");
    EXPECT_SAME(LCase(Left(CStr(Get(rows, u"nome")), 1)), u"z") << ToUtf8(order);
    const Long found = rows->AbsolutePosition();
    if (found > 1) {
      const Variant before = rows->ValueAt(found - 1, 1);
      EXPECT_TRUE(before.IsNull() || LCase(Left(CStr(before), 1)) != u"z") << ToUtf8(order);
    }
    rows->MoveFirst();
    rows->Find(u"nome = 'zélia'");
    EXPECT_SAME(LCase(CStr(Get(rows, u"nome"))), u"zélia") << ToUtf8(order);
    rows->Find(u"nome = 'azimo'");
    EXPECT_TRUE(rows->Eof()) << ToUtf8(order);
    rows->MoveFirst();
    rows->Find(u"nome = null");
    EXPECT_SAME(Get(rows, u"codigo"), Long{9}) << ToUtf8(order);
  }
}

TEST_F(WindowTest, ANumberIsFoundByItsPlaceInTheOrder) {
  Run(u"delete from t where codigo = 45000");
  Run(u"update t set valor = 7 where codigo between 55000 and 55010");
  const auto rows = Read(u"select * from t order by codigo");
  rows->Find(u"codigo = 50001");
  EXPECT_EQ(rows->AbsolutePosition(), 50000);
  rows->Find(u"codigo = 50001");
  EXPECT_EQ(rows->AbsolutePosition(), 50000) << "from the current row, inclusive";
  rows->Find(u"codigo = 20");
  EXPECT_TRUE(rows->Eof()) << "only forward";
  for (const StringView missing : {u"45000", u"0", u"99999999999", u"1234567890123456789012"}) {
    rows->MoveFirst();
    rows->Find(u"codigo = " + String(missing));
    EXPECT_TRUE(rows->Eof()) << ToUtf8(missing);
  }
  rows->MoveFirst();
  rows->Find(u"codigo = -3");
  EXPECT_TRUE(rows->Eof());
  rows->MoveFirst();
  rows->Sort(u"valor");
  rows->Find(u"valor = 7");
  EXPECT_SAME(Get(rows, u"codigo"), Long{700});
}

TEST_F(WindowTest, RowsThatAreEqualKeepTheOrderOfTheStatement) {
  Run(u"update t set dia = '2020-01-01' where codigo % 3 = 0");
  Run(u"create index on t (dia)");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->Sort(u"dia");
  rows->Find(u"dia = 01/01/2020");
  Long before = 0;
  for (int i = 0; i < 1000; ++i, rows->MoveNext()) {
    const Long code = CLng(Get(rows, u"codigo"));
    ASSERT_GT(code, before);
    before = code;
  }
}

TEST_F(WindowTest, TimeOutsReachTheRowsAtTheServer) {
  Run(u"create view lenta as select codigo, case when codigo > 50000 then pg_sleep(0.01)::text end"
      u" as pausa from t");
  const auto rows = Read(u"select * from lenta");
  rows->AbsolutePosition(25000);
  connection_->CommandTimeout(1);
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::TimeOut);
  EXPECT_EQ(rows->AbsolutePosition(), 25000);
  rows->AbsolutePosition(40000);
  EXPECT_SAME(Get(rows, u"codigo"), Long{40000});
}

TEST_F(WindowTest, ASortedSetIsSearchedInItsOrder) {
  Run(u"alter table t alter nome type text collate \"pt-BR-x-icu\"");
  Run(u"update t set nome = null where codigo between 100 and 200");
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->Sort(u"nome");
  rows->Find(u"nome like 'nome 5999*'");
  EXPECT_SAME(Get(rows, u"nome"), u"nome 5999");
  EXPECT_GT(rows->AbsolutePosition(), 50000);
  Set(rows, u"nome", u"zz");
  rows->MoveFirst();
  rows->Find(u"nome like 'zz*'");
  EXPECT_SAME(Get(rows, u"codigo"), Long{5999}) << "edited here since";
}

// --- Failures

TEST_F(WindowTest, ASortThatFailsLeavesOrderAndRowAsTheyWere) {
  Run(u"create view lenta as select codigo, case when codigo > 0 then pg_sleep(0.0001)::text end"
      u" as pausa from t");
  const auto rows = Read(u"select * from lenta");
  rows->AbsolutePosition(25000);
  connection_->CommandTimeout(1);
  EXPECT_ANY_THROW(rows->Sort(u"codigo desc"));
  connection_->CommandTimeout(30);
  EXPECT_EQ(rows->Sort(), u"");
  EXPECT_EQ(rows->AbsolutePosition(), 25000);
  EXPECT_SAME(Get(rows, u"codigo"), Long{25000});
}

TEST_F(WindowTest, RowsThatStillArriveDoNotStandInTheWayOfALock) {
  connection_->LockTimeout(1);
  const auto rows = Read(u"select * from t order by codigo");
  Run(u"truncate t");
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

TEST_F(WindowTest, AnEditSurvivesTheEndOfTheReading) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(40000);
  Set(rows, u"nome", u"meu");
  rows->Hold(1, kRows);  // its page makes room for others
  Run(u"select pg_terminate_backend(pid) from pg_stat_activity"
      u" where state like 'idle in transaction%'");
  EXPECT_SAME(Get(rows, u"codigo"), Long{40000});
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 40000"), u"meu");
}

TEST_F(WindowTest, ALockThatCannotWaitKeepsTheRowsWhereTheyAre) {
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  Run(u"select pg_terminate_backend(pid) from pg_stat_activity"
      u" where state like 'idle in transaction%'");
  Run(u"truncate t");
  EXPECT_EQ(rows->RecordCount(), kRows);
  EXPECT_SAME(rows->ValueAt(1, 0), Long{1});
  EXPECT_ANY_THROW(rows->ValueAt(50000, 0));
}

TEST_F(WindowTest, NumbersAreFoundBehindNulls) {
  Run(u"update t set valor = case when codigo > 10 then 5 when codigo > 5 then 2 end");
  Run(u"alter table t alter valor type int");
  const auto rows = Ends(Read(u"select * from t order by codigo"));
  rows->Sort(u"valor");
  EXPECT_TRUE(Get(rows, u"valor").IsNull());
  rows->Find(u"valor = 2");
  EXPECT_SAME(Get(rows, u"codigo"), Long{6});
  rows->Find(u"valor = 5");
  EXPECT_SAME(Get(rows, u"codigo"), Long{11});
}

TEST_F(WindowTest, NullsOfAnOuterJoinComeFirst) {
  Run(u"create table u (k int primary key, texto text collate \"pt-BR-x-icu\" not null)");
  Run(u"insert into u select n, 'u' || n from generate_series(1, 50000) n");
  const auto rows =
      Ends(Read(u"select codigo, texto from t left join u on (u.k = t.codigo) order by codigo"));
  EXPECT_FALSE(rows->Holds(30000));
  rows->Sort(u"texto");
  EXPECT_SAME(Get(rows, u"codigo"), Long{50001});
  EXPECT_TRUE(Get(rows, u"texto").IsNull());
}

TEST_F(WindowTest, ManyLargeSetsTakeAFewSessionsOnly) {
  std::vector<host::RecordsetPtr> sets;
  sets.reserve(10);
  for (int i = 0; i < 10; ++i) sets.push_back(Ends(Read(u"select codigo from t order by codigo")));
  EXPECT_EQ(OpenReadings(), 8);
  for (const auto& rows : sets) EXPECT_SAME(rows->ValueAt(50000, 0), Long{50000});
}

TEST_F(WindowTest, AReadingThatTheServerEndsIsAnErrorAndHarmsNothingElse) {
  const auto rows = Ends(Edit(u"select * from t order by codigo"));
  rows->AbsolutePosition(10);
  Set(rows, u"nome", u"meu");
  Run(u"select pg_terminate_backend(pid) from pg_stat_activity"
      u" where state like 'idle in transaction%'");
  EXPECT_HOST_ERROR(rows->ValueAt(50000, 0), errors::ProviderError);
  EXPECT_SAME(Get(rows, u"nome"), u"meu");
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 10"), u"meu");
  EXPECT_ANY_THROW(rows->AbsolutePosition(50000));
  EXPECT_EQ(rows->AbsolutePosition(), 10);
  rows->Requery();
  rows->AbsolutePosition(50000);
  ExpectRow(rows, 50000);
}

TEST_F(WindowTest, ALoginThatIsRefusedMakesTheRowsBeHeld) {
  Run(u"create role caixa login connection limit 1");
  Run(u"grant usage on schema public to caixa");
  Run(u"grant select on t to caixa");
  const auto one = NewConnection(u";UID=caixa;");
  const auto rows = one->OpenRecordset(u"select * from t order by codigo", CursorType::Static,
                                       LockType::ReadOnly);
  EXPECT_EQ(Ends(rows)->RecordCount(), kRows);
  EXPECT_TRUE(rows->Holds(50000));
  one->Close();
  Run(u"drop owned by caixa");
  Run(u"drop role caixa");
}

TEST_F(WindowTest, AnErrorInALateRowIsToldWhenTheRowIsAskedFor) {
  const auto rows = Read(u"select n, 1 / (50000 - n) as d from generate_series(1, 60000) n");
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::ValueRefused);
  EXPECT_SAME(rows->ValueAt(1000, 0), Long{1000});
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
}

}  // namespace
}  // namespace tessaria::sql::test
