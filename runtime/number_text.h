// Reading numbers from texts.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/digits.h"
#include "tessaria/export.h"

namespace tessaria {

/// A number read from a text.
struct NumberText {
  Digits Value;
  /// The bit pattern, when the text is hexadecimal ("&H1F") or octal ("&O17").
  std::optional<std::uint64_t> Bits;
};

/// The number that the whole text represents under the Brazilian locale, or nothing. Accepts blanks
/// around the number, one sign before or after it, "R$" and parentheses for a negative number,
/// points anywhere in the whole part, one comma, and an exponent after E or D.
TESSARIA_HOST_API std::optional<NumberText> ReadNumber(StringView text);

/// The number of a criterion. A plain number has a decimal point, as in a statement ("12.5",
/// "1E-05"); any other text is read as above ("12,5", "1.234,50").
TESSARIA_HOST_API std::optional<Digits> ReadCriterionNumber(StringView text);

/// Blank, tab or line end.
TESSARIA_HOST_API bool IsWhite(char16_t c);
TESSARIA_HOST_API bool IsDigit(char16_t c);
/// The value of a digit in bases up to 16, or 16.
int DigitValue(char16_t c);
/// The text without white space around it.
StringView WithoutWhite(StringView text);

}  // namespace tessaria
