// Saving when the server's answer is lost: the program finds out the outcome before it writes
// again.
#include <QRegularExpression>

#include "tests/demo/desk_fixture.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::demo {
namespace {

using tessaria::test::CuttingProxy;
using Side = CuttingProxy::Side;

class LostAnswerTest : public DeskTest {
 protected:
  void SetUp() override {
    server_->start();
    const QRegularExpression folder(QStringLiteral("Servername=([^;]*)"));
    QString line = server_->connectionString();
    const QString socket = folder.match(line).captured(1) + QStringLiteral("/.s.PGSQL.5432");
    proxy_ = std::make_unique<CuttingProxy>(socket.toStdString());
    line.replace(folder, QStringLiteral("Servername=127.0.0.1"));
    line.replace(QStringLiteral("Port=5432"), QStringLiteral("Port=%1").arg(proxy_->Port()));
    database_ = std::make_unique<Database>(line, server_.get());
    database_->open();
    window_ = std::make_unique<MainWindow>(*database_);
    window_->show();
    player_ = std::make_unique<Player>(*window_, QString());
  }

  void startCustomer(const QString& code) {
    Player& p = operatorsHands();
    p.press("Alt+N");
    p.type(code);
    p.press("Tab");
    p.expectFocus("nome");
    p.type("Zilda Prova");
    p.tabTo("uf");
    p.type("sp");
  }
  void startOrder(const QString& number) {
    Player& p = operatorsHands();
    p.press("Ctrl+2");
    p.press("Alt+N");
    p.type(number);
    p.press("Tab");
    p.type("02032026");
    p.press("Tab");
    p.type("5");
    p.press("Tab");
    p.press("Alt+I");
    p.type("1");
    p.press("Tab", 2);
    p.type("2");
    p.press("Tab", 2);
  }
  static std::string ordersOf(const char* number) {
    const QList<Row> rows = readRows(
        server_->connectionString(),
        QStringLiteral("select string_agg(versao || ':' || (select count(*) from itens_pedido i "
                       "where i.pedido = p.numero), ' ') as v from pedidos p where numero = '%1'")
            .arg(QString::fromLatin1(number)));
    return rows.first().first().second.toStdString();
  }

  std::unique_ptr<CuttingProxy> proxy_;
};

TEST_F(LostAnswerTest, ACustomerThatWasStoredIsSavedOnce) {
  Player& p = operatorsHands();
  startCustomer("900");
  proxy_->CutAt(Side::Server, {"INSERT 0 1"});
  p.expectRefusal("Não se sabe se o cliente foi salvo.", {}, "Return");
  p.press("Alt+S");
  expectNotice("Não se sabe se o cliente foi salvo.");
  p.expectText("nome", "Zilda Prova");
  EXPECT_EQ(stored("nome", "00900"), "Zilda Prova");

  p.press("Alt+S");
  expectNotice("Cliente 00900, Zilda Prova, salvo.");
  EXPECT_EQ(stored("nome", "00900"), "Zilda Prova");
}

TEST_F(LostAnswerTest, ACustomerThatWasNotStoredIsSavedTheSecondTime) {
  Player& p = operatorsHands();
  startCustomer("901");
  proxy_->CutAt(Side::Client, {"INSERT INTO"});
  p.expectRefusal("Não se sabe se o cliente foi salvo.", {}, "Return");
  p.press("Alt+S");
  EXPECT_EQ(stored("nome", "00901"), "?");

  p.press("Alt+S");
  expectNotice("Cliente 00901, Zilda Prova, salvo.");
  EXPECT_EQ(stored("nome", "00901"), "Zilda Prova");
}

TEST_F(LostAnswerTest, AnOrderWhoseTransactionWasNotStoredIsSavedTheSecondTime) {
  Player& p = operatorsHands();
  startOrder("901");
  asAnotherUser(
      "create function cut_connection() returns trigger language plpgsql as "
      "'begin perform pg_terminate_backend(pg_backend_pid()); return null; end'");
  asAnotherUser(
      "create constraint trigger cut_at_commit after insert on pedidos "
      "deferrable initially deferred for each row execute function cut_connection()");
  p.expectRefusal("Não se sabe se o pedido foi salvo.", {}, "Return");
  p.press("Alt+S");
  asAnotherUser("drop trigger cut_at_commit on pedidos");
  EXPECT_EQ(ordersOf("000901"), "");

  p.press("Alt+S");
  EXPECT_EQ(ordersOf("000901"), "1:1");
}

TEST_F(LostAnswerTest, AnOrderCutOffBeforeItsEndIsNotStored) {
  Player& p = operatorsHands();
  startOrder("902");
  proxy_->CutAt(Side::Server, {"INSERT 0 1"});
  p.expectRefusal("O pedido não foi salvo: a conexão com o banco de dados caiu.", {}, "Return");
  p.press("Alt+S");
  EXPECT_EQ(ordersOf("000902"), "");

  p.press("Alt+S");
  EXPECT_EQ(ordersOf("000902"), "1:1");
}

}  // namespace
}  // namespace tessaria::demo
