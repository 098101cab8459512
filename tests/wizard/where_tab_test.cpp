// The fields that are compared with controls of the form.
#include "wizard/where_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"
#include "wizard/hand_over_texts.h"
#include "wizard/list_rows.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardWhere : public WizardTest {
 protected:
  WizardWhere() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}};
    database->fields = {{u"Cliente", {u"Codigo", u"Nome"}}, {u"Cidade", {u"Codigo"}}};
  }
  /// The tab with the fields of one table, and two controls to compare with.
  void RunWhere(const std::function<void()>& work) {
    Run([&] {
      for (const char16_t* control : {u"txtCodigo", u"txtNome"})
        Parts().Combo(u"cmb6Objeto").AddItem(control);
      Connect();
      Pick({u"Cliente"});
      GoTo(Tab::Where);
      Choose(u"cmb6Tab", u"Cliente");
      work();
    });
  }
  void Search(StringView field) {
    Select(u"lst6Cmp", field);
    Click(u"btn6CmpInc");
  }
  /// For the selected row.
  void Compare(StringView how, StringView control, StringView type) {
    Choose(u"cmb6TipoBusca", how);
    Choose(u"cmb6Objeto", control);
    Choose(u"cmb6TipoDado", type);
  }
  Rows Searched() { return RowsOf(u"lst6CmpSel"); }
  Rows SubItems(Long row) {
    return wizard::RowsOf(List(u"lst6CmpSel"))[static_cast<std::size_t>(row - 1)].SubItems;
  }
  Rows Boxes() {
    return {Combo(u"cmb6TipoBusca").Text(), Combo(u"cmb6Objeto").Text(),
            Combo(u"cmb6TipoDado").Text()};
  }
};

TEST_F(WizardWhere, ASearchedFieldHasItsTableAlsoWhenItIsTheOnlyOne) {
  RunWhere([&] {
    EXPECT_EQ(RowsOf(u"lst6Cmp"), (Rows{u"Codigo", u"Nome"}));
    Search(u"Codigo");
    window->DoubleClickRow(u"lst6Cmp", 2);
    EXPECT_EQ(Searched(), (Rows{u"Cliente.Codigo", u"Cliente.Nome"}));
    EXPECT_EQ(Selected(u"lst6CmpSel"), u"Cliente.Nome");
    EXPECT_EQ(SubItems(2), (Rows{u"", u"", u""}));
    EXPECT_EQ(Boxes(), (Rows{u"", u"", u""}));
    EXPECT_EQ(window->Focused(), u"lst6CmpSel");
    ExpectNoBox();
  });
}

TEST_F(WizardWhere, AFieldIsSearchedOnce) {
  RunWhere([&] {
    Search(u"Codigo");
    Search(u"Codigo");
    ExpectAlert(u"Campo Já Incluído");
    EXPECT_EQ(Searched(), (Rows{u"Cliente.Codigo"}));
  });
}

TEST_F(WizardWhere, TheBoxesOfferComparisonsControlsAndTypes) {
  RunWhere([&] {
    EXPECT_EQ(Choices(u"cmb6TipoBusca"), (Rows{u"=", u"<>", u">=", u"<="}));
    EXPECT_EQ(Choices(u"cmb6Objeto"), (Rows{u"txtCodigo", u"txtNome"}));
    EXPECT_EQ(Choices(u"cmb6TipoDado"), (Rows{u"Numerico", u"String", u"Data"}));
  });
}

TEST_F(WizardWhere, ABoxIsStoredWhenItIsLeft) {
  RunWhere([&] {
    Search(u"Codigo");
    Choose(u"cmb6TipoBusca", u">=");
    EXPECT_EQ(SubItems(1), (Rows{u"", u"", u""}));
    Choose(u"cmb6Objeto", u"txtCodigo");
    EXPECT_EQ(SubItems(1), (Rows{u">=", u"", u""}));
    Choose(u"cmb6TipoDado", u"Numerico");
    GoTo(Tab::Tabelas);
    EXPECT_EQ(SubItems(1), (Rows{u">=", u"txtCodigo", u"Numerico"}));
  });
}

TEST_F(WizardWhere, TheBoxesShowTheRowThatIsClicked) {
  RunWhere([&] {
    Search(u"Codigo");
    Compare(u"=", u"txtCodigo", u"Numerico");
    Search(u"Nome");
    EXPECT_EQ(Boxes(), (Rows{u"", u"", u""}));
    Compare(u">=", u"txtNome", u"String");
    Select(u"lst6CmpSel", u"Cliente.Codigo");
    EXPECT_EQ(Boxes(), (Rows{u"=", u"txtCodigo", u"Numerico"}));
    window->Press(memory::Key::Down);
    EXPECT_EQ(Boxes(), (Rows{u">=", u"txtNome", u"String"}));
    EXPECT_EQ(wizard::BrwWhere(wizard::RowsOf(List(u"lst6CmpSel"))),
              u"Cliente.Codigo=@txtCodigo@ and Cliente.Nome>='@txtNome@'");
  });
}

TEST_F(WizardWhere, ARowThatWasLeftEmptyComparesWithNothing) {
  RunWhere([&] {
    Search(u"Codigo");
    EXPECT_EQ(wizard::BrwWhere(wizard::RowsOf(List(u"lst6CmpSel"))), u"Cliente.Codigo@@");
  });
}

TEST_F(WizardWhere, AControlThatIsNoLongerOfferedShowsNothing) {
  RunWhere([&] {
    Search(u"Codigo");
    Compare(u"=", u"txtCodigo", u"Numerico");
    GoTo(Tab::Tabelas);
    Parts().Combo(u"cmb6Objeto").Clear();
    GoTo(Tab::Where);
    Select(u"lst6CmpSel", u"Cliente.Codigo");
    EXPECT_EQ(Boxes(), (Rows{u"=", u"", u"Numerico"}));
    EXPECT_EQ(SubItems(1), (Rows{u"=", u"txtCodigo", u"Numerico"}));
  });
}

TEST_F(WizardWhere, RemovingARowShowsTheFirst) {
  RunWhere([&] {
    Click(u"btn6CmpExc");
    Search(u"Codigo");
    Compare(u"=", u"txtCodigo", u"Numerico");
    Search(u"Nome");
    Click(u"btn6CmpExc");
    EXPECT_EQ(Searched(), (Rows{u"Cliente.Codigo"}));
    EXPECT_EQ(Boxes(), (Rows{u"=", u"txtCodigo", u"Numerico"}));
    Click(u"btn6CmpExc");
    EXPECT_TRUE(Searched().empty());
    EXPECT_TRUE(window->UnhandledErrors().empty());
  });
}

TEST_F(WizardWhere, WithoutARowABoxIsLeftFreely) {
  RunWhere([&] {
    Compare(u"=", u"txtCodigo", u"Numerico");
    GoTo(Tab::Tabelas);
    ExpectNoBox();
  });
}

TEST_F(WizardWhere, AMovedRowHasLostItsComparison) {
  RunWhere([&] {
    Search(u"Codigo");
    Compare(u"=", u"txtCodigo", u"Numerico");
    Search(u"Nome");
    Compare(u">=", u"txtNome", u"String");
    Click(u"btn6CmpSobe");
    EXPECT_EQ(Searched(), (Rows{u"Cliente.Nome", u"Cliente.Codigo"}));
    EXPECT_EQ(wizard::BrwWhere(wizard::RowsOf(List(u"lst6CmpSel"))), u"Cliente.Codigo=@txtCodigo@");
    Select(u"lst6CmpSel", u"Cliente.Nome");
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(Boxes(), (Rows{u">=", u"txtNome", u"String"})) << "the boxes stay";
    window->FocusOn(u"cmb6Objeto");
    window->FocusOn(u"lst6Cmp");
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(window->UnhandledErrors().size(), 2U);
    Select(u"lst6CmpSel", u"Cliente.Codigo");
    Click(u"btn6CmpDesce");
    Click(u"btn6CmpSobe");
    EXPECT_EQ(SubItems(2), Rows{});
  });
}

TEST_F(WizardWhere, WithoutATableThereIsNothingToAdd) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Where);
    Click(u"btn6CmpInc");
    ExpectUnhandled(errors::ObjectNotSet);
    EXPECT_TRUE(Searched().empty());
  });
}

}  // namespace
}  // namespace tessaria::test
