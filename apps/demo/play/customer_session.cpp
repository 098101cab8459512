#include "apps/demo/play/customer_session.h"

#include "tessaria/qt/text.h"
#include "tessaria/scramble.h"

namespace tessaria::demo {
namespace {

const QString kName = QStringLiteral("João Conceição Araújo Müller");
const QString kAddress = QStringLiteral("Avenida São João, 1200, 3º andar");
const QString kEmail = QStringLiteral("joao.araujo@example.com");
const QString kPassword = QStringLiteral("Segredo1");
const QStringList kNotes{QStringLiteral("Não entregar às segundas."),
                         QStringLiteral("Cobrança até o dia 5.")};

void fillHead(Player& p) {
  p.stage(QStringLiteral("Cliente novo: o código proposto é trocado, o nome fica em branco"));
  p.press(QStringLiteral("Alt+N"));
  p.expectFocus(QStringLiteral("codigo"));
  p.expectText(QStringLiteral("codigo"), QStringLiteral("00401"));
  p.type(QStringLiteral("1500"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("codigo"), QStringLiteral("01500"));
  p.expectFocus(QStringLiteral("nome"));
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("fisica"));
}

void fillIdentification(Player& p) {
  p.stage(QStringLiteral("Data que não existe"));
  p.press(QStringLiteral("Tab"));
  p.type(QStringLiteral("52998224725"));
  p.press(QStringLiteral("Return"));
  p.expectText(QStringLiteral("documento"), QStringLiteral("529.982.247-25"));
  p.expectFocus(QStringLiteral("nascimento"));
  p.type(QStringLiteral("31021980"));
  p.picture(QStringLiteral("digitando"));
  p.expectBox(QStringLiteral("Nascimento: Invalido(a), Corrija Por Favor"),
              QStringLiteral("data-recusada"));
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("nascimento"));
  p.expectText(QStringLiteral("nascimento"), QStringLiteral("31/02/1980"));
  p.type(QStringLiteral("29021980"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("nascimento"), QStringLiteral("29/02/1980"));
}

void fillAddress(Player& p) {
  p.stage(QStringLiteral("Estado que não existe"));
  p.expectFocus(QStringLiteral("cep"));
  p.type(QStringLiteral("01310100"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("cep"), QStringLiteral("01310-100"));
  p.type(kAddress);
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("uf"));
  p.type(QStringLiteral("xx"));
  p.expectBox(QStringLiteral("UF:  Inexistente, Verifique Por Favor"),
              QStringLiteral("estado-recusado"));
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("uf"));
  p.expectText(QStringLiteral("uf"), QStringLiteral("XX"));
  p.type(QStringLiteral("sp"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("uf"), QStringLiteral("SP"));
  p.expectText(QStringLiteral("estado"), QStringLiteral("São Paulo"));
  p.stage(QStringLiteral("A cidade se completa ao digitar"));
  p.expectFocus(QStringLiteral("cidade"));
  p.press(QStringLiteral("Tab"));
  p.type(QStringLiteral("cam"));
  p.expectText(QStringLiteral("nomeCidade"), QStringLiteral("Campinas"));
  p.expectText(QStringLiteral("cidade"), QStringLiteral("00251"));
  p.picture(QStringLiteral("cidade-completada"));
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("telefone"));
  p.type(QStringLiteral("11987654321"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("telefone"), QStringLiteral("(11) 98765-4321"));
  p.type(kEmail);
  p.picture(QStringLiteral("endereco"));
  p.press(QStringLiteral("Tab"));
}

void fillCredit(Player& p) {
  p.stage(QStringLiteral("Crédito, senha e observações"));
  p.expectFocus(QStringLiteral("limite"));
  p.type(QStringLiteral("12500,5"));
  p.press(QStringLiteral("Tab"));
  p.expectText(QStringLiteral("limite"), QStringLiteral("12.500,50"));
  p.expectFocus(QStringLiteral("senha"));
  p.type(kPassword);
  p.expectText(QStringLiteral("senha"), QStringLiteral("********"));
  p.picture(QStringLiteral("senha"));
  p.press(QStringLiteral("Tab"));
  p.expectShown(QStringLiteral("situacaoSenha"), QStringLiteral("Será trocada ao salvar."));
  p.type(kNotes[0]);
  p.press(QStringLiteral("Return"));
  p.type(kNotes[1]);
}

void saveNewCustomer(Player& p) {
  p.stage(QStringLiteral("Nome em branco"));
  p.expectBox(QStringLiteral("Nome: Não Pode Ser Branco, Verifique Por Favor"),
              QStringLiteral("nome-recusado"));
  p.press(QStringLiteral("Alt+S"));
  p.expectFocus(QStringLiteral("nome"));
  p.type(kName);
  p.stage(QStringLiteral("Tudo corrigido: o cliente é salvo"));
  p.press(QStringLiteral("Alt+S"));
  p.expectShown(QStringLiteral("situacao"), QStringLiteral("Cliente 01500, %1, salvo.").arg(kName));
  p.expectText(QStringLiteral("codigo"), QStringLiteral("01500"));
  p.expectText(QStringLiteral("nome"), kName);
  p.press(QStringLiteral("Alt+I"));
  p.picture(QStringLiteral("salvo"));
}

void moveAround(Player& p) {
  p.stage(QStringLiteral("Pelos registros"));
  const std::pair<const char*, const char*> moves[] = {{"Alt+Home", "00001"},
                                                       {"Alt+Right", "00002"},
                                                       {"Alt+Right", "00003"},
                                                       {"Alt+Left", "00002"},
                                                       {"Alt+End", "01500"}};
  for (const auto& [keys, code] : moves) {
    p.press(QString::fromLatin1(keys));
    p.expectText(QStringLiteral("codigo"), QString::fromLatin1(code));
  }
  p.press(QStringLiteral("Ctrl+L"));
  p.expectFocus(QStringLiteral("localizar"));
  p.type(QStringLiteral("8"));
  p.press(QStringLiteral("Return"));
  p.expectText(QStringLiteral("codigo"), QStringLiteral("00008"));
  p.expectShown(QStringLiteral("lblDocumento"), QStringLiteral("CNPJ:"));
  p.picture(QStringLiteral("empresa"));
}

void changeCustomer(Player& p) {
  p.stage(QStringLiteral("Um cliente é alterado"));
  p.press(QStringLiteral("Alt+R"));
  p.click(QStringLiteral("senha"));
  p.press(QStringLiteral("Shift+Tab"));
  p.expectFocus(QStringLiteral("limite"));
  p.type(QStringLiteral("777,7"));
  p.press(QStringLiteral("Tab"));
  p.press(QStringLiteral("Tab"));
  p.expectFocus(QStringLiteral("observacao"));
  p.type(QStringLiteral("Órgão público: atenção à nota."));
  p.click(QStringLiteral("btnSalvar"));
  p.expectText(QStringLiteral("limite"), QStringLiteral("777,70"));
  p.picture(QStringLiteral("alterado"));
}

const QString kColumns = QStringLiteral(
    "select codigo, nome, cpf_cnpj, to_char(nascimento, 'DD/MM/YYYY') as nascimento, cep, "
    "endereco, uf, cidade, telefone, email, limite_credito::text as limite_credito, senha, "
    "observacao "
    "from clientes where codigo = ");

}  // namespace

void playCustomerSession(Player& player) {
  player.picture(QStringLiteral("inicio"));
  fillHead(player);
  fillIdentification(player);
  fillAddress(player);
  fillCredit(player);
  saveNewCustomer(player);
  moveAround(player);
  changeCustomer(player);
}

QList<ExpectedRow> rowsAfterCustomerSession() {
  const QString password = qt::toQt(mdlComum::CodificaTexto(qt::fromQt(kPassword)));
  return {{QStringLiteral("O cliente novo no banco de dados:"),
           kColumns + QStringLiteral("'01500'"),
           {{QStringLiteral("codigo"), QStringLiteral("01500")},
            {QStringLiteral("nome"), kName},
            {QStringLiteral("cpf_cnpj"), QStringLiteral("52998224725")},
            {QStringLiteral("nascimento"), QStringLiteral("29/02/1980")},
            {QStringLiteral("cep"), QStringLiteral("01310100")},
            {QStringLiteral("endereco"), kAddress},
            {QStringLiteral("uf"), QStringLiteral("SP")},
            {QStringLiteral("cidade"), QStringLiteral("00251")},
            {QStringLiteral("telefone"), QStringLiteral("11987654321")},
            {QStringLiteral("email"), kEmail},
            {QStringLiteral("limite_credito"), QStringLiteral("12500.50")},
            {QStringLiteral("senha"), password},
            {QStringLiteral("observacao"), kNotes.join(QLatin1String("\r\n"))}}},
          {QStringLiteral("O cliente alterado no banco de dados:"),
           kColumns + QStringLiteral("'00008'"),
           {{QStringLiteral("codigo"), QStringLiteral("00008")},
            {QStringLiteral("limite_credito"), QStringLiteral("888.80")},
            {QStringLiteral("observacao"), QStringLiteral("Órgão público: atenção à nota.")}}}};
}

}  // namespace tessaria::demo
