#include "lookup/where_text.h"

#include <algorithm>
#include <vector>

#include "lookup/literals.h"
#include "mask/form_helpers.h"
#include "runtime/well_formed.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr char16_t kMarca = u'@';

bool EhParteDePalavra(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') ||
         c >= 0x80 || StringView(u"_$.#").find(c) != StringView::npos;
}
bool SeparaTokens(char16_t c) { return StringView(u" \t\r\n\f(),").find(c) != StringView::npos; }
/// Whether a sign behind this text would be read as part of the operator that it ends in: "--", or
/// one that holds a character with which the servers let a sign end an operator, as "!=-".
bool LigaSeASinal(StringView texto) {
  const std::size_t antes = texto.find_last_not_of(u"+-*/<>=~!@#%^&|`?");
  const StringView operador = texto.substr(antes == StringView::npos ? 0 : antes + 1);
  if (operador.empty()) return false;
  const bool terminaEmSinal = operador.back() == u'+' || operador.back() == u'-';
  return terminaEmSinal || operador.find_first_of(u"~!@#%^&|`?") != StringView::npos;
}

bool EhSinal(const SqlScanner& leitor, const SqlToken& token, StringView sinais) {
  return token.Is(SqlToken::Kind::Symbol) &&
         sinais.find(leitor.TextOf(token).front()) != StringView::npos;
}

/// Whether a text ends where an item of the list of an "in" begins.
bool AbreItemDeLista(StringView texto, SqlRules regras) {
  SqlScanner leitor(texto, regras);
  std::vector<bool> parenteses;  // of those that are open: whether each is the list of an "in"
  bool depoisDeIn = false;
  bool comecaItem = false;
  for (SqlToken token = leitor.Next(); token.length > 0; token = leitor.Next()) {
    comecaItem = EhSinal(leitor, token, u"(,");
    if (EhSinal(leitor, token, u"(")) parenteses.push_back(depoisDeIn);
    if (EhSinal(leitor, token, u")") && !parenteses.empty()) parenteses.pop_back();
    depoisDeIn = token.Is(SqlToken::Kind::Word) && EqualNoCase(leitor.TextOf(token), u"in");
  }
  return comecaItem && !parenteses.empty() && parenteses.back();
}

/// One parameter in its place.
class Parametro {
 public:
  /// `antes` is the text in front, with its values; `depois` is the template behind.
  Parametro(const String& nome, const String& valor, StringView antes, StringView depois)
      : nome_(nome),
        valor_(valor),
        regras_(RegrasPara(String(antes) + valor)),
        antes_(antes),
        depois_(depois) {}

  String Texto() const {
    RequireWellFormed(valor_);
    switch (ContextBehind(antes_, regras_)) {
      case SqlContext::Code:
        return Numero();
      case SqlContext::PlainText:
        return DobraAspas(valor_);
      case SqlContext::EscapeText:
        return Replace(DobraAspas(valor_), u"\\", u"\\\\");
      case SqlContext::Name:
        return Replace(valor_, u"\"", u"\"\"");
      case SqlContext::Bracket:
        return SemFecho(u']', u"contém \"]\", que não é aceito entre colchetes.");
      case SqlContext::HashDate:
        return SemFecho(u'#', u"contém \"#\", que não é aceito em uma data entre \"#\".");
      case SqlContext::Closed:
        break;
    }
    RecusaValor(nome_, valor_,
                u"está onde a condição não aceita parâmetros (comentário ou texto especial).");
  }

 private:
  String SemFecho(char16_t fecho, StringView motivo) const {
    if (valor_.find(fecho) != String::npos) RecusaValor(nome_, valor_, motivo);
    return valor_;
  }

  String Numero() const {
    if (EhItemDeLista() && valor_.find(u',') != String::npos)
      RecusaValor(nome_, valor_, u"é uma lista, e só um número é aceito aqui.");
    const String numero = NumeroSql(valor_, nome_);
    const char16_t anterior = antes_.empty() ? u' ' : antes_.back();
    const char16_t seguinte = depois_.empty() ? u' ' : depois_.front();
    if (numero.empty())
      return SeparaTokens(anterior) || SeparaTokens(seguinte) ? String() : String(u" ");
    const char16_t primeiro = numero.front();
    const bool encosta = (primeiro != u' ' && EhParteDePalavra(anterior)) ||
                         (numero.back() != u' ' && EhParteDePalavra(seguinte));
    if (encosta) RecusaValor(nome_, valor_, u"encosta em outra palavra da condição.");
    const bool sinal = primeiro == u'+' || primeiro == u'-';
    return (sinal && LigaSeASinal(antes_) ? u" " : u"") + numero;
  }

  /// Stands alone in the list of an "in", where "1,2" may have been meant for two numbers.
  bool EhItemDeLista() const {
    SqlScanner depois(depois_, regras_);
    const SqlToken seguinte = depois.Next();
    return EhSinal(depois, seguinte, u"),") && AbreItemDeLista(antes_, regras_);
  }

  const String& nome_;
  const String& valor_;
  SqlRules regras_;
  StringView antes_;
  StringView depois_;
};

}  // namespace

String ExpandeCondicao(const host::FormPtr& form, const String& text) {
  String result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t open = std::min(text.find(kMarca, position), text.size());
    result.append(text, position, open - position);
    if (open == text.size()) break;
    const std::size_t close = std::min(text.find(kMarca, open + 1), text.size());
    const String reference = text.substr(open, close + 1 - open);
    const String name = text.substr(open + 1, close - open - 1);
    position = std::min(close + 1, text.size());
    const String value = ExpandeParametros(form, reference);
    result += Parametro(name, value, result, StringView(text).substr(position)).Texto();
  }
  return result;
}

}  // namespace tessaria::mdlObjTxt
