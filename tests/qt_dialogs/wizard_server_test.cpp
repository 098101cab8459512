// The SQL wizard's window at a real server: one that answers, and one that does not.
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "tests/qt_dialogs/wizard_window.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

/// Leads to one server, whatever the data source is called.
class ToServer final : public test::PassingConnection {
 public:
  explicit ToServer(String text)
      : PassingConnection(test::NewConnectionOfTheDriver()), text_(std::move(text)) {}
  using PassingConnection::ConnectionString;
  void ConnectionString(const String&) override { real_->ConnectionString(text_); }

 private:
  const String text_;
};

class WizardServer : public WizardWindow {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server().EnsureRunning();
    server().Run(
        "drop schema public cascade; create schema public;"
        "create table cidade (codigo int primary key, nome text);"
        "create table cliente (codigo int primary key, cidade int references cidade)");
    proxy_ = std::make_unique<test::CuttingProxy>(server().Socket());
    setDataLayer({[] { return std::vector<String>{u"Vendas"}; },
                  [this] {
                    auto made =
                        std::make_shared<ToServer>(server().ConnectionString(proxy_->Port()));
                    made->ConnectionTimeout(timeout);
                    return made;
                  }});
  }
  static test::PostgresCluster& server() { return test::PostgresCluster::Shared(); }
  QLabel* line() const { return window->findChild<QLabel*>(QStringLiteral("tessariaWait")); }
  void connect() {
    if (parts().Combo(u"cmbSistema").ListIndex() != 0) hands->Choose(u"cmbSistema", 0);
    hands->Click(u"btnConectar");
  }

  std::unique_ptr<test::CuttingProxy> proxy_;
  Long timeout = 15;  ///< seconds for the login
};

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

}  // namespace
}  // namespace tessaria::qt::tests
