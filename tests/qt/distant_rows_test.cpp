// The data control over rows that stay at the server, over a server that does not answer, and over
// a connection that was lost.
#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QToolButton>

#include "tessaria/conversion.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"
#include "tests/qt/field_fixture.h"
#include "tests/qt/key_queue.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

const QString kReconnectQuestion =
    QStringLiteral("A conexão com o banco de dados foi perdida. Conectar novamente?");

class DistantRows : public FieldFixture {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    cluster().EnsureRunning();
    proxy_ = std::make_unique<test::CuttingProxy>(cluster().Socket());
    cluster().Run(
        "drop schema public cascade; create schema public;"
        "create table clientes (codigo int primary key, nome varchar(40));"
        "insert into clientes select n, 'Nome ' || n from generate_series(1, 60000) n");
    connection_->ConnectionString(cluster().ConnectionString(proxy_->Port()));
    data_ = new Adodc;
    data_->setObjectName(QStringLiteral("dcCliente"));
    window_->layout()->addWidget(data_);
    data_->setConnection(connection_);
    data_->setRecordSource(QStringLiteral("select * from clientes order by codigo"));
    bind(*first_, QStringLiteral("codigo"));
    bind(*second_, QStringLiteral("nome"));
    QObject::connect(button_, &QPushButton::clicked, data_, &Adodc::saveRow);
  }

  static test::PostgresCluster& cluster() { return test::PostgresCluster::Shared(); }
  static void bind(TsText& field, const QString& name) {
    field.setDataSource(QStringLiteral("dcCliente"));
    field.setDataField(name);
  }
  void move(int key) {
    press(*window_, key, Qt::AltModifier);
    settleEvents();
  }
  QString label() { return data_->findChild<QLabel*>()->text(); }
  QString name() { return editOf(*second_)->text(); }
  static String stored(const String& statement) {
    const auto other = test::NewConnectionOfTheDriver();
    other->ConnectionString(cluster().ConnectionString());
    other->Open();
    return CStr(other->Execute(statement)->Fields().Item(0)->Value());
  }
  void escapeAfter(int milliseconds) {
    QTimer::singleShot(milliseconds, window_.get(), [this] {
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        queueKeyEvent(*window_, type, Qt::Key_Escape, {}, false);
    });
  }
  // The way to the server breaks, and a statement finds out.
  void lose() {
    proxy_->CutNow();
    EXPECT_TRUE(proxy_->WaitForCuts(1, std::chrono::seconds(5)));
    EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
    EXPECT_EQ(connection_->State(), host::state::Closed);
    boxes_.takeTexts();
  }
  // An action of the operator that reads the rows again.
  void pressRefresh() {
    auto* again = new QPushButton(QStringLiteral("Ler de novo"));
    window_->layout()->addWidget(again);
    QObject::connect(again, &QPushButton::clicked, data_, &Adodc::refresh);
    again->show();
    click(*again);
    settleEvents();
    delete again;
  }

  std::unique_ptr<test::CuttingProxy> proxy_;
  host::ConnectionPtr connection_ = test::NewConnectionOfTheDriver();
  Adodc* data_ = nullptr;
};

TEST_F(DistantRows, AreMovedThroughByKeys) {
  show();
  EXPECT_EQ(label(), QStringLiteral("Registro 1"));
  move(Qt::Key_End);
  EXPECT_EQ(label(), QStringLiteral("Registro 60000"));
  EXPECT_EQ(name(), QStringLiteral("Nome 60000"));
  EXPECT_FALSE(data_->recordSet()->Holds(30000));
  move(Qt::Key_PageUp);
  EXPECT_EQ(name(), QStringLiteral("Nome 59999"));
  move(Qt::Key_Home);
  EXPECT_EQ(name(), QStringLiteral("Nome 1"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DistantRows, NewRowIsSavedWithoutCountingThoseBeforeIt) {
  show();
  ASSERT_TRUE(data_->addRow());
  EXPECT_EQ(label(), QStringLiteral("Novo registro"));
  first_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("70000"));
  press(*window_, Qt::Key_Tab);
  type(*window_, QStringLiteral("Nova"));
  click(*button_);
  settleEvents();
  EXPECT_EQ(label(), QStringLiteral("Registro novo, gravado"));
  EXPECT_EQ(name(), QStringLiteral("Nova"));
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 70000"), u"Nova");
  EXPECT_LT(data_->recordSet()->RowsRead(), 60000);
  move(Qt::Key_PageUp);
  EXPECT_EQ(label(), QStringLiteral("Registro 60000"));
  move(Qt::Key_PageDown);
  EXPECT_EQ(label(), QStringLiteral("Registro 60001"));
  EXPECT_EQ(name(), QStringLiteral("Nova"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DistantRows, EscapeAtTheFirstShowGivesUpConnectingAndTheFormStays) {
  proxy_->Swallow();
  escapeAfter(400);
  show();
  EXPECT_EQ(boxes_.takeTexts().value(0),
            QStringLiteral("A operação foi cancelada. Nada foi gravado."));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(connection_->State(), host::state::Closed);
  proxy_->CancelCut();
  pressRefresh();
  EXPECT_EQ(label(), QStringLiteral("Registro 1"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// --- A connection that was lost

TEST_F(DistantRows, RefreshAfterALossAsksAndReadsAgain) {
  show();
  lose();
  boxes_.willPress(QStringLiteral("Sim"));
  pressRefresh();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kReconnectQuestion));
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_EQ(label(), QStringLiteral("Registro 1"));
}

TEST_F(DistantRows, RefreshThatIsToldNotToConnectLeavesTheConnectionClosed) {
  show();
  lose();
  boxes_.willPress(QStringLiteral("Não"));
  pressRefresh();
  const QStringList texts = boxes_.takeTexts();
  ASSERT_EQ(texts.size(), 2);
  EXPECT_EQ(texts[0], kReconnectQuestion);
  EXPECT_EQ(texts[1],
            QStringLiteral("A conexão com o banco de dados está fechada ou foi perdida."));
  EXPECT_EQ(connection_->State(), host::state::Closed);
  EXPECT_EQ(name(), QStringLiteral("Nome 1"));
}

TEST_F(DistantRows, RefreshByATimerNeverConnectsAgain) {
  show();
  lose();
  bool isOver = false;
  QTimer::singleShot(1, window_.get(), [&] {
    EXPECT_FALSE(data_->refresh());
    isOver = true;
  });
  while (!isOver) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(
      boxes_.takeTexts(),
      QStringList(QStringLiteral("A conexão com o banco de dados está fechada ou foi perdida.")));
  EXPECT_EQ(connection_->State(), host::state::Closed);
}

TEST_F(DistantRows, RefreshDoesNotConnectAgainBeforeTheLostTransactionIsEnded) {
  show();
  connection_->BeginTrans();
  lose();
  pressRefresh();
  EXPECT_EQ(boxes_.takeTexts().count(kReconnectQuestion), 0);
  EXPECT_EQ(connection_->State(), host::state::Closed);
  connection_->RollbackTrans();
  boxes_.willPress(QStringLiteral("Sim"));
  pressRefresh();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kReconnectQuestion));
}

TEST_F(DistantRows, RefreshOpensAConnectionThatTheProgramHasClosed) {
  show();
  connection_->Close();
  pressRefresh();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_EQ(label(), QStringLiteral("Registro 1"));
}

}  // namespace
}  // namespace tessaria::qt::tests
