#include "tests/odbc/database_test.h"

namespace tessaria::odbc::test {
namespace {

class FindTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    rows_ = Read(
        u"select * from (values"
        u" (1, 'Ana', 10.5, '2020-01-31'::date, true, 'x', '2020-01-31 10:00:00.25'::timestamp),"
        u" (2, 'BRUNO', null, '2020-02-01', false, null, null),"
        u" (3, 'Copo d''água', -1.25, null, null, '', null),"
        u" (4, 'São João', 1000, '2021-12-31', true, '50% off', null),"
        u" (5, 'sao joao', 0, '1999-01-01', true, 'y', null))"
        u" as t (codigo, nome, valor, data, ativo, \"com espaço\", momento) order by 1");
  }
  host::RecordsetPtr rows_;
};

struct FindCase {
  StringView criterion;
  Long row;  // -3 when there is none
};

constexpr FindCase kCases[] = {
    {u"codigo = 3", 3},
    {u"CODIGO=3", 3},
    {u"[codigo] = 3", 3},
    {u"codigo > 3", 4},
    {u"codigo >= 3", 3},
    {u"codigo < 1", -3},
    {u"codigo <= 1", 1},
    {u"codigo <> 1", 2},
    {u"codigo = '4'", 4},
    {u"codigo = 99", -3},
    {u"nome = 'bruno'", 2},
    {u"nome = 'Copo d''água'", 3},
    {u"nome = 'São João'", 4},
    {u"nome = 'sao joao'", 5},
    {u"nome like 'b%'", 2},
    {u"nome Like 'B*'", 2},
    {u"nome like '%d''á%'", 3},
    {u"nome like'são%'", 4},
    {u"nome like '%joao'", 5},
    {u"nome like 'z%'", -3},
    {u"nome > 'Ana'", 2},
    {u"nome >= 'sao'", 4},
    {u"valor = 10.5", 1},
    {u"valor = 10,5", 1},
    {u"valor = -1.25", 3},
    {u"valor = 1000", 4},
    {u"valor = '1.000,00'", 4},
    {u"valor = Null", 2},
    {u"valor <> null", 1},
    {u"valor < 0", 3},
    {u"data = #01/02/2020#", 2},
    {u"data = 01/02/2020", 2},
    {u"data = '31/12/2021'", 4},
    {u"data > #2020-02-01#", 4},
    {u"momento = #31/01/2020 10:00:00#", 1},
    {u"ativo = False", 2},
    {u"ativo = Verdadeiro", 1},
    {u"[com espaço] = 'Y'", 5},
    {u"[com espaço] like '50%%'", 4},
    {u"[com espaço] = ''", 3},
};

TEST_F(FindTest, SeeksForwardFromTheCurrentRow) {
  for (const FindCase& c : kCases) {
    rows_->MoveFirst();
    rows_->Find(String(c.criterion));
    EXPECT_EQ(rows_->AbsolutePosition(), c.row) << ToUtf8(c.criterion);
  }
}

TEST_F(FindTest, LooksAtTheCurrentRowAndNotBehindIt) {
  rows_->AbsolutePosition(3);
  rows_->Find(u"codigo = 3");
  EXPECT_EQ(rows_->AbsolutePosition(), 3);
  rows_->Find(u"codigo = 1");
  EXPECT_TRUE(rows_->Eof());
  EXPECT_HOST_ERROR(rows_->Find(u"codigo = 1"), errors::NoCurrentRecord);
}

TEST_F(FindTest, RefusesWhatItCannotRead) {
  for (const StringView text :
       {u"", u"codigo", u"codigo ~ 1", u"= 1", u"codigo =", u"codigo = abc", u"nome = Ana",
        u"codigo like '1%'", u"data = 'ontem'", u"valor = '1%'", u"ativo = talvez"}) {
    EXPECT_HOST_ERROR(rows_->Find(String(text)), errors::InvalidCriteria) << ToUtf8(text);
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
  }
  EXPECT_HOST_ERROR(rows_->Find(u"nada = 1"), errors::ItemNotFound);
}

TEST_F(FindTest, ReadsOnWhileItSeeks) {
  const auto rows = Read(u"select n from generate_series(1, 20000) n");
  rows->Find(u"n = 15000");
  EXPECT_EQ(rows->AbsolutePosition(), 15000);
  rows->Find(u"n = 1");
  EXPECT_TRUE(rows->Eof());
}

}  // namespace
}  // namespace tessaria::odbc::test
