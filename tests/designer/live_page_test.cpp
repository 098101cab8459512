// The property page itself in Designer's dialog: by keyboard alone, live on the form, and on forms
// that are not as they should be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tests/designer/hands.h"

namespace tessaria::tests {
namespace {

using testing::HasSubstr;

QStringList rowsOf(const char* list) {
  const auto& box = inFront<QComboBox>(list);
  QStringList rows;
  for (int i = 0; i < box.count(); ++i) rows << box.itemText(i);
  return rows;
}

/// Pages of fields on one of the open forms.
class LivePage : public testing::Test {
 protected:
  ~LivePage() override {
    if (pageDialog()) pageDialog()->reject();
    if (!form_) return;
    while (history().canUndo()) history().undo();
  }

  qt::TsText& open(const char* file, const char* name) {
    form_ = openForm(QLatin1String(file));
    qt::TsText& field = *fieldOf(*form_, QLatin1String(name));
    select(*form_, field);
    opened_ = field.settings();
    openPage(field);
    return field;
  }
  QUndoStack& history() { return *form_->commandHistory(); }
  static void close(const char* caption) {
    clickOn(*dialogButton(QLatin1String(caption)));
    EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  }
  /// Undo and redo are exact.
  void expectOneStep(const qt::TsText& field) {
    ASSERT_EQ(history().index(), 1);
    const QStringList edited = field.settings();
    EXPECT_NE(edited, opened_);
    history().undo();
    EXPECT_EQ(field.settings(), opened_);
    history().redo();
    EXPECT_EQ(field.settings(), edited);
  }
  void expectNoStep(const qt::TsText& field) {
    EXPECT_EQ(history().index(), 0);
    EXPECT_FALSE(form_->isDirty());
    EXPECT_EQ(field.settings(), opened_);
  }

  BoxWatch boxes_;
  QDesignerFormWindowInterface* form_ = nullptr;
  QStringList opened_;
};

TEST_F(LivePage, ThroughAllTypesAndBackIsNoDifference) {
  qt::TsText& field = open("pedido.ui", "txtData");
  inFront<QComboBox>("txtTipoControle").setFocus();
  for (int type = 1; type <= 5; ++type) {
    press({QStringLiteral("Down")});
    EXPECT_TRUE(waitFor([&] { return field.tipoControle() == type; })) << type;
    EXPECT_EQ(history().index(), 0);
  }
  for (int type = 4; type >= 0; --type) {
    press({QStringLiteral("Up")});
    EXPECT_TRUE(waitFor([&] { return field.tipoControle() == type; })) << type;
  }
  close("OK");
  expectNoStep(field);
}

TEST_F(LivePage, CancelRestoresTheDefinitionToo) {
  qt::TsText& field = open("definido.ui", "txtCodigo");
  fill("txtMascara", QStringLiteral("00"));
  clickTab(Tab::Browse);
  fill("txtBrwTitulo", QStringLiteral("Outro"));
  clickTab(Tab::Pesquisa);
  clickButton("btnIncluir");
  clickButton("btnAnterior");
  clickButton("btnExcluir");
  EXPECT_TRUE(waitFor([&] { return field.mascara() == QLatin1String("00"); }));
  EXPECT_NE(field.settings(), opened_);
  close("Cancelar");
  expectNoStep(field);
}

TEST_F(LivePage, AnInsertedSearchIsAStep) {
  qt::TsText& field = open("definido.ui", "txtCodigo");
  clickTab(Tab::Pesquisa);
  clickButton("btnIncluir");
  close("OK");
  EXPECT_EQ(field.pesquisaDefinition()->Count(), 2);
  expectOneStep(field);
}

TEST_F(LivePage, OkOnANewFieldIsNoStep) {
  const qt::TsText& field = open("pedido.ui", "txtNumero");
  close("OK");
  expectNoStep(field);
}

TEST_F(LivePage, OkOnAFieldWithItsDefinitionIsNoStep) {
  const qt::TsText& field = open("definido.ui", "txtCodigo");
  clickTab(Tab::Browse);
  EXPECT_EQ(textOf("txtBrowseTable"), QStringLiteral("clientes"));
  clickTab(Tab::Pesquisa);
  EXPECT_EQ(textOf("txtPesqCaption"), QStringLiteral("Nome"));
  close("OK");
  expectNoStep(field);
}

TEST_F(LivePage, OkMovesTheFlatTextsOfAnOldFieldInOneStep) {
  const qt::TsText& field = open("definido.ui", "txtAntigo");
  clickTab(Tab::Browse);
  EXPECT_EQ(textOf("txtBrowseTable"), QStringLiteral("antiga"));
  close("OK");
  EXPECT_TRUE(opened_.contains(QStringLiteral("BrowseTable=String:antiga")));
  EXPECT_FALSE(field.settings().contains(QStringLiteral("BrowseTable=String:antiga")));
  EXPECT_TRUE(field.settings().contains(QStringLiteral("Browse.BrowseTable=String:antiga")));
  expectOneStep(field);
}

TEST_F(LivePage, ByKeyboardAlone) {
  qt::TsText& field = open("definido.ui", "desCodigo");
  reach("txtTipoControle");
  press({QStringLiteral("Home"), QStringLiteral("Down")});
  reach("txtMascara");
  typeText(QStringLiteral("####"));
  reach("chkPodeSerBranco");
  press({QStringLiteral("space")});
  reach("txtTxtIrmao");
  press({QStringLiteral("Down")});
  const QString sibling = inFront<QComboBox>("txtTxtIrmao").currentText();
  reach("txtDataField");
  typeText(QStringLiteral("cliente"));
  press({QStringLiteral("ctrl+Page_Down")});
  EXPECT_EQ(frontTab(), Tab::Browse);
  reach("txtBrowseTable");
  typeText(QStringLiteral("clientes"));
  press({QStringLiteral("ctrl+Page_Down")});
  EXPECT_EQ(frontTab(), Tab::Pesquisa);
  reach("btnIncluir");
  press({QStringLiteral("space")});
  EXPECT_TRUE(inFront<QLineEdit>("txtPesqCaption").hasFocus());
  typeText(QStringLiteral("Nome"));
  reach("optPesqNumerico");
  press({QStringLiteral("space"), QStringLiteral("Right")});
  reach("txtPesqCaption", QStringLiteral("shift+Tab"));
  press({QStringLiteral("Return")});
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  EXPECT_EQ(field.tipoControle(), qt::TsText::Browse);
  EXPECT_EQ(field.mascara(), QStringLiteral("####"));
  EXPECT_FALSE(field.podeSerBranco());
  EXPECT_EQ(field.txtIrmao(), sibling);
  EXPECT_EQ(field.dataField(), QStringLiteral("cliente"));
  EXPECT_EQ(field.browseDefinition()->BrowseTable(), u"clientes");
  ASSERT_EQ(field.pesquisaDefinition()->Count(), 1);
  EXPECT_EQ(field.pesquisaDefinition()->Item(1)->Caption(), u"Nome");
  EXPECT_EQ(field.pesquisaDefinition()->Item(1)->Tipo(), 8);
  expectOneStep(field);
}

TEST_F(LivePage, StepsOfThePageStandBetweenStepsOfSingleProperties) {
  form_ = openForm(QStringLiteral("pedido.ui"));
  qt::TsText& field = *fieldOf(*form_, QStringLiteral("txtData"));
  select(*form_, field);
  QList<QStringList> states{field.settings()};
  edit(*form_, QStringLiteral("Mascara"), QStringLiteral("000"));
  states << field.settings();
  openPage(field);
  choose("txtTipoControle", QStringLiteral("5 - Calculadora"));
  fill("txtMascara", QStringLiteral("00"));
  close("OK");
  states << field.settings();
  edit(*form_, QStringLiteral("Mascara"), QStringLiteral("0"));
  states << field.settings();
  ASSERT_EQ(history().index(), 3);
  for (int step = 2; step >= 0; --step) {
    history().undo();
    EXPECT_EQ(field.settings(), states[step]) << step;
  }
  for (int step = 1; step <= 3; ++step) {
    history().redo();
    EXPECT_EQ(field.settings(), states[step]) << step;
  }
}

TEST_F(LivePage, OffersTheControlsOfItsOwnFormAlone) {
  open("pedido.ui", "txtData");
  EXPECT_EQ(rowsOf("txtTxtIrmao"),
            QStringList({QStringLiteral("<Nenhum>"), QStringLiteral("txtNumero")}));
  close("Cancelar");
  open("cliente.ui", "txtNome");
  EXPECT_EQ(rowsOf("txtTxtIrmao"),
            QStringList({QStringLiteral("<Nenhum>"), QStringLiteral("txtCodigo")}));
  EXPECT_EQ(rowsOf("txtDataSource"),
            QStringList({QStringLiteral("<Nenhum>"), QStringLiteral("dados")}));
}

TEST_F(LivePage, EscapeIsCancel) {
  const qt::TsText& field = open("definido.ui", "txtCodigo");
  fill("txtMascara", QStringLiteral("00"));
  press({QStringLiteral("Escape")});
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  expectNoStep(field);
}

// --- Forms that are not as they should be --------------------------------------------------------

TEST_F(LivePage, NamesThatAreGoneAreNobodyAndAreWrittenSo) {
  const qt::TsText& field = open("definido.ui", "txtOrfao");
  for (const char* list : {"txtTxtIrmao", "txtLabel", "txtObjetoCancelar", "txtDataSource"})
    EXPECT_EQ(inFront<QComboBox>(list).currentText(), QStringLiteral("<Nenhum>")) << list;
  close("OK");
  EXPECT_EQ(field.txtIrmao() + field.labelAssociado() + field.objetoCancelar() + field.dataSource(),
            QString());
  expectOneStep(field);
}

TEST_F(LivePage, AFormWithoutADataControlOffersNone) {
  open("pedido.ui", "txtNumero");
  EXPECT_EQ(rowsOf("txtDataSource"), QStringList{QStringLiteral("<Nenhum>")});
  EXPECT_EQ(inFront<QLabel>("lblEstado").text(), QString());
}

TEST_F(LivePage, TellsWhyTheDatabaseCouldNotBeReached) {
  open("cliente.ui", "txtCodigo");
  EXPECT_THAT(inFront<QLabel>("lblEstado").text().toStdString(),
              HasSubstr("Data source name not found"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(LivePage, ClosesWithItsFormAndDesignerGoesOn) {
  auto* manager = designer().formWindowManager();
  auto* extra = manager->createFormWindow(nullptr);
  ASSERT_TRUE(extra->setContents(openForm(QStringLiteral("definido.ui"))->contents()));
  auto* field = fieldOf(*extra, QStringLiteral("txtCodigo"));
  openPageByMenu(*field);
  ASSERT_NE(pageDialog(), nullptr);
  inFront<QLineEdit>("txtMascara").setFocus();
  typeText(QStringLiteral("0"));
  delete extra;
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  open("definido.ui", "txtCodigo");
  EXPECT_NE(pageDialog(), nullptr);
}

TEST_F(LivePage, ATextThatIsTooLargeIsABoxAndNothingIsLost) {
  qt::TsText& field = open("definido.ui", "txtCodigo");
  clickTab(Tab::Pesquisa);
  fill("txtPesqWidth", QStringLiteral("99999"));
  clickOn(inFront<QLineEdit>("txtPesqCaption"));
  EXPECT_TRUE(waitFor([this] { return boxes_.takeTexts().size() == 1; }));
  fill("txtPesqWidth", QStringLiteral("1500"));
  close("OK");
  EXPECT_EQ(field.pesquisaDefinition()->Item(1)->Width(), 1500);
  expectOneStep(field);
}

TEST_F(LivePage, AFieldOfALaterVersionIsNotEdited) {
  form_ = openForm(QStringLiteral("futuro.ui"));
  auto& field = *fieldOf(*form_, QStringLiteral("txtFuturo"));
  select(*form_, field);
  opened_ = field.settings();
  clickOn(field, 2);
  QStringList told;
  EXPECT_TRUE(waitFor([&] { return !(told = boxes_.takeTexts()).isEmpty(); }));
  EXPECT_THAT(told.value(0).toStdString(), HasSubstr("99"));
  EXPECT_EQ(pageDialog(), nullptr);
  expectNoStep(field);
}

}  // namespace
}  // namespace tessaria::tests
