// The SQL wizard by keyboard alone, over all cities of Brazil: from a form to a lookup that runs.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QtDesigner/QDesignerObjectInspectorInterface>

#include "tests/designer/wizard_drive.h"

namespace tessaria::tests {
namespace {

class WizardByKeys : public WizardDrive {
 protected:
  WizardByKeys() : WizardDrive("municipio.ui") {}

  void selectByKeys(const char* name);
  void openPageByKeys(const char* name);
  /// A tab of the page or of the wizard.
  template <class Place>
  static void goOn(Place (*front)(), Place place) {
    press({QStringLiteral("ctrl+Page_Down")});
    EXPECT_EQ(front(), place);
  }
  static void goTo(Step step) { goOn(&frontStep, step); }
  static void goTo(Tab tab) { goOn(&frontTab, tab); }
  static void take(const char* list, const QString& row, const char* button) {
    goToRow(list, row);
    pressButton(button);
  }

  static void pickTables();
  static void link();
  static void pickFields();
  static void setColumns();
  static void takeReturnFields();
  static void makeLookup();
  static void addSearch();
  static void accept();
};

/// In the tree of the form's widgets.
void WizardByKeys::selectByKeys(const char* name) {
  designer().objectInspector()->findChild<QAbstractItemView*>()->setFocus();
  press({QStringLiteral("Home")});
  const auto isSelected = [&] { return form_.cursor()->isWidgetSelected(&field(name)); };
  for (int i = 0; i < 5 && !isSelected(); ++i) press({QStringLiteral("Down")});
  ASSERT_TRUE(isSelected()) << name;
}

/// By the first entry of the context menu.
void WizardByKeys::openPageByKeys(const char* name) {
  selectByKeys(name);
  const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
  workInside([] { press({QStringLiteral("Menu")}); }, isOpen,
             [] {
               press({QStringLiteral("Down"), QStringLiteral("Return")});
             });
  ASSERT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
  EXPECT_TRUE(QTest::qWaitForWindowActive(pageDialog()));
}

/// The data source is that of the form's data control.
void WizardByKeys::pickTables() {
  EXPECT_EQ(inFront<QComboBox>("cmbSistema").currentText(), QStringLiteral("loja"));
  pressButton("btnConectar");
  take("lst1TabTodas", QStringLiteral("municipios"), "btn1Inc");
  take("lst1TabTodas", QStringLiteral("unidades"), "btn1Inc");
  goToRow("lst1TabSel", QStringLiteral("municipios"));
  press({QStringLiteral("space")});
}

void WizardByKeys::link() {
  goTo(Step::Links);
  chooseByKeys("cmb2TabPai", QStringLiteral("municipios"));
  goToRow("lst2CmpPai", QStringLiteral("unidade"));
  chooseByKeys("cmb2TabFilho", QStringLiteral("unidades"));
  goToRow("lst2CmpFilho", QStringLiteral("id"));
  pressButton("btn2LnkAdiciona");
  EXPECT_EQ(countOf("lst2Links"), 1);
}

void WizardByKeys::pickFields() {
  goTo(Step::Campos);
  chooseByKeys("cmb3Tab", QStringLiteral("municipios"));
  take("lst3Cmp", QStringLiteral("id"), "btn3Inclui");
  take("lst3Cmp", QStringLiteral("nome"), "btn3Inclui");
  chooseByKeys("cmb3Tab", QStringLiteral("unidades"));
  take("lst3Cmp", QStringLiteral("nome"), "btn3Concatena");
  fillByKeys("txt3ConcNome", QStringLiteral("estado"));
  pressButton("btn3CriaConcatena");
  take("lst3Cmp", QStringLiteral("sigla"), "btn3Inclui");
  EXPECT_EQ(countOf("lst3CmpSel"), 4);
}

void WizardByKeys::setColumns() {
  goTo(Step::Grid);
  fillByKeys("txt4Caption", QStringLiteral("Municípios"));
  pressButton("btn4Retrieve");
  ASSERT_TRUE(isRetrieved(4));
  chooseByKeys("cmb4Coluna", QStringLiteral("id"));
  fillByKeys("txt4GrdCaption", QStringLiteral("Número"));
  chooseByKeys("cmb4Coluna", QStringLiteral("nome"));
  fillByKeys("txt4GrdCaption", QStringLiteral("Município"));
  fillByKeys("txt4GrdWidth", QStringLiteral("3600"));
  chooseByKeys("cmb4Coluna", QStringLiteral("sigla"));
  pressButton("chk4GrdVisible");
}

void WizardByKeys::takeReturnFields() {
  goTo(Step::Ordem);
  take("lst5CmpTodos", QStringLiteral("nome"), "btn5Inc");
  goTo(Step::Where);
  goTo(Step::Retorno);
  take("lst7Cmp", QStringLiteral("id"), "btn7CmpChaveInc");
  take("lst7Cmp", QStringLiteral("nome"), "btn7CmpIrmaoInc");
  take("lst7Cmp", QStringLiteral("sigla"), "btn7CmpRetInc");
}

void WizardByKeys::makeLookup() {
  workInWizard(
      [] { pressButton("btnSql"); },
      [] {
        pickTables();
        link();
        pickFields();
        setColumns();
        takeReturnFields();
        goTo(Step::SqlPronta);
        EXPECT_EQ(statement(),
                  "SELECT municipios.id, municipios.nome, unidades.nome as estado, unidades.sigla"
                  " FROM municipios Left Join unidades on (unidades.id=municipios.unidade)"
                  " ORDER BY nome");
        press({QStringLiteral("alt+c")});
        EXPECT_TRUE(waitFor([] { return wizardDialog() == nullptr; }));
      });
}

void WizardByKeys::addSearch() {
  goTo(Tab::Pesquisa);
  pressButton("btnIncluir");
  typeText(QStringLiteral("Nome"));
  fillByKeys("txtPesqCampo", QStringLiteral("nome"));
  reach("optPesqNumerico");
  press({QStringLiteral("space"), QStringLiteral("Right")});
  reach("optPesqIgualCampo");
  press({QStringLiteral("space"), QStringLiteral("Right")});
}

void WizardByKeys::accept() {
  press({QStringLiteral("Return")});
  expectClosed();
}

TEST_F(WizardByKeys, MakesALookupThatRuns) {
  openPageByKeys("txtMunicipio");
  chooseByKeys("txtTipoControle", QStringLiteral("1 - Browse"));
  chooseByKeys("txtTxtIrmao", QStringLiteral("txtNome"));
  goTo(Tab::Browse);
  makeLookup();
  EXPECT_EQ(textOf("txtBrwLeftJoin"),
            QStringLiteral("municipios Left Join unidades on (unidades.id=municipios.unidade)"));
  fillByKeys("txtBrwCampo", QStringLiteral("municipios.id"));
  fillByKeys("txtBrwCampoIrmao", QStringLiteral("municipios.nome"));
  addSearch();
  accept();
  openPageByKeys("txtNome");
  chooseByKeys("txtTipoControle", QStringLiteral("3 - Descrição"));
  chooseByKeys("txtTxtIrmao", QStringLiteral("txtMunicipio"));
  accept();
  EXPECT_EQ(runSaved("municipio"),
            "columns: Número|Município|estado\n"
            "rows: 5564\n"
            "found: 5564|Xambioá|Tocantins\n"
            "chosen: 5564 Xambioá\n"
            "returned: TO\n");
}

}  // namespace
}  // namespace tessaria::tests
