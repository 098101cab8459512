// The example of the guide to the SQL wizard, by mouse: from two tables to a lookup that runs.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTableView>

#include "tests/designer/wizard_drive.h"

namespace tessaria::tests {
namespace {

/// What "Confirmar" fills.
const QList<PageText> kFilledByMouse{
    {"txtBrwTitulo", QStringLiteral("Cidades")},
    {"txtBrowseTable", QStringLiteral("cidades")},
    {"txtBrwCampo", QStringLiteral("codigo")},
    {"txtBrwCampoIrmao", QStringLiteral("nome")},
    {"txtBrwCampoOutros",
     QStringLiteral("cidades.ddd, estados.nome as estado, Substring(cidades.cep,  1,  5) || '-' || "
                    "Substring(cidades.cep,  6,  3) || '' as cepfmt")},
    {"txtBrwLeftJoin", QStringLiteral("cidades Left Join estados on (estados.uf=cidades.uf)")},
    {"txtBrwWhere", QStringLiteral("cidades.uf='@txtUf@'")},
};

class WizardByMouse : public WizardDrive {
 protected:
  WizardByMouse() : WizardDrive("cidade.ui") {}

  static void goTo(Step step) {
    clickTabAt("tabWizard", static_cast<int>(step));
    EXPECT_EQ(frontStep(), step);
  }
  /// For the guide.
  static void show(Step step) {
    const int number = static_cast<int>(step) + 1;
    picture(*wizardDialog(), QStringLiteral("wizard-%1").arg(number));
  }
  static void take(const char* list, const QString& row, const char* button) {
    clickRow(list, row);
    clickButton(button);
  }
  static void startPiece(const QString& table, const QString& field) {
    choose("cmb3Tab", table);
    take("lst3Cmp", field, "btn3Concatena");
  }
  static QHeaderView& headings() {
    return *inFront<QWidget>("grdWizard").findChild<QTableView*>()->horizontalHeader();
  }
  static QPoint headingAt(int column, int fromLeft) {
    const QPoint place(headings().sectionViewportPosition(column) + fromLeft,
                       headings().height() / 2);
    return headings().viewport()->mapToGlobal(place);
  }

  static void pickTables();
  static void link();
  static void pickFields();
  static void setColumns();
  static void widenByDragging(int column);
  static void order();
  static void restrict();
  static void takeReturnFields();
  void makeLookup();
  void changeCaption(const char* button);
  void changeCaptionByGrid();
  void addSearch();
  void makeDescription();
};

void WizardByMouse::pickTables() {
  choose("cmbSistema", QStringLiteral("loja"));
  clickButton("btnConectar");
  take("lst1TabTodas", QStringLiteral("cidades"), "btn1Inc");
  take("lst1TabTodas", QStringLiteral("estados"), "btn1Inc");
  clickMarkOfRow("lst1TabSel", QStringLiteral("cidades"));
  show(Step::Tabelas);
}

void WizardByMouse::link() {
  goTo(Step::Links);
  choose("cmb2TabPai", QStringLiteral("cidades"));
  clickRow("lst2CmpPai", QStringLiteral("uf"));
  choose("cmb2TabFilho", QStringLiteral("estados"));
  clickRow("lst2CmpFilho", QStringLiteral("uf"));
  clickButton("btn2LnkAdiciona");
  EXPECT_EQ(countOf("lst2Links"), 1);
  show(Step::Links);
}

void WizardByMouse::pickFields() {
  goTo(Step::Campos);
  choose("cmb3Tab", QStringLiteral("cidades"));
  for (const char* name : {"codigo", "nome", "ddd"})
    take("lst3Cmp", QLatin1String(name), "btn3Inclui");
  startPiece(QStringLiteral("estados"), QStringLiteral("nome"));
  fill("txt3ConcNome", QStringLiteral("estado"));
  clickButton("btn3CriaConcatena");
  startPiece(QStringLiteral("cidades"), QStringLiteral("cep"));
  fill("txt3ConcMascara", QStringLiteral("#####-###"));
  fill("txt3ConcNome", QStringLiteral("cepfmt"));
  show(Step::Campos);
  clickButton("btn3CriaConcatena");
  EXPECT_EQ(countOf("lst3CmpSel"), 5);
}

void WizardByMouse::widenByDragging(int column) {
  const int width = headings().sectionSize(column);
  dragTo(headingAt(column, width - 1), headingAt(column, width + 80));
  EXPECT_TRUE(waitFor([=] { return headings().sectionSize(column) > width + 60; }));
}

void WizardByMouse::setColumns() {
  goTo(Step::Grid);
  fill("txt4Caption", QStringLiteral("Cidades"));
  clickButton("btn4Retrieve");
  ASSERT_TRUE(isRetrieved(5));
  struct Column {
    const char* field;
    QString caption;
    const char* width;
  };
  for (const Column& column : {Column{"codigo", QStringLiteral("Código"), "900"},
                               {"nome", QStringLiteral("Cidade"), "3000"},
                               {"cepfmt", QStringLiteral("CEP"), "1200"}}) {
    choose("cmb4Coluna", QLatin1String(column.field));
    fill("txt4GrdCaption", column.caption);
    fill("txt4GrdWidth", QLatin1String(column.width));
  }
  clickAt(headingAt(3, 10));
  EXPECT_TRUE(waitFor([] { return textOf("txt4GrdCaption") == QLatin1String("estado"); }));
  fill("txt4GrdCaption", QStringLiteral("Estado"));
  widenByDragging(3);
  clickAt(headingAt(2, 10));
  EXPECT_TRUE(waitFor([] { return textOf("txt4GrdCaption") == QLatin1String("ddd"); }));
  clickMark("chk4GrdVisible");
  show(Step::Grid);
}

void WizardByMouse::order() {
  goTo(Step::Ordem);
  take("lst5CmpTodos", QStringLiteral("nome"), "btn5Inc");
  EXPECT_EQ(countOf("lst5CmpSel"), 1);
  show(Step::Ordem);
}

void WizardByMouse::restrict() {
  goTo(Step::Where);
  choose("cmb6Tab", QStringLiteral("cidades"));
  take("lst6Cmp", QStringLiteral("uf"), "btn6CmpInc");
  choose("cmb6TipoBusca", QStringLiteral("="));
  choose("cmb6Objeto", QStringLiteral("txtUf"));
  choose("cmb6TipoDado", QStringLiteral("String"));
  clickRow("lst6CmpSel", QStringLiteral("cidades.uf"));
  show(Step::Where);
}

void WizardByMouse::takeReturnFields() {
  goTo(Step::Retorno);
  EXPECT_FALSE(inFront<QPushButton>("btnConfirma").isEnabled());
  take("lst7Cmp", QStringLiteral("codigo"), "btn7CmpChaveInc");
  take("lst7Cmp", QStringLiteral("nome"), "btn7CmpIrmaoInc");
  take("lst7Cmp", QStringLiteral("ddd"), "btn7CmpRetInc");
  show(Step::Retorno);
}

void WizardByMouse::makeLookup() {
  workInWizard(
      [] { clickButton("btnSql"); },
      [] {
        pickTables();
        link();
        pickFields();
        setColumns();
        order();
        restrict();
        takeReturnFields();
        goTo(Step::SqlPronta);
        EXPECT_EQ(
            statement(),
            "SELECT cidades.codigo, cidades.nome, cidades.ddd, estados.nome as estado,"
            " Substring(cidades.cep, 1, 5) || '-' || Substring(cidades.cep, 6, 3) || '' as cepfmt"
            " FROM cidades Left Join estados on (estados.uf=cidades.uf)"
            " WHERE cidades.uf='@txtUf@' ORDER BY nome");
        show(Step::SqlPronta);
        clickButton("btnConfirma");
      });
  expectFilled(kFilledByMouse);
  EXPECT_FALSE(inFront<QPushButton>("btnSql").isEnabled());
}

void WizardByMouse::changeCaption(const char* button) {
  workInWizard([] { clickButton("btnGrid"); },
               [=] {
                 EXPECT_EQ(frontStep(), Step::Grid);
                 EXPECT_EQ(textOf("txt4GrdCaption"), QStringLiteral("Código"));
                 fill("txt4GrdCaption", QStringLiteral("Número"));
                 clickButton(button);
               });
}

/// "Confirmar" empties the box of the other fields, whose text is pasted back.
void WizardByMouse::changeCaptionByGrid() {
  const QString others = textOf("txtBrwCampoOutros");
  clickTab(Tab::Principal);
  clickTab(Tab::Browse);
  const QStringList before = field("txtCidade").settings();
  changeCaption("btnVoltar");
  EXPECT_EQ(textOf("txtBrwCampoOutros"), others);
  EXPECT_EQ(field("txtCidade").settings(), before);
  clickOn(inFront<QLineEdit>("txtBrwCampoOutros"));
  press({QStringLiteral("ctrl+a"), QStringLiteral("ctrl+c")});
  changeCaption("btnConfirma");
  EXPECT_EQ(textOf("txtBrwCampoOutros"), QString());
  clickOn(inFront<QLineEdit>("txtBrwCampoOutros"));
  press({QStringLiteral("ctrl+v")});
  EXPECT_EQ(textOf("txtBrwCampoOutros"), others);
}

void WizardByMouse::addSearch() {
  clickTab(Tab::Pesquisa);
  clickButton("btnIncluir");
  fill("txtPesqCaption", QStringLiteral("Nome"));
  fill("txtPesqCampo", QStringLiteral("nome"));
  clickMark("optPesqString");
  clickMark("optPesqInicioCampo");
}

void WizardByMouse::makeDescription() {
  openPage(field("txtNome"));
  choose("txtTipoControle", QStringLiteral("3 - Descrição"));
  choose("txtTxtIrmao", QStringLiteral("txtCidade"));
  clickOn(*dialogButton(QStringLiteral("OK")));
  expectClosed();
}

TEST_F(WizardByMouse, MakesALookupThatRuns) {
  openPage(field("txtCidade"));
  choose("txtTipoControle", QStringLiteral("1 - Browse"));
  choose("txtTxtIrmao", QStringLiteral("txtNome"));
  clickTab(Tab::Browse);
  makeLookup();
  fill("txtBrwCampoIrmao", QStringLiteral("cidades.nome"));
  changeCaptionByGrid();
  EXPECT_EQ(textOf("txtBrwCampoIrmao"), QStringLiteral("cidades.nome"));
  addSearch();
  clickOn(*dialogButton(QStringLiteral("OK")));
  expectClosed();
  makeDescription();
  EXPECT_EQ(runSaved("cidade"),
            "columns: Número|Cidade|Estado|CEP\n"
            "rows: 58\n"
            "found: 00251|Campinas|São Paulo|13000-000\n"
            "chosen: 00251 Campinas\n"
            "returned: 19\n");
}

}  // namespace
}  // namespace tessaria::tests
