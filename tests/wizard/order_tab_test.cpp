// The fields that sort the laid out statement.
#include "wizard/order_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardOrder : public WizardTest {
 protected:
  WizardOrder() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}};
    database->fields = {{u"Cliente", {u"Codigo"}}};
  }
  void SetColumns(const Rows& fields) {
    Parts().cgrColGrid.Clear();
    for (const String& field : fields) Parts().cgrColGrid.Add(field, field, u"", 100, true);
    Parts().OnColumns();
  }
  /// The tab, as after these fields were retrieved; `accepted` is the check box.
  void RunOrder(const Rows& fields, const std::function<void()>& work, bool accepted = false) {
    Run([&] {
      if (accepted) Click(u"chkAceitaApelidos");
      SetColumns(fields);
      Parts().Grid().Column(0).Caption(fields.front());
      frmMontaSql::Instance()->AtualizaAbas();
      GoTo(Tab::Ordem);
      work();
    });
  }
  void Include(StringView field) {
    Select(u"lst5CmpTodos", field);
    Click(u"btn5Inc");
  }
  Rows Unused() { return RowsOf(u"lst5CmpTodos"); }
  Rows Used() { return RowsOf(u"lst5CmpSel"); }
};

TEST_F(WizardOrder, TheFieldsOfTheColumnsAreOffered) {
  RunOrder({u"Codigo", u"Nome", u"Uf"}, [&] {
    EXPECT_EQ(Unused(), (Rows{u"Codigo", u"Nome", u"Uf"}));
    EXPECT_TRUE(Used().empty());
  });
}

TEST_F(WizardOrder, FieldsGoThereAndBack) {
  RunOrder({u"Codigo", u"Nome", u"Uf"}, [&] {
    Include(u"Uf");
    window->DoubleClickRow(u"lst5CmpTodos", 1);
    EXPECT_EQ(Unused(), (Rows{u"Nome"}));
    EXPECT_EQ(Used(), (Rows{u"Uf", u"Codigo"}));
    Select(u"lst5CmpSel", u"Uf");
    Click(u"Btn5Exc");
    EXPECT_EQ(Unused(), (Rows{u"Nome", u"Uf"}));
    Click(u"btn5IncTodos");
    EXPECT_EQ(Used(), (Rows{u"Codigo", u"Nome", u"Uf"}));
    EXPECT_FALSE(IsEnabled(u"btn5Inc"));
    EXPECT_FALSE(IsEnabled(u"btn5IncTodos"));
    EXPECT_TRUE(IsEnabled(u"Btn5Exc"));
    Click(u"btn5ExcTodos");
    EXPECT_EQ(Unused(), (Rows{u"Codigo", u"Nome", u"Uf"}));
    EXPECT_FALSE(IsEnabled(u"Btn5Exc"));
    EXPECT_FALSE(IsEnabled(u"btn5ExcTodos"));
    EXPECT_TRUE(app.InputBoxes().empty());
    EXPECT_EQ(Parts().colTabelas.Count(), 0) << "fields are no tables";
  });
}

TEST_F(WizardOrder, ANewOrderDoesNotSurviveALeave) {
  RunOrder({u"Codigo", u"Nome", u"Uf"}, [&] {
    Include(u"Nome");
    Include(u"Codigo");
    EXPECT_EQ(Used(), (Rows{u"Nome", u"Codigo"}));
    Select(u"lst5CmpSel", u"Codigo");
    Click(u"btn5CmpSobe");
    EXPECT_EQ(Used(), (Rows{u"Codigo", u"Nome"}));
    Click(u"btn5CmpDesce");
    EXPECT_EQ(Used(), (Rows{u"Nome", u"Codigo"}));
    GoTo(Tab::Tabelas);
    GoTo(Tab::Ordem);
    EXPECT_EQ(Used(), (Rows{u"Codigo", u"Nome"})) << "the order of the columns";
    EXPECT_EQ(Unused(), (Rows{u"Uf"}));
  });
}

TEST_F(WizardOrder, AFieldThatLeftTheStatementIsDropped) {
  RunOrder({u"Codigo", u"Nome"}, [&] {
    Click(u"btn5IncTodos");
    GoTo(Tab::Tabelas);
    SetColumns({u"Uf", u"Nome"});
    GoTo(Tab::Ordem);
    EXPECT_EQ(Unused(), (Rows{u"Uf"}));
    EXPECT_EQ(Used(), (Rows{u"Nome"}));
    EXPECT_FALSE(IsEnabled(u"btn5Inc")) << "the buttons stay as they were";
  });
}

TEST_F(WizardOrder, ANameWithAnUnderscoreIsLost) {
  const Rows fields{u"cod_cidade", u"nome"};
  RunOrder(fields, [&] {
    Include(u"cod_cidade");
    EXPECT_EQ(Unused(), (Rows{u"nome"}));
    EXPECT_TRUE(Used().empty());
    GoTo(Tab::Tabelas);
    GoTo(Tab::Ordem);
    EXPECT_EQ(Unused(), fields) << "it is there again";
    Click(u"btn5IncTodos");
    EXPECT_EQ(Used(), (Rows{u"nome"}));
    EXPECT_TRUE(Unused().empty());
  });
}

TEST_F(WizardOrder, WithAliasesAcceptedItIsCarried) {
  RunOrder(
      {u"cod_cidade", u"nome"},
      [&] {
        Include(u"cod_cidade");
        EXPECT_EQ(Used(), (Rows{u"cod_cidade"}));
        Click(u"Btn5Exc");
        EXPECT_EQ(Unused(), (Rows{u"nome", u"cod_cidade"}));
        Click(u"btn5IncTodos");
        EXPECT_EQ(Used(), (Rows{u"nome", u"cod_cidade"}));
        Click(u"btn5ExcTodos");
        EXPECT_EQ(Unused(), (Rows{u"nome", u"cod_cidade"}));
      },
      true);
}

TEST_F(WizardOrder, AChosenNameWithAnUnderscoreIsLostOnItsWayBackUntilTheTabIsEnteredAgain) {
  const Rows fields{u"cod_cidade", u"nome", u"id_uf"};
  const auto choose = [&] {
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    GoTo(Tab::Ordem);
    Click(u"btn5IncTodos");
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    GoTo(Tab::Ordem);
    EXPECT_EQ(Used(), fields);
  };
  RunOrder(fields, [&] {
    choose();
    Select(u"lst5CmpSel", u"cod_cidade");
    Click(u"Btn5Exc");
    EXPECT_EQ(Used(), (Rows{u"nome", u"id_uf"}));
    EXPECT_TRUE(Unused().empty());
    GoTo(Tab::Tabelas);
    GoTo(Tab::Ordem);
    EXPECT_EQ(Unused(), (Rows{u"cod_cidade"}));
    Click(u"btn5ExcTodos");
    EXPECT_TRUE(Used().empty());
    EXPECT_EQ(Unused(), (Rows{u"cod_cidade", u"nome"}));
    GoTo(Tab::Tabelas);
    GoTo(Tab::Ordem);
    EXPECT_EQ(Unused(), fields);
  });
}

TEST_F(WizardOrder, AFieldThatIsChosenTwiceGetsAnotherName) {
  RunOrder({u"Codigo", u"Codigo"}, [&] {
    EXPECT_EQ(Unused(), (Rows{u"Codigo", u"Codigo"}));
    Include(u"Codigo");
    app.WillEnter(u"Outro");
    Include(u"Codigo");
    ASSERT_EQ(app.InputBoxes().size(), 1U);
    EXPECT_EQ(app.InputBoxes()[0].Prompt, u"Informe um Alias Para a Tabela");
    EXPECT_EQ(app.InputBoxes()[0].Offered, u"Codigo_1");
    EXPECT_EQ(Used(), (Rows{u"Codigo", u"Outro"}));
    EXPECT_EQ(Parts().colTabelas.Count(), 0) << "fields are no tables";
  });
}

TEST_F(WizardOrder, WithNothingSelectedAButtonIsAnError) {
  RunOrder({u"Codigo"}, [&] {
    Click(u"Btn5Exc");
    ExpectUnhandled(errors::ObjectNotSet);
    Click(u"btn5CmpSobe");
    ExpectUnhandled(errors::ObjectNotSet);
    EXPECT_EQ(Unused(), (Rows{u"Codigo"}));
  });
}

}  // namespace
}  // namespace tessaria::test
