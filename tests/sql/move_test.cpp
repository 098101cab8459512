#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

class MoveTest : public DatabaseTest {
 protected:
  host::RecordsetPtr Numbers(int from, int to) {
    return Read(u"select n from generate_series(" + FromUtf8(std::to_string(from)) + u"," +
                FromUtf8(std::to_string(to)) + u") n");
  }
};

TEST_F(MoveTest, EmptySetStandsAtBothEnds) {
  const auto rows = Numbers(1, 0);
  EXPECT_TRUE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_HOST_ERROR(rows->MoveFirst(), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(rows->MoveLast(), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(rows->MoveNext(), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(rows->MovePrevious(), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(Get(rows, 0), errors::NoCurrentRecord);
}

TEST_F(MoveTest, EndsLieBeyondTheRows) {
  const auto rows = Numbers(1, 3);
  EXPECT_FALSE(rows->Bof());
  EXPECT_SAME(Get(rows, 0), Long{1});
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_HOST_ERROR(rows->MovePrevious(), errors::NoCurrentRecord);
  EXPECT_HOST_ERROR(Get(rows, 0), errors::NoCurrentRecord);
  rows->MoveNext();
  EXPECT_SAME(Get(rows, 0), Long{1});
  rows->MoveLast();
  EXPECT_SAME(Get(rows, 0), Long{3});
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_FALSE(rows->Bof());
  EXPECT_EQ(rows->AbsolutePosition(), -3);
  EXPECT_HOST_ERROR(rows->MoveNext(), errors::NoCurrentRecord);
  rows->MovePrevious();
  EXPECT_EQ(rows->AbsolutePosition(), 3);
  rows->MoveFirst();
  EXPECT_EQ(rows->AbsolutePosition(), 1);
}

TEST_F(MoveTest, GoesToARowByNumber) {
  const auto rows = Numbers(1, 5000);
  rows->AbsolutePosition(4321);
  EXPECT_SAME(Get(rows, 0), Long{4321});
  for (const Long wrong : {0, -1, 5001}) {
    EXPECT_HOST_ERROR(rows->AbsolutePosition(wrong), errors::NoCurrentRecord);
    EXPECT_EQ(rows->AbsolutePosition(), 4321);
  }
  EXPECT_EQ(rows->RecordCount(), 5000);
}

TEST_F(MoveTest, FindsFieldsByNameAndNumber) {
  const auto rows = Read(u"select 1 as \"Código\", 2 as b");
  EXPECT_EQ(rows->Fields().Count(), 2);
  EXPECT_SAME(Get(rows, u"CÓDIGO"), Long{1});
  EXPECT_EQ(rows->Fields().Item(1)->Name(), u"b");
  EXPECT_HOST_ERROR(rows->Fields().Item(u"c"), errors::ItemNotFound);
  EXPECT_HOST_ERROR(rows->Fields().Item(2), errors::ItemNotFound);
  EXPECT_HOST_ERROR(rows->Fields().Item(-1), errors::ItemNotFound);
}

TEST_F(MoveTest, ClosedSetRefusesEverything) {
  const auto rows = Numbers(1, 3);
  const auto field = rows->Fields().Item(0);
  rows->Close();
  EXPECT_EQ(rows->State(), host::state::Closed);
  EXPECT_HOST_ERROR(rows->Close(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(rows->Eof(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(rows->MoveFirst(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(rows->Update(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(rows->Fields().Count(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(field->Value(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(field->Name(), errors::ObjectClosed);
  EXPECT_HOST_ERROR(field->Value(Long{1}), errors::ObjectClosed);
}

TEST_F(MoveTest, FieldKeepsADroppedSetAlive) {
  const auto field = Numbers(7, 9)->Fields().Item(0);
  EXPECT_SAME(field->Value(), Long{7});
}

TEST_F(MoveTest, RequeryRunsTheStatementAgain) {
  Run(u"create table t (a int)");
  const auto rows = Read(u"select a from t order by a");
  const auto field = rows->Fields().Item(0);
  EXPECT_TRUE(rows->Eof());
  Run(u"insert into t values (2), (1)");
  EXPECT_EQ(rows->RecordCount(), 0);
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_SAME(field->Value(), Long{1});
  EXPECT_EQ(rows->Source(), u"select a from t order by a");
  Run(u"drop table t");
  EXPECT_HOST_ERROR(rows->Requery(), errors::ErrorsInCommand);
  EXPECT_SAME(field->Value(), Long{1});
}

}  // namespace
}  // namespace tessaria::sql::test
