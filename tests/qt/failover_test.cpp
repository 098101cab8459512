// The primary server dies in the middle of an order and its standby takes over: the operator goes
// on with what is on the screen, and the order is saved once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"
#include "tessaria/utf8.h"
#include "tests/qt/operator.h"
#include "tests/support/pgbouncer.h"
#include "tests/support/replicated_cluster.h"

namespace tessaria::qt::tests {
namespace {

using test::Pgbouncer;
using test::ReplicatedCluster;

const QString kQuestion =
    QStringLiteral("A conexão com o banco de dados foi perdida. Conectar novamente?");

// How the form reaches its server.
struct Way {
  const char* name;
  host::ConnectionPtr (*create)();
  const char* pooling;  // null without a pooler
};

constexpr Way kWays[] = {{"BothServers", postgres::CreateConnection, nullptr},
                         {"OdbcBothServers", odbc::CreateConnection, nullptr},
                         {"SessionPooling", postgres::CreateConnection, "session"},
                         {"OdbcSessionPooling", odbc::CreateConnection, "session"},
                         {"TransactionPooling", postgres::CreateConnection, "transaction"},
                         {"OdbcTransactionPooling", odbc::CreateConnection, "transaction"}};

class Failover : public testing::TestWithParam<Way> {
 protected:
  void SetUp() override {
    const std::string missing = Pgbouncer::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    servers_ = std::make_unique<ReplicatedCluster>();
    if (GetParam().pooling)
      pooler_ = std::make_unique<Pgbouncer>(servers_->Folder(), GetParam().pooling);
    connection_ = GetParam().create();
    connection_->ConnectionString(connectionString());
    connection_->Open();
    for (const char16_t* statement : kSchema) connection_->Execute(statement);
    makeForm();
  }
  void TearDown() override {
    window_.reset();
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }

  String connectionString() const {
    if (pooler_) return pooler_->ConnectionString() + u"Pooling=" + FromUtf8(GetParam().pooling);
    if (GetParam().create == postgres::CreateConnection) return servers_->BothServers();
    // The driver for ODBC hands lists of servers and of ports to the client library.
    const String path = FromUtf8(servers_->Folder());
    return u"Driver={PostgreSQL Unicode};Servername=" + path + u"," + path +
           u";Port=5432,5433;Database=postgres;Uid=postgres;"
           u"pqopt={target_session_attrs=read-write}";
  }

  template <class W>
  W* add(W* widget, const QString& name) {
    widget->setObjectName(name);
    window_->layout()->addWidget(widget);
    return widget;
  }
  void makeForm() {
    window_ = std::make_unique<QWidget>();
    window_->setObjectName(QStringLiteral("frmPedido"));
    window_->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
    new QVBoxLayout(window_.get());
    number_ = add(new TsText, QStringLiteral("numPedido"));
    customer_ = add(new TsText, QStringLiteral("codCliente"));
    name_ = add(new TsText, QStringLiteral("nomCliente"));
    customer_->setTipoControle(TsText::Browse);
    name_->setTipoControle(TsText::Descricao);
    customer_->setTxtIrmao(name_->objectName());
    name_->setTxtIrmao(customer_->objectName());
    for (TsText* field : {customer_, name_}) field->setBrowseTable(QStringLiteral("clientes"));
    customer_->setBrwCampo(QStringLiteral("codigo"));
    customer_->setBrwCampoIrmao(QStringLiteral("nome"));
    name_->setBrwCampo(QStringLiteral("nome"));
    name_->setBrwCampoIrmao(QStringLiteral("codigo"));
    save_ = add(new QPushButton(QStringLiteral("&Gravar")), QStringLiteral("btnGravar"));
    QObject::connect(save_, &QPushButton::clicked, [this] { save(); });
    showActive(*window_);
    number_->setFocus();
    settleEvents();
  }
  // As a program saves an order: all or nothing, and the operator is told what went wrong.
  void save() {
    try {
      connection_->BeginTrans();
      try {
        connection_->Execute(u"insert into pedidos values (" + textOf(*number_) + u", '" +
                             textOf(*customer_) + u"')");
        if (const auto act = std::exchange(inTheMiddle_, nullptr)) act();
        connection_->Execute(u"insert into itens values (" + textOf(*number_) + u", 1)");
        connection_->Execute(u"insert into itens values (" + textOf(*number_) + u", 2)");
      } catch (...) {
        connection_->RollbackTrans();
        throw;
      }
      connection_->CommitTrans();
      ++saved_;
    } catch (const HostError& error) {
      App().ShowMessageBox(0, error.Description(), host::box::Stop, u"Pedido");
    }
  }
  static String textOf(TsText& field) { return fromQt(editOf(field)->text()); }
  void typeOrder() {
    type(*window_, QStringLiteral("77"));
    press(*window_, Qt::Key_Tab);
    settleEvents();
    type(*window_, QStringLiteral("01"));
    press(*window_, Qt::Key_Tab);
    settleEvents();
  }
  void expectScreen() {
    EXPECT_EQ(editOf(*number_)->text(), QStringLiteral("77"));
    EXPECT_EQ(editOf(*customer_)->text(), QStringLiteral("01"));
    EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Ana"));
  }
  void failOver() {
    servers_->KillPrimary();
    servers_->Promote();
    if (pooler_) pooler_->PointTo(5433);
  }
  void pressSave() {
    save_->setFocus();
    settleEvents();
    press(*window_, Qt::Key_Space);
    settleEvents();
  }
  // Saves until the form says that it has, as an operator does.
  void saveInTheEnd() {
    for (int tries = 0; tries < 4 && saved_ == 0; ++tries) {
      pressSave();
      expectScreen();
    }
    EXPECT_EQ(saved_, 1);
  }
  // By another connection, to the server that has taken over.
  String counted(const String& table) {
    const auto other = odbc::CreateConnection();
    other->ConnectionString(servers_->ConnectionString(5433));
    other->Open();
    return CStr(other->Execute(u"select count(*)::int from " + table)->Fields().Item(0)->Value());
  }

  static constexpr const char16_t* kSchema[] = {
      u"create table clientes (codigo varchar(5) primary key, nome varchar(60))",
      u"insert into clientes values ('01', 'Ana'), ('02', 'Bia')",
      u"create table pedidos (numero int, cliente varchar(5))",
      u"create table itens (pedido int, linha int)"};

  BoxKeeper boxes_;
  std::unique_ptr<ReplicatedCluster> servers_;
  std::unique_ptr<Pgbouncer> pooler_;
  host::ConnectionPtr connection_;
  std::unique_ptr<QWidget> window_;
  TsText* number_ = nullptr;
  TsText* customer_ = nullptr;
  TsText* name_ = nullptr;
  QPushButton* save_ = nullptr;
  std::function<void()> inTheMiddle_;
  int saved_ = 0;
};

using FailoverWhileTyping = Failover;

TEST_P(Failover, PrimaryThatDiesWithinTheSaveLosesNothingTyped) {
  typeOrder();
  expectScreen();
  inTheMiddle_ = [this] { failOver(); };
  pressSave();
  EXPECT_EQ(saved_, 0);
  expectScreen();
  EXPECT_EQ(boxes_.takeTexts().count(kQuestion), 0);
  saveInTheEnd();
  EXPECT_GE(boxes_.takeTexts().count(kQuestion), pooler_ ? 0 : 1);
  EXPECT_EQ(counted(u"pedidos"), u"1");
  EXPECT_EQ(counted(u"itens"), u"2");
}

// One way shows it; what differs between the ways is shown above.
TEST_P(FailoverWhileTyping, LosesNothingTyped) {
  typeOrder();
  failOver();
  saveInTheEnd();
  EXPECT_EQ(counted(u"pedidos"), u"1");
  EXPECT_EQ(counted(u"itens"), u"2");
  editOf(*customer_)->setFocus();
  settleEvents();
  editOf(*customer_)->selectAll();
  type(*window_, QStringLiteral("02"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Bia"));
}

INSTANTIATE_TEST_SUITE_P(Ways, FailoverWhileTyping, testing::Values(kWays[0]),
                         [](const auto& way) { return std::string(way.param.name); });
INSTANTIATE_TEST_SUITE_P(Ways, Failover, testing::ValuesIn(kWays),
                         [](const auto& way) { return std::string(way.param.name); });

}  // namespace
}  // namespace tessaria::qt::tests
