#include "hosts/odbc/catalogue.h"

#include <algorithm>

#include "tests/odbc/database_test.h"

namespace tessaria::odbc::test {
namespace {

using CatalogueTest = DatabaseTest;

TEST_F(CatalogueTest, ListsTablesWithTheirType) {
  Run(u"create table clientes (a int)");
  Run(u"create view ativos as select * from clientes");
  const auto tables = Catalogue(connection_).Tables();
  const auto typeOf = [&](const String& name) {
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const auto& table) { return table.Name == name; });
    return found == tables.end() ? String() : found->Schema + u" " + found->Type;
  };
  EXPECT_EQ(typeOf(u"clientes"), u"public TABLE");
  EXPECT_EQ(typeOf(u"ativos"), u"public VIEW");
}

TEST_F(CatalogueTest, ListsColumnsInTheirOrder) {
  Run(u"create table a_b (z serial, \"Nome\" varchar(30) not null, m numeric(10,2))");
  Run(u"create table axb (outra int)");
  const auto columns = Catalogue(connection_).Columns(u"a_b");
  ASSERT_EQ(columns.size(), 3U);
  EXPECT_EQ(columns[0].Name, u"z");
  EXPECT_EQ(columns[1].Name, u"Nome");
  EXPECT_EQ(columns[1].TypeName, u"varchar");
  EXPECT_EQ(columns[1].Size, 30);
  EXPECT_FALSE(columns[1].IsNullable);
  EXPECT_TRUE(columns[2].IsNullable);
}

TEST_F(CatalogueTest, NamesThePrimaryKeyInItsOrder) {
  Run(u"create table t (a int, b int, c int, primary key (c, a))");
  Run(u"create table u (a int)");
  EXPECT_EQ(Catalogue(connection_).PrimaryKey(u"t", u"public"), (std::vector<String>{u"c", u"a"}));
  EXPECT_TRUE(Catalogue(connection_).PrimaryKey(u"u").empty());
}

TEST_F(CatalogueTest, NeedsAnOpenConnectionOfThisHost) {
  EXPECT_HOST_ERROR(Catalogue(nullptr), errors::InvalidCriteria);
  connection_->Close();
  EXPECT_HOST_ERROR(Catalogue(connection_).Tables(), errors::InvalidConnection);
}

}  // namespace
}  // namespace tessaria::odbc::test
