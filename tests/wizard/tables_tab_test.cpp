// Picking tables, also more than once under an alias.
#include "wizard/tables_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardTables : public WizardTest {
 protected:
  WizardTables() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Pedido_Item"}, {u"", u"Cidade"}};
    for (const auto& relation : database->relations) database->fields[relation.name] = {u"Codigo"};
  }
  void RunConnected(const std::function<void()>& work) {
    Run([&] {
      Connect();
      work();
    });
  }
  void RunWithAliases(const std::function<void()>& work) {
    RunConnected([&] {
      Click(u"chkAceitaApelidos");
      work();
    });
  }
  void PutBack(const Rows& tables) {
    for (const String& table : tables) {
      Select(u"lst1TabSel", table);
      Click(u"btn1Exc");
    }
  }
  Rows Picked() { return RowsOf(u"lst1TabSel"); }
  Rows Listed() { return RowsOf(u"lst1TabTodas"); }
  String TableOf(const String& text) { return Parts().colTabelas.Item(text); }
  bool HasEntry(const String& text) { return Parts().colTabelas.HasKey(text); }
};

TEST_F(WizardTables, APickedTableStaysInTheListOfAll) {
  RunConnected([&] {
    Pick({u"Cliente"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente"}));
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade"}));
    EXPECT_EQ(TableOf(u"Cliente"), u"Cliente");
    EXPECT_EQ(List(u"lst1TabSel").Item(1).Tag, u"");
    EXPECT_TRUE(IsEnabled(u"btn1Exc"));
    EXPECT_TRUE(IsEnabled(u"btn1ExcTodos"));
    EXPECT_TRUE(IsTabEnabled(Tab::Campos));
    EXPECT_TRUE(IsTabEnabled(Tab::Where));
    EXPECT_FALSE(IsTabEnabled(Tab::Links));
  });
}

TEST_F(WizardTables, ADoubleClickPicksToo) {
  RunConnected([&] {
    window->DoubleClickRow(u"lst1TabTodas", 3);
    EXPECT_EQ(Picked(), (Rows{u"Cidade"}));
  });
}

TEST_F(WizardTables, ATableThatComesBackIsThereAlready) {
  RunConnected([&] {
    Pick({u"Cliente"});
    PutBack({u"Cliente"});
    EXPECT_TRUE(Picked().empty());
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade"}));
    EXPECT_FALSE(IsEnabled(u"btn1Exc"));
    EXPECT_FALSE(IsTabEnabled(Tab::Campos));
    EXPECT_TRUE(HasEntry(u"Cliente")) << "an entry stays while connected";
    ExpectNoBox();
  });
}

TEST_F(WizardTables, ATableCanBePickedAgainUnderAnAlias) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente_1");
    app.WillEnter(u"Cliente_2");
    app.WillEnter(u"Pagador");
    Pick({u"Cliente", u"Cliente", u"Cliente"});
    const auto& asked = app.InputBoxes();
    ASSERT_EQ(asked.size(), 3U);
    for (const auto& box : asked) {
      EXPECT_EQ(box.Prompt, u"Informe um Alias Para a Tabela");
      EXPECT_EQ(box.Title, u"");
    }
    EXPECT_EQ(asked[0].Offered, u"Cliente_1");
    EXPECT_EQ(asked[1].Offered, u"Cliente_2");
    EXPECT_EQ(asked[2].Offered, u"Cliente_3");
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Cliente_1", u"Cliente_2", u"Pagador"}));
    EXPECT_EQ(TableOf(u"Cliente_2"), u"Cliente");
    EXPECT_EQ(TableOf(u"Pagador"), u"Cliente");
  });
}

TEST_F(WizardTables, AnAliasThatIsTakenIsAskedForAgain) {
  RunConnected([&] {
    Pick({u"Cliente", u"Cidade"});
    app.WillEnter(u"Cidade");
    app.WillEnter(u"Pagador");
    Pick({u"Cliente"});
    ASSERT_EQ(app.InputBoxes().size(), 2U);
    EXPECT_EQ(app.InputBoxes()[1].Offered, u"Cidade");
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Cidade", u"Pagador"}));
  });
}

TEST_F(WizardTables, NoAliasLeavesBothListsAlone) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"");
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente");
    app.WillEnter(u"");
    Pick({u"Cliente"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente"}));
    EXPECT_EQ(Parts().colTabelas.Count(), 1);
  });
}

TEST_F(WizardTables, TheOfferedAliasIsMadeOfTheBareName) {
  database->relations = {{u"", u"Nota Fiscal"}};
  RunConnected([&] {
    Pick({u"[Nota Fiscal]", u"[Nota Fiscal]"});
    ASSERT_EQ(app.InputBoxes().size(), 1U);
    EXPECT_EQ(app.InputBoxes()[0].Offered, u"[Nota Fiscal_1]");
  });
}

TEST_F(WizardTables, ANameWithAnUnderscoreCannotBePicked) {
  RunConnected([&] {
    Pick({u"Pedido_Item"});
    EXPECT_TRUE(Picked().empty());
    ExpectNoBox();
  });
}

TEST_F(WizardTables, AnAliasWithAnUnderscoreJustDisappears) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente_1");
    Pick({u"Cliente"});
    PutBack({u"Cliente_1"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente"}));
    EXPECT_EQ(Selected(u"lst1TabSel"), u"Cliente");
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade"}));
    EXPECT_TRUE(HasEntry(u"Cliente_1"));
  });
}

TEST_F(WizardTables, AnAliasWithoutAnUnderscoreCannotBePutBack) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Pagador");
    Pick({u"Cliente"});
    PutBack({u"Pagador"});
    ExpectUnhandled(errors::DuplicateKey);
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Pagador"}));
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade", u"Pagador"}));
    Click(u"btn1ExcTodos");
    ExpectUnhandled(errors::DuplicateKey);
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Pagador"}));
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade", u"Pagador"}));
  });
}

TEST_F(WizardTables, AnAliasThatWasRemovedCannotBeTakenAgain) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente_1");
    Pick({u"Cliente"});
    PutBack({u"Cliente_1"});
    app.WillEnter(u"Cliente_1");
    Pick({u"Cliente"});
    ExpectUnhandled(errors::DuplicateKey);
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Cliente_1"}));
  });
}

TEST_F(WizardTables, ARemovedAliasIsOfferedAgain) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente_1");
    Pick({u"Cliente"});
    PutBack({u"Cliente_1"});
    app.WillEnter(u"");
    Pick({u"Cliente"});
    EXPECT_EQ(app.InputBoxes().back().Offered, u"Cliente_1");
  });
}

TEST_F(WizardTables, AnAliasThatIsGivenUpLeavesTheTabsAsTheyAre) {
  RunConnected([&] {
    Pick({u"Cliente"});
    Parts().Tabs().TabEnabled(static_cast<Long>(Tab::Where), false);
    app.WillEnter(u"");
    Pick({u"Cliente"});
    EXPECT_FALSE(IsTabEnabled(Tab::Where)) << "nothing was looked at";
    Pick({u"Cidade"});
    EXPECT_TRUE(IsTabEnabled(Tab::Where));
  });
}

TEST_F(WizardTables, WithoutAliasesTheTablesOfTheEntriesAreSearchedAndNotTheirNames) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cidade");
    Pick({u"Cliente"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Cidade"}));
    EXPECT_EQ(Parts().colTabelas.Item(u"Cidade"), u"Cliente");
    Click(u"btn1IncTodos");
    ExpectUnhandled(errors::DuplicateKey);
    EXPECT_EQ(Parts().colTabelas.Item(u"Cidade"), u"Cliente") << "no entry has the table Cidade";
    EXPECT_FALSE(Listed().empty()) << "the rest was not carried";
  });
}

TEST_F(WizardTables, AllTablesButThoseWithAnUnderscoreAreCarriedAtOnce) {
  RunConnected([&] {
    Pick({u"Cidade"});
    Click(u"btn1IncTodos");
    EXPECT_EQ(Picked(), (Rows{u"Cidade", u"Cliente"}));
    EXPECT_TRUE(Listed().empty());
    EXPECT_FALSE(IsEnabled(u"btn1Inc"));
    EXPECT_FALSE(IsEnabled(u"btn1IncTodos"));
    EXPECT_TRUE(IsTabEnabled(Tab::Links));
    EXPECT_EQ(Parts().colTabelas.Count(), 2);
    EXPECT_TRUE(app.InputBoxes().empty());

    Click(u"btn1ExcTodos");
    EXPECT_TRUE(Picked().empty());
    EXPECT_EQ(Listed(), (Rows{u"Cidade", u"Cliente"})) << "the third one is lost";
    EXPECT_FALSE(IsTabEnabled(Tab::Campos));
    EXPECT_FALSE(IsEnabled(u"btn1ExcTodos"));
    EXPECT_TRUE(IsEnabled(u"btn1IncTodos"));
  });
}

TEST_F(WizardTables, OneTableIsTheMainOneAtATime) {
  RunConnected([&] {
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cliente");
    Check(u"lst1TabSel", u"Cidade");
    EXPECT_FALSE(List(u"lst1TabSel").Item(1).Checked());
    EXPECT_TRUE(List(u"lst1TabSel").Item(2).Checked());
    Check(u"lst1TabSel", u"Cidade");
    EXPECT_FALSE(List(u"lst1TabSel").Item(2).Checked()) << "a check can be cleared";
  });
}

TEST_F(WizardTables, TheKeyboardDoesWhatTheMouseDoes) {
  RunConnected([&] {
    window->FocusOn(u"lst1TabTodas");
    window->Press(memory::Key::Down);
    window->Press(memory::Key::Down);
    window->FocusOn(u"btn1Inc");
    window->Press(memory::Key::Enter);
    window->FocusOn(u"lst1TabSel");
    window->Type(u" ");
    EXPECT_EQ(Picked(), (Rows{u"Cidade"}));
    EXPECT_TRUE(List(u"lst1TabSel").Item(1).Checked());
  });
}

// --- Names with "_" and aliases accepted

TEST_F(WizardTables, WithAliasesANameWithAnUnderscoreIsATable) {
  RunWithAliases([&] {
    Pick({u"Pedido_Item"});
    EXPECT_EQ(Picked(), (Rows{u"Pedido_Item"}));
    EXPECT_EQ(TableOf(u"Pedido_Item"), u"Pedido_Item");
    Click(u"btn1IncTodos");
    EXPECT_EQ(Picked(), (Rows{u"Pedido_Item", u"Cliente", u"Cidade"}));
    Click(u"btn1ExcTodos");
    EXPECT_EQ(Listed(), (Rows{u"Pedido_Item", u"Cliente", u"Cidade"}));
  });
}

TEST_F(WizardTables, WithAliasesARowThatLeavesTakesItsEntryAlong) {
  RunWithAliases([&] {
    Pick({u"Cliente", u"Pedido_Item"});
    app.WillEnter(u"Pagador");
    Pick({u"Cliente"});
    PutBack({u"Pagador"});
    EXPECT_FALSE(HasEntry(u"Pagador"));
    EXPECT_EQ(Listed().size(), 3U) << "an alias is no table";
    PutBack({u"Pedido_Item"});
    EXPECT_FALSE(HasEntry(u"Pedido_Item"));
    app.WillEnter(u"Pagador");
    Pick({u"Cliente"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Pagador"}));
    EXPECT_EQ(TableOf(u"Pagador"), u"Cliente");
    Click(u"btn1ExcTodos");
    EXPECT_EQ(Parts().colTabelas.Count(), 0);
    EXPECT_EQ(Listed(), (Rows{u"Cliente", u"Pedido_Item", u"Cidade"}));
    ExpectNoBox();
  });
}

TEST_F(WizardTables, WithAliasesATableComesBackBesideItsAlias) {
  RunWithAliases([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Cliente_1");
    Pick({u"Cliente"});
    PutBack({u"Cliente"});
    Pick({u"Cliente"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente_1", u"Cliente"}));
    EXPECT_EQ(TableOf(u"Cliente"), u"Cliente");
    EXPECT_EQ(TableOf(u"Cliente_1"), u"Cliente");
  });
}

// Without aliases a row leaves its entry behind.
TEST_F(WizardTables, WithAliasesAnEntryOfARowThatHasGoneIsNotTaken) {
  RunConnected([&] {
    Pick({u"Cliente"});
    app.WillEnter(u"Pedido_Item");
    Pick({u"Cliente"});
    PutBack({u"Pedido_Item"});
    ASSERT_EQ(TableOf(u"Pedido_Item"), u"Cliente");
    Click(u"chkAceitaApelidos");
    Pick({u"Pedido_Item"});
    EXPECT_EQ(Picked(), (Rows{u"Cliente", u"Pedido_Item"}));
    EXPECT_EQ(TableOf(u"Pedido_Item"), u"Pedido_Item");
    ExpectNoBox();
  });
}

TEST_F(WizardTables, WithAliasesARowOfAnEarlierConnectionIsATable) {
  RunWithAliases([&] {
    Pick({u"Cliente"});
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    PutBack({u"Cliente"});
    EXPECT_TRUE(Picked().empty());
    EXPECT_EQ(Parts().colTabelas.Count(), 0);
    ExpectNoBox();
  });
}

}  // namespace
}  // namespace tessaria::test
