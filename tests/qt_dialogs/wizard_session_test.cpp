// Sessions with the SQL wizard as a real window: by mouse, by keyboard alone, and what goes wrong.
#include <QApplication>
#include <QInputDialog>

#include "tests/qt_dialogs/wizard_window.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

class WizardSession : public WizardWindow {
 protected:
  Tab front() { return static_cast<Tab>(parts().Tabs().Tab()); }
  void connectByMouse() {
    hands->Choose(u"cmbSistema", 1);
    hands->Click(u"btnConectar");
  }
  void pickByMouse(std::initializer_list<Long> rows) {
    for (const Long row : rows) {
      hands->ClickRow(u"lst1TabTodas", row);
      hands->Click(u"btn1Inc");
    }
  }
  void expectLinked() {
    EXPECT_EQ(rowsOf(u"lst2Links"), (Rows{u"Cidade.Codigo=Cliente.CodCidade"}));
    EXPECT_THAT(boxes_.takeTexts(), testing::IsEmpty());
  }
};

TEST_F(WizardSession, ByMouseTablesArePickedAndLinked) {
  run([&] {
    connectByMouse();
    EXPECT_EQ(rowsOf(u"lst1TabTodas"), (Rows{u"Cliente", u"Cidade", u"Estado"}));
    pickByMouse({1, 2});
    hands->CheckRow(u"lst1TabSel", 1);
    hands->ClickTab(u"tabWizard", 1);
    hands->Choose(u"cmb2TabPai", 0);
    hands->ClickRow(u"lst2CmpPai", 3);
    hands->Choose(u"cmb2TabFilho", 1);
    hands->Click(u"btn2LnkAdiciona");
    expectLinked();
    picture(*window, QStringLiteral("wizard_links"));
  });
  EXPECT_EQ(tag, u"Voltar");
}

TEST_F(WizardSession, ByKeyboardTablesArePickedAndLinked) {
  run([&] {
    tabTo("cmbSistema");
    strikeKey(Qt::Key_Down, 2);
    pressButton("btnConectar");
    tabTo("lst1TabTodas");
    pressButton("btn1Inc");
    tabTo("lst1TabTodas");
    strikeKey(Qt::Key_Down);
    pressButton("btn1Inc");
    tabTo("lst1TabSel");
    strikeKey(Qt::Key_Home);
    type(*window, QStringLiteral(" "));
    strikeKey(Qt::Key_PageDown, 1, Qt::ControlModifier);
    ASSERT_EQ(front(), Tab::Links);
    tabTo("cmb2TabPai");
    strikeKey(Qt::Key_Down);
    tabTo("lst2CmpPai");
    strikeKey(Qt::Key_Down, 2);
    tabTo("cmb2TabFilho");
    strikeKey(Qt::Key_Down, 2);
    pressButton("btn2LnkAdiciona");
    expectLinked();
    strikeKey(Qt::Key_PageUp, 1, Qt::ControlModifier);
    EXPECT_EQ(front(), Tab::Tabelas);
    hands->Mnemonic(u'v');
  });
  EXPECT_EQ(tag, u"Voltar");
}

TEST_F(WizardSession, ADoubleClickPicksATable) {
  run([&] {
    connectByMouse();
    hands->DoubleClickRow(u"lst1TabTodas", 2);
    EXPECT_EQ(rowsOf(u"lst1TabSel"), (Rows{u"Cidade"}));
  });
}

TEST_F(WizardSession, WithoutAMainTableABoxOpensOverTheWizardAndTheTabStays) {
  run([&] {
    connectByMouse();
    pickByMouse({1, 2});
    hands->ClickTab(u"tabWizard", 2);
    EXPECT_EQ(front(), Tab::Tabelas);
    ASSERT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_EQ(boxes_.boxes()[0].text, QString::fromUtf8("Marque a Tabela Que Será a Principal"));
    EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmMontaSql"));
    EXPECT_EQ(QApplication::activeModalWidget(), window);
  });
}

TEST_F(WizardSession, AnAliasIsAskedForOverTheWizard) {
  run([&] {
    connectByMouse();
    pickByMouse({1});
    driver_.willShow(QStringLiteral("InputBox"), [&](QDialog& box) {
      EXPECT_EQ(box.parentWidget(), window);
      EXPECT_EQ(static_cast<QInputDialog&>(box).textValue(), QStringLiteral("Cliente_1"));
      type(box, QStringLiteral("quem"));
      press(box, Qt::Key_Return);
    });
    pickByMouse({1});
    EXPECT_EQ(rowsOf(u"lst1TabSel"), (Rows{u"Cliente", u"quem"}));
    EXPECT_EQ(QApplication::activeModalWidget(), window);
  });
}

TEST_F(WizardSession, AnErrorInAHandlerIsABoxOverTheWizardWhichGoesOn) {
  run([&] {
    connectByMouse();
    pickByMouse({3, 1});
    hands->CheckRow(u"lst1TabSel", 1);
    hands->ClickTab(u"tabWizard", 2);
    hands->Choose(u"cmb3Tab", 0);
    ASSERT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmMontaSql"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"Não foi possível ler os campos de Estado.");
    hands->Choose(u"cmb3Tab", 1);
    EXPECT_EQ(rowsOf(u"lst3Cmp"), (Rows{u"Codigo", u"Nome", u"CodCidade"}));
    EXPECT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"");
  });
}

TEST_F(WizardSession, ThePointerWaitsWhileTheServerWorks) {
  bool isBusy = false;
  database->answer = [&](const String&) -> std::optional<memory::Rows> {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    isBusy = cursor && cursor->shape() == Qt::WaitCursor;
    return test::ScriptedDatabase::Columns({u"Sigla"});
  };
  run([&] {
    connectByMouse();
    pickByMouse({3});
    hands->ClickTab(u"tabWizard", 2);
    hands->Choose(u"cmb3Tab", 0);
    EXPECT_TRUE(isBusy);
    EXPECT_EQ(rowsOf(u"lst3Cmp"), (Rows{u"Sigla"}));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  });
}

TEST_F(WizardSession, ItIsAsItWasLeftAfterVoltar) {
  run([&] {
    connectByMouse();
    pickByMouse({1, 2});
    EXPECT_TRUE(window->isModal());
  });
  run([&] { EXPECT_EQ(rowsOf(u"lst1TabSel"), (Rows{u"Cliente", u"Cidade"})); });
}

TEST_F(WizardSession, ClosingByTheFrameIsVoltarAndUnloads) {
  run([&] {
    connectByMouse();
    pickByMouse({1});
    hands->CloseByFrame();
  });
  EXPECT_EQ(tag, u"Voltar");
  EXPECT_EQ(State().frmMontaSql, nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  run([&] { EXPECT_EQ(rowsOf(u"lst1TabSel"), Rows()); });
}

TEST_F(WizardSession, ItClosesWithTheWindowThatItOpenedOver) {
  run([&] { owner_->close(); });
  EXPECT_NE(tag, String(frmMontaSql::kConfirmed));
}

}  // namespace
}  // namespace tessaria::qt::tests
