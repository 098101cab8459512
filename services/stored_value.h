// The text form of one stored value: "Long:10", "String:Cidade", "Date:2017-12-25", "Null".
#pragma once

#include <optional>

#include "tessaria/variant.h"

namespace tessaria {

/// One line without line breaks or other control characters, from which exactly the same value can
/// be read: its kind and all its bits. Error 13 for an object that is not a font.
String ValueToText(const Variant& value);

/// The value of such a text; nothing when the text is not valid.
std::optional<Variant> ValueFromText(StringView text);

/// Writes `\\`, `\n`, `\r`, `\t`, `\s` (a blank at either end) and `\uXXXX`; other characters stay
/// unchanged.
String EscapeText(StringView text);
/// Nothing when an escape is unknown or incomplete.
std::optional<String> UnescapeText(StringView text);

}  // namespace tessaria
