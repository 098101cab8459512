// Stored values at the ends of their types: they are shown correctly or as text, and an edit of
// another column leaves them alone.
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

Variant Decimals(const char16_t* text) { return DecimalFromText(text); }

Variant Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return FromCivil({year, month, day, hour, minute, second});
}

struct ExtremeCase {
  StringView sqlType, literal;
  Variant shown;
};

std::vector<ExtremeCase> ExtremeCases() {
  const Variant lastSecond = Moment(9999, 12, 31, 23, 59, 59);
  return {
      {u"smallint", u"-32768", Integer{-32768}},
      {u"integer", u"-2147483648", Long{-2147483647 - 1}},
      {u"bigint", u"9223372036854775807", Decimals(u"9223372036854775807")},
      {u"bigint", u"-9223372036854775808", Decimals(u"-9223372036854775808")},
      {u"real", u"3.4028235e38", 3.4028235e38F},
      {u"real", u"1e-45", 1e-45F},
      {u"real", u"'NaN'", u"NaN"},
      {u"real", u"'-Infinity'", u"-Infinity"},
      {u"double precision", u"1.7976931348623157e308", 1.7976931348623157e308},
      {u"double precision", u"0.1::float8 + 0.2::float8", 0.1 + 0.2},
      {u"double precision", u"'-0'", -0.0},
      {u"double precision", u"'NaN'", u"NaN"},
      {u"double precision", u"'Infinity'", u"Infinity"},
      {u"numeric(38,10)", u"1234567890123456789012345678.0123456789",
       u"1234567890123456789012345678,0123456789"},
      {u"numeric(20)", u"99999999999999999999", Decimals(u"99999999999999999999")},
      {u"numeric", u"0.0000000000000000000000000001", Decimals(u"0.0000000000000000000000000001")},
      {u"numeric", u"0.00000000000000000000000000012", u"0,00000000000000000000000000012"},
      {u"numeric", u"-79228162514264337593543950335", Decimals(u"-79228162514264337593543950335")},
      {u"numeric", u"79228162514264337593543950336", u"79228162514264337593543950336"},
      {u"numeric", u"'NaN'", u"NaN"},
      {u"numeric", u"'Infinity'", u"Infinity"},
      {u"numeric", u"'-Infinity'", u"-Infinity"},
      {u"money", u"'922337203685477.58'", Currency{9223372036854775800}},
      {u"money", u"'922337203685477.59'", Decimals(u"922337203685477.59")},
      {u"money", u"'92233720368547758.07'", Decimals(u"92233720368547758.07")},
      {u"money", u"'-92233720368547758.08'", Decimals(u"-92233720368547758.08")},
      {u"date", u"'0100-01-01'", Moment(100, 1, 1)},
      {u"date", u"'9999-12-31'", Moment(9999, 12, 31)},
      {u"date", u"'0099-12-31'", u"0099-12-31"},
      {u"date", u"'0001-01-01'", u"0001-01-01"},
      {u"date", u"'10000-01-01'", u"10000-01-01"},
      {u"date", u"'5874897-12-31'", u"5874897-12-31"},
      {u"date", u"'0044-03-15 BC'", u"0044-03-15 BC"},
      {u"date", u"'2020-03-15 BC'", u"2020-03-15 BC"},
      {u"date", u"'infinity'", u"infinity"},
      {u"date", u"'-infinity'", u"-infinity"},
      {u"time", u"'00:00:00'", Moment(1899, 12, 30)},
      {u"time", u"'23:59:59.999999'", Moment(1899, 12, 30, 23, 59, 59)},
      {u"time", u"'24:00:00'", u"24:00:00"},
      {u"timestamp", u"'0100-01-01 12:30:00'", Moment(100, 1, 1, 12, 30)},
      {u"timestamp", u"'2020-12-31 23:59:59.999999'", Moment(2020, 12, 31, 23, 59, 59)},
      {u"timestamp", u"'1850-12-31 23:59:59.9'", Moment(1850, 12, 31, 23, 59, 59)},
      {u"timestamp", u"'9999-12-31 23:59:59'", lastSecond},
      {u"timestamp", u"'9999-12-31 23:59:59.999999'", lastSecond},
      {u"timestamp", u"'0099-12-31 01:02:03'", u"0099-12-31 01:02:03"},
      {u"timestamp", u"'10000-01-01 10:00:00.5'", u"10000-01-01 10:00:00.5"},
      {u"timestamp", u"'0044-03-15 10:00:00 BC'", u"0044-03-15 10:00:00 BC"},
      {u"timestamp", u"'infinity'", u"infinity"},
      {u"timestamp", u"'-infinity'", u"-infinity"},
      {u"timestamptz", u"'2020-12-31 23:59:59.999999'", Moment(2020, 12, 31, 23, 59, 59)},
      {u"timestamptz", u"'10000-01-01 10:00:00'", u"10000-01-01 10:00:00"},
      {u"timestamptz", u"'0044-03-15 10:00:00 BC'", u"0044-03-15 10:00:00 BC"},
      {u"timestamptz", u"'infinity'", u"infinity"},
      {u"char(5)", u"'     '", u""},
      {u"varchar", u"''", u""},
      {u"varchar", u"' infinity '", u" infinity "},
      {u"text", u"repeat('ç', 20000)", String(20000, u'ç')},
      {u"uuid", u"'00000000-0000-0000-0000-000000000000'", u"00000000-0000-0000-0000-000000000000"},
      {u"bytea", u"''", u""},
      {u"boolean", u"false", false},
      {u"interval", u"'-178000000 years'", u"-178000000 years"},
      {u"timetz", u"'24:00:00-15:59'", u"24:00:00-15:59"},
  };
}

class ExtremesTest : public DatabaseTest {
 protected:
  void CreateTable(const ExtremeCase& c) {
    Run(u"drop table if exists t");
    Run(u"create table t (k int primary key, v " + String(c.sqlType) + u", n int)");
    Run(u"insert into t values (1, " + String(c.literal) + u", 0)");
    stored_ = Scalar(u"select v::text from t");
  }
  void ExpectStored() { EXPECT_SAME(Scalar(u"select v::text from t"), stored_); }

  Variant stored_;
};

TEST_F(ExtremesTest, AreShownCorrectlyOrAsText) {
  for (const ExtremeCase& c : ExtremeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType) + " " + ToUtf8(c.literal));
    CreateTable(c);
    for (const StringView statement :
         {u"select v from t", u"select v from t limit 1", u"select v, upper('a') from t limit 1",
          u"select v from t order by k"}) {
      EXPECT_SAME(Scalar(String(statement)), c.shown) << ToUtf8(statement);
    }
  }
}

TEST_F(ExtremesTest, AreNoEditWhenAssignedAgain) {
  for (const ExtremeCase& c : ExtremeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType) + " " + ToUtf8(c.literal));
    CreateTable(c);
    const auto rows = Edit(u"select * from t");
    Set(rows, u"v", Get(rows, u"v"));
    EXPECT_EQ(rows->EditMode(), host::EditMode::None);
    const Long type = rows->Fields().Item(u"v")->Type();
    if (type == host::type::Numeric || type == host::type::Currency) {
      Set(rows, u"v", CStr(Get(rows, u"v")));
      EXPECT_EQ(rows->EditMode(), host::EditMode::None);
    }
  }
}

TEST_F(ExtremesTest, SurviveAnEditOfAnotherColumn) {
  for (const ExtremeCase& c : ExtremeCases()) {
    for (const StringView statement : {u"select * from t", u"select *, n + 1 as mais from t"}) {
      SCOPED_TRACE(ToUtf8(c.sqlType) + " " + ToUtf8(c.literal) + " " + ToUtf8(statement));
      CreateTable(c);
      const auto rows = Edit(String(statement));
      for (const Long n : {7, 8}) {
        Set(rows, u"v", Get(rows, u"v"));
        Set(rows, u"n", n);
        rows->Update();
        EXPECT_SAME(Get(rows, u"v"), c.shown);
        EXPECT_SAME(Scalar(u"select n from t"), n);
        ExpectStored();
      }
    }
  }
}

TEST_F(ExtremesTest, CanBeReplacedAndDeleted) {
  for (const ExtremeCase& c : ExtremeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType) + " " + ToUtf8(c.literal));
    CreateTable(c);
    const auto replaced = Edit(u"select * from t");
    Set(replaced, u"v", Variant::Null());
    replaced->Update();
    EXPECT_SAME(Scalar(u"select v from t"), Variant::Null());
    CreateTable(c);
    const auto rows = Edit(u"select * from t");
    rows->Delete();
    EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{0});
  }
}

TEST_F(ExtremesTest, ChangedByAnotherUserAreNotOverwritten) {
  Run(u"create table t (k int primary key, v timestamp)");
  Run(u"insert into t values (1, 'infinity')");
  const auto rows = Edit(u"select * from t");
  Run(u"update t set v = '9999-12-31 23:59:59'");
  Set(rows, u"v", Moment(2020, 1, 1));
  EXPECT_HOST_ERROR(rows->Update(), errors::RowChanged);
  rows->CancelUpdate();
  EXPECT_HOST_ERROR(rows->Delete(), errors::RowChanged);
}

TEST_F(ExtremesTest, MayBeKeys) {
  Run(u"create table t (k date primary key, n int)");
  Run(u"insert into t values ('infinity', 0), ('0044-03-15 BC', 0), ('10000-01-01', 0)");
  const auto rows = Edit(u"select * from t");
  for (; !rows->Eof(); rows->MoveNext()) {
    Set(rows, u"n", Long{1});
    rows->Update();
    EXPECT_SAME(Get(rows, u"n"), Long{1});
  }
  EXPECT_SAME(Scalar(u"select sum(n)::int from t"), Long{3});
}

// Although dates arrive as texts, the columns keep what the result reports about them.
TEST_F(ExtremesTest, ColumnsStayThoseOfTheStatement) {
  Run(u"create table t (k int primary key, d date not null, m timestamp)");
  Run(u"insert into t select n, date '2020-01-01' + n, null from generate_series(1, 5000) n");
  const auto rows = Edit(u"select k, d as \"Dia\", d as dia2, m from t order by d desc -- fim");
  EXPECT_EQ(rows->Fields().Item(1)->Name(), u"Dia");
  EXPECT_EQ(rows->Fields().Item(1)->Type(), host::type::DBDate);
  EXPECT_EQ(rows->Fields().Item(3)->Type(), host::type::DBTimeStamp);
  EXPECT_EQ(rows->RecordCount(), 5000);
  EXPECT_SAME(Get(rows, u"k"), Long{5000});
}

TEST_F(ExtremesTest, FunctionsOfAQueryRunOnce) {
  Run(u"create sequence s");
  for (const StringView statement :
       {u"select nextval('s'), current_date", u"select nextval('s'), current_date limit 1"}) {
    Read(String(statement));
  }
  EXPECT_SAME(Scalar(u"select last_value::int from s"), Long{2});
}

TEST_F(ExtremesTest, SortInTheirOrder) {
  Run(u"create table t (k int primary key, d date, m timestamp, n numeric, f float8, v money)");
  Run(u"insert into t values"
      u" (3, '2020-01-01', '2020-01-01 00:00:00.1', 9007199254740993, 1, 1),"
      u" (2, '0050-01-01', '2020-01-01', 9007199254740992, '-Infinity', -1),"
      u" (6, 'infinity', 'infinity', 'NaN', 'NaN', '92233720368547758.07'),"
      u" (1, '0044-01-01 BC', '-infinity', '-Infinity', null, '-92233720368547758.08'),"
      u" (5, '10001-01-01', '10000-01-01', 'Infinity', 'Infinity', '92233720368547758.06'),"
      u" (4, '9999-12-31', '9999-12-31', 1e40, 2, 2)");
  const auto rows = Read(u"select * from t");
  for (const StringView column : {u"d", u"m", u"n", u"v", u"k"}) {
    rows->Sort(String(column));
    for (Long i = 1; i <= 6; ++i) {
      EXPECT_SAME(rows->ValueAt(i, 0), i) << ToUtf8(column);
    }
  }
}

TEST_F(ExtremesTest, AWordThatIsAssignedAgainEndsTheEditOfItsField) {
  Run(u"create table t (k int primary key, n numeric, x text)");
  Run(u"insert into t values (1, 'NaN', 'a')");
  const auto rows = Edit(u"select * from t");
  const auto field = [&](const String& name) { return rows->Fields().Item(name); };
  field(u"n")->Value(123456);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  field(u"n")->Value(u"NaN");
  EXPECT_SAME(field(u"n")->Value(), u"NaN");
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  field(u"x")->Value(u"b");
  field(u"n")->Value(123456);
  field(u"n")->Value(u"NaN");  // the edit of the other field stays
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  rows->Update();
  EXPECT_SAME(Scalar(u"select n::text || x from t"), u"NaNb");
}

}  // namespace
}  // namespace tessaria::sql::test
