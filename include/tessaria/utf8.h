// Texts in UTF-8, and characters of two units.
#pragma once

#include <string>
#include <string_view>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Whether the unit is the first, or second, half of a surrogate pair.
constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
/// Whether the unit is the second half of one.
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Half of a surrogate pair becomes U+FFFD.
TESSARIA_CORE_API std::string ToUtf8(StringView text);
/// Invalid bytes become U+FFFD.
TESSARIA_CORE_API String FromUtf8(std::string_view bytes);

}  // namespace tessaria
