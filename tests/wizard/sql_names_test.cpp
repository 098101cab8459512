// Names of tables and fields as a statement takes them.
#include "wizard/sql_names.h"

#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tessaria/utf8.h"
#include "tests/support/printers.h"
#include "tests/wizard/scripted_database.h"

namespace tessaria::test {
namespace {

using wizard::SqlNames;
using Names = std::vector<String>;

class SqlNamesOf : public testing::Test {
 protected:
  SqlNames Of(const String& dbms) {
    database.Memory().SetProperty(u"DBMS Name", dbms);
    if (database.State() == host::state::Closed) database.Open();
    return SqlNames(database);
  }
  void FindsIn(const Names& schemas) {
    std::vector<memory::Row> rows;
    for (const String& schema : schemas) rows.push_back({schema});
    database.Memory().Answer(u"Select unnest(current_schemas(true))",
                             ScriptedDatabase::Columns({u"unnest"}, rows));
  }
  ScriptedDatabase database;
};

TEST_F(SqlNamesOf, APlainNameStandsAsItIs) {
  FindsIn({u"public"});
  for (const auto* name : {u"cliente", u"pedido_item", u"_x", u"t2"})
    EXPECT_EQ(Of(u"PostgreSQL").Name(name), name);
}

TEST_F(SqlNamesOf, WhatTheServerWouldReadOtherwiseIsQuoted) {
  FindsIn({u"public"});
  const std::pair<const char16_t*, const char16_t*> quoted[] = {
      {u"Vendedor", u"\"Vendedor\""}, {u"nota fiscal", u"\"nota fiscal\""},
      {u"peças", u"\"peças\""},       {u"a\"b", u"\"a\"\"b\""},
      {u"order", u"\"order\""},       {u"user", u"\"user\""},
      {u"2via", u"\"2via\""},         {u"a.b", u"\"a.b\""}};
  for (const auto& [bare, name] : quoted) {
    EXPECT_EQ(Of(u"PostgreSQL").Name(bare), name);
    EXPECT_EQ(SqlNames::Bare(name), bare);
  }
}

TEST_F(SqlNamesOf, CapitalsAreFreeWhereTheServerDoesNotFoldThem) {
  for (const auto* dbms : {u"ACCESS", u"Microsoft SQL Server"}) {
    EXPECT_EQ(Of(dbms).Name(u"Cliente"), u"Cliente");
    EXPECT_EQ(Of(dbms).Name(u"Nota Fiscal"), u"[Nota Fiscal]");
    EXPECT_EQ(Of(dbms).Name(u"Order"), u"[Order]");
    EXPECT_EQ(Of(dbms).Name(u"a]b"), u"[a]]b]");
  }
  EXPECT_EQ(SqlNames::Bare(u"[a]]b]"), u"a]b");
  EXPECT_EQ(SqlNames().Name(u"Nota Fiscal"), u"\"Nota Fiscal\"");
}

TEST_F(SqlNamesOf, EachDatabaseHasWordsOfItsOwn) {
  FindsIn({u"public"});
  struct Word {
    const char16_t* Name;
    bool InPostgreSQL, InSqlServer, InAccess;
  };
  for (const Word& word :
       {Word{u"limit", true, false, false}, Word{u"Percent", false, true, true},
        Word{u"plan", false, true, false}, Word{u"memo", false, false, true},
        Word{u"Order", true, true, true}, Word{u"cliente", false, false, false}}) {
    const String name = LCase(word.Name);
    const auto isQuoted = [&](const char16_t* dbms) { return Of(dbms).Name(name) != name; };
    EXPECT_EQ(isQuoted(u"PostgreSQL"), word.InPostgreSQL) << ToUtf8(name);
    EXPECT_EQ(isQuoted(u"Microsoft SQL Server"), word.InSqlServer) << ToUtf8(name);
    EXPECT_EQ(isQuoted(u"ACCESS"), word.InAccess) << ToUtf8(name);
  }
}

TEST_F(SqlNamesOf, AccessTakesNoNameThatBeginsWithAnUnderscore) {
  EXPECT_EQ(Of(u"ACCESS").Name(u"_temp"), u"[_temp]");
  EXPECT_EQ(Of(u"ACCESS").Name(u"nota_fiscal"), u"nota_fiscal");
}

TEST_F(SqlNamesOf, OnSqlServerTheSchemaOfTheUserNeedsNoName) {
  EXPECT_EQ(Of(u"Microsoft SQL Server")
                .Tables({{u"dbo", u"Cliente", u"TABLE"}, {u"vendas", u"Pedido", u"TABLE"}}),
            (Names{u"Cliente", u"vendas.Pedido"}));
}

TEST_F(SqlNamesOf, AUserWithoutASchemaTakesTablesByTheirNames) {
  database.defaultSchema = Variant::Null();
  EXPECT_EQ(Of(u"Microsoft SQL Server").Tables({{u"dbo", u"Cliente", u"TABLE"}}),
            Names{u"Cliente"});
}

TEST_F(SqlNamesOf, TheBareNameIsTheLastPart) {
  EXPECT_EQ(SqlNames::Bare(u"cliente"), u"cliente");
  EXPECT_EQ(SqlNames::Bare(u"vendas.cliente"), u"cliente");
  EXPECT_EQ(SqlNames::Bare(u"\"a.b\".\"c.d\""), u"c.d");
  EXPECT_EQ(SqlNames::Bare(u""), u"");
}

TEST_F(SqlNamesOf, ATableThatIsNotFoundByItsNameHasItsSchema) {
  FindsIn({u"pg_catalog", u"vendas", u"public"});
  EXPECT_EQ(
      Of(u"PostgreSQL")
          .Tables({{u"public", u"cidade", u"TABLE"},
                   {u"public", u"cliente", u"TABLE"},
                   {u"vendas", u"cliente", u"VIEW"},
                   {u"Frota", u"Carro", u"TABLE"},
                   {u"frota", u"cidade", u"TABLE"}}),
      (Names{u"cidade", u"public.cliente", u"cliente", u"\"Frota\".\"Carro\"", u"frota.cidade"}));
}

TEST_F(SqlNamesOf, WithoutASearchPathTablesGoByTheirNames) {
  EXPECT_EQ(Of(u"ACCESS").Tables({{u"", u"Cliente", u"TABLE"}, {u"dbo", u"Cidade", u"TABLE"}}),
            (Names{u"Cliente", u"Cidade"}));
}

}  // namespace
}  // namespace tessaria::test
