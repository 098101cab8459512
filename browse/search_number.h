// The number that an operator searches for, as written in a statement.
#pragma once

#include <optional>

#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// Whether the value of a search is written in its statement without quotes. `kind` as in
/// `ItemPesquisa::Tipo`.
bool IsNumberSearch(Long kind);

/// An amount without its points, with the comma as a point.
String AmountNumber(const String& text);

/// A value as one SQL number: [+-](digits[.[digits]]|.digits)[E[+-]digits], where the comma of a
/// text becomes a point. With a mask that begins with "$" a text is an amount. Nothing when the
/// value is not a number.
std::optional<String> SearchNumber(const Variant& value, const String& mask);

/// Whether a field of such a search reads a text, given without the literals of its mask, as a
/// number.
bool IsTypedNumber(const String& text, Long kind, const String& mask);

}  // namespace tessaria::mdlObjTxt
