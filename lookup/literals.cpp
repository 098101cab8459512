#include "lookup/literals.h"

#include "lookup/sql_family.h"
#include "runtime/well_formed.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {
namespace {

constexpr Long kMostrados = 60;

bool EhDigito(char16_t c) { return c >= u'0' && c <= u'9'; }

/// Takes the digits at a position, which moves behind them.
bool TomaDigitos(StringView texto, std::size_t& posicao) {
  const std::size_t inicio = posicao;
  while (posicao < texto.size() && EhDigito(texto[posicao])) ++posicao;
  return posicao > inicio;
}

bool TomaUm(StringView texto, std::size_t& posicao, StringView sinais) {
  const bool tem = posicao < texto.size() && sinais.find(texto[posicao]) != StringView::npos;
  if (tem) ++posicao;
  return tem;
}

bool BarraEscapa(const host::Connection& conexao) {
  const Variant escapa = conexao.Properties(u"Backslash Escapes");
  if (escapa.IsNull()) {
    throw HostError(errors::InvalidArgument,
                    u"O valor contém uma barra invertida (\\), e não se sabe como este banco de "
                    u"dados a lê. Tire a barra do valor.");
  }
  return CBool(escapa);
}

}  // namespace

SqlRules RegrasPara(StringView valor) {
  SqlRules regras;
  const auto& conexao = State().dbConexao;
  if (!conexao || conexao->State() != host::state::Open) return regras;
  regras.family = FamiliaDoDialeto(NomeDialeto(*conexao));
  // Asked only where it matters: the server itself is asked.
  if (valor.find(u'\\') != StringView::npos) regras.backslashes = BarraEscapa(*conexao);
  return regras;
}

String DobraAspas(StringView strTexto) { return Replace(strTexto, u"'", u"''"); }

String ConteudoDeTexto(StringView texto) {
  RequireWellFormed(texto);
  const String dobrado = DobraAspas(texto);
  return RegrasPara(texto).backslashes ? Replace(dobrado, u"\\", u"\\\\") : dobrado;
}

String ConteudoDePadrao(StringView texto) {
  // With an open connection only: without one no family is known, and nothing is sent.
  switch (RegrasPara({}).family) {
    case FamiliaSql::PostgreSQL:
      return ConteudoDeTexto(Replace(texto, u"\\", u"\\\\"));
    case FamiliaSql::Access:
    case FamiliaSql::SqlServer:
      return ConteudoDeTexto(Replace(texto, u"[", u"[[]"));
    case FamiliaSql::Desconhecida:
      break;
  }
  return ConteudoDeTexto(texto);
}

String TextoSql(StringView texto) { return u"'" + ConteudoDeTexto(texto) + u"'"; }

bool EhNumeroSql(StringView texto) {
  std::size_t posicao = 0;
  TomaUm(texto, posicao, u"+-");
  const bool inteiros = TomaDigitos(texto, posicao);
  const bool decimais = TomaUm(texto, posicao, u".") && TomaDigitos(texto, posicao);
  if (!inteiros && !decimais) return false;
  if (TomaUm(texto, posicao, u"eE")) {
    TomaUm(texto, posicao, u"+-");
    if (!TomaDigitos(texto, posicao)) return false;
  }
  return posicao == texto.size();
}

String NumeroSql(StringView valor, StringView nome) {
  const String numero = Replace(valor, u",", u".");
  const String semBrancos = Trim(numero);
  if (!semBrancos.empty() && !EhNumeroSql(semBrancos))
    RecusaValor(nome, valor, u"não é um número, e só um número é aceito aqui.");
  return numero;
}

String LiteralSql(const Variant& valor, StringView nome) {
  if (const String* texto = valor.TryGet<String>()) return TextoSql(*texto);
  return NumeroSql(Trim(SqlText(valor)), nome);
}

String LiteralPronto(const Variant& literal, StringView nome) {
  String texto = SqlText(literal);
  if (!StartsWith(texto, u"'")) return NumeroSql(texto, nome);
  RequireWellFormed(texto);
  SqlScanner leitor(texto, RegrasPara(texto));
  const SqlToken unico = leitor.Next();
  if (!unico.Is(SqlToken::Kind::Text) || unico.length != texto.size())
    RecusaValor(nome, texto, u"não é um texto só.");
  return texto;
}

void RecusaValor(StringView nome, StringView valor, StringView motivo) {
  String mostrado;
  for (const char16_t c : LeftWhole(valor, kMostrados)) mostrado += c < u' ' ? u' ' : c;
  if (Len(valor) > kMostrados) mostrado += u"...";
  throw HostError(errors::TypeMismatch, String(nome) + (nome.empty() ? u"" : u": ") +
                                            u"o valor \"" + mostrado + u"\" " + String(motivo));
}

}  // namespace tessaria
