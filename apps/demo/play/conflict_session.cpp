#include "apps/demo/play/conflict_session.h"

namespace tessaria::demo {
namespace {

const QString kMorning = s("Prefere receber pela manhã.");

void changeAsOther(const QString& connectionString) {
  readRows(connectionString,
           s("update clientes set nome = 'Padaria Pão Quente Ltda.', telefone = '1133334444', "
             "limite_credito = 4000 where codigo = '00012'"));
}

void changeSharedCustomer(Player& p) {
  p.press(s("Ctrl+L"));
  p.type(s("12"));
  p.press(s("Return"));
  p.expectText(s("codigo"), s("00012"));
  p.type(s("Padaria Pão Quente e Filhos"));
  p.press(s("Alt+R"));
  p.click(s("senha"));
  p.press(s("Tab"));
  p.expectFocus(s("observacao"));
  p.type(kMorning);
}

void chooseSides(Player& p) {
  p.expectWindow(s("frmConflito"), [&p] {
    p.press(s("Right"));
    p.press(s("Space"));
    p.picture(s("conflito"));
    p.press(s("Alt+G"));
  });
  p.press(s("Alt+S"));
  p.expectShown(s("situacao"), s("Cliente 00012, Padaria Pão Quente Ltda., salvo."));
  p.expectText(s("nome"), s("Padaria Pão Quente Ltda."));
}

void stayOpen(Player& p) {
  p.type(s("Ainda não."));
  p.expectBox(s("O cliente não foi salvo. Salvar antes de fechar?"), s("fechar"), s("Esc"));
  p.press(s("Ctrl+Q"));
  p.expectBox(s("O cliente não foi salvo. Desfazer o que foi digitado?"), {}, s("Alt+S"));
  p.press(s("Esc"));
  p.expectText(s("observacao"), kMorning);
}

}  // namespace

void playConflictSession(Player& player, const QString& connectionString) {
  player.stage(s("Dois usuários alteram o mesmo cliente"));
  changeSharedCustomer(player);
  changeAsOther(connectionString);
  chooseSides(player);
  player.stage(s("A janela pergunta antes de fechar"));
  stayOpen(player);
}

QList<ExpectedRow> rowsAfterConflictSession() {
  return {{s("O cliente que dois usuários alteraram:"),
           s("select nome, telefone, limite_credito::text as limite_credito, observacao "
             "from clientes where codigo = '00012'"),
           {{s("nome"), s("Padaria Pão Quente Ltda.")},
            {s("telefone"), s("1133334444")},
            {s("limite_credito"), s("4000.00")},
            {s("observacao"), kMorning}}}};
}

}  // namespace tessaria::demo
