#include "apps/demo/play/order_session.h"

#include "apps/demo/play/lookup_session.h"

namespace tessaria::demo {
namespace {

void startOrder(Player& p) {
  p.stage(s("Os pedidos"));
  p.press(s("Ctrl+2"));
  p.expectFocus(s("dataPedido"));
  p.expectText(s("numero"), s("000001"));
  p.picture(s("pedidos"));
  p.stage(s("Pedido novo"));
  p.press(s("Alt+N"));
  p.expectFocus(s("numero"));
  p.expectText(s("numero"), s("000061"));
  p.press(s("Tab"));
  p.expectFocus(s("dataPedido"));
  p.type(s("23112026"));
  p.press(s("Tab"));
  p.expectText(s("dataPedido"), s("23/11/2026"));
}

void nameCustomer(Player& p) {
  p.stage(s("O nome do cliente se completa e traz o que é dele"));
  p.expectFocus(s("cliente"));
  p.press(s("Tab"));
  p.type(s("João Con"));
  p.expectText(s("nomeCliente"), s("João Conceição Araújo Müller"));
  p.expectText(s("cliente"), s("01500"));
  p.picture(s("cliente-completado"));
  p.press(s("Tab"));
  p.expectFocus(s("uf"));
  p.expectText(s("uf"), s("SP"));
  p.expectText(s("estado"), s("São Paulo"));
  p.expectText(s("cidade"), s("00251"));
  p.expectText(s("nomeCidade"), s("Campinas"));
}

void changeCity(Player& p) {
  p.stage(s("Outro código, e a descrição acompanha"));
  p.press(s("Tab"), 2);
  p.expectFocus(s("cidade"));
  p.type(s("261"));
  p.press(s("Tab"));
  p.expectText(s("cidade"), s("00261"));
  p.expectText(s("nomeCidade"), s("Santos"));
  p.picture(s("cidade-pelo-codigo"));
  p.stage(s("Outro estado: a cidade sai, e a busca se estreita"));
  p.press(s("Shift+Tab"), 3);
  p.expectFocus(s("uf"));
  p.type(s("mg"));
  p.press(s("Tab"));
  p.expectText(s("estado"), s("Minas Gerais"));
  p.expectText(s("nomeCidade"), QString());
  p.press(s("Tab"), 2);
  p.expectFocus(s("nomeCidade"));
  p.type(s("ribeir"));
  p.expectText(s("nomeCidade"), s("Ribeirão das Neves"));
  p.expectText(s("cidade"), s("00085"));
  p.picture(s("cidade-do-estado"));
  p.press(s("Tab"));
  p.press(s("Shift+Tab"), 4);
}

void enterItems(Player& p) {
  p.stage(s("Três itens"));
  p.expectFocus(s("produto"));
  p.type(s("1"));
  p.press(s("Tab"));
  p.expectText(s("descricao"), s("Papel sulfite A4 75 g, resma"));
  p.expectText(s("preco"), s("27,90"));
  p.press(s("Tab"));
  p.type(s("12"));
  p.press(s("Tab"), 2);
  p.expectItem(1, 4, s("334,80"));
  p.expectFocus(s("produto"));
  p.press(s("Tab"));
  p.type(s("café"));
  p.expectText(s("descricao"), s("Café torrado e moído 500 g"));
  p.expectText(s("produto"), s("00040"));
  p.picture(s("produto-completado"));
  p.press(s("Tab"));
  p.type(s("2,5"));
  p.press(s("Tab"));
  p.stage(s("O preço, na calculadora"));
  p.type(s("47,8"));
  playCalculator(p, s("F9"), s("/2="), s("calculadora"));
  p.press(s("Tab"));
  p.expectItem(2, 4, s("59,75"));
  p.stage(s("Terceiro item, pela lista"));
  playProductList(p);
  p.expectText(s("descricao"), s("Apontador com depósito"));
  p.expectText(s("preco"), s("2,40"));
  p.press(s("Tab"), 2);
  p.type(s("100"));
  p.press(s("Tab"));
  playCalculator(p, s("PgDown"), s("*0,9="), s("calculadora-desconto"));
  p.press(s("Tab"));
  p.expectItem(3, 3, s("2,16"));
  p.expectItem(3, 4, s("216,00"));
  p.expectShown(s("total_total"), s("610,55"));
}

void saveOrder(Player& p) {
  p.stage(s("O pedido é salvo"));
  p.press(s("Alt+S"));
  p.expectShown(s("situacao"), s("Pedido 000061, João Conceição Araújo Müller, salvo."));
  p.expectText(s("numero"), s("000061"));
  p.expectItem(3, 1, s("Apontador com depósito"));
  p.picture(s("pedido-salvo"));
}

ExpectedRow itemRow(const char* item, const char* product, const char* quantity, const char* price,
                    const char* total) {
  return {s("Item %1 do pedido no banco de dados:").arg(s(item)),
          s("select item::text, produto, quantidade::text, preco::text, total::text from "
            "itens_pedido where pedido = '000061' and item = ") +
              s(item),
          {{s("item"), s(item)},
           {s("produto"), s(product)},
           {s("quantidade"), s(quantity)},
           {s("preco"), s(price)},
           {s("total"), s(total)}}};
}

}  // namespace

void playOrderSession(Player& player, const OrderPapers& papers, const QString& connectionString) {
  startOrder(player);
  playCustomerList(player);
  nameCustomer(player);
  changeCity(player);
  playCityList(player);
  playTermList(player, connectionString);
  playCalendar(player);
  playFolders(player, papers);
  enterItems(player);
  saveOrder(player);
}

QList<ExpectedRow> rowsAfterOrderSession(const OrderPapers& papers) {
  return {{s("O pedido no banco de dados:"),
           s("select numero, to_char(data, 'DD/MM/YYYY') as data, cliente, uf, cidade, condicao, "
             "to_char(entrega, 'DD/MM/YYYY') as entrega, documento, pasta from pedidos where "
             "numero = '000061'"),
           {{s("numero"), s("000061")},
            {s("data"), s("23/11/2026")},
            {s("cliente"), s("01500")},
            {s("uf"), s("MG")},
            {s("cidade"), s("00085")},
            {s("condicao"), s("06")},
            {s("entrega"), s("05/12/2026")},
            {s("documento"), papers.document},
            {s("pasta"), papers.folder}}},
          itemRow("1", "00001", "12.00", "27.90", "334.80"),
          itemRow("2", "00040", "2.50", "23.90", "59.75"),
          itemRow("3", "00010", "100.00", "2.16", "216.00")};
}

}  // namespace tessaria::demo
