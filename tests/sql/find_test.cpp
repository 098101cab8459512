#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
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

TEST_F(FindTest, SearchesForwardFromTheCurrentRow) {
  for (const FindCase& c : kCases) {
    rows_->MoveFirst();
    rows_->Find(String(c.criterion));
    EXPECT_EQ(rows_->AbsolutePosition(), c.row) << ToUtf8(c.criterion);
  }
}

TEST_F(FindTest, SearchesTheCurrentRowAndNoneBeforeIt) {
  rows_->AbsolutePosition(3);
  rows_->Find(u"codigo = 3");
  EXPECT_EQ(rows_->AbsolutePosition(), 3);
  rows_->Find(u"codigo = 1");
  EXPECT_TRUE(rows_->Eof());
  EXPECT_HOST_ERROR(rows_->Find(u"codigo = 1"), errors::NoCurrentRecord);
}

TEST_F(FindTest, RefusesWhatItCannotRead) {
  for (const StringView text : {u"", u"codigo", u"codigo ~ 1", u"= 1", u"codigo =", u"codigo = abc",
                                u"nome = Ana", u"codigo like '1%'", u"codigo = +-1",
                                u"data = 'ontem'", u"valor = '1%'", u"ativo = talvez"}) {
    EXPECT_HOST_ERROR(rows_->Find(String(text)), errors::InvalidCriteria) << ToUtf8(text);
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
  }
  EXPECT_HOST_ERROR(rows_->Find(u"nada = 1"), errors::ItemNotFound);
}

struct TypedCase {
  StringView criterion;
  Long row;
};

constexpr TypedCase kTyped[] = {
    {u"i = 9007199254740993", 2},
    {u"i = 9.007.199.254.740.993,00", 2},
    {u"i > 9007199254740992", 2},
    {u"i = 9007199254740993.5", -3},
    {u"n = 12345678901234567891", 2},
    {u"n = 12345678901234567890.5", 3},
    {u"n = 12345678901234567890,5", 3},
    {u"n < 12345678901234567890.4", 1},
    {u"r = 0.3", 2},
    {u"r = 0,3", 2},
    {u"r = 0.30000001192092896", 2},
    {u"f = 0,3", 2},
    {u"f = 1E-05", 3},
    {u"f = '1,5E+300'", 1},
    {u"m = 92233720368547758.07", 2},
    {u"m = 92233720368547758,06", 1},
    {u"m = 0,1", 3},
    {u"d = #01/02/2020#", 2},
    {u"t = #01/02/2020 10:11:12#", 2},
    {u"t < #01/02/1850 10:11:12#", -3},
    {u"t = #01/02/1850 10:11:12#", 1},
    {u"d <> #01/02/2020#", 1},
    {u"d = #31/12/9999#", -3},
    {u"n = 12345678901234567890123456789012345", 4},
};

// A number is compared in its own type, not as a double.
TEST_F(FindTest, ComparesByTheTypeOfTheField) {
  const auto rows = Read(
      u"select * from (values"
      u" (9007199254740992, 12345678901234567890::numeric, 0.1::real, 1.5e300::float8,"
      u"  '92233720368547758.06'::money, 'infinity'::date, timestamp '1850-02-01 10:11:12.9'),"
      u" (9007199254740993, 12345678901234567891, 0.3, 0.1::float8 + 0.2::float8,"
      u"  '92233720368547758.07', '2020-02-01', '2020-02-01 10:11:12.999'),"
      u" (1, 12345678901234567890.5, 'NaN', 1e-5, 0.1::numeric::money, '0044-01-01 BC', null),"
      u" (2, 12345678901234567890123456789012345, null, 'NaN', null, null, 'infinity'))"
      u" as t (i, n, r, f, m, d, t)");
  for (const TypedCase& c : kTyped) {
    rows->MoveFirst();
    rows->Find(String(c.criterion));
    EXPECT_EQ(rows->AbsolutePosition(), c.row) << ToUtf8(c.criterion);
  }
}

// The list of a field looks for the row of its value in this way.
TEST_F(FindTest, FindsARowByTheTextOfItsValue) {
  const auto rows = Read(
      u"select * from (values (1.1::real, 0.1::float8, 9007199254740992, 1.10, '1.1'::money),"
      u" (16777216, 0.1::float8 + 0.2::float8, 9007199254740993, 1.25, '1234567.89'),"
      u" (1e-10, 1e300, -9007199254740993, 12345678901234567890.12345, '-0.01'))"
      u" as t (r, f, i, n, m)");
  for (Long column = 0; column < rows->Fields().Count(); ++column) {
    for (Long row = 1; row <= 3; ++row) {
      const auto field = rows->Fields().Item(column);
      const String criterion = field->Name() + u" = " + CStr(rows->ValueAt(row, column));
      rows->MoveFirst();
      rows->Find(criterion);
      EXPECT_EQ(rows->AbsolutePosition(), row) << ToUtf8(criterion);
    }
  }
}

TEST_F(FindTest, ReadsOnWhileItSearches) {
  const auto rows = Read(u"select n from generate_series(1, 20000) n");
  rows->Find(u"n = 15000");
  EXPECT_EQ(rows->AbsolutePosition(), 15000);
  rows->Find(u"n = 1");
  EXPECT_TRUE(rows->Eof());
}

}  // namespace
}  // namespace tessaria::sql::test
