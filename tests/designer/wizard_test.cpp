// The SQL wizard inside Designer where something goes wrong: boxes, errors, a server that is
// silent.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProcess>
#include <QTimer>

#include "tests/designer/wizard_drive.h"

namespace tessaria::tests {
namespace {

using testing::HasSubstr;

/// The wizard of a field, new in each test.
class WizardInDesigner : public WizardDrive {
 protected:
  WizardInDesigner() : WizardDrive("cliente.ui") {
    openPage(field("txtNome"));
    choose("txtTipoControle", QStringLiteral("1 - Browse"));
    clickTab(Tab::Browse);
  }
  ~WizardInDesigner() override {
    pageDialog()->reject();
    EXPECT_FALSE(form_.isDirty());
  }

  static void work(const std::function<void()>& script) {
    workInWizard([] { clickButton("btnSql"); },
                 [&] {
                   script();
                   wizardDialog()->close();
                 });
    EXPECT_NE(pageDialog(), nullptr);
  }
  static void goTo(Step step) { clickTabAt("tabWizard", static_cast<int>(step)); }
  static void connectTo(const QString& source) {
    choose("cmbSistema", source);
    clickButton("btnConectar");
  }
  static void pick(const QString& table) {
    clickRow("lst1TabTodas", table);
    clickButton("btn1Inc");
  }
  static void takeField(const QString& name) {
    choose("cmb3Tab", QStringLiteral("cidades"));
    clickRow("lst3Cmp", name);
    clickButton("btn3Inclui");
  }
  /// Two tables without a link, which make a statement that the server refuses.
  static void pickUnlinked() {
    connectTo(QStringLiteral("loja"));
    pick(QStringLiteral("cidades"));
    pick(QStringLiteral("estados"));
    clickMarkOfRow("lst1TabSel", QStringLiteral("cidades"));
    goTo(Step::Campos);
    takeField(QStringLiteral("codigo"));
  }
  /// A box over the wizard has been shown, and closed; the wizard is in front again.
  void expectBox(const QString& text) {
    EXPECT_EQ(boxes_.takeTexts(), QStringList(text));
    EXPECT_EQ(boxes_.takeOwners(), QStringList(QStringLiteral("frmMontaSql")));
    EXPECT_EQ(QApplication::activeModalWidget(), wizardDialog());
    EXPECT_TRUE(waitFor([] { return wizardDialog()->isActiveWindow(); }));
  }
};

TEST_F(WizardInDesigner, OffersTheDataSourcesOfTheSystem) {
  work([] {
    for (const char* name : {"compras", "vendas", "loja"})
      EXPECT_GE(inFront<QComboBox>("cmbSistema").findText(QLatin1String(name)), 0) << name;
    EXPECT_EQ(QApplication::activeModalWidget(), wizardDialog());
  });
}

TEST_F(WizardInDesigner, ABoxTellsOfAConnectionThatFailsAndTheWizardGoesOn) {
  work([&] {
    connectTo(QStringLiteral("vendas"));
    EXPECT_EQ(boxes_.takeOwners(), QStringList(QStringLiteral("frmMontaSql")));
    EXPECT_THAT(boxes_.takeTexts().value(0).toStdString(), HasSubstr("/nenhum"));
    connectTo(QStringLiteral("loja"));
    EXPECT_GT(countOf("lst1TabTodas"), 0);
  });
}

TEST_F(WizardInDesigner, RefusalsAndPromptsOpenOverTheWizard) {
  work([&] {
    connectTo(QStringLiteral("loja"));
    pick(QStringLiteral("cidades"));
    workInside([] { pick(QStringLiteral("cidades")); },
               [] { return openWindow("InputBox") && openWindow("InputBox")->isActiveWindow(); },
               [] {
                 EXPECT_EQ(openWindow("InputBox")->parentWidget(), wizardDialog());
                 typeText(QStringLiteral("outra"));
                 press({QStringLiteral("Return")});
               });
    EXPECT_EQ(rowsOf("lst1TabSel"),
              (QStringList{QStringLiteral("cidades"), QStringLiteral("outra")}));
    goTo(Step::Links);
    expectBox(QStringLiteral("Marque a Tabela Que Será a Principal"));
    EXPECT_EQ(frontStep(), Step::Tabelas);
    clickMarkOfRow("lst1TabSel", QStringLiteral("cidades"));
    goTo(Step::Links);
    clickButton("btn2LnkAdiciona");
    expectBox(QStringLiteral("As Duas Tabelas Devem Ser Informadas"));
  });
}

TEST_F(WizardInDesigner, AnErrorThatNobodyHandlesIsABoxAndTheWizardGoesOn) {
  work([&] {
    connectTo(QStringLiteral("loja"));
    pick(QStringLiteral("cidades"));
    goTo(Step::Campos);
    takeField(QStringLiteral("codigo"));
    goTo(Step::Grid);
    clickButton("btn4Retrieve");
    ASSERT_TRUE(isRetrieved(1));
    fill("txt4GrdWidth", QStringLiteral("largo"));
    clickOn(inFront<QLineEdit>("txt4Caption"));
    expectBox(QStringLiteral("Tipos incompatíveis"));
    fill("txt4GrdWidth", QStringLiteral("900"));
    fill("txt4Caption", QStringLiteral("Cidades"));
    goTo(Step::Retorno);
    EXPECT_EQ(frontStep(), Step::Retorno);
  });
}

TEST_F(WizardInDesigner, ARefusedStatementIsCopiedFromItsBox) {
  const QString statement = QStringLiteral(
      "SELECT\r\n      cidades.codigo \r\nFROM\r\n      cidades \r\n      Left Join estados on ()");
  work([&] {
    pickUnlinked();
    goTo(Step::Grid);
    boxes_.answer = [] { press({QStringLiteral("alt+s")}); };
    clickButton("btn4Retrieve");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), statement.toStdString());
    expectBox(QString(statement).remove(u'\r'));
  });
}

TEST_F(WizardInDesigner, ASilentServerAtTheRetrieveIsGivenUpByEscape) {
  work([&] {
    connectTo(QStringLiteral("distante"));
    pick(QStringLiteral("cidades"));
    goTo(Step::Campos);
    takeField(QStringLiteral("codigo"));
    goTo(Step::Grid);
    proxy().Swallow();
    int looks = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (inFront<QLabel>("lblEstado").text() != QLatin1String("Executando o comando...")) return;
      const auto* line = wizardDialog()->findChild<QLabel*>(QStringLiteral("tessariaWait"));
      if (line && line->isVisible() && looks++ == 0)
        QProcess::startDetached(QStringLiteral("xdotool"),
                                {QStringLiteral("key"), QStringLiteral("Escape")});
    });
    watch.start(100);
    clickButton("btn4Retrieve");
    watch.stop();
    EXPECT_GT(looks, 20) << "the window is alive all the time";
    expectBox(QStringLiteral("SELECT\n      codigo \nFROM\n      cidades"));
    proxy().CancelCut();
    boxes_.answer = [] { press({QStringLiteral("alt+s")}); };
    clickButton("btn4Retrieve");
    EXPECT_TRUE(isRetrieved(1));
    EXPECT_THAT(boxes_.takeTexts().value(0).toStdString(), HasSubstr("Conectar novamente?"));
    EXPECT_EQ(boxes_.takeOwners(), QStringList(QStringLiteral("frmMontaSql")));
  });
}

}  // namespace
}  // namespace tessaria::tests
