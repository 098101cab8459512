// The wizard's frame: which tabs open when, what each needs, and how the window is left.
#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardFrame : public WizardTest {
 protected:
  WizardFrame() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}};
    database->fields = {{u"Cliente", {u"Codigo"}}, {u"Cidade", {u"Codigo"}}};
  }
  /// As if a field had been retrieved.
  void Retrieve(StringView caption = u"Codigo") {
    Parts().Grid().Column(0).Caption(String(caption));
  }
  void ExpectTabs(std::initializer_list<bool> enabled) {
    Long tab = 0;
    for (const bool isEnabled : enabled) {
      EXPECT_EQ(IsTabEnabled(static_cast<Tab>(tab)), isEnabled) << tab;
      ++tab;
    }
  }
  void Update() { frmMontaSql::Instance()->AtualizaAbas(); }
};

TEST_F(WizardFrame, ANewWizardOpensOnTheTablesAlone) {
  Run([&] {
    EXPECT_EQ(Front(), Tab::Tabelas);
    ExpectTabs({true, false, false, false, false, false, false, false});
    EXPECT_FALSE(IsEnabled(u"btnConfirma"));
    for (const auto* box :
         {u"txt4GrdCaption", u"txt4GrdMascara", u"txt4GrdWidth", u"chk4GrdVisible"})
      EXPECT_FALSE(IsEnabled(box));
    for (const auto* button : {u"btn1Inc", u"btn1IncTodos", u"btn1Exc", u"btn1ExcTodos"})
      EXPECT_FALSE(IsEnabled(button));
    EXPECT_TRUE(IsEnabled(u"btn4Retrieve"));
    for (const auto* button : {u"btn5Inc", u"btn5IncTodos", u"Btn5Exc", u"btn5ExcTodos"})
      EXPECT_TRUE(IsEnabled(button));
    EXPECT_FALSE(Parts().AcceptsAliases());
    EXPECT_FALSE(Parts().Widget(u"lstSel").Visible());
    EXPECT_FALSE(Parts().Widget(u"lblCampoOutros").Visible());
  });
}

TEST_F(WizardFrame, WithoutADataSourceTheWindowSaysSo) {
  State().frmMontaSql = nullptr;
  memory::Application bare;
  Run([&] {
    EXPECT_EQ(Combo(u"cmbSistema").ListCount(), 0);
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(),
              u"O sistema não tem nenhuma fonte de dados ODBC.");
    Click(u"btnConectar");
    EXPECT_EQ(bare.TakeBoxes().size(), 1U);
  });
}

// --- Which tabs can be opened

TEST_F(WizardFrame, TheTabsFollowWhatWasPicked) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    ExpectTabs({true, false, true, false, false, true, false, false});
    Pick({u"Cidade"});
    ExpectTabs({true, true, true, false, false, true, false, false});
    List(u"lst3CmpSel").Add(u"Codigo");
    Update();
    ExpectTabs({true, true, true, true, false, true, false, false});
    Retrieve();
    Update();
    ExpectTabs({true, true, true, true, true, true, true, true});
    List(u"lst3CmpSel").Clear();
    List(u"lst1TabSel").Clear();
    Update();
    ExpectTabs({true, false, false, true, true, false, true, true});
    Retrieve(u"");
    Update();
    ExpectTabs({true, false, false, false, false, false, false, false});
  });
}

TEST_F(WizardFrame, AGridWithoutColumnsHasRetrievedNothing) {
  Parts().Grid().RemoveColumn(0);
  Update();
  ExpectTabs({true, false, false, false, false, false, false, false});
}

TEST_F(WizardFrame, TheKeyAloneIsWantedToConfirm) {
  Run([&] {
    Parts().Box(u"txt7CampoChave").Text(u"Codigo");
    EXPECT_TRUE(IsEnabled(u"btnConfirma"));
    Parts().Box(u"txt7CampoChave").Text(u"");
    EXPECT_FALSE(IsEnabled(u"btnConfirma"));
    Retrieve();
    Update();
    GoTo(Tab::Retorno);
    Type(u"txt7CampoChave", u"Codigo");
    EXPECT_TRUE(IsEnabled(u"btnConfirma"));
  });
}

// --- The main table

TEST_F(WizardFrame, ASingleTableIsTheMainOneSilently) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Campos);
    ExpectNoBox();
    EXPECT_EQ(Front(), Tab::Campos);
    EXPECT_TRUE(List(u"lst1TabSel").Item(1).Checked());
  });
}

TEST_F(WizardFrame, OfSeveralTablesOneMustBeChecked) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    app.OnMessageBox = [&](const auto&) {
      EXPECT_EQ(Front(), Tab::Tabelas) << "the tab is back before the box opens";
    };
    Parts().Tabs().TabEnabled(static_cast<Long>(Tab::Links), false);
    GoTo(Tab::Campos);
    app.OnMessageBox = nullptr;
    ExpectAlert(u"Marque a Tabela Que Será a Principal");
    EXPECT_TRUE(IsTabEnabled(Tab::Links)) << "the tabs are looked at all the same";
    EXPECT_EQ(Front(), Tab::Tabelas);
    EXPECT_EQ(Combo(u"cmb3Tab").ListCount(), 0) << "the other tab was not entered";
    Check(u"lst1TabSel", u"Cidade");
    GoTo(Tab::Campos);
    ExpectNoBox();
    EXPECT_EQ(Front(), Tab::Campos);
  });
}

TEST_F(WizardFrame, AMainTableThatWasRemovedIsAskedForAgain) {
  database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}, {u"", u"Estado"}};
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade", u"Estado"});
    Check(u"lst1TabSel", u"Cidade");
    Select(u"lst1TabSel", u"Cidade");
    Click(u"btn1Exc");
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente", u"Estado"}));
    GoTo(Tab::Campos);
    ExpectAlert(u"Marque a Tabela Que Será a Principal");
    EXPECT_EQ(Front(), Tab::Tabelas);
  });
}

TEST_F(WizardFrame, TheMainTableIsAskedForOnlyWhenTheFirstTabIsLeft) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cidade");
    GoTo(Tab::Campos);
    List(u"lst1TabSel").Item(2).Checked(false);
    GoTo(Tab::Where);
    ExpectNoBox();
    EXPECT_EQ(Front(), Tab::Where);
  });
}

TEST_F(WizardFrame, WithoutTablesNothingIsAskedFor) {
  Run([&] {
    Retrieve();
    Update();
    GoTo(Tab::SqlPronta);
    ExpectNoBox();
    EXPECT_EQ(Front(), Tab::SqlPronta);
  });
}

TEST_F(WizardFrame, AClickOnTheTabInFrontDoesNothing) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Campos);
    List(u"lst1TabSel").Add(u"Cidade");
    GoTo(Tab::Campos);
    EXPECT_EQ(Choices(u"cmb3Tab"), (Rows{u"Cliente"}));
    EXPECT_FALSE(IsTabEnabled(Tab::Links));
  });
}

TEST_F(WizardFrame, EnteringATabListsTheTablesAndKeepsTheChoice) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cliente");
    struct Entry {
      Tab tab;
      StringView combo;
    };
    for (const Entry& entry : {Entry{Tab::Campos, u"cmb3Tab"}, Entry{Tab::Where, u"cmb6Tab"}}) {
      GoTo(entry.tab);
      EXPECT_EQ(Choices(entry.combo), (Rows{u"Cliente", u"Cidade"}));
      Choose(entry.combo, u"Cidade");
      GoTo(Tab::Tabelas);
      GoTo(entry.tab);
      EXPECT_EQ(Combo(entry.combo).Text(), u"Cidade");
    }
    GoTo(Tab::Tabelas);
    Select(u"lst1TabSel", u"Cidade");
    Click(u"btn1Exc");
    GoTo(Tab::Campos);
    EXPECT_EQ(Combo(u"cmb3Tab").Text(), u"");
  });
}

// --- Leaving

TEST_F(WizardFrame, VoltarAndConfirmarSayHowTheWindowWasLeft) {
  const auto form = frmMontaSql::Instance();
  Run([&] { Click(u"btnVoltar"); });
  EXPECT_EQ(form->Tag, u"Voltar");
  Run([&] {
    Parts().Box(u"txt7CampoChave").Text(u"Codigo");
    Click(u"btnConfirma");
  });
  EXPECT_EQ(form->Tag, u"Confirmar");
  EXPECT_EQ(frmMontaSql::Instance(), form) << "whoever opened it unloads it";
}

TEST_F(WizardFrame, AfterVoltarTheWindowIsAsItWas) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
  });
  Run([&] {
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"Cliente"}));
    EXPECT_EQ(database->State(), host::state::Open);
  });
}

TEST_F(WizardFrame, ClosingByTheFrameUnloadsTheWindow) {
  const std::weak_ptr<frmMontaSql> form = frmMontaSql::Instance();
  Run([&] {
    Connect();
    window->CloseWindow();
    EXPECT_EQ(form.lock()->Tag, u"Voltar");
  });
  EXPECT_EQ(State().frmMontaSql, nullptr);
  EXPECT_TRUE(form.expired());
  EXPECT_EQ(database.use_count(), 1) << "its connection is gone with it";
  Run([&] { EXPECT_EQ(List(u"lst1TabTodas").Count(), 0); });
}

TEST_F(WizardFrame, AMainTableIsWantedToConfirmToo) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Parts().Box(u"txt7CampoChave").Text(u"Codigo");
    Click(u"btnConfirma");
    ExpectAlert(u"Marque a Tabela Que Será a Principal");
    EXPECT_TRUE(window->IsShown());
    Check(u"lst1TabSel", u"Cliente");
    Click(u"btnConfirma");
    ExpectNoBox();
  });
  EXPECT_EQ(frmMontaSql::Instance()->Tag, u"Confirmar");
}

TEST_F(WizardFrame, TheApplicationTakesTheWindowAlong) {
  State().frmMontaSql = nullptr;
  std::weak_ptr<frmMontaSql> form;
  {
    memory::Application inner;
    form = frmMontaSql::Instance();
  }
  EXPECT_TRUE(form.expired());
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

TEST_F(WizardFrame, NoWindowOpensWithoutADesktop) {
  auto* const former = std::exchange(State().desktop, nullptr);
  EXPECT_THROW(frmMontaSql::Instance(), HostError);
  State().desktop = former;
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

// --- A run over the columns alone

TEST_F(WizardFrame, TheColumnsAloneHaveTwoTabs) {
  frmMontaSql::Instance()->StartGridRun();
  Run([&] {
    EXPECT_EQ(Front(), Tab::Grid);
    ExpectTabs({false, false, false, true, false, false, true, false});
    EXPECT_FALSE(IsEnabled(u"btn4Retrieve"));
    EXPECT_TRUE(Parts().Widget(u"lblCampoOutros").Visible());
  });
}

TEST_F(WizardFrame, TheFirstUpdateOfTheTabsEndsTheMaskOfTheColumns) {
  Retrieve();
  frmMontaSql::Instance()->StartGridRun();
  Run([&] {
    GoTo(Tab::Retorno);
    ExpectTabs({false, false, false, true, true, false, true, true});
  });
}

TEST_F(WizardFrame, AFullRunAfterTheColumnsStartsLikeANewWindow) {
  const auto form = frmMontaSql::Instance();
  form->StartGridRun();
  Parts().Grid().AddColumn(1).Caption(u"Nome");
  Retrieve();
  Run([] {});
  form->StartFullRun();
  Run([&] {
    EXPECT_EQ(Front(), Tab::Tabelas);
    ExpectTabs({true, false, false, false, false, false, false, false});
    EXPECT_TRUE(IsEnabled(u"btn4Retrieve"));
    EXPECT_FALSE(Parts().Widget(u"lblCampoOutros").Visible());
    EXPECT_FALSE(IsEnabled(u"txt4GrdCaption"));
  });
}

TEST_F(WizardFrame, AFullRunAfterAFullRunFindsTheTabsAsTheyWere) {
  const auto form = frmMontaSql::Instance();
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Campos);
  });
  form->StartFullRun();
  Run([&] { EXPECT_EQ(Front(), Tab::Campos); });
}

TEST_F(WizardFrame, TheColumnsAloneNeedNoMainTable) {
  const auto form = frmMontaSql::Instance();
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
  });
  form->StartGridRun();
  Parts().Box(u"txt7CampoChave").Text(u"Codigo");
  Run([&] { Click(u"btnConfirma"); });
  ExpectNoBox();
  EXPECT_EQ(form->Tag, u"Confirmar");
}

}  // namespace
}  // namespace tessaria::test
