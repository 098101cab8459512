// The wizard on a real server: the names that it lists are the names that the server takes.
#include "tessaria/text.h"
#include "tests/support/odd_names.h"
#include "tests/support/printers.h"
#include "tests/wizard/server_connection.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

String Quoted(const String& name) { return u"\"" + Replace(name, u"\"", u"\"\"") + u"\""; }

/// A server with an empty schema.
class WizardOnAServer : public WizardTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    app.OnNewConnection = [] { return std::make_shared<ServerConnection>(); };
  }
  void Do(const Rows& statements) {
    for (const String& statement : statements) server->Execute(statement);
  }
  /// The fields of a table, as tab 3 lists them.
  Rows FieldsOf(const String& table) {
    Choose(u"cmb3Tab", table);
    return RowsOf(u"lst3Cmp");
  }

  host::ConnectionPtr server;
};

TEST_F(WizardOnAServer, EveryListedTableAndFieldIsTaken) {
  String fields;
  for (const auto* name : kOddNames)
    fields += (fields.empty() ? u"" : u", ") + Quoted(name) + u" int";
  for (const auto* name : kOddNames) Do({u"create table " + Quoted(name) + u" (" + fields + u")"});
  Do({u"create table \"Vendedor\" (\"Código\" int, \"user\" int, nome text)",
      u"create table \"order\" (x int)", u"create table vendas.cliente (x int)",
      u"create table cliente (x int)", u"create table vendas.\"nota fiscal\" (x int)"});
  Run([&] {
    Click(u"chkAceitaApelidos");
    Connect();
    Click(u"btn1IncTodos");
    Check(u"lst1TabSel", u"cliente");
    GoTo(Tab::Campos);
    const Rows tables = Choices(u"cmb3Tab");
    EXPECT_EQ(tables.size(), std::size(kOddNames) + 5);
    for (const String& table : tables) {
      const Rows names = FieldsOf(table);
      ASSERT_FALSE(names.empty()) << ToUtf8(table);
      String list;
      for (const String& name : names) list += (list.empty() ? u"" : u", ") + name;
      EXPECT_NO_THROW(Parts().cnWizard->Execute(u"Select " + list + u" From " + table))
          << ToUtf8(table);
    }
    ExpectNoBox();
    EXPECT_EQ(FieldsOf(u"\"Vendedor\""), (Rows{u"\"Código\"", u"\"user\"", u"nome"}));
    EXPECT_THAT(tables,
                testing::IsSupersetOf({String(u"cliente"), String(u"vendas.cliente"),
                                       String(u"vendas.\"nota fiscal\""), String(u"\"order\"")}));
  });
}

TEST_F(WizardOnAServer, ViewsOfAllKindsComeWithTheCheckBox) {
  Do({u"create table cliente (codigo int)", u"create view resumo as select codigo from cliente",
      u"create materialized view saldo as select codigo from cliente"});
  Run([&] {
    Connect();
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"cliente"}));
    Click(u"chkAceitaApelidos");
    EXPECT_THAT(
        RowsOf(u"lst1TabTodas"),
        testing::UnorderedElementsAre(String(u"cliente"), String(u"resumo"), String(u"saldo")));
  });
}

TEST_F(WizardOnAServer, AForeignKeySelectsItsFieldsAndTheLinkRuns) {
  Do({u"create table cidade (codigo int primary key, descricao text)",
      u"create table cliente (codigo int primary key, \"codCidade\" int references cidade,"
      u" indicado_por int references cliente)"});
  Run([&] {
    Click(u"chkAceitaApelidos");
    Connect();
    app.WillEnter(u"quem");
    Pick({u"cliente", u"cidade", u"cliente"});
    Check(u"lst1TabSel", u"cliente");
    GoTo(Tab::Links);
    Choose(u"cmb2TabPai", u"cliente");
    Choose(u"cmb2TabFilho", u"cidade");
    Click(u"btn2LnkAdiciona");
    Choose(u"cmb2TabFilho", u"quem");
    Click(u"btn2LnkAdiciona");
    ExpectNoBox();
    EXPECT_EQ(RowsOf(u"lst2Links"),
              (Rows{u"cidade.codigo=cliente.\"codCidade\"", u"quem.codigo=cliente.indicado_por"}));
    EXPECT_NO_THROW(Parts().cnWizard->Execute(
        u"Select 1 From cliente Left Join cidade on (cidade.codigo=cliente.\"codCidade\")"));
  });
}

TEST_F(WizardOnAServer, OfSeveralForeignKeysTheFirstOfOneFieldIsSelected) {
  Do({u"create table filial (empresa int, numero int, codigo int unique,"
      u" primary key (empresa, numero))",
      u"create table venda (empresa int, origem int, destino int references filial (codigo),"
      u" retirada int references filial (codigo),"
      u" foreign key (empresa, origem) references filial)",
      u"create table posto (empresa int, numero int, foreign key (empresa, numero) references"
      u" filial)"});
  Run([&] {
    Click(u"chkAceitaApelidos");
    Connect();
    Pick({u"venda", u"filial", u"posto"});
    Check(u"lst1TabSel", u"venda");
    GoTo(Tab::Links);
    Choose(u"cmb2TabFilho", u"filial");
    Choose(u"cmb2TabPai", u"venda");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"destino") << "by the names of the keys";
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"codigo");
    Choose(u"cmb2TabPai", u"posto");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"empresa") << "a key of two fields selects none";
    EXPECT_EQ(RowsOf(u"lst2Links"), Rows()) << "nothing is added without a click";
    ExpectNoBox();
  });
}

TEST_F(WizardOnAServer, ATableThatWasDroppedMeanwhileIsRefusedAtRetrieveAndNothingIsLost) {
  Do({u"create table cidade (codigo int primary key, nome text)"});
  Run([&] {
    Connect();
    Pick({u"cidade"});
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"cidade");
    for (const auto* field : {u"codigo", u"nome"}) {
      Select(u"lst3Cmp", field);
      Click(u"btn3Inclui");
    }
    Do({u"drop table cidade"});
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
    EXPECT_EQ(RowsOf(u"lst3CmpSel"), (Rows{u"codigo", u"nome"}));
    Do({u"create table cidade (codigo int primary key, nome text)"});
    Click(u"btn4Retrieve");
    ExpectNoBox();
    EXPECT_EQ(Parts().cgrColGrid.Count(), 2);
  });
}

TEST_F(WizardOnAServer, AForeignTableIsListedWithAliases) {
  Do({u"create extension if not exists file_fdw",
      u"create server if not exists arquivos foreign data wrapper file_fdw",
      u"create foreign table externa (codigo int) server arquivos"
      u" options (filename '/dev/null', format 'csv')"});
  Run([&] {
    Connect();
    EXPECT_THAT(RowsOf(u"lst1TabTodas"), testing::Not(testing::Contains(String(u"externa"))));
    Click(u"chkAceitaApelidos");
    EXPECT_THAT(RowsOf(u"lst1TabTodas"), testing::Contains(String(u"externa")));
    Pick({u"externa"});
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"externa");
    EXPECT_EQ(RowsOf(u"lst3Cmp"), Rows{u"codigo"});
    ExpectNoBox();
  });
}

TEST_F(WizardOnAServer, ATableThatWasDroppedMeanwhileIsAnErrorOnTheLinksToo) {
  Do({u"create table cidade (codigo int primary key)",
      u"create table cliente (cidade int references cidade)"});
  Run([&] {
    Click(u"chkAceitaApelidos");
    Connect();
    Pick({u"cliente", u"cidade"});
    Check(u"lst1TabSel", u"cliente");
    GoTo(Tab::Links);
    Choose(u"cmb2TabPai", u"cliente");
    Do({u"drop table cidade cascade"});
    Choose(u"cmb2TabFilho", u"cidade");
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
    Choose(u"cmb2TabPai", u"cliente");
    EXPECT_EQ(RowsOf(u"lst2CmpPai"), Rows{u"cidade"});
  });
}

TEST_F(WizardOnAServer, WhatTheServerRefusesLeavesTheWizardUsable) {
  Do({u"create table vazia ()", u"create table sumida (x int)", u"create table cliente (x int)"});
  Run([&] {
    Connect();
    Pick({u"vazia", u"sumida", u"cliente"});
    Check(u"lst1TabSel", u"cliente");
    Do({u"drop table sumida"});
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"vazia");
    ExpectUnhandled(errors::SubscriptOutOfRange);
    Choose(u"cmb3Tab", u"sumida");
    EXPECT_EQ(window->UnhandledErrors().size(), 2U);
    app.TakeBoxes();
    EXPECT_EQ(FieldsOf(u"cliente"), (Rows{u"x"}));
    ExpectNoBox();
  });
}

TEST_F(WizardOnAServer, ATableOfManyFieldsIsListedWhole) {
  String fields;
  for (Long i = 1; i <= 500; ++i) fields += (i == 1 ? u"c" : u", c") + CStr(i) + u" int";
  Do({u"create table larga (" + fields + u")"});
  Run([&] {
    Connect();
    Pick({u"larga"});
    GoTo(Tab::Campos);
    EXPECT_EQ(FieldsOf(u"larga").size(), 500U);
  });
}

TEST_F(WizardOnAServer, AServerThatStoppedIsAnErrorAndCanBeConnectedAgain) {
  Do({u"create table cliente (x int)"});
  Run([&] {
    Connect();
    Pick({u"cliente"});
    PostgresCluster::Shared().Stop();
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"cliente");
    EXPECT_EQ(window->UnhandledErrors().size(), 1U);
    app.TakeBoxes();
    PostgresCluster::Shared().Start();
    GoTo(Tab::Tabelas);
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"cliente"}));
  });
}

}  // namespace
}  // namespace tessaria::test
