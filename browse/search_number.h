// The number that an operator searches for, as it stands in a statement.
#pragma once

#include <optional>

#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// Whether the value of a search stands in its statement without quotes. `kind` as
/// `ItemPesquisa::Tipo`.
bool IsNumberSearch(Long kind);

/// An amount without its points, the comma as a point.
String AmountNumber(const String& text);

/// A value as one number of SQL: [+-](digits[.[digits]]|.digits)[E[+-]digits], the comma of a text
/// as a point. With a mask that begins with "$" a text is an amount. Nothing for any other value.
std::optional<String> SearchNumber(const Variant& value, const String& mask);

/// Whether a field of such a search makes a number of a text that has no literals of its mask.
bool IsTypedNumber(const String& text, Long kind, const String& mask);

}  // namespace tessaria::mdlObjTxt
