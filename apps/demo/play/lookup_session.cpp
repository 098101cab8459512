#include "apps/demo/play/lookup_session.h"

#include <QClipboard>
#include <QGuiApplication>

#include "apps/demo/play/rows.h"

namespace tessaria::demo {
namespace {

/// Announces the answer to the next prompt of a search.
void answerPrompt(Player& p, const char* text, const char* picture) {
  p.expectWindow(s("frmTsPesquisa"), [&p, text, picture] {
    p.expectFocus(s("editPesquisa"));
    p.type(s(text));
    if (*picture) p.picture(s(picture));
    p.press(s("Return"));
  });
}

void lookAtMenu(Player& p) {
  p.tabTo(s("barBrowse"));
  p.expectWindow(QString(), [&p] {
    p.picture(s("lista-menu"));
    p.press(s("Esc"));
  });
  p.press(s("Down"));
  p.tabTo(s("grdBrowse"));
}

void searchCustomers(Player& p) {
  // Asks for two fields, one after the other.
  answerPrompt(p, "sp", "pesquisa-combinada");
  answerPrompt(p, "joã", "pesquisa-nome");
  p.press(s("Ctrl+2"));
  p.expectList(2, 1, s("João Batista Galvão Mendonça"));
  p.picture(s("lista-estreita"));
  for (const char* name : {"JOÃO CONCEIÇÃO", "joao conceicao"}) {
    answerPrompt(p, name, "");
    p.press(s("Ctrl+1"));
    p.expectList(1, 1, s("João Conceição Araújo Müller"));
  }
  p.picture(s("lista-sem-acentos"));
  answerPrompt(p, "01012005", "pesquisa-por-data");
  p.press(s("F4"));
  p.picture(s("lista-por-data"));
}

}  // namespace

void playCustomerList(Player& p) {
  p.stage(s("A lista dos clientes: menu, ordem, pesquisas"));
  p.expectFocus(s("cliente"));
  p.expectWindow(s("frmBrowse"), [&p] {
    p.expectList(-1, 0, s("00001"));
    p.picture(s("lista"));
    lookAtMenu(p);
    p.clickHeader(1);
    p.expectList(-1, 1, s("Adão Queirós Nunes"));
    p.picture(s("lista-em-ordem"));
    searchCustomers(p);
    p.press(s("Esc"));
  });
  p.press(s("PgDown"));
  p.expectFocus(s("cliente"));
  p.expectText(s("nomeCliente"), QString());
}

void playCityList(Player& p) {
  p.stage(s("Estado sem cidades"));
  p.expectFocus(s("uf"));
  p.type(s("ex"));
  p.press(s("Tab"), 2);
  p.expectText(s("estado"), s("Exterior"));
  p.expectFocus(s("cidade"));
  p.expectBox(s("Não Existem Dados na Tabela Pesquisada, Favor Cadastrar"), s("lista-vazia"));
  p.press(s("PgDown"));
  p.press(s("Shift+Tab"), 2);
  p.stage(s("As cidades do estado"));
  p.expectFocus(s("uf"));
  p.type(s("mg"));
  p.press(s("Tab"), 2);
  p.expectFocus(s("cidade"));
  p.expectWindow(s("frmBrowse"), [&p] {
    p.expectList(26, 1, s("Belo Horizonte"));
    p.picture(s("cidades-do-estado"));
    answerPrompt(p, "ribe", "pesquisa-completa");
    p.press(s("Ctrl+1"));
    p.expectList(1, 1, s("Ribeirão das Neves"));
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
  p.expectText(s("cidade"), s("00085"));
  p.expectText(s("nomeCidade"), s("Ribeirão das Neves"));
  p.picture(s("cidade-escolhida"));
  p.press(s("Tab"), 2);
}

void playTermList(Player& p, const QString& connectionString) {
  p.stage(s("Uma lista que o banco de dados recusa"));
  p.expectFocus(s("condicao"));
  readRows(connectionString, s("alter table condicoes_pagamento rename to condicoes_guardadas"));
  p.expectRefusal(s("ERROR: relation \"condicoes_pagamento\" does not exist"), s("lista-recusada"),
                  s("Alt+S"));
  p.press(s("PgDown"));
  readRows(connectionString, s("alter table condicoes_guardadas rename to condicoes_pagamento"));
  p.expect(QGuiApplication::clipboard()->text().contains(s("condicoes_pagamento")),
           s("A instrução recusada não está na área de transferência."));
  p.stage(s("A mesma lista, de novo"));
  p.expectWindow(s("frmBrowse"), [&p] {
    p.expectList(8, 1, s("À vista"));
    answerPrompt(p, "3", "");
    p.press(s("F3"));
    p.expectList(1, 1, s("30/60/90 dias"));
    p.picture(s("condicoes"));
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
  p.expectText(s("condicao"), s("06"));
  p.expectText(s("nomeCondicao"), s("30/60/90 dias"));
  p.press(s("Tab"), 2);
}

void playProductList(Player& p) {
  p.expectWindow(s("frmBrowse"), [&p] {
    answerPrompt(p, "10,5", "pesquisa-preco");
    p.press(s("Ctrl+3"));
    p.expectList(-1, 1, s("Borracha branca nº 40"));
    p.picture(s("produtos-ate-um-preco"));
    p.press(s("Down"), 2);
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
}

}  // namespace tessaria::demo
