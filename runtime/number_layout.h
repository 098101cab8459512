// Number patterns as `Format` applies them: the sections of a pattern, read once.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "runtime/format_pattern.h"

namespace tessaria {

enum class TokenKind { Literal, Whole, Fraction, Point, Exponent };

struct NumberToken {
  TokenKind Kind;
  char16_t Character;  ///< of a literal or a place; the letter of an exponent
};

/// One section of a pattern.
struct NumberSection {
  std::vector<NumberToken> Tokens;
  int WholePlaces = 0, FractionPlaces = 0, ExponentPlaces = 0;
  int LeastWhole = 0;     ///< places from the first "0" to the decimal mark
  int LeastFraction = 0;  ///< places from the decimal mark to the last "0"
  int Shift = 0;          ///< powers of ten: two for a "%", less three for a trailing comma
  bool Groups = false, HasPoint = false, HasExponent = false, PlusExponent = false;

  bool HasPlaces() const { return WholePlaces + FractionPlaces > 0; }
};

/// The sections of a pattern for positive and all other numbers, for negative numbers and for zero.
/// The last two are missing when the pattern does not have them or has them empty.
struct NumberLayout {
  NumberSection Any;
  std::optional<NumberSection> Negative, Zero;
};

NumberLayout ReadNumberLayout(const Pattern& pattern);

String FormatNumber(const Digits& value, const NumberLayout& layout);

}  // namespace tessaria
