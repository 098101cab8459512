#include "browse/search_number.h"

#include "browse/search_clause.h"
#include "lookup/literals.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {

bool EhPesquisaDeNumero(Long lngTipo) {
  return lngTipo != tipo_pesquisa::Data && lngTipo != tipo_pesquisa::Texto;
}

String NumeroDeMoeda(const String& strTexto) {
  return Replace(Replace(strTexto, u".", u""), u",", u".");
}

std::optional<String> NumeroDaPesquisa(const Variant& valor, const String& strMascara) {
  const String texto = Trim(SqlText(valor));
  const bool ehMoeda = valor.IsString() && StartsWith(strMascara, u"$");
  String numero = ehMoeda ? NumeroDeMoeda(texto) : Replace(texto, u",", u".");
  if (!EhNumeroSql(numero)) return std::nullopt;
  return numero;
}

bool EhNumeroDigitado(const String& strTexto, Long lngTipo, const String& strMascara) {
  // A field of numbers reads its text itself, points for thousands included.
  if (lngTipo == tipo_pesquisa::Numero) return IsNumeric(strTexto);
  return NumeroDaPesquisa(strTexto, strMascara).has_value();
}

}  // namespace tessaria::mdlObjTxt
