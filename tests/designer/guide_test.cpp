// What the guide to forms in Qt Designer tells, step by step, with its pictures.
#include <gtest/gtest.h>

#include <QTest>

#include "tests/designer/hands.h"

namespace tessaria::tests {
namespace {

class Guide : public testing::Test {
 protected:
  Guide() { select(form_, *form_.mainContainer()); }
  ~Guide() override {
    if (pageDialog()) pageDialog()->reject();
  }

  QWidget& add(const char* item, const QPoint& place, const char* name) {
    QWidget* widget = drop(form_, QLatin1String(item), place);
    if (!widget) throw std::runtime_error(item);
    typeProperty(QStringLiteral("objectName"), QLatin1String(name));
    return *widget;
  }
  void accept() {
    clickOn(*dialogButton(QStringLiteral("OK")));
    EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  }

  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("guia.ui"));
};

TEST_F(Guide, LeadsFromAnEmptyFormToAPair) {
  add("Label", {60, 45}, "lblCodigo");
  typeProperty(QStringLiteral("text"), QStringLiteral("Cliente"));
  auto& code = dynamic_cast<qt::TsText&>(add("TsText", {150, 50}, "txtCodigo"));
  auto& name = dynamic_cast<qt::TsText&>(add("TsText", {360, 50}, "txtNome"));
  picture(form_, QStringLiteral("form"));

  openPage(code);
  choose("txtTipoControle", QStringLiteral("1 - Browse"));
  choose("txtTxtIrmao", QStringLiteral("txtNome"));
  choose("txtLabel", QStringLiteral("lblCodigo"));
  picture(*pageDialog(), QStringLiteral("principal"));

  clickTab(Tab::Browse);
  fill("txtBrwTitulo", QStringLiteral("Clientes"));
  fill("txtBrowseTable", QStringLiteral("clientes"));
  fill("txtBrwCampo", QStringLiteral("codigo"));
  fill("txtBrwCampoIrmao", QStringLiteral("nome"));
  fill("txtBrwCampoOutros", QStringLiteral("cidade"));
  picture(*pageDialog(), QStringLiteral("browse"));

  clickTab(Tab::Pesquisa);
  clickButton("btnIncluir");
  fill("txtPesqCaption", QStringLiteral("Nome"));
  fill("txtPesqCampo", QStringLiteral("nome"));
  clickMark("optPesqString");
  clickMark("optPesqInicioCampo");
  picture(*pageDialog(), QStringLiteral("pesquisa"));
  accept();
  EXPECT_EQ(code.settings().filter(QStringLiteral("BrowseTable=String:clientes")).size(), 1);

  openPage(name);
  choose("txtTipoControle", QStringLiteral("3 - Descrição"));
  choose("txtTxtIrmao", QStringLiteral("txtCodigo"));
  clickTab(Tab::Browse);
  EXPECT_EQ(textOf("txtBrwCampo"), QStringLiteral("nome"));
  EXPECT_EQ(textOf("txtBrwCampoIrmao"), QStringLiteral("codigo"));
  picture(*pageDialog(), QStringLiteral("descricao"));
  accept();
}

}  // namespace
}  // namespace tessaria::tests
