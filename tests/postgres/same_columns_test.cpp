// Columns are described as the ODBC driver describes them, so that a program can change its driver.
#include "hosts/odbc/odbc_link.h"
#include "hosts/postgres/pg_link.h"
#include "tests/sql/database_test.h"

namespace tessaria::postgres {
namespace {

constexpr StringView kColumns =
    u"bo bool, i2 int2, i4 int4 not null, i8 int8, f4 float4, f8 float8, n numeric,"
    u" n122 numeric(12,2), n50 numeric(5,0), n1000 numeric(1000,5), mo money, d date, t time,"
    u" t2 time(2), tz timetz, ts timestamp, ts0 timestamp(0), ts3 timestamp(3), tstz timestamptz,"
    u" iv interval, tx text, vc varchar, vc9 varchar(9), bp bpchar, c5 char(5), c1 \"char\","
    u" nm name, u uuid, by bytea, js json, jb jsonb, x xml, ip inet, ci cidr, ma macaddr,"
    u" ia int4[], hu humor, dd apelido, rg int4range, \"Com Maiúsculas\" int not null";

class SameColumnsTest : public sql::test::DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create type humor as enum ('bom')");
    Run(u"create domain apelido as varchar(7)");
    Run(u"create table t (" + String(kColumns) + u", primary key (i4, \"Com Maiúsculas\"))");
    Run(u"create view v as select i4, tx from t");
    Run(u"create materialized view mv as select i4 from t");
    Run(u"create table pt (a int) partition by range (a)");
    odbc_ = std::make_shared<odbc::OdbcLink>(Cluster().ConnectionString(), 0,
                                             sql::SettingsScope::Session);
    odbc_->Facts();
    postgres_ =
        std::make_shared<PgLink>(Cluster().ConnectionString(), 0, sql::SettingsScope::Session);
  }
  static sql::Columns Describe(sql::Link& link, const String& query) {
    const auto statement = link.NewStatement();
    statement->Run(query);
    return statement->Describe();
  }

  std::shared_ptr<sql::Link> odbc_, postgres_;
};

TEST_F(SameColumnsTest, OfAResult) {
  const sql::Columns expected = Describe(*odbc_, u"select * from t");
  const sql::Columns told = Describe(*postgres_, u"select * from t");
  ASSERT_EQ(told.size(), expected.size());
  for (std::size_t i = 0; i < told.size(); ++i) {
    SCOPED_TRACE(ToUtf8(expected[i].name));
    EXPECT_EQ(told[i].name, expected[i].name);
    EXPECT_EQ(told[i].type, expected[i].type);
    EXPECT_EQ(told[i].storage, expected[i].storage);
    EXPECT_EQ(told[i].definedSize, expected[i].definedSize);
    EXPECT_EQ(told[i].precision, expected[i].precision);
    EXPECT_EQ(told[i].scale, expected[i].scale);
    EXPECT_EQ(told[i].nullable, expected[i].nullable);
    EXPECT_EQ(told[i].padded, expected[i].padded);
    EXPECT_EQ(told[i].lowerCase, expected[i].lowerCase);
    EXPECT_EQ(told[i].comparable, expected[i].comparable);
    EXPECT_EQ(told[i].catalogue, expected[i].catalogue);
    EXPECT_EQ(told[i].schema, expected[i].schema);
    EXPECT_EQ(told[i].table, expected[i].table);
    EXPECT_EQ(told[i].baseColumn, expected[i].baseColumn);
  }
}

// Of one table: over several, the ODBC driver numbers the columns on, and lists those of indexes
// too.
TEST_F(SameColumnsTest, OfTheCatalogue) {
  const host::SchemaRestrictions asked{{}, u"public", u"t"};
  const auto expected = odbc_->TableColumns(asked);
  const auto told = postgres_->TableColumns(asked);
  ASSERT_EQ(told.size(), expected.size());
  for (std::size_t i = 0; i < told.size(); ++i) {
    SCOPED_TRACE(ToUtf8(expected[i].name));
    EXPECT_EQ(told[i].place.table, expected[i].place.table);
    EXPECT_EQ(told[i].name, expected[i].name);
    EXPECT_EQ(sql::FieldTypeOf(told[i].sqlType, told[i].typeName, true),
              sql::FieldTypeOf(expected[i].sqlType, expected[i].typeName, true));
    EXPECT_EQ(sql::SizeOfType(told[i].sqlType, told[i].size),
              sql::SizeOfType(expected[i].sqlType, expected[i].size));
    EXPECT_EQ(told[i].nullable, expected[i].nullable);
    EXPECT_EQ(told[i].ordinal, expected[i].ordinal);
  }
}

TEST_F(SameColumnsTest, OfTablesAndKeys) {
  const auto expected = odbc_->Tables({});
  const auto told = postgres_->Tables({});
  ASSERT_EQ(told.size(), expected.size());
  for (std::size_t i = 0; i < told.size(); ++i) {
    EXPECT_EQ(told[i].place.catalogue, expected[i].place.catalogue);
    EXPECT_EQ(told[i].place.schema, expected[i].place.schema);
    EXPECT_EQ(told[i].place.table, expected[i].place.table);
    EXPECT_EQ(told[i].type, expected[i].type);
  }
  for (const auto& key :
       {odbc_->PrimaryKey({{}, u"public", u"t"}), postgres_->PrimaryKey({{}, u"public", u"t"})}) {
    ASSERT_TRUE(key && key->size() == 2);
    EXPECT_EQ((*key)[1].column, u"Com Maiúsculas");
    EXPECT_EQ((*key)[1].ordinal, 2);
    EXPECT_EQ((*key)[1].key, u"t_pkey");
  }
  EXPECT_TRUE(postgres_->PrimaryKey({{}, u"public", u"v"})->empty());
}

}  // namespace
}  // namespace tessaria::postgres
