// The SQL wizard's window at a real server: one that answers, and one that does not.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include "tessaria/host/application.h"

#include "tests/qt_dialogs/wizard_at_server.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

TEST_F(WizardServer, TablesAreListedAndLinkedByTheirForeignKey) {
  run([&] {
    hands->Click(u"chkAceitaApelidos");
    connect();
    EXPECT_EQ(rowsOf(u"lst1TabTodas"), (Rows{u"cidade", u"cliente"}));
    hands->Click(u"btn1IncTodos");
    hands->CheckRow(u"lst1TabSel", 2);
    hands->ClickTab(u"tabWizard", 1);
    hands->Choose(u"cmb2TabPai", 1);
    hands->Choose(u"cmb2TabFilho", 0);
    hands->Click(u"btn2LnkAdiciona");
    EXPECT_EQ(rowsOf(u"lst2Links"), (Rows{u"cidade.codigo=cliente.cidade"}));
    EXPECT_THAT(boxes_.takeTexts(), testing::IsEmpty());
  });
}

TEST_F(WizardServer, ASilentServerIsToldOfAndEscapeGivesUp) {
  proxy_->Swallow();
  run([&] {
    QTimer::singleShot(2300, window, [&] {
      ASSERT_TRUE(line());
      EXPECT_EQ(line()->parentWidget(), window);
      EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"Conectando a Vendas...");
      ASSERT_TRUE(QGuiApplication::overrideCursor());
      EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
      press(*window, Qt::Key_Escape);
    });
    QElapsedTimer timer;
    timer.start();
    connect();
    EXPECT_LT(timer.elapsed(), 5000);
    ASSERT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_EQ(boxes_.boxes()[0].title, QString::fromUtf8("Erro de Conexão ao Banco Nro: 3712"));
    EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmMontaSql"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(window->isVisible());
    proxy_->CancelCut();
    connect();
    EXPECT_EQ(rowsOf(u"lst1TabTodas"), (Rows{u"cidade", u"cliente"}));
  });
}

TEST_F(WizardServer, ASilentServerIsWaitedForNoLongerThanTheLoginTimeOut) {
  timeout = 2;
  proxy_->Swallow();
  run([&] {
    QElapsedTimer timer;
    timer.start();
    connect();
    EXPECT_LT(timer.elapsed(), 6000);
    EXPECT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"Não foi possível conectar a Vendas.");
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_F(WizardServer, AServerThatFallsSilentIsGivenUpAndTheNextActionConnectsAgain) {
  run([&] {
    connect();
    hands->ClickRow(u"lst1TabTodas", 2);
    hands->Click(u"btn1Inc");
    hands->ClickTab(u"tabWizard", 2);
    proxy_->Swallow();
    int looks = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (parts().Label(u"lblEstado").Caption() != u"Lendo os campos de cliente...") return;
      if (++looks == 5) press(*window, Qt::Key_Escape);
    });
    watch.start(100);
    QElapsedTimer timer;
    timer.start();
    hands->Choose(u"cmb3Tab", 0);
    watch.stop();
    EXPECT_LT(timer.elapsed(), 10000);
    EXPECT_GT(looks, 30) << "the window is alive all the time";
    ASSERT_EQ(boxes_.boxes().size(), 1U);
    EXPECT_TRUE(boxes_.boxes()[0].text.contains(
        QString::fromUtf8("O servidor parou de responder, e a conexão com ele foi abandonada.")));
    EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmMontaSql"));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"Não foi possível ler os campos de cliente.");
    EXPECT_EQ(proxy_->Cuts(), 0);

    proxy_->CancelCut();
    boxes_.willPress(QStringLiteral("Sim"));
    hands->Choose(u"cmb3Tab", 0);
    ASSERT_EQ(boxes_.boxes().size(), 2U);
    EXPECT_TRUE(boxes_.boxes()[1].text.endsWith(QStringLiteral("Conectar novamente?")));
    EXPECT_EQ(rowsOf(u"lst3Cmp"), (Rows{u"codigo", u"cidade"}));
  });
}

// --- The statement that is tried -----------------------------------------------------------------

class WizardRetrieve : public WizardServer {
 protected:
  /// The name of each city, ordered, of the city that the form names.
  void prepare() {
    connect();
    pickFirstTable();
    goTo(Tab::Campos);
    hands->Choose(u"cmb3Tab", 0);
    pickFields();
    goTo(Tab::Grid);
    retrieve();
    ASSERT_EQ(columns(), (QStringList{QStringLiteral("codigo"), QStringLiteral("nome")}));
    goTo(Tab::Ordem);
    hands->ClickRow(u"lst5CmpTodos", 2);
    hands->Click(u"btn5Inc");
    goTo(Tab::Where);
    hands->Choose(u"cmb6Tab", 0);
    hands->ClickRow(u"lst6Cmp", 1);
    hands->Click(u"btn6CmpInc");
    hands->Choose(u"cmb6TipoBusca", 0);
    goTo(Tab::Grid);
  }
  void pickFields() {
    for (const Long row : {1, 2}) {
      hands->ClickRow(u"lst3Cmp", row);
      hands->Click(u"btn3Inclui");
    }
  }
  void retrieve() { hands->Click(u"btn4Retrieve"); }
  QStringList columns() {
    const auto& box = at<QComboBox>(*window, QStringLiteral("cmb4Coluna"));
    QStringList rows;
    for (int i = 0; i < box.count(); ++i) rows << box.itemText(i);
    return rows;
  }
  /// The offer to copy the statement, over the wizard, which goes on.
  void expectOffer(std::size_t box) {
    ASSERT_EQ(boxes_.boxes().size(), box + 1);
    EXPECT_EQ(boxes_.boxes()[box].text, toQt(kStatement));
    EXPECT_EQ(boxes_.boxes()[box].title, QString::fromUtf8("Copiar Para Área de Transferência ?"));
    EXPECT_EQ(boxes_.boxes()[box].owner, QStringLiteral("frmMontaSql"));
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"O comando não foi executado.");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), window);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(columns(), (QStringList{QStringLiteral("codigo"), QStringLiteral("nome")}));
  }

  static constexpr StringView kStatement =
      u"SELECT\r\n      codigo,\r\n       nome \r\nFROM\r\n      cidade"
      u"\r\nWHERE\r\n      cidade.codigo=@@\r\nORDER BY\r\n      nome";
};

TEST_F(WizardRetrieve, ARefusedStatementIsCopiedWholeFromItsBox) {
  run([&] {
    prepare();
    server().Run("alter table cidade drop column nome");
    TheDesktop().ClipboardText(u"de antes");
    boxes_.willPress(QString::fromUtf8("Não"));
    retrieve();
    expectOffer(0);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("de antes"));
    boxes_.whileOpen = [] {
      press(*QApplication::activeModalWidget(), Qt::Key_S, Qt::AltModifier);
      QTest::qWait(200);  // a button is shown pressed
    };
    retrieve();
    expectOffer(1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), toQt(kStatement));
    boxes_.whileOpen = nullptr;
    server().Run("alter table cidade add column nome text");
    retrieve();
    EXPECT_EQ(boxes_.boxes().size(), 2U);
  });
}

TEST_F(WizardRetrieve, AServerThatFallsSilentIsGivenUpByEscape) {
  run([&] {
    prepare();
    proxy_->Swallow();
    int looks = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (parts().Label(u"lblEstado").Caption() != u"Executando o comando...") return;
      if (++looks == 5) press(*window, Qt::Key_Escape);
    });
    watch.start(100);
    QElapsedTimer timer;
    timer.start();
    retrieve();
    watch.stop();
    EXPECT_LT(timer.elapsed(), 10000);
    EXPECT_GT(looks, 30) << "the window is alive all the time";
    expectOffer(0);

    proxy_->CancelCut();
    boxes_.willPress(QStringLiteral("Sim"));
    retrieve();
    ASSERT_EQ(boxes_.boxes().size(), 2U);
    EXPECT_TRUE(boxes_.boxes()[1].text.endsWith(QStringLiteral("Conectar novamente?")));
    EXPECT_EQ(boxes_.boxes()[1].owner, QStringLiteral("frmMontaSql"));
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"");
  });
}

TEST_F(WizardRetrieve, AServerThatWasStoppedIsToldOfAndConnectedToAgain) {
  run([&] {
    prepare();
    server().Stop();
    retrieve();
    expectOffer(0);
    server().Start();
    boxes_.willPress(QStringLiteral("Sim"));
    retrieve();
    ASSERT_EQ(boxes_.boxes().size(), 2U);
    EXPECT_TRUE(boxes_.boxes()[1].text.endsWith(QStringLiteral("Conectar novamente?")));
    EXPECT_EQ(parts().Label(u"lblEstado").Caption(), u"");
    EXPECT_EQ(columns().size(), 2);
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
