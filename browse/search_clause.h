// The SQL condition that one answered search stands for.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// Kinds of a search's value: `ItemPesquisa::Tipo`.
namespace tipo_pesquisa {
inline constexpr Long Numero = 2;
inline constexpr Long Data = 7;
inline constexpr Long Texto = 8;
}  // namespace tipo_pesquisa

/// Comparisons of a search: `ItemPesquisa::Like`. The wildcard ones mean equal where the value
/// is no text.
namespace comparacao {
inline constexpr Long Igual = 0;
inline constexpr Long ComecaCom = 1;
inline constexpr Long TerminaCom = 2;
inline constexpr Long Contem = 3;
inline constexpr Long Maior = 4;
inline constexpr Long MaiorOuIgual = 5;
inline constexpr Long Menor = 6;
inline constexpr Long MenorOuIgual = 7;
}  // namespace comparacao

/// The field under its table's name: in front, or behind the first "(" of an expression. A field
/// that has a "." is left as it is.
String QualificaCampo(const String& strCampo, const String& strTabela);

/// The condition on a field, whose alias is taken off. A text (`lngTipo` 8) comes as it was typed,
/// any other value as it stands in SQL. "" for a text with an unknown `lngLike`; with another kind
/// an unknown code means equal. The LIKE keyword is the one of the thread's connection; error 91
/// with none. A text is refused as `TextoSql` refuses it.
String ClausulaDePesquisa(const String& strCampo, Long lngTipo, Long lngLike,
                          const String& strValor);

}  // namespace tessaria::mdlObjTxt
