// Cells in binary form, at the edges of their types: the server's own text is the measure.
#include "hosts/postgres/binary_cells.h"
#include "hosts/postgres/far_dates.h"
#include "tests/sql/database_test.h"

namespace tessaria::postgres {
namespace {

class CellsTest : public sql::test::DatabaseTest {
 protected:
  /// What a query through a cursor, whose rows are binary, shows of a value, and what the server
  /// writes of it.
  void ExpectLikeTheServer(const String& expressions) {
    const auto rows = Read(u"select v, v::text from " + expressions + u" as x (v)");
    ASSERT_GT(rows->RecordCount(), 0);
    for (rows->MoveFirst(); !rows->Eof() && !HasFailure(); rows->MoveNext()) {
      EXPECT_SAME(Plain(Get(rows, 0)), Get(rows, 1));
    }
  }

 private:
  /// Numbers with a point; what is no number is a text already.
  static Variant Plain(const Variant& value) {
    if (value.IsString()) return Replace(*value.TryGet<String>(), u",", u".");
    return DecimalText(*value.TryGet<Decimal>());
  }
};

// Beyond the years of a date value each text is compared with the server's.
TEST_F(CellsTest, FarDaysAreWrittenAsTheServerWritesThem) {
  const auto rows = Read(
      u"select d, d::text from (select date '4713-01-01 BC' + n * 997 as d"
      u" from generate_series(0, 1900) n"
      u" union all select date '10000-01-01' + n * 99991 from generate_series(0, 21400) n) x"
      u" where d < '0100-01-01' or d > '9999-12-31'");
  ASSERT_GT(rows->RecordCount(), 20000);
  for (rows->MoveFirst(); !rows->Eof() && !HasFailure(); rows->MoveNext())
    EXPECT_SAME(Get(rows, 0), Get(rows, 1));
}

TEST_F(CellsTest, FarMomentsAreWrittenAsTheServerWritesThem) {
  const auto rows = Read(
      u"select m, m::text from (select timestamp '4713-11-24 00:00:00.1 BC'"
      u" + n * interval '997 days 13:07:09.123456' as m from generate_series(0, 1600) n"
      u" union all select timestamp '10000-01-01' + n * interval '29999 days 00:00:01.5'"
      u" from generate_series(0, 3400) n) x where m < '0100-01-01' or m >= '10000-01-01'");
  ASSERT_GT(rows->RecordCount(), 4000);
  for (rows->MoveFirst(); !rows->Eof() && !HasFailure(); rows->MoveNext())
    EXPECT_SAME(Get(rows, 0), Get(rows, 1));
}

// Within them the text of the stored moment is the measure.
TEST_F(CellsTest, NearMomentsAreTheServers) {
  const auto rows = Read(
      u"select m, to_char(m, 'YYYY-MM-DD HH24:MI:SS') from (select timestamp '0100-01-01'"
      u" + n * interval '401 days 13:07:09.999999' as m from generate_series(0, 8900) n) x");
  ASSERT_GT(rows->RecordCount(), 8000);
  for (rows->MoveFirst(); !rows->Eof() && !HasFailure(); rows->MoveNext()) {
    const CivilTime civil = ToCivil(*Get(rows, 0).TryGet<Date>());
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", civil.Year, civil.Month,
                  civil.Day, civil.Hour, civil.Minute, civil.Second);
    EXPECT_SAME(FromUtf8(text), Get(rows, 1));
  }
}

TEST_F(CellsTest, NumbersHaveTheServersDigits) {
  ExpectLikeTheServer(
      u"(values (0::numeric), (0.00), (-0.5), (10000), (9999.9999), (0.0001), (0.00010000),"
      u" (100000000), (-123456789.000100), (1e-20), (12345.678900), (0.1::numeric(30,28)),"
      u" (70000000000000000000000000000::numeric), (99990000.00001))");
  ExpectLikeTheServer(
      u"(select round(random()::numeric * power(10::numeric, n % 20), n % 9)"
      u" from generate_series(1, 3000) n)");
  // More digits than a decimal value has.
  ExpectLikeTheServer(
      u"(values (1e40::numeric), (-1e-40), (123456789.123456789012345678901234567890),"
      u" ('NaN'), ('Infinity'), ('-Infinity'), (repeat('9', 1000)::numeric))");
}

TEST_F(CellsTest, UuidsAndBytesAreWrittenInHexadecimal) {
  const auto rows = Read(
      u"select u, u::text, b, encode(b, 'hex') from (select gen_random_uuid() u,"
      u" decode(repeat(lpad(to_hex(n), 2, '0'), n), 'hex') b from generate_series(0, 255) n) x");
  ASSERT_EQ(rows->RecordCount(), 256);
  for (rows->MoveFirst(); !rows->Eof() && !HasFailure(); rows->MoveNext()) {
    EXPECT_SAME(Get(rows, 0), Get(rows, 1));
    EXPECT_SAME(Get(rows, 2), Get(rows, 3));
  }
}

TEST(BinaryCells, ThatAreTooShortAreAnError) {
  sql::Column column;
  column.storage = sql::Storage::Int32;
  sql::ColumnStore store({column});
  EXPECT_HOST_ERROR(AppendInt4(store, 0, {"\0\0\1", 3}), sql::errors::ProviderError);
  EXPECT_HOST_ERROR(AppendNumeric(store, 0, {"\0\1\0\0\0\0\0\0", 8}), sql::errors::ProviderError);
}

TEST(FarDates, BeginWhereDateValuesEnd) {
  EXPECT_EQ(NearDay(-693'960), std::make_optional(-657'434));  // 1 January 100
  EXPECT_EQ(NearDay(-693'961), std::nullopt);
  EXPECT_EQ(NearDay(2'921'939), std::make_optional(2'958'465));  // 31 December 9999
  EXPECT_EQ(NearDay(2'921'940), std::nullopt);
  EXPECT_EQ(FarDateText(2'921'940), u"10000-01-01");
  EXPECT_EQ(FarDateText(-693'961), u"0099-12-31");
  EXPECT_EQ(FarDateText(-730'119), u"0001-01-01");
  EXPECT_EQ(FarDateText(-730'120), u"0001-12-31 BC");
  EXPECT_EQ(FarDateText(2147483647), u"infinity");
  EXPECT_EQ(FarMomentText(-9223372036854775807 - 1), u"-infinity");
  EXPECT_EQ(FarTimeText(86'400'000'000), u"24:00:00");
}

}  // namespace
}  // namespace tessaria::postgres
