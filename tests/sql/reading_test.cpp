// Rows that arrive while they are used.
#include <chrono>
#include <thread>

#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

constexpr Long kRows = 20000;

class ReadingTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    CreateNames(u"t", kRows);
  }

  static void ExpectAllRows(const host::RecordsetPtr& rows) {
    ASSERT_EQ(rows->RecordCount(), kRows);
    rows->MoveFirst();
    for (Long i = 1; i <= kRows; ++i, rows->MoveNext()) {
      ASSERT_EQ(CLng(Get(rows, 0)), i);
      ASSERT_EQ(CStr(Get(rows, 1)), u"nome " + FromUtf8(std::to_string(i)));
    }
    EXPECT_TRUE(rows->Eof());
  }
};

TEST_F(ReadingTest, EveryRowArrivesOnce) {
  ExpectAllRows(Read(u"select * from t order by codigo"));
  ExpectAllRows(Read(u"select * from t order by codigo for update"));
}

TEST_F(ReadingTest, FirstRowsShowBeforeTheLastArrive) {
  // The last row takes longer than the test may.
  Run(u"set statement_timeout = 3000");
  const auto rows = Read(
      u"select n, case when n > 5000 then pg_sleep(60)::text end"
      u" from generate_series(1, 5001) n");
  EXPECT_SAME(Get(rows, 0), Long{1});
  rows->AbsolutePosition(900);
  EXPECT_SAME(Get(rows, 0), Long{900});
}

TEST_F(ReadingTest, OtherStatementsOfTheConnectionDoNotCutItShort) {
  const auto first = Read(u"select * from t order by codigo");
  const auto second = Read(u"select * from t order by codigo");
  Run(u"update t set nome = nome where codigo = 1");
  ExpectAllRows(second);
  ExpectAllRows(first);
}

// A failing write ends the driver's own cursors without a diagnostic.
TEST_F(ReadingTest, FailingStatementDoesNotCutItShort) {
  for (const StringView settings : {u"", u"UseDeclareFetch=1;Fetch=100;", u"Protocol=7.4-2;"}) {
    connection_ = NewConnection(String(settings));
    const auto rows = Read(u"select * from t order by codigo");
    EXPECT_ANY_THROW(Run(u"update t set codigo = 1"));
    EXPECT_ANY_THROW(Run(u"selec"));
    ExpectAllRows(rows);
  }
}

TEST_F(ReadingTest, WorksInsideATransaction) {
  connection_->BeginTrans();
  const auto rows = Read(u"select * from t order by codigo");
  EXPECT_ANY_THROW(Run(u"update t set codigo = 1"));
  const auto more = Read(u"select * from t order by codigo");
  connection_->RollbackTrans();
  ExpectAllRows(rows);
  ExpectAllRows(more);
}

TEST_F(ReadingTest, WritesWhileItArrivesAreCommittedAtOnce) {
  const auto rows = Read(u"select * from t order by codigo");
  Run(u"insert into t values (0, 'x')");
  EXPECT_SAME(Get(NewConnection()->Execute(u"select nome from t where codigo = 0"), 0), u"x");
  ExpectAllRows(rows);
}

TEST_F(ReadingTest, ClosingEarlyFreesTheConnection) {
  auto rows = Read(u"select * from t order by codigo");
  rows->Close();
  rows = Read(u"select * from t order by codigo");
  rows.reset();
  auto other = NewConnection();
  other->Execute(u"set lock_timeout = 1000");
  other->Execute(u"alter table t add nova int");
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
}

TEST_F(ReadingTest, EffectsOfAQueryStayWhenItIsClosedEarly) {
  Run(u"create table u (a int)");
  Run(u"create function f() returns int language sql as 'insert into u values (1) returning a'");
  Read(u"select f(), n from generate_series(1, 5000) n")->Close();
  EXPECT_GT(CLng(Scalar(u"select count(*)::int from u")), 0);
}

TEST_F(ReadingTest, ErrorInALaterRowIsRaisedWhenItIsReached) {
  const auto rows = Read(u"select n, 1 / (35000 - n) from generate_series(1, 40000) n");
  rows->AbsolutePosition(15000);
  EXPECT_SAME(Get(rows, 0), Long{15000});
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::ValueRefused);
  EXPECT_HOST_ERROR(rows->MoveLast(), errors::ValueRefused);
  EXPECT_SAME(Get(rows, 0), Long{15000});
  EXPECT_SAME(Scalar(u"select 1"), Long{1});
}

// The server sends rows in portions; an error is reported wherever it occurs in them.
TEST_F(ReadingTest, ErrorInAnyRowIsReported) {
  for (const bool inTransaction : {false, true}) {
    for (const int row : {1, 2048, 2049, 4096, 4097, 9000, 18432, 18433, 20480, 20000, 40000}) {
      SCOPED_TRACE(row);
      if (inTransaction) connection_->BeginTrans();
      const String failing = FromUtf8(std::to_string(row));
      const auto readAll = [&] {
        Read(u"select n, 1 / (" + failing + u" - n) from generate_series(1, 40000) n")
            ->RecordCount();
      };
      EXPECT_HOST_ERROR(readAll(), errors::ValueRefused);
      EXPECT_SAME(Scalar(u"select 1"), Long{1});
      if (inTransaction) connection_->CommitTrans();
    }
  }
}

TEST_F(ReadingTest, EveryNumberOfRowsIsReadWhole) {
  for (const Long count : {0, 1, 2047, 2048, 2049, 4095, 4096, 4097, 18431, 18432, 18433, 18434,
                           34816, 34817, 40000}) {
    const auto rows =
        Read(u"select n from generate_series(1, " + FromUtf8(std::to_string(count)) + u") n");
    EXPECT_EQ(rows->RecordCount(), count);
  }
}

TEST_F(ReadingTest, AListReadsOnWithoutMovingTheRow) {
  const auto rows = Read(u"select * from t order by codigo");
  const Long first = rows->RowsRead();
  EXPECT_LT(first, kRows);
  EXPECT_FALSE(rows->Complete());
  EXPECT_TRUE(rows->FetchMore(3000));
  EXPECT_GE(rows->RowsRead(), first + 3000);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_SAME(rows->ValueAt(first + 3000, 0), first + 3000);
  while (rows->FetchMore(kRows)) continue;
  EXPECT_TRUE(rows->Complete());
  EXPECT_EQ(rows->RowsRead(), kRows);
  rows->Sort(u"codigo desc");
  EXPECT_SAME(rows->ValueAt(1, 0), kRows);
  EXPECT_FALSE(rows->FetchMore(1));
}

TEST_F(ReadingTest, AListThatStopsShortOfAnErrorIsNeverComplete) {
  const auto rows = Read(u"select n, 1 / (15000 - n) from generate_series(1, 20000) n");
  const auto readAll = [&] {
    while (rows->FetchMore(1000)) continue;
  };
  EXPECT_HOST_ERROR(readAll(), errors::ValueRefused);
  EXPECT_HOST_ERROR(rows->FetchMore(1000), errors::ValueRefused);
  EXPECT_FALSE(rows->Complete());
  EXPECT_LT(rows->RowsRead(), 15000);
  EXPECT_SAME(rows->ValueAt(rows->RowsRead(), 0), rows->RowsRead());
}

TEST_F(ReadingTest, ErrorInALaterRowDoesNotDisturbAnotherStatement) {
  connection_->BeginTrans();
  Run(u"delete from t where codigo = 1");
  const auto rows = Read(u"select n, 1 / (15000 - n) from generate_series(1, 20000) n");
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{kRows - 1});
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::ValueRefused);
  connection_->CommitTrans();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{kRows - 1});
}

TEST_F(ReadingTest, CloseOfTheConnectionLeavesTheRowsComplete) {
  const auto rows = Read(u"select * from t order by codigo");
  connection_->Close();
  ExpectAllRows(rows);
}

// The server prepares rows in advance; while nobody takes them, its clock of statements runs.
TEST_F(ReadingTest, RowsThatWaitForTheirReaderDoNotTimeOut) {
  connection_->CommandTimeout(1);
  const auto rows = Read(u"select n, repeat('x', 4000) as v from generate_series(1, 20000) n");
  rows->AbsolutePosition(3000);
  std::this_thread::sleep_for(std::chrono::seconds(2));
  EXPECT_EQ(rows->RecordCount(), kRows);
}

TEST_F(ReadingTest, LongTextsAreReadWhole) {
  const auto rows = Read(u"select repeat('ção', n * 100) as v, n from generate_series(0, 60) n");
  for (Long n = 0; n <= 60; ++n, rows->MoveNext()) {
    ASSERT_EQ(CStr(Get(rows, 0)).size(), static_cast<std::size_t>(n) * 300);
    ASSERT_EQ(Get(rows, 1).IsNull(), false);
  }
  EXPECT_TRUE(rows->Eof());
}

TEST_F(ReadingTest, TextsAtTheEdgeOfTheBufferAreReadWhole) {
  const auto rows = Read(u"select repeat('x', n) as v from generate_series(250, 260) n");
  for (std::size_t n = 250; n <= 260; ++n, rows->MoveNext()) {
    EXPECT_EQ(CStr(Get(rows, 0)).size(), n);
  }
}

TEST_F(ReadingTest, ManyColumnsAreRead) {
  String list;
  for (int i = 0; i < 400; ++i) {
    list += (i == 0 ? u"" : u",") + FromUtf8("repeat('x'," + std::to_string(i) + ")");
  }
  const auto rows = Read(u"select " + list + u" from generate_series(1, 3)");
  EXPECT_EQ(rows->RecordCount(), 3);
  for (Long i = 0; i < 400; ++i) ASSERT_EQ(Len(CStr(Get(rows, i))), i);
}

}  // namespace
}  // namespace tessaria::sql::test
