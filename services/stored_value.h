// The text form of one stored value: "Long:10", "String:Cidade", "Date:2017-12-25", "Null".
#pragma once

#include <optional>

#include "tessaria/variant.h"

namespace tessaria {

/// One line without line breaks or other control characters, from which the very same value is
/// read: its kind and every bit of it. Error 13 for an object that is no font.
String ValueToText(const Variant& value);

/// The value of such a text; nothing when it is none.
std::optional<Variant> ValueFromText(StringView text);

/// `\\`, `\n`, `\r`, `\t`, `\s` (a blank at either end) and `\uXXXX`; all else as it stands.
String EscapeText(StringView text);
/// Nothing when an escape is unknown or incomplete.
std::optional<String> UnescapeText(StringView text);

}  // namespace tessaria
