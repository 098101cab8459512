// How each database type appears to the program, and that values survive being read and written.
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

namespace type = host::type;

Variant DateValue(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return FromCivil({year, month, day, hour, minute, second});
}

struct StoredTypeCase {
  StringView sqlType;
  Long type;
  StringView literal;
  Variant value;
  Variant written;  // a second value
  Long definedSize;
};

std::vector<StoredTypeCase> StoredTypeCases() {
  const auto decimal = [](const char16_t* text) { return Variant(DecimalFromText(text)); };
  return {
      {u"smallint", type::SmallInt, u"-7", Integer{-7}, Integer{32767}, 5},
      {u"integer", type::Integer, u"2147483647", Long{2147483647}, Long{-5}, 10},
      {u"serial", type::Integer, u"5", Long{5}, Long{6}, 10},
      {u"bigint", type::Numeric, u"9007199254740993", decimal(u"9007199254740993"),
       decimal(u"-9223372036854775807"), 19},
      {u"real", type::Single, u"1.1", 1.1F, 2.25F, 9},
      {u"double precision", type::Double, u"0.1", 0.1, 1e300, 17},
      {u"numeric(12,2)", type::Numeric, u"12.30", decimal(u"12.30"), decimal(u"-9999999999.99"),
       12},
      {u"numeric", type::Numeric, u"12345678901234567890.12345",
       decimal(u"12345678901234567890.12345"), decimal(u"0.001"), 28},
      {u"money", type::Currency, u"'1234.56'", Currency{12345600}, Currency{-5000}, 10},
      {u"boolean", type::Boolean, u"true", true, false, 5},
      {u"char(5)", type::WChar, u"'ab'", u"ab", u"é", 5},
      {u"varchar(10)", type::VarWChar, u"'ação '", u"ação ", u"d'água ?{}", 10},
      {u"varchar", type::VarWChar, u"'sem limite'", u"sem limite", u"", 0},
      {u"text", type::VarWChar, u"'texto'", u"texto", u"linha 1\r\nlinha 2\n", 0},
      {u"uuid", type::VarWChar, u"'A0EEBC99-9c0b-4ef8-bb6d-6bb9bd380a11'",
       u"a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11", u"b0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11", 36},
      {u"date", type::DBDate, u"'2020-02-29'", DateValue(2020, 2, 29), DateValue(1850, 1, 1), 10},
      {u"time", type::DBTime, u"'13:14:15'", DateValue(1899, 12, 30, 13, 14, 15),
       DateValue(1899, 12, 30, 23, 59, 59), 8},
      {u"timestamp", type::DBTimeStamp, u"'2020-02-29 13:14:15'",
       DateValue(2020, 2, 29, 13, 14, 15), DateValue(1850, 1, 1, 6), 26},
      {u"timestamptz", type::DBTimeStamp, u"'2020-02-29 13:14:15'",
       DateValue(2020, 2, 29, 13, 14, 15), DateValue(2021, 1, 1), 26},
      {u"bytea", type::Binary, u"'\\x00ff10'", u"00ff10", u"0102", 0},
      {u"json", type::VarWChar, u"'{\"a\": 1}'", u"{\"a\": 1}", u"{\"b\": [\"?\"]}", 0},
      {u"jsonb", type::VarWChar, u"'{\"a\": 1}'", u"{\"a\": 1}", u"{\"b\": 2}", 0},
      {u"humor", type::VarWChar, u"'bom'", u"bom", u"mau", 0},
      {u"integer[]", type::VarWChar, u"'{1,2}'", u"{1,2}", u"{3}", 0},
      {u"interval", type::VarWChar, u"'1 day'", u"1 day", u"02:00:00", 32},
      {u"inet", type::VarWChar, u"'10.0.0.1'", u"10.0.0.1", u"10.0.0.2", 50},
      {u"xml", type::VarWChar, u"'<a/>'", u"<a/>", u"<b>é</b>", 0},
  };
}

class TypesTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create type humor as enum ('bom', 'mau')");
  }
  void CreateTable(const StoredTypeCase& c) {
    Run(u"drop table if exists t");
    Run(u"create table t (k int primary key, v " + String(c.sqlType) + u")");
    Run(u"insert into t values (1, " + String(c.literal) + u")");
  }
};

TEST_F(TypesTest, AreReportedAndReadByTheirNumbers) {
  for (const StoredTypeCase& c : StoredTypeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType));
    CreateTable(c);
    const auto rows = Read(u"select v from t");
    const auto field = rows->Fields().Item(0);
    EXPECT_EQ(field->Type(), c.type);
    EXPECT_EQ(field->DefinedSize(), c.definedSize);
    EXPECT_SAME(field->Value(), c.value);
  }
}

TEST_F(TypesTest, SurviveBeingWritten) {
  for (const StoredTypeCase& c : StoredTypeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType));
    CreateTable(c);
    const auto rows = Edit(u"select k, v from t");
    Set(rows, u"v", c.written);
    rows->Update();
    EXPECT_SAME(Get(rows, u"v"), c.written);
    EXPECT_SAME(Scalar(u"select v from t"), c.written);
    Set(rows, u"v", c.value);  // the value just written is the original of the next edit
    rows->Update();
    EXPECT_SAME(Scalar(u"select v from t"), c.value);
    rows->AddNew();
    Set(rows, u"k", Long{2});
    Set(rows, u"v", c.written);
    rows->Update();
    EXPECT_SAME(Scalar(u"select v from t where k = 2"), c.written);
    rows->Delete();
    EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{1});
  }
}

TEST_F(TypesTest, SurviveBeingWrittenWithoutServerSidePreparation) {
  connection_ = NewConnection(u"UseServerSidePrepare=0;");
  for (const StoredTypeCase& c : StoredTypeCases()) {
    SCOPED_TRACE(ToUtf8(c.sqlType));
    CreateTable(c);
    const auto rows = Edit(u"select k, v from t");
    Set(rows, u"v", c.written);
    rows->Update();
    Set(rows, u"v", c.value);
    rows->Update();
    EXPECT_SAME(Scalar(u"select v from t"), c.value);
  }
}

TEST_F(TypesTest, TakeNullAndBlanks) {
  for (const StoredTypeCase& c : StoredTypeCases()) {
    if (c.sqlType == u"serial") continue;
    SCOPED_TRACE(ToUtf8(c.sqlType));
    CreateTable(c);
    const auto rows = Edit(u"select k, v from t");
    Set(rows, u"v", Variant::Null());
    rows->Update();
    EXPECT_SAME(Get(rows, u"v"), Variant::Null());
    Set(rows, u"v", c.value);
    rows->Update();
    EXPECT_SAME(Scalar(u"select v from t"), c.value);
    const bool isText = rows->Fields().Item(u"v")->Type() == type::WChar ||
                        rows->Fields().Item(u"v")->Type() == type::VarWChar ||
                        rows->Fields().Item(u"v")->Type() == type::Binary;
    for (const Variant& blank : {Variant(), Variant(u""), Variant(u"  ")}) {
      Set(rows, u"v", blank);
      EXPECT_EQ(Get(rows, u"v").IsNull(), !isText);
      rows->CancelUpdate();
    }
  }
}

TEST_F(TypesTest, EmptyIsAnEmptyTextInATextColumn) {
  Run(u"create table t (k int primary key, v varchar(10) not null)");
  Run(u"insert into t values (1, 'a')");
  const auto rows = Edit(u"select * from t");
  Set(rows, u"v", Variant());
  rows->Update();
  EXPECT_SAME(Scalar(u"select v from t"), u"");
}

struct ConversionCase {
  StringView sqlType;
  Variant assigned;
  Variant value;  // when `error` is 0
  Long error;
};

TEST_F(TypesTest, ConvertWhatTheProgramAssigns) {
  const ConversionCase cases[] = {
      {u"integer", 12.0, Long{12}, 0},
      {u"integer", u"12", Long{12}, 0},
      {u"integer", u"abc", {}, errors::TypeMismatch},
      {u"smallint", 40000.0, {}, errors::Overflow},
      {u"integer", 3e9, {}, errors::Overflow},
      {u"bigint", 3e9, Variant(DecimalFromText(u"3000000000")), 0},
      {u"bigint", 9007199254740992.0, Variant(DecimalFromText(u"9007199254740992")), 0},
      {u"bigint", u"9.223.372.036.854.775.808", {}, errors::Overflow},
      {u"numeric", 12345678901234568.0, Variant(DecimalFromText(u"12345678901234568")), 0},
      {u"numeric", u"79228162514264337593543950336", {}, errors::Overflow},
      {u"numeric", u"NaN", {}, errors::TypeMismatch},
      {u"money", u"92.233.720.368.547.758,07", Variant(DecimalFromText(u"92233720368547758.07")),
       0},
      {u"date", u"infinity", {}, errors::TypeMismatch},
      {u"numeric(10,2)", u"1.234,56", Variant(DecimalFromText(u"1234.56")), 0},
      {u"numeric(10,2)", 1.5, Variant(DecimalFromText(u"1.5")), 0},
      {u"double precision", Long{2}, 2.0, 0},
      {u"money", 10.5, Currency{105000}, 0},
      {u"boolean", Long{1}, true, 0},
      {u"boolean", u"Falso", false, 0},
      {u"varchar(20)", 1.5, u"1,5", 0},
      {u"varchar(20)", true, u"Verdadeiro", 0},
      {u"date", u"29022020", DateValue(2020, 2, 29), 0},
      {u"date", DateValue(2020, 2, 29, 12), DateValue(2020, 2, 29), 0},
      {u"date", u"30/02/2020", {}, errors::TypeMismatch},
      {u"time", DateValue(2020, 2, 29, 12, 30), DateValue(1899, 12, 30, 12, 30), 0},
      {u"timestamp", u"29/02/2020 10:11:12", DateValue(2020, 2, 29, 10, 11, 12), 0},
  };
  for (const ConversionCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.sqlType) + " " + ::testing::PrintToString(c.assigned));
    Run(u"drop table if exists t");
    Run(u"create table t (k int primary key, v " + String(c.sqlType) + u")");
    Run(u"insert into t values (1)");
    const auto rows = Edit(u"select * from t");
    if (c.error != 0) {
      EXPECT_HOST_ERROR(Set(rows, u"v", c.assigned), c.error);
      EXPECT_SAME(Get(rows, u"v"), Variant::Null());
      EXPECT_EQ(rows->EditMode(), host::EditMode::None);
    } else {
      Set(rows, u"v", c.assigned);
      EXPECT_SAME(Get(rows, u"v"), c.value);
      rows->Update();
    }
  }
}

TEST_F(TypesTest, FractionsOfSecondsSurviveAnEditOfTheRow) {
  Run(u"create table t (k int primary key, d timestamp, h time, v int)");
  Run(u"insert into t values (1, '2020-02-29 13:14:15.123456', '01:02:03.654321', 1)");
  const auto rows = Edit(u"select * from t");
  Set(rows, u"d", DateValue(2020, 2, 29, 13, 14, 15));
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  Set(rows, u"d", DateValue(2021, 2, 28));
  Set(rows, u"h", u"10:00");
  rows->Update();
  Run(u"update t set d = '2020-02-29 13:14:15.9', h = '01:02:03.1'");
  rows->Requery();
  rows->Delete();
}

TEST_F(TypesTest, NumberWithTooManyDigitsIsReadAsText) {
  Run(u"create table t (k int primary key, v numeric)");
  Run(u"insert into t values (1, 123456789012345678901234567890.12345)");
  const auto rows = Edit(u"select * from t");
  EXPECT_SAME(Get(rows, u"v"), u"123456789012345678901234567890,12345");
  Set(rows, u"v", Long{1});  // the original value is sent back exactly
  rows->Update();
  EXPECT_SAME(Scalar(u"select v::int from t"), Long{1});
}

// 255 and 8190 were the driver's own numbers for types without a size.
TEST_F(TypesTest, OnlyADeclaredSizeIsReported) {
  const auto rows = Read(
      u"select 'a'::text, 'a'::varchar, 'a'::bpchar, 'a'::varchar(255), 'a'::varchar(8190),"
      u" 'a'::char(300), 'a'::varchar(10485760)");
  const Long sizes[] = {0, 0, 0, 255, 8190, 300, 10485760};
  for (Long i = 0; i < rows->Fields().Count(); ++i) {
    EXPECT_EQ(rows->Fields().Item(i)->DefinedSize(), sizes[i]) << i;
  }
}

TEST_F(TypesTest, ExpressionsHaveTypesToo) {
  const auto rows = Read(u"select 1 + 1, 'lit', 1.5, upper('é'), count(*), null, now() > 'epoch'");
  const Long types[] = {type::Integer, type::VarWChar, type::Numeric, type::VarWChar,
                        type::Numeric, type::VarWChar, type::Boolean};
  for (Long i = 0; i < rows->Fields().Count(); ++i) {
    EXPECT_EQ(rows->Fields().Item(i)->Type(), types[i]) << i;
    EXPECT_EQ(rows->Fields().Item(i)->Attributes() & host::attribute::Updatable, 0) << i;
  }
  EXPECT_SAME(Get(rows, 3), u"É");
}

TEST_F(TypesTest, AttributesReportWhatAFieldAccepts) {
  Run(u"create table t (k serial primary key, n int not null, v varchar(5))");
  const auto rows = Edit(u"select k, n, v, n + 1 as e from t");
  const auto attributes = [&](const String& name) {
    return rows->Fields().Item(name)->Attributes();
  };
  namespace attribute = host::attribute;
  EXPECT_EQ(attributes(u"k"), attribute::Updatable);
  EXPECT_EQ(attributes(u"n"), attribute::Updatable);
  EXPECT_EQ(attributes(u"v"), attribute::Updatable | attribute::IsNullable | attribute::MayBeNull);
  EXPECT_EQ(attributes(u"e"), attribute::IsNullable | attribute::MayBeNull);
  EXPECT_EQ(Read(u"select v from t")->Fields().Item(0)->Attributes() & attribute::Updatable, 0);
  EXPECT_EQ(rows->Fields().Item(u"n")->NumericScale(), 0);
  const auto number = Read(u"select 1.25::numeric(9,3)")->Fields().Item(0);
  EXPECT_EQ(number->Precision(), 9);
  EXPECT_EQ(number->NumericScale(), 3);
}

}  // namespace
}  // namespace tessaria::sql::test
