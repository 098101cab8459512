// From two tables to a lookup that runs: the SQL wizard inside Designer, by mouse and by keys.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

#include "tests/designer/data_source.h"
#include "tests/designer/hands.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {
namespace {

/// The demo's tables, and beside them all states and cities of Brazil.
void fillServer() {
  auto& cluster = test::PostgresCluster::Shared();
  for (const char* file : {TESSARIA_DEMO_DATA "/load.sql", TESSARIA_MUNICIPIOS})
    cluster.RunFile(file);
  nameSource(qEnvironmentVariable("ODBCINI"));
}

/// The wizard's tabs, in order.
enum class Step { Tabelas, Links, Campos, Grid, Ordem, Where, Retorno, SqlPronta };

class WizardDrive : public testing::Test {
 protected:
  static void SetUpTestSuite() { fillServer(); }
  explicit WizardDrive(const char* file) : form_(*openForm(QLatin1String(file))) {
    select(form_, *form_.mainContainer());
  }
  ~WizardDrive() override {
    if (pageDialog()) pageDialog()->reject();
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
  }

  const QWidget& field(const char* name) { return *fieldOf(form_, QLatin1String(name)); }
  static int countOf(const char* list) { return inFront<QTreeWidget>(list).topLevelItemCount(); }
  static bool isRetrieved(int columns) {
    return waitFor([=] { return inFront<QComboBox>("cmb4Coluna").count() == columns; });
  }
  static QString oneLine(QString text) {
    return text.replace(QRegularExpression(QStringLiteral("\\s+")), QStringLiteral(" "));
  }

  BoxWatch boxes_;
  QDesignerFormWindowInterface& form_;
};

// --- By mouse ------------------------------------------------------------------------------------

class WizardByMouse : public WizardDrive {
 protected:
  WizardByMouse() : WizardDrive("cidade.ui") {}

  static void goTo(Step step) {
    clickTabAt("tabWizard", static_cast<int>(step));
    EXPECT_EQ(inFront<QTabWidget>("tabWizard").currentIndex(), static_cast<int>(step));
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
  static void concatenate(const QString& table, const QString& field, const QString& mask,
                          const QString& name) {
    choose("cmb3Tab", table);
    take("lst3Cmp", field, "btn3Concatena");
    if (!mask.isEmpty()) fill("txt3ConcMascara", mask);
    fill("txt3ConcNome", name);
    if (!mask.isEmpty()) show(Step::Campos);
    clickButton("btn3CriaConcatena");
  }

  static void pickTables();
  static void link();
  static void pickFields();
  static void setColumns();
  static void order();
  static void restrict();
  static void takeReturnFields();
  void makeLookup();
  void finishKey();
  void makeDescription();
  void changeACaption();
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
  concatenate(QStringLiteral("estados"), QStringLiteral("nome"), {}, QStringLiteral("estado"));
  concatenate(QStringLiteral("cidades"), QStringLiteral("cep"), QStringLiteral("#####-###"),
              QStringLiteral("cepfmt"));
  EXPECT_EQ(countOf("lst3CmpSel"), 5);
}

void WizardByMouse::setColumns() {
  goTo(Step::Grid);
  fill("txt4Caption", QStringLiteral("Cidades"));
  clickButton("btn4Retrieve");
  ASSERT_TRUE(isRetrieved(5));
  fill("txt4GrdCaption", QStringLiteral("Cidade"));
  choose("cmb4Coluna", QStringLiteral("nome"));
  fill("txt4GrdCaption", QStringLiteral("Nome da cidade"));
  fill("txt4GrdWidth", QStringLiteral("3000"));
  choose("cmb4Coluna", QStringLiteral("ddd"));
  clickMark("chk4GrdVisible");
  choose("cmb4Coluna", QStringLiteral("nome"));
  EXPECT_EQ(textOf("txt4GrdWidth"), QStringLiteral("3000"));
  show(Step::Grid);
}

void WizardByMouse::order() {
  goTo(Step::Ordem);
  take("lst5CmpTodos", QStringLiteral("nome"), "btn5Inc");
  show(Step::Ordem);
}

void WizardByMouse::restrict() {
  goTo(Step::Where);
  choose("cmb6Tab", QStringLiteral("cidades"));
  take("lst6Cmp", QStringLiteral("uf"), "btn6CmpInc");
  choose("cmb6TipoBusca", QStringLiteral("="));
  choose("cmb6Objeto", QStringLiteral("txtUf"));
  choose("cmb6TipoDado", QStringLiteral("String"));
  clickOn(inFront<QTreeWidget>("lst6CmpSel"));
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
  workInWizard("btnSql", [] {
    pickTables();
    link();
    pickFields();
    setColumns();
    order();
    restrict();
    takeReturnFields();
    goTo(Step::SqlPronta);
    EXPECT_EQ(oneLine(inFront<QPlainTextEdit>("txt8Sql").toPlainText()).toStdString(),
              "SELECT cidades.codigo, cidades.nome, cidades.ddd, estados.nome as estado,"
              " Substring(cidades.cep, 1, 5) || '-' || Substring(cidades.cep, 6, 3) || '' as cepfmt"
              " FROM cidades Left Join estados on (estados.uf=cidades.uf)"
              " WHERE cidades.uf='@txtUf@' ORDER BY nome");
    show(Step::SqlPronta);
    clickButton("btnConfirma");
  });
}

void WizardByMouse::finishKey() {
  EXPECT_EQ(textOf("txtBrwTitulo"), QStringLiteral("Cidades"));
  EXPECT_EQ(textOf("txtBrowseTable"), QStringLiteral("cidades"));
  EXPECT_EQ(textOf("txtBrwCampo"), QStringLiteral("codigo"));
  EXPECT_EQ(textOf("txtBrwLeftJoin"),
            QStringLiteral("cidades Left Join estados on (estados.uf=cidades.uf)"));
  EXPECT_EQ(textOf("txtBrwWhere"), QStringLiteral("cidades.uf='@txtUf@'"));
  fill("txtBrwCampoIrmao", QStringLiteral("cidades.nome"));
  clickTab(Tab::Pesquisa);
  clickButton("btnIncluir");
  fill("txtPesqCaption", QStringLiteral("Nome"));
  fill("txtPesqCampo", QStringLiteral("nome"));
  clickMark("optPesqString");
  clickMark("optPesqInicioCampo");
}

/// "Grid" and back: a caption is new, and the other fields, which it empties, are pasted.
void WizardByMouse::changeACaption() {
  const QString others = textOf("txtBrwCampoOutros");
  EXPECT_FALSE(others.isEmpty());
  clickTab(Tab::Principal);
  clickTab(Tab::Browse);
  const auto changeCaption = [](const char* button) {
    workInWizard("btnGrid", [=] {
      EXPECT_EQ(textOf("txt4GrdCaption"), QStringLiteral("Cidade"));
      fill("txt4GrdCaption", QStringLiteral("Codigo"));
      clickButton(button);
    });
  };
  changeCaption("btnVoltar");
  EXPECT_EQ(textOf("txtBrwCampoOutros"), others);
  changeCaption("btnConfirma");
  EXPECT_EQ(textOf("txtBrwCampoOutros"), QString());
  fill("txtBrwCampoOutros", others);
}

void WizardByMouse::makeDescription() {
  openPage(field("txtNome"));
  choose("txtTipoControle", QStringLiteral("3 - Descrição"));
  choose("txtTxtIrmao", QStringLiteral("txtCidade"));
  clickOn(*dialogButton(QStringLiteral("OK")));
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
}

TEST_F(WizardByMouse, MakesALookupThatRuns) {
  openPage(field("txtCidade"));
  choose("txtTipoControle", QStringLiteral("1 - Browse"));
  choose("txtTxtIrmao", QStringLiteral("txtNome"));
  clickTab(Tab::Browse);
  makeLookup();
  EXPECT_FALSE(inFront<QPushButton>("btnSql").isEnabled());
  changeACaption();
  finishKey();
  clickOn(*dialogButton(QStringLiteral("OK")));
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  makeDescription();
  save(form_);
  EXPECT_EQ(outputOf(QStringLiteral(TESSARIA_LOADED_LOOKUP),
                     {QStringLiteral("cidade"), form_.fileName()}),
            "columns: Codigo|Nome da cidade|estado|cepfmt\n"
            "rows: 58\n"
            "found: 00251|Campinas|São Paulo|13000-000\n"
            "chosen: 00251 Campinas\n"
            "returned: 19\n");
}

}  // namespace
}  // namespace tessaria::tests
