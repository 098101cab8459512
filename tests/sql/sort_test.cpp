#include "runtime/field_names.h"
#include "tessaria/text.h"
#include "tests/sql/database_test.h"
#include "tests/support/odd_names.h"

namespace tessaria::sql::test {
namespace {

class SortTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo int primary key, nome varchar(20), valor numeric,"
        u" \"Nome Completo\" text)");
    Run(u"insert into t values (1, 'bruno', 10, 'x'), (2, 'Água', null, 'y'), (3, null, 9, 'x'),"
        u" (4, 'Ana', 100, 'y'), (5, 'ANA', -1, 'x'), (6, 'azul', 9, 'y')");
    rows_ = Edit(u"select * from t order by codigo");
  }

  std::vector<Long> Codes() {
    std::vector<Long> codes;
    for (rows_->MoveFirst(); !rows_->Eof(); rows_->MoveNext()) {
      codes.push_back(CLng(Get(rows_, u"codigo")));
    }
    return codes;
  }

  host::RecordsetPtr rows_;
};

struct SortCase {
  StringView order;
  std::vector<Long> codes;
};

TEST_F(SortTest, OrdersRowsAndKeepsEqualOnesInPlace) {
  const SortCase cases[] = {
      {u"nome", {3, 2, 4, 5, 6, 1}},
      {u"NOME desc", {1, 6, 4, 5, 2, 3}},
      {u"valor", {2, 5, 3, 6, 1, 4}},
      {u"valor ASC, codigo DESC", {2, 5, 6, 3, 1, 4}},
      {u"Nome Completo, nome", {3, 5, 1, 2, 4, 6}},
      {u"[Nome Completo] DESC, [codigo] desc", {6, 4, 2, 5, 3, 1}},
      {u"", {1, 2, 3, 4, 5, 6}},
  };
  for (const SortCase& c : cases) {
    rows_->MoveLast();
    rows_->Sort(String(c.order));
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
    EXPECT_EQ(rows_->Sort(), c.order);
    EXPECT_EQ(Codes(), c.codes) << ToUtf8(c.order);
  }
}

TEST_F(SortTest, AColumnOfAnyNameCanBeSortedAndSearched) {
  for (const char16_t* name : tessaria::test::kOddNames) {
    SCOPED_TRACE(ToUtf8(name));
    const auto rows =
        Read(u"select nome as \"" + Replace(name, u"\"", u"\"\"") +
             u"\", codigo from (values ('B', 2), ('A', 1), ('C', 3)) v(nome, codigo)");
    ASSERT_EQ(rows->Fields().Item(0)->Name(), name);
    rows->Find(FieldNameText(name) + u" like 'c%'");
    EXPECT_SAME(Get(rows, u"codigo"), Long{3});
    rows->Sort(FieldNameText(name));
    EXPECT_SAME(Get(rows, u"codigo"), Long{1});
    rows->Sort(FieldNameText(name) + u" DESC");
    EXPECT_SAME(Get(rows, u"codigo"), Long{3});
  }
}

TEST_F(SortTest, ATextThatIsNoOrderIsRefused) {
  for (const char16_t* order : {u"[nome", u"nome,,codigo", u"[nome] upa"})
    EXPECT_HOST_ERROR(rows_->Sort(order), errors::InvalidCriteria);
}

TEST_F(SortTest, UnknownFieldChangesNothing) {
  rows_->Sort(u"nome");
  rows_->MoveLast();
  EXPECT_HOST_ERROR(rows_->Sort(u"nada"), errors::ItemNotFound);
  EXPECT_EQ(rows_->Sort(), u"nome");
  EXPECT_EQ(rows_->AbsolutePosition(), 6);
}

TEST_F(SortTest, KeepsWhatWasAddedAndDeleted) {
  rows_->Sort(u"nome");
  rows_->MoveFirst();
  rows_->Delete();
  rows_->AddNew();
  Set(rows_, u"codigo", Long{7});
  Set(rows_, u"nome", u"Zeca");
  rows_->Update();
  rows_->Sort(u"nome desc");
  EXPECT_EQ(Codes(), (std::vector<Long>{7, 1, 6, 4, 5, 2}));
  rows_->Sort(u"");
  EXPECT_EQ(Codes(), (std::vector<Long>{1, 2, 4, 5, 6, 7}));
}

TEST_F(SortTest, EmptySetStaysEmpty) {
  const auto rows = Read(u"select codigo from t where 1 = Null");
  rows->Sort(u"codigo");
  EXPECT_TRUE(rows->Eof());
}

}  // namespace
}  // namespace tessaria::sql::test
