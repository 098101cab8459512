// The SQL wizard by keyboard alone, over all cities of Brazil: from a form to a lookup that runs.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QtDesigner/QDesignerObjectInspectorInterface>

#include "tests/designer/wizard_drive.h"

namespace tessaria::tests {
namespace {

const QString kStateField = QStringLiteral("unidades.nome || ' - ' || unidades.sigla as estado");
const QString kMaskedField =
    QStringLiteral("'UF-' || Substring(unidades.sigla,  1,  2) || '' as uf");

/// What "Confirmar" fills: key and sibling have their table in front, since names with "_" and
/// aliases are accepted.
const QList<PageText> kFilledByKeys{
    {"txtBrwTitulo", QStringLiteral("Municípios")},
    {"txtBrowseTable", QStringLiteral("municipios")},
    {"txtBrwCampo", QStringLiteral("municipios.id")},
    {"txtBrwCampoIrmao", QStringLiteral("municipios.nome")},
    {"txtBrwCampoOutros",
     QStringLiteral("unidades.sigla, ") + kStateField + QStringLiteral(", ") + kMaskedField},
    {"txtBrwLeftJoin",
     QStringLiteral("municipios Left Join unidades on (unidades.id=municipios.unidade)")},
    {"txtBrwWhere", QStringLiteral("unidades.sigla<>'@txtUf@'")},
};

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
  static void leaveBy(const QString& mnemonic) {
    press({mnemonic});
    EXPECT_TRUE(waitFor([] { return wizardDialog() == nullptr; }));
  }

  static void pickTables();
  static void link();
  static void addText(const QString& text);
  static void concatenate();
  static void concatenateWithMask();
  static void pickFields();
  static void setColumn(const QString& column, const QString& caption, const QString& mask,
                        const QString& width);
  static void setColumns();
  static void order();
  static void restrict();
  static void takeReturnFields();
  static void makeLookup();
  static void changeCaption(const QString& leave);
  void changeCaptionByGrid();
  static void addSearch();
  static void accept();
};

/// In the tree of the form's widgets.
void WizardByKeys::selectByKeys(const char* name) {
  designer().objectInspector()->findChild<QAbstractItemView*>()->setFocus();
  press({QStringLiteral("Home")});
  const auto isSelected = [&] { return form_.cursor()->isWidgetSelected(&field(name)); };
  for (int i = 0; i < 8 && !isSelected(); ++i) press({QStringLiteral("Down")});
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
  pressButton("chkAceitaApelidos");
  pressButton("btnConectar");
  take("lst1TabTodas", QStringLiteral("municipios"), "btn1Inc");
  take("lst1TabTodas", QStringLiteral("unidades"), "btn1Inc");
  goToRow("lst1TabSel", QStringLiteral("municipios"));
  press({QStringLiteral("space")});
}

/// The fields of the foreign key are selected already.
void WizardByKeys::link() {
  goTo(Step::Links);
  chooseByKeys("cmb2TabPai", QStringLiteral("municipios"));
  chooseByKeys("cmb2TabFilho", QStringLiteral("unidades"));
  pressButton("btn2LnkAdiciona");
  EXPECT_EQ(rowsOf("lst2Links"), QStringList{QStringLiteral("unidades.id=municipios.unidade")});
}

void WizardByKeys::addText(const QString& text) {
  const auto box = [] { return openWindow("InputBox"); };
  workInside([] { pressButton("btn3ConcIncluir"); },
             [=] { return box() && box()->isActiveWindow(); },
             [=] {
               press({QStringLiteral("ctrl+a")});
               typeText(text);
               press({QStringLiteral("Return")});
             });
}

void WizardByKeys::concatenate() {
  take("lst3Cmp", QStringLiteral("sigla"), "btn3Concatena");
  addText(QStringLiteral("' - '"));
  take("lst3Cmp", QStringLiteral("nome"), "btn3Concatena");
  take("lst3Concatena", QStringLiteral("unidades.sigla"), "btn3ConcDesce");
  take("lst3Concatena", QStringLiteral("unidades.sigla"), "btn3ConcDesce");
  take("lst3Concatena", QStringLiteral("unidades.nome"), "btn3ConcSobe");
  fillByKeys("txt3ConcNome", QStringLiteral("estado"));
  pressButton("btn3CriaConcatena");
}

void WizardByKeys::concatenateWithMask() {
  take("lst3Cmp", QStringLiteral("sigla"), "btn3Concatena");
  fillByKeys("txt3ConcMascara", QStringLiteral("UF-##"));
  fillByKeys("txt3ConcNome", QStringLiteral("uf"));
  pressButton("btn3CriaConcatena");
}

/// The key is taken late, and brought to the front.
void WizardByKeys::pickFields() {
  goTo(Step::Campos);
  chooseByKeys("cmb3Tab", QStringLiteral("municipios"));
  take("lst3Cmp", QStringLiteral("nome"), "btn3Inclui");
  take("lst3Cmp", QStringLiteral("id"), "btn3Inclui");
  take("lst3CmpSel", QStringLiteral("municipios.id"), "btn3CmpSelSobe");
  chooseByKeys("cmb3Tab", QStringLiteral("unidades"));
  concatenate();
  take("lst3Cmp", QStringLiteral("sigla"), "btn3Inclui");
  concatenateWithMask();
  take("lst3CmpSel", kStateField, "btn3CmpSelDesce");
  EXPECT_EQ(rowsOf("lst3CmpSel"),
            (QStringList{QStringLiteral("municipios.id"), QStringLiteral("municipios.nome"),
                         QStringLiteral("unidades.sigla"), kStateField, kMaskedField}));
}

void WizardByKeys::setColumn(const QString& column, const QString& caption, const QString& mask,
                             const QString& width) {
  chooseByKeys("cmb4Coluna", column);
  fillByKeys("txt4GrdCaption", caption);
  fillByKeys("txt4GrdMascara", mask);
  fillByKeys("txt4GrdWidth", width);
}

void WizardByKeys::setColumns() {
  goTo(Step::Grid);
  fillByKeys("txt4Caption", QStringLiteral("Municípios"));
  pressButton("btn4Retrieve");
  ASSERT_TRUE(isRetrieved(5));
  setColumn(QStringLiteral("id"), QStringLiteral("Código"), QStringLiteral("000000"),
            QStringLiteral("1200"));
  setColumn(QStringLiteral("nome"), QStringLiteral("Município"), {}, QStringLiteral("3600"));
  setColumn(QStringLiteral("estado"), QStringLiteral("Estado"), {}, QStringLiteral("3000"));
  chooseByKeys("cmb4Coluna", QStringLiteral("sigla"));
  pressButton("chk4GrdVisible");
}

void WizardByKeys::order() {
  goTo(Step::Ordem);
  take("lst5CmpTodos", QStringLiteral("estado"), "btn5Inc");
  take("lst5CmpTodos", QStringLiteral("nome"), "btn5Inc");
  take("lst5CmpSel", QStringLiteral("nome"), "btn5CmpSobe");
  EXPECT_EQ(rowsOf("lst5CmpSel"), (QStringList{QStringLiteral("nome"), QStringLiteral("estado")}));
}

void WizardByKeys::restrict() {
  goTo(Step::Where);
  chooseByKeys("cmb6Tab", QStringLiteral("unidades"));
  take("lst6Cmp", QStringLiteral("sigla"), "btn6CmpInc");
  chooseByKeys("cmb6TipoBusca", QStringLiteral("<>"));
  chooseByKeys("cmb6Objeto", QStringLiteral("txtUf"));
  chooseByKeys("cmb6TipoDado", QStringLiteral("String"));
}

void WizardByKeys::takeReturnFields() {
  goTo(Step::Retorno);
  take("lst7Cmp", QStringLiteral("id"), "btn7CmpChaveInc");
  take("lst7Cmp", QStringLiteral("nome"), "btn7CmpIrmaoInc");
  take("lst7Cmp", QStringLiteral("sigla"), "btn7CmpRetInc");
  take("lst7Cmp", QStringLiteral("estado"), "btn7CmpRetInc");
  take("lst7CmpRet", QStringLiteral("sigla"), "btn7CmpRetDesce");
  EXPECT_EQ(rowsOf("lst7CmpRet"), (QStringList{QStringLiteral("estado"), QStringLiteral("sigla")}));
}

void WizardByKeys::makeLookup() {
  workInWizard([] { pressButton("btnSql"); },
               [] {
                 pickTables();
                 link();
                 pickFields();
                 setColumns();
                 order();
                 restrict();
                 takeReturnFields();
                 goTo(Step::SqlPronta);
                 EXPECT_EQ(statement(),
                           "SELECT municipios.id, municipios.nome, unidades.sigla,"
                           " unidades.nome || ' - ' || unidades.sigla as estado,"
                           " 'UF-' || Substring(unidades.sigla, 1, 2) || '' as uf"
                           " FROM municipios Left Join unidades on (unidades.id=municipios.unidade)"
                           " WHERE unidades.sigla<>'@txtUf@' ORDER BY nome, estado");
                 leaveBy(QStringLiteral("alt+c"));
               });
  expectFilled(kFilledByKeys);
}

void WizardByKeys::changeCaption(const QString& leave) {
  workInWizard([] { pressButton("btnGrid"); },
               [=] {
                 EXPECT_EQ(frontStep(), Step::Grid);
                 EXPECT_EQ(textOf("txt4GrdCaption"), QStringLiteral("Código"));
                 fillByKeys("txt4GrdCaption", QStringLiteral("Número"));
                 leaveBy(leave);
               });
}

/// "Confirmar" empties the box of the other fields, whose text is pasted back.
void WizardByKeys::changeCaptionByGrid() {
  const QString others = textOf("txtBrwCampoOutros");
  press({QStringLiteral("ctrl+Page_Up")});
  goTo(Tab::Browse);
  changeCaption(QStringLiteral("alt+v"));
  EXPECT_EQ(textOf("txtBrwCampoOutros"), others);
  reach("txtBrwCampoOutros");
  press({QStringLiteral("ctrl+a"), QStringLiteral("ctrl+c")});
  changeCaption(QStringLiteral("alt+c"));
  EXPECT_EQ(textOf("txtBrwCampoOutros"), QString());
  reach("txtBrwCampoOutros");
  press({QStringLiteral("ctrl+v")});
  expectFilled(kFilledByKeys);
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
  changeCaptionByGrid();
  addSearch();
  accept();
  openPageByKeys("txtNome");
  chooseByKeys("txtTipoControle", QStringLiteral("3 - Descrição"));
  chooseByKeys("txtTxtIrmao", QStringLiteral("txtMunicipio"));
  accept();
  EXPECT_EQ(runSaved("municipio"),
            "columns: Número|Município|Estado|uf\n"
            "rows: 5564\n"
            "columns: Número|Município|Estado|uf\n"
            "rows: 4919\n"
            "found: 005564|Xambioá|Tocantins - TO|UF-TO\n"
            "chosen: 5564 Xambioá\n"
            "returned: Tocantins - TO|TO\n");
}

}  // namespace
}  // namespace tessaria::tests
