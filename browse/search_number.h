// The number that an operator searches for, as it stands in a statement.
#pragma once

#include <optional>

#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// Whether the value of a search stands in its statement without quotes. `lngTipo` as
/// `ItemPesquisa::Tipo`.
bool EhPesquisaDeNumero(Long lngTipo);

/// An amount without its points, the comma as a point.
String NumeroDeMoeda(const String& strTexto);

/// A value as one number of SQL: [+-](digits[.[digits]]|.digits)[E[+-]digits], the comma of a text
/// as a point. With a mask that begins with "$" a text is an amount. Nothing for any other value.
std::optional<String> NumeroDaPesquisa(const Variant& valor, const String& strMascara);

/// Whether a field of such a search makes a number of a text that has no literals of its mask.
bool EhNumeroDigitado(const String& strTexto, Long lngTipo, const String& strMascara);

}  // namespace tessaria::mdlObjTxt
