#include <QAction>

#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/scramble.h"
#include "tests/demo/desk_fixture.h"
#include "tests/qt/operator.h"

namespace tessaria::demo {

std::unique_ptr<ServerFolder> DeskTest::folder_;
std::unique_ptr<Cluster> DeskTest::server_;

namespace {

const QString kBlankName = QStringLiteral("Nome: Não Pode Ser Branco, Verifique Por Favor");
const QString kAway = QStringLiteral(
    "O cliente não foi salvo: o servidor do banco de dados não responde.\n\nO que foi digitado "
    "continua na tela. Salve de novo quando o servidor voltar, ou use Arquivo, Reconectar ao "
    "banco de dados.");

TEST_F(DeskTest, CancelDropsTheNewCustomer) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.type("900");
  p.press("Tab");
  p.type("Alguém que desistiu");
  p.press("Tab");
  dropInput("cliente", "Esc");
  p.expectText("codigo", "00001");
  expectNotice("O que foi digitado foi desfeito.");
  EXPECT_FALSE(window_->findChild<qt::TsText*>("codigo")->isFieldEnabled());
  EXPECT_EQ(stored("nome", "00900"), "?");
}

TEST_F(DeskTest, EscapePressedTwiceLosesNothing) {
  Player& p = operatorsHands();
  goTo("00091");
  p.type("Quase perdido");
  p.expectBox(dropQuestion("cliente"), {}, "Esc");
  p.press("Esc");
  p.expectFocus("nome");
  p.expectText("nome", "Quase perdido");
  p.press("Alt+S");
  EXPECT_EQ(stored("nome", "00091"), "Quase perdido");
}

TEST_F(DeskTest, TheDefaultAnswerKeepsWhatWasTyped) {
  Player& p = operatorsHands();
  goTo("00092");
  const std::string before = stored("nome", "00092");
  p.type("Ainda aqui");
  p.expectBox(dropQuestion("cliente"), {}, "Return");
  p.press("Alt+C");
  p.expectText("nome", "Ainda aqui");
  p.expectBox("O cliente não foi salvo. Salvar antes de fechar?", {}, "Return");
  p.press("Ctrl+Q");
  EXPECT_TRUE(window_->isVisible());
  p.expectText("nome", "Ainda aqui");
  dropInput("cliente");
  EXPECT_EQ(stored("nome", "00092"), before);
}

TEST_F(DeskTest, CancelAsksNothingWhenNothingWasTyped) {
  Player& p = operatorsHands();
  goTo("00093");
  p.press("Tab", 2);
  p.press("Esc");
  expectNotice("Nada a desfazer.");
  p.type("7");
  p.press("Backspace");
  dropInput("cliente", "Esc");
  expectNotice("O que foi digitado foi desfeito.");
}

TEST_F(DeskTest, ANoticeDisappearsWhenItIsNoLongerTrue) {
  Player& p = operatorsHands();
  goTo("00094");
  expectNotice("Cliente 00094.");
  p.press("Alt+Right");
  p.expectText("codigo", "00095");
  expectNotice("");
  p.press("Alt+S");
  expectNotice("Nada a salvar: o cliente está como no banco de dados.");
  goTo("00096");
  p.type("Outro nome");
  expectNotice("");
  p.press("Alt+S");
  expectNotice("Cliente 00096, Outro nome, salvo.");
  p.type("x");
  expectNotice("");
  dropInput("cliente", "Esc");
}

TEST_F(DeskTest, TheNoticeThatARowIsNotSavedStaysUntilItIsSaved) {
  Player& p = operatorsHands();
  goTo("00097");
  p.type("Sem servidor");
  server_->stop(Cluster::StopMode::AtOnce);
  p.expectBox(kAway);
  p.press("Alt+S");
  p.press("End");
  p.type(" ainda");
  p.press("Tab");
  expectNotice("Não salvo: o servidor do banco de dados não responde.");
  server_->start();
  p.press("Alt+S");
  expectNotice("Cliente 00097, Sem servidor ainda, salvo.");
}

TEST_F(DeskTest, CancelEscapesTheCheckOfAWrongDate) {
  Player& p = operatorsHands();
  goTo("00010");
  const QString before = window_->findChild<qt::TsText*>("nascimento")->text();
  p.click("documento");
  p.press("Tab");
  p.expectFocus("nascimento");
  p.type("31022000");
  dropInput("cliente");
  p.expectText("nascimento", before);
}

TEST_F(DeskTest, KeepsTheTextWhileTheServerIsAwayAndSavesWhenItIsBack) {
  Player& p = operatorsHands();
  goTo("00020");
  p.type("Conceição à Espera");
  server_->stop(Cluster::StopMode::AtOnce);
  p.expectBox(kAway);
  p.press("Alt+S");
  p.expectText("nome", "Conceição à Espera");
  expectNotice("Não salvo: o servidor do banco de dados não responde.");

  server_->start();
  p.press("Alt+S");
  expectNotice("Cliente 00020, Conceição à Espera, salvo.");
  EXPECT_EQ(stored("nome", "00020"), "Conceição à Espera");
}

TEST_F(DeskTest, TheMenuRestartsTheProgramsOwnServer) {
  Player& p = operatorsHands();
  goTo("00021");
  p.type("Religado pelo menu");
  server_->stop(Cluster::StopMode::AtOnce);
  p.expectBox(kAway);
  p.press("Ctrl+S");
  window_->findChild<QAction*>("acaoReconectar")->trigger();
  expectNotice("Ligado ao banco de dados.");
  p.press("Ctrl+S");
  EXPECT_EQ(stored("nome", "00021"), "Religado pelo menu");
}

TEST_F(DeskTest, AnotherUsersChangeIsNotOverwritten) {
  Player& p = operatorsHands();
  goTo("00030");
  p.type("O que eu quis");
  asAnotherUser("update clientes set nome = 'O que o outro quis' where codigo = '00030'");
  p.expectWindow("frmConflito", [&p] { p.press("Esc"); });
  p.press("Alt+S");
  expectNotice("Não salvo: outro usuário alterou o cliente.");
  p.expectText("nome", "O que eu quis");
  EXPECT_EQ(stored("nome", "00030"), "O que o outro quis");

  dropInput("cliente", "Esc");
  p.expectText("codigo", "00030");
  p.expectText("nome", "O que o outro quis");
}

TEST_F(DeskTest, ACustomerIsCheckedBeforeItsRowIsLeft) {
  Player& p = operatorsHands();
  goTo("00040");
  const std::string before = stored("nome", "00040");
  p.press("Delete");
  p.expectBox(kBlankName);
  p.press("Alt+Right");
  p.expectFocus("nome");
  p.expectText("codigo", "00040");
  EXPECT_EQ(stored("nome", "00040"), before);
  p.type("Nome de novo");
  p.press("Alt+Right");
  p.expectText("codigo", "00041");
  expectNotice("Cliente 00040, Nome de novo, salvo.");
  EXPECT_EQ(stored("nome", "00040"), "Nome de novo");
}

TEST_F(DeskTest, ACodeThatIsTakenIsRefused) {
  Player& p = operatorsHands();
  const QString owner = QString::fromStdString(stored("nome", "00005"));
  p.press("Alt+N");
  p.type("5");
  p.press("Tab");
  p.type("Segundo do mesmo código");
  p.press("Alt+D");
  p.click("endereco");
  p.press("Tab");
  p.expectFocus("uf");
  p.type("ba");
  p.expectBox(QStringLiteral("O código 00005 já é do cliente %1.").arg(owner));
  p.press("Alt+S");
  p.expectFocus("codigo");
  dropInput("cliente", "Esc");
}

TEST_F(DeskTest, ARefusedFieldBringsItsTabToTheFront) {
  Player& p = operatorsHands();
  p.press("Alt+N");
  p.press("Tab");
  p.type("Sem estado");
  p.press("Alt+R");
  for (const QWidget* state : window_->findChildren<qt::TsText*>("uf"))
    ASSERT_FALSE(state->isVisible());
  p.expectBox("UF: Não Pode Ser Branco, Verifique Por Favor");
  p.press("Alt+S");
  p.expectFocus("uf");
  EXPECT_TRUE(window_->focusWidget()->isVisible());
  dropInput("cliente", "Esc");
}

TEST_F(DeskTest, AWrongCpfIsRefused) {
  Player& p = operatorsHands();
  goTo("00051");
  p.click("fisica");
  p.press("Tab");
  p.expectFocus("documento");
  p.type("11144477734");
  p.expectBox("CPF: não confere, Verifique Por Favor");
  p.press("Tab");
  p.expectFocus("documento");
  p.expectBox("CPF: não confere, Verifique Por Favor");
  p.press("Alt+S");
  p.expectFocus("documento");
  p.type("11144477735");
  p.press("Alt+S");
  EXPECT_EQ(stored("cpf_cnpj", "00051"), "11144477735");
}

TEST_F(DeskTest, ACnpjWithLettersIsChecked) {
  Player& p = operatorsHands();
  goTo("00052");
  p.click("juridica");
  p.press("Tab");
  p.expectFocus("documento");
  p.type("12abc34501de34");
  p.expectBox("CNPJ: não confere, Verifique Por Favor");
  p.press("Alt+S");
  p.type("12abc34501de35");
  p.press("Alt+S");
  p.expectText("documento", "12.ABC.345/01DE-35");
  EXPECT_EQ(stored("cpf_cnpj", "00052"), "12ABC34501DE35");
}

// A field with an "X" mask scrambles its content each time it is left.
TEST_F(DeskTest, APasswordIsScrambledOnlyOnceHoweverOftenItsFieldIsLeft) {
  Player& p = operatorsHands();
  const std::string scrambled = qt::toQt(mdlComum::CodificaTexto(u"Segredo1")).toStdString();
  goTo("00060");
  p.press("Alt+R");
  p.click("senha");
  p.type("Segredo1");
  p.press("Tab");
  p.press("Shift+Tab");
  p.press("Tab");
  p.press("Alt+S");
  EXPECT_EQ(stored("senha", "00060"), scrambled);
  p.expectShown("situacaoSenha", "Já cadastrada.");

  p.click("senha");
  p.press("Tab");
  p.type("Passou pela senha");
  p.press("Alt+S");
  EXPECT_EQ(stored("observacao", "00060"), "Passou pela senha");
  EXPECT_EQ(stored("senha", "00060"), scrambled);
}

TEST_F(DeskTest, TelephonesOfBothLengthsAreFormatted) {
  Player& p = operatorsHands();
  asAnotherUser("update clientes set telefone = '1133334444' where codigo = '00070'");
  p.press("F5");
  goTo("00070");
  p.expectText("telefone", "(11) 3333-4444");
  p.press("Alt+D");
  p.click("email");
  p.press("Shift+Tab");
  p.expectFocus("telefone");
  p.type("11987654321");
  p.press("Tab");
  p.expectText("telefone", "(11) 98765-4321");
  dropInput("cliente");
  p.expectText("telefone", "(11) 3333-4444");
}

TEST_F(DeskTest, DeletingAsksFirst) {
  Player& p = operatorsHands();
  asAnotherUser("update clientes set nome = 'José' where codigo = '00080'");
  p.press("F5");
  goTo("00080");
  p.expectBox("Excluir o cliente 00080, José?", {}, "Alt+N");
  p.press("Alt+E");
  EXPECT_EQ(stored("nome", "00080"), "José");
  p.expectBox("Excluir o cliente 00080, José?", {}, "Alt+S");
  p.press("Alt+E");
  expectNotice("Cliente 00080 excluído.");
  p.expectText("codigo", "00081");
  EXPECT_EQ(stored("nome", "00080"), "?");
}

TEST_F(DeskTest, ACodeThatAnotherUserAddedIsFound) {
  asAnotherUser("insert into clientes (codigo, nome, uf) values ('00777', 'Chegou agora', 'AC')");
  goTo("00777");
  operatorsHands().expectText("nome", "Chegou agora");
  operatorsHands().expectText("estado", "Acre");
}

TEST_F(DeskTest, LeavingWithUnsavedInputAsks) {
  Player& p = operatorsHands();
  p.press("Ctrl+L");
  goTo("00090");
  p.type("Quase perdido");
  p.expectBox("O cliente não foi salvo. Salvar antes de fechar?", {}, "Alt+C");
  p.press("Ctrl+Q");
  EXPECT_TRUE(window_->isVisible());
  dropInput("cliente", "Esc");
  p.press("Ctrl+Q");
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(DeskTest, ClosingByTheFrameAsksAndKeepsWhatWasTypedByDefault) {
  Player& p = operatorsHands();
  goTo("00098");
  const std::string before = stored("nome", "00098");
  p.type("Quase fechado");
  const char* question = "O cliente não foi salvo. Salvar antes de fechar?";
  p.expectBox(question, {}, "Return");
  qt::tests::closeByFrame(*window_);
  EXPECT_TRUE(window_->isVisible());
  p.expectText("nome", "Quase fechado");
  p.expectBox(question, {}, "Alt+D");
  qt::tests::closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(stored("nome", "00098"), before);
}

TEST_F(DeskTest, ClosingMaySaveWhatWasTyped) {
  Player& p = operatorsHands();
  goTo("00099");
  p.type("Salvo ao fechar");
  p.expectBox("O cliente não foi salvo. Salvar antes de fechar?", {}, "Alt+S");
  p.press("Ctrl+Q");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(stored("nome", "00099"), "Salvo ao fechar");
}

TEST_F(DeskTest, TheOperatorChoosesBetweenTheTwoChanges) {
  Player& p = operatorsHands();
  goTo("00031");
  p.type("Nome meu");
  p.press("Alt+R");
  p.tabTo("limite");
  p.type("1500");
  p.press("Tab");
  asAnotherUser(
      "update clientes set nome = 'Nome do outro', endereco = 'Rua do Outro, 1' "
      "where codigo = '00031'");
  p.expectWindow("frmConflito", [&p] {
    p.press("Right");
    p.press("Space");
    p.press("Alt+G");
  });
  p.press("Alt+S");
  expectNotice("Cliente 00031, Nome do outro, salvo.");
  EXPECT_EQ(stored("nome", "00031"), "Nome do outro");
  EXPECT_EQ(stored("endereco", "00031"), "Rua do Outro, 1");
  EXPECT_EQ(stored("limite_credito", "00031"), "1500.00");
}

}  // namespace
}  // namespace tessaria::demo
