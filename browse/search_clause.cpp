#include "browse/search_clause.h"

#include "lookup/dialect.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// The operator of an order comparison, blanks around it; "" for any other code.
StringView OperadorDeOrdem(Long like) {
  switch (like) {
    case comparacao::Maior:
      return u" > ";
    case comparacao::MaiorOuIgual:
      return u" >= ";
    case comparacao::Menor:
      return u" < ";
    case comparacao::MenorOuIgual:
      return u" <= ";
    default:
      return {};
  }
}

String ClausulaDeTexto(const String& campo, Long like, const String& valor) {
  const auto comLike = [&](StringView antes, StringView depois) {
    return campo + u" " + mdlComum::TraduzSQL(fragmento::Like) + String(antes) +
           ConteudoDePadrao(valor) + String(depois);
  };
  switch (like) {
    case comparacao::Igual:
      return campo + u" = " + TextoSql(valor);
    case comparacao::ComecaCom:
      return comLike(u" '", u"%'");
    case comparacao::TerminaCom:
      return comLike(u" '%", u"'");
    case comparacao::Contem:
      return comLike(u" '%", u"%'");
    default:
      break;
  }
  const StringView operador = OperadorDeOrdem(like);
  if (operador.empty()) return {};
  // An apostrophe counts twice in the length.
  const Long comprimento = Len(DobraAspas(valor));
  return u"Left(" + campo + u", " + CStr(Variant(comprimento)) + u")" + String(operador) +
         TextoSql(valor);
}

}  // namespace

String QualificaCampo(const String& strCampo, const String& strTabela) {
  if (InStr(strCampo, u".") != 0) return strCampo;
  const Long parentese = InStr(strCampo, u"(");
  return Left(strCampo, parentese) + strTabela + u"." + Mid(strCampo, parentese + 1);
}

String ClausulaDePesquisa(const String& strCampo, Long lngTipo, Long lngLike,
                          const String& strValor) {
  const String campo = TiraAlias(strCampo);
  if (lngTipo == tipo_pesquisa::Texto) return ClausulaDeTexto(campo, lngLike, strValor);
  const StringView operador = OperadorDeOrdem(lngLike);
  return campo + String(operador.empty() ? u" = " : operador) + strValor;
}

}  // namespace tessaria::mdlObjTxt
