// The wizard's connection, its tables and their fields.
#include "wizard/catalogue.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardCatalogue : public WizardTest {
 protected:
  WizardCatalogue() {
    app.AddDataSource(u"Compras");
    database->relations = {{u"", u"Cliente"},
                           {u"", u"Cidade"},
                           {u"", u"Resumo", u"VIEW"},
                           {u"", u"pg_class", u"SYSTEM TABLE"}};
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->fields[u"Cliente"] = {u"Codigo", u"Nome", u"Nota Fiscal"};
    database->fields[u"Cidade"] = {u"Codigo", u"Descricao"};
    database->fields[u"Vazia"] = {};
  }
  void UsePostgres(const Rows& schemas) {
    database->Memory().SetProperty(u"DBMS Name", u"PostgreSQL");
    std::vector<memory::Row> rows;
    for (const String& schema : schemas) rows.push_back({schema});
    database->Memory().Answer(u"Select unnest(current_schemas(true))",
                              ScriptedDatabase::Columns({u"unnest"}, rows));
  }
};

TEST_F(WizardCatalogue, TheDataSourcesAreThoseOfTheSystem) {
  Run([&] {
    EXPECT_EQ(Choices(u"cmbSistema"), (Rows{u"Compras", u"Vendas"}));
    EXPECT_EQ(Combo(u"cmbSistema").Text(), u"");
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
  });
}

TEST_F(WizardCatalogue, WithoutADataSourceTheNameIsAskedFor) {
  Run([&] {
    window->FocusOn(u"btnConectar");
    Click(u"btnConectar");
    ExpectAlert(u"Informe o Sistema");
    EXPECT_EQ(window->Focused(), u"cmbSistema");
    EXPECT_FALSE(desktop->IsBusy());
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
    EXPECT_EQ(Parts().cnWizard, nullptr);
  });
}

TEST_F(WizardCatalogue, ANamelessSourceMayBeLeftUnsaid) {
  Run([&] {
    EXPECT_FALSE(ConectaBanco(Parts(), u"", false));
    ExpectNoBox();
  });
}

TEST_F(WizardCatalogue, ANameOutsideTheListNeverConnects) {
  Run([&] {
    EXPECT_TRUE(ConectaBanco(Parts(), u"Outra", true));
    EXPECT_EQ(Parts().cnWizard, nullptr);
    ExpectNoBox();
  });
}

TEST_F(WizardCatalogue, ConnectingListsTheTablesInTheirOrder) {
  Run([&] {
    Connect();
    ExpectNoBox();
    EXPECT_EQ(database->ConnectionString(), u"DSN=Vendas");
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade"}));
    EXPECT_EQ(Selected(u"lst1TabTodas"), u"Cliente");
    EXPECT_FALSE(IsEnabled(u"btnConectar"));
    EXPECT_TRUE(IsEnabled(u"btn1Inc"));
    EXPECT_TRUE(IsEnabled(u"btn1IncTodos"));
    EXPECT_FALSE(IsEnabled(u"btn1Exc"));
    EXPECT_FALSE(desktop->IsBusy());
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"");
  });
}

TEST_F(WizardCatalogue, ADatabaseWithoutTablesLeavesTheListEmpty) {
  database->relations = {{u"", u"Resumo", u"VIEW"}};
  Run([&] {
    Connect();
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 0);
    EXPECT_FALSE(IsEnabled(u"btn1Inc"));
    EXPECT_FALSE(IsEnabled(u"btn1IncTodos"));
    EXPECT_FALSE(IsEnabled(u"btnConectar"));
  });
}

TEST_F(WizardCatalogue, AFailureToConnectIsToldAndCanBeTriedAgain) {
  database->Memory().FailNext(HostError(errors::ProviderError, u"Servidor fora do ar"));
  Run([&] {
    Connect();
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, u"Servidor fora do ar");
    EXPECT_EQ(boxes[0].Title, u"Erro de Conexão ao Banco Nro: -2147467259");
    EXPECT_EQ(boxes[0].Style, host::box::Stop);
    EXPECT_EQ(boxes[0].Owner, Parts().window.hWnd());
    EXPECT_FALSE(desktop->IsBusy());
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"Não foi possível conectar a Vendas.");
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 2);
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"");
  });
}

TEST_F(WizardCatalogue, AfterAFailureAnotherSourceIsOpened) {
  database->Memory().FailNext(HostError(errors::ProviderError, u"Servidor fora do ar"));
  Run([&] {
    Connect();
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
    Choose(u"cmbSistema", u"Compras");
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(database->ConnectionString(), u"DSN=Compras");
    EXPECT_EQ(database->State(), host::state::Open);
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade"}));
    EXPECT_FALSE(IsEnabled(u"btnConectar"));
  });
}

TEST_F(WizardCatalogue, ACatalogueThatCannotBeReadIsAFailureToConnect) {
  database->catalogueFault = HostError(errors::ProviderError, u"Sem permissão");
  Run([&] {
    Connect();
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, u"Sem permissão");
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"Não foi possível ler as tabelas.");
  });
}

TEST_F(WizardCatalogue, AProgramWithoutADataLayerIsToldLikeAFailure) {
  app.OnNewConnection = nullptr;
  Run([&] {
    Connect();
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, u"Este programa não tem acesso a fontes de dados.");
    EXPECT_EQ(boxes[0].Title, u"Erro de Conexão ao Banco Nro: 91");
  });
}

TEST_F(WizardCatalogue, AnotherSourceKeepsTheConnectionThatIsOpen) {
  Run([&] {
    Connect();
    database->relations.push_back({u"", u"Estado"});
    Choose(u"cmbSistema", u"Compras");
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(database->ConnectionString(), u"DSN=Vendas");
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade", u"Estado"}));
    EXPECT_FALSE(IsEnabled(u"btnConectar"));
  });
}

TEST_F(WizardCatalogue, ConnectingAgainForgetsTheTablesOfEarlierPicks) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente"}));
    EXPECT_EQ(Parts().colTabelas.Count(), 0);
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Cliente");
    ExpectUnhandled(errors::InvalidArgument);
  });
}

TEST_F(WizardCatalogue, AFailedRefreshKeepsTheListsAndForgetsTheTablesOfThePicks) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    Choose(u"cmbSistema", u"Vendas");
    database->catalogueFault = HostError(errors::ProviderError, u"Servidor fora do ar");
    Click(u"btnConectar");
    ExpectUnhandled(errors::ProviderError);
    EXPECT_EQ(Parts().colTabelas.Count(), 0);
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente"}));
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 2);
    EXPECT_TRUE(IsEnabled(u"btnConectar")) << "for another attempt";
    EXPECT_FALSE(desktop->IsBusy());
    database->catalogueFault.reset();
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_FALSE(IsEnabled(u"btnConectar"));
    Click(u"btn1IncTodos");
    ExpectNoBox();
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente", u"Cidade"}));
    EXPECT_EQ(Parts().colTabelas.Item(u"Cliente"), u"Cliente") << "the pick can be used again";
  });
}

TEST_F(WizardCatalogue, ACatalogueThatFailsAfterConnectingIsAskedAgainOnTheSameConnection) {
  Run([&] {
    database->catalogueFault = HostError(errors::ProviderError, u"Sem permissão");
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    ASSERT_EQ(app.TakeBoxes().size(), 1U);
    EXPECT_TRUE(IsConnected(Parts()));
    EXPECT_TRUE(IsEnabled(u"btnConectar"));
    database->catalogueFault.reset();
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 2);
  });
}

// --- Fields

TEST_F(WizardCatalogue, FieldsComeInTheOrderOfTheTable) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Campos);
    database->Memory().TakeStatements();
    Choose(u"cmb3Tab", u"Cliente");
    EXPECT_EQ(database->Memory().TakeStatements(), (Rows{u"Select * From Cliente Where 1 = Null"}));
    EXPECT_EQ(RowsOf(u"lst3Cmp"), (Rows{u"Codigo", u"Nome", u"[Nota Fiscal]"}));
    EXPECT_EQ(Selected(u"lst3Cmp"), u"Codigo");
    GoTo(Tab::Where);
    Choose(u"cmb6Tab", u"Cliente");
    EXPECT_EQ(List(u"lst6Cmp").Count(), 3);
    EXPECT_FALSE(desktop->IsBusy());
  });
}

TEST_F(WizardCatalogue, FieldsAreNotReadAgainWhenATabIsEnteredAgain) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    for (const auto& [tab, combo, list] :
         {std::tuple{Tab::Campos, u"cmb3Tab", u"lst3Cmp"}, {Tab::Where, u"cmb6Tab", u"lst6Cmp"}}) {
      GoTo(tab);
      Choose(combo, u"Cliente");
      Select(list, u"Nome");
      GoTo(Tab::Tabelas);
      database->Memory().TakeStatements();
      GoTo(tab);
      EXPECT_EQ(Combo(combo).Text(), u"Cliente");
      EXPECT_EQ(Selected(list), u"Nome");
      EXPECT_TRUE(database->Memory().TakeStatements().empty());
    }
  });
}

TEST_F(WizardCatalogue, ATableWithoutFieldsLeavesAListThatIsFilled) {
  database->fields[u"Cidade"] = {};
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Cliente");
    Choose(u"cmb3Tab", u"Cidade");
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(RowsOf(u"lst3Cmp"), (Rows{u"Codigo", u"Nome", u"[Nota Fiscal]"}));
  });
}

TEST_F(WizardCatalogue, AnAliasShowsTheFieldsOfItsTable) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    app.WillEnter(u"Pagador");
    Pick({u"Cliente"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Pagador");
    ExpectNoBox();
    EXPECT_EQ(List(u"lst3Cmp").Count(), 3);
  });
}

TEST_F(WizardCatalogue, ATableThatIsGoneLeavesTheFieldsAsTheyWere) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Cliente");
    database->fields.erase(u"Cidade");
    Choose(u"cmb3Tab", u"Cidade");
    ExpectUnhandled(errors::ProviderError);
    EXPECT_EQ(List(u"lst3Cmp").Count(), 3);
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"Não foi possível ler os campos de Cidade.");
    EXPECT_FALSE(desktop->IsBusy());
  });
}

TEST_F(WizardCatalogue, ATableWithoutFieldsIsAnError) {
  database->relations.push_back({u"", u"Vazia"});
  Run([&] {
    Connect();
    Pick({u"Vazia"});
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Vazia");
    EXPECT_EQ(app.Boxes().back().Text.find(u"A tabela Vazia não tem campos."), 0U)
        << ToUtf8(app.Boxes().back().Text);
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(List(u"lst3Cmp").Count(), 0);
  });
}

TEST_F(WizardCatalogue, AConnectionThatBreaksBetweenTwoTabsIsAnErrorAndCanBeOpenedAgain) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    database->Memory().Drop();
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"Cliente");
    EXPECT_FALSE(window->UnhandledErrors().empty());
    app.TakeBoxes();
    GoTo(Tab::Tabelas);
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    ExpectNoBox();
    EXPECT_EQ(database->State(), host::state::Open);
  });
}

// --- Names

TEST_F(WizardCatalogue, NamesAreThoseThatAStatementTakes) {
  UsePostgres({u"pg_catalog", u"public"});
  database->relations = {{u"public", u"cliente"},     {u"public", u"Vendedor"},
                         {u"public", u"order"},       {u"vendas", u"cliente"},
                         {u"vendas", u"nota fiscal"}, {u"public", u"peça\"s"}};
  database->fields[u"public.\"Vendedor\""] = {};
  database->fields[u"\"Vendedor\""] = {u"id", u"Nome", u"user", u"comissão"};
  Run([&] {
    Connect();
    EXPECT_EQ(RowsOf(u"lst1TabTodas"),
              (Rows{u"cliente", u"\"Vendedor\"", u"\"order\"", u"vendas.cliente",
                    u"vendas.\"nota fiscal\"", u"\"peça\"\"s\""}));
    Pick({u"\"Vendedor\""});
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"\"Vendedor\"");
    EXPECT_EQ(RowsOf(u"lst3Cmp"), (Rows{u"id", u"\"Nome\"", u"\"user\"", u"\"comissão\""}));
  });
}

TEST_F(WizardCatalogue, TwoThousandTablesAreListedAndPicked) {
  database->relations.clear();
  for (int i = 0; i < 2000; ++i) database->relations.push_back({u"", u"T" + CStr(Long{i})});
  Run([&] {
    Connect();
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 2000);
    Click(u"btn1IncTodos");
    EXPECT_EQ(List(u"lst1TabSel").Count(), 2000);
    EXPECT_EQ(Parts().colTabelas.Count(), 2000);
  });
}

// --- Names with "_" and aliases accepted

TEST_F(WizardCatalogue, ViewsAndForeignTablesAreListedWithAliases) {
  database->relations = {{u"", u"Cliente"},
                         {u"", u"Resumo", u"VIEW"},
                         {u"", u"Saldo", u"MATVIEW"},
                         {u"", u"Remota", u"FOREIGN TABLE"},
                         {u"", u"pg_class", u"SYSTEM TABLE"}};
  Run([&] {
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 0) << "nothing to list before the connection";
    Connect();
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Resumo", u"Saldo", u"Remota"}));
  });
}

TEST_F(WizardCatalogue, AClickOnTheCheckBoxListsAnewAndKeepsThePicks) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    Check(u"lst1TabSel", u"Cliente");
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade", u"Resumo"}));
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente"}));
    EXPECT_TRUE(List(u"lst1TabSel").Item(1).Checked());
    EXPECT_EQ(Parts().colTabelas.Item(u"Cliente"), u"Cliente");
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade"}));
  });
}

TEST_F(WizardCatalogue, AListThatCannotBeReadLeavesTheCheckBoxAsItWas) {
  Run([&] {
    Connect();
    database->catalogueFault = HostError(errors::ProviderError, u"Servidor fora do ar");
    Click(u"chkAceitaApelidos");
    ExpectUnhandled(errors::ProviderError);
    EXPECT_FALSE(Parts().AcceptsAliases());
    EXPECT_EQ(List(u"lst1TabTodas").Count(), 2);
  });
}

}  // namespace
}  // namespace tessaria::test
