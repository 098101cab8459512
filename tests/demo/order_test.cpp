// The order form: stored tables, refusals and pairs, all by keyboard.
#include "tessaria/qt/tstext.h"
#include "tests/demo/desk_fixture.h"

namespace tessaria::demo {
namespace {

class OrderTest : public DeskTest {
 protected:
  void SetUp() override {
    DeskTest::SetUp();
    operatorsHands().press("Ctrl+2");
  }

  void goToOrder(const QString& number) {
    Player& p = operatorsHands();
    p.press("Ctrl+L");
    p.type(number);
    p.press("Return");
    p.expectText("numero", number);
  }
  /// Starts a new order with everything that its head needs; the focus is on the first product.
  void startOrder(const QString& number) {
    Player& p = operatorsHands();
    p.press("Alt+N");
    p.type(number);
    p.press("Tab");
    p.type("02032026");
    p.press("Tab");
    p.expectFocus("cliente");
    p.type("5");
    p.press("Tab");
    p.expectText("estado", "Rio de Janeiro");
    p.press("Alt+I");
    p.expectFocus("produto");
  }
  void enterItem(const QString& product, const QString& quantity) {
    Player& p = operatorsHands();
    p.type(product);
    p.press("Tab", 2);
    p.type(quantity);
    p.press("Tab", 2);
  }
  /// The text that a statement selects; "?" without rows.
  static std::string scalar(const char* statement) {
    const QList<Row> rows = readRows(server_->connectionString(), QString::fromUtf8(statement));
    return rows.isEmpty() ? "?" : rows.first().first().second.toStdString();
  }
  static std::string itemsOf(const char* number) {
    return scalar(("select string_agg(item || ':' || produto || 'x' || quantidade || '=' || total, "
                   "' ' order by item) from itens_pedido where pedido = '" +
                   std::string(number) + "'")
                      .c_str());
  }
};

TEST_F(OrderTest, IsEnteredAndStoredByKeyboardAlone) {
  Player& p = operatorsHands();
  startOrder("700");
  enterItem("1", "2");
  enterItem("2", "0,5");
  p.press("Alt+S");
  p.expectText("numero", "000700");
  EXPECT_EQ(itemsOf("000700"), "1:00001x2.00=55.80 2:00002x0.50=129.50");
  EXPECT_EQ(scalar("select cliente || uf || cidade from pedidos where numero = '000700'"),
            scalar("select codigo || uf || cidade from clientes where codigo = '00005'"));
  EXPECT_EQ(scalar("select versao from pedidos where numero = '000700'"), "1");
}

TEST_F(OrderTest, ChangedLinesAloneCountAsAChange) {
  Player& p = operatorsHands();
  startOrder("701");
  enterItem("1", "2");
  p.press("Alt+S");
  p.press("Alt+I");  // back to where the items were left
  p.expectFocus("produto");
  p.press("Shift+Tab", 2);
  p.expectFocus("quantidade");
  p.type("3");
  p.press("Alt+Home");
  p.expectText("numero", "000001");
  EXPECT_EQ(itemsOf("000701"), "1:00001x3.00=83.70");
  EXPECT_EQ(scalar("select versao from pedidos where numero = '000701'"), "2");
}

TEST_F(OrderTest, WhatTheDatabaseRefusesIsNeitherStoredNorLost) {
  Player& p = operatorsHands();
  startOrder("702");
  enterItem("1", "2");
  asAnotherUser("alter table itens_pedido add constraint poucos check (quantidade < 2) not valid");
  p.expectRefusal("O pedido não foi salvo: o banco de dados recusou.", {}, "Return");
  p.press("Alt+S");
  asAnotherUser("alter table itens_pedido drop constraint poucos");
  p.expectText("numero", "000702");
  p.expectItem(1, 2, "2,00");
  expectNotice("Não salvo: o banco de dados recusou.");
  EXPECT_EQ(scalar("select 1 from pedidos where numero = '000702'"), "?");

  p.press("Alt+S");
  EXPECT_EQ(itemsOf("000702"), "1:00001x2.00=55.80");
}

// The rows are written, and the commit of the transaction is refused.
TEST_F(OrderTest, WhatIsRefusedAtCommitIsNotLost) {
  Player& p = operatorsHands();
  startOrder("703");
  enterItem("1", "2");
  asAnotherUser(
      "create function recusa() returns trigger language plpgsql as "
      "'begin raise exception ''recusado no fim''; end'");
  asAnotherUser(
      "create constraint trigger fim after insert on pedidos deferrable initially deferred "
      "for each row execute function recusa()");
  p.expectRefusal("O pedido não foi salvo: o banco de dados recusou.", {}, "Return");
  p.press("Alt+S");
  asAnotherUser("drop trigger fim on pedidos");
  p.expectText("numero", "000703");
  EXPECT_EQ(scalar("select 1 from pedidos where numero = '000703'"), "?");

  p.press("Alt+S");
  EXPECT_EQ(itemsOf("000703"), "1:00001x2.00=55.80");
}

TEST_F(OrderTest, AnotherUsersOrderIsNotOverwritten) {
  Player& p = operatorsHands();
  goToOrder("000010");
  const std::string before = itemsOf("000010");
  p.press("Alt+I");
  p.press("Tab", 2);
  p.type("99");
  p.press("Tab");
  asAnotherUser("update pedidos set versao = versao + 1 where numero = '000010'");
  p.expectWindow("frmConflito", [&p] { p.press("Return"); });
  p.press("Alt+S");
  expectNotice("Não salvo: outro usuário alterou o pedido.");
  p.expectText("quantidade", "99,00");
  EXPECT_EQ(itemsOf("000010"), before);
  dropInput("pedido");
  p.expectText("numero", "000010");
}

TEST_F(OrderTest, EscapePressedTwiceLosesNoOrder) {
  Player& p = operatorsHands();
  startOrder("707");
  enterItem("1", "2");
  p.expectBox(dropQuestion("pedido"), {}, "Esc");
  p.press("Esc");
  p.expectText("numero", "000707");
  p.press("Alt+S");
  EXPECT_EQ(itemsOf("000707"), "1:00001x2.00=55.80");
}

TEST_F(OrderTest, AnOrderNeedsItemsAndTheirQuantities) {
  Player& p = operatorsHands();
  startOrder("704");
  p.expectBox("O pedido não tem itens, Verifique Por Favor");
  p.press("Alt+S");
  p.expectFocus("produto");
  p.type("1");
  p.expectBox("Falta a quantidade, Verifique Por Favor");
  p.press("Alt+S");
  p.expectFocus("quantidade");
  dropInput("pedido");
}

TEST_F(OrderTest, DeliveryBeforeTheOrderIsRefused) {
  Player& p = operatorsHands();
  startOrder("705");
  enterItem("1", "1");
  p.press("Ctrl+L");
  p.press("Tab", 10);
  p.tabTo("entrega");
  p.type("01032026");
  p.expectBox("A entrega não pode ser antes do pedido.");
  p.press("Alt+S");
  p.expectFocus("entrega");
  dropInput("pedido");
}

TEST_F(OrderTest, OnlyTheCitiesOfTheStateAreListed) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.tabTo("uf");
  p.type("sp");
  p.press("Tab", 3);
  p.expectFocus("nomeCidade");
  p.type("ribeirã");
  p.expectText("nomeCidade", "Ribeirão Preto");
  p.expectText("cidade", "00256");
  p.press("Shift+Tab", 3);
  p.expectFocus("uf");
  p.type("mg");
  p.press("Tab");
  p.expectText("nomeCidade", "");
  p.press("Tab");
  p.type("256");
  p.expectBox("Cidade:  Inexistente, Verifique Por Favor");
  p.press("Tab");
  p.expectFocus("cidade");
  dropInput("pedido");
}

TEST_F(OrderTest, ChoosingACitySetsItsState) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.tabTo("cidade");
  p.type("261");
  p.press("Tab");
  p.expectText("nomeCidade", "Santos");
  p.expectText("uf", "SP");
  p.expectText("estado", "São Paulo");
  dropInput("pedido");
}

TEST_F(OrderTest, ARowCanBeChosenFromTheList) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.tabTo("condicao");
  p.expectWindow("frmBrowse", [&p] {
    p.expectList(8, 1, "À vista");
    p.press("Down", 2);
    p.press("Return");
  });
  p.press("PgDown");
  p.expectText("condicao", "03");
  p.expectText("nomeCondicao", "15 dias");
  dropInput("pedido");
}

TEST_F(OrderTest, DeletingAnOrderDeletesItsItems) {
  Player& p = operatorsHands();
  goToOrder("000020");
  const QString customer = window_->findChild<qt::TsText*>("nomeCliente")->text();
  p.expectBox(QStringLiteral("Excluir o pedido 000020, %1?").arg(customer), {}, "Alt+S");
  p.press("Alt+E");
  expectNotice("Pedido 000020 excluído.");
  EXPECT_EQ(scalar("select count(*) from itens_pedido where pedido = '000020'"), "0");
}

// The status bar shows a refusal as long as it is true.
TEST_F(OrderTest, ARefusalDisappearsWhenItsFieldIsValid) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.tabTo("uf");
  p.type("xx");
  p.expectBox("UF:  Inexistente, Verifique Por Favor");
  p.press("Tab");
  expectNotice("UF: Inexistente, Verifique Por Favor");
  p.type("ba");
  p.press("Tab");
  expectNotice("");
  dropInput("pedido");
}

TEST_F(OrderTest, EachFormKeepsWhatWasTyped) {
  Player& p = operatorsHands();
  startOrder("706");
  p.press("Ctrl+1");
  p.expectFocus("nome");
  p.expectText("codigo", "00001");
  p.press("Ctrl+2");
  p.expectFocus("produto");
  p.expectText("numero", "000706");
  p.expectBox("O pedido não foi salvo. Salvar antes de fechar?", {}, "Alt+C");
  p.press("Ctrl+Q");
  EXPECT_TRUE(window_->isVisible());
  dropInput("pedido");
}

}  // namespace
}  // namespace tessaria::demo
