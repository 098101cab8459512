// A number as decimal digits: the form in which numbers are parsed, rounded, compared and
// formatted.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The number 0.TEXT times ten to the power of Point.
struct Digits {
  bool Negative = false;
  std::string Text;  ///< "0" to "9" without leading zeros; empty for zero
  int Point = 0;     ///< places between the start of Text and the decimal mark; may be negative

  bool IsZero() const { return Text.find_first_not_of('0') == std::string::npos; }
  /// Digits after the decimal mark, including trailing zeros.
  int Scale() const;
  /// Takes the zeros off the front of Text.
  void DropLeadingZeros();
  /// Takes the zeros off the end of the fraction.
  void DropTrailingZeros();
};

/// The significant digits that a text of a Double or of a Single shows.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kSingleDigits = 7;

/// Rounded to `significant` digits. Error 6 for infinity and NaN.
TESSARIA_HOST_API Digits DigitsOf(double value, int significant = kDoubleDigits);
/// The fewest digits that identify the value. Error 6 as above.
Digits ShortestDigits(double value);
Digits ShortestDigits(float value);
TESSARIA_HOST_API Digits DigitsOf(const Decimal& value);
/// Accepts any kind that contains a number, Empty (0) and a date (its days).
TESSARIA_HOST_API Digits DigitsOf(const Variant& value);
/// The same, but with the fewest digits that identify a Double or Single, and for a text the
/// number that `CDec` reads. Error 13 for a text that is not a number, 6 for infinity.
TESSARIA_HOST_API Digits ExactDigits(const Variant& value);
/// value divided by ten to the power of `scale`.
TESSARIA_HOST_API Digits DigitsOf(std::int64_t value, int scale = 0);

enum class Halves { ToEven, AwayFromZero };
/// Rounded to `decimals` places; more places change nothing.
TESSARIA_HOST_API Digits Rounded(Digits value, int decimals, Halves halves);

/// Whether the value is small enough for a double.
bool IsInRangeOfDouble(const Digits& value);
/// Nothing when out of range.
TESSARIA_HOST_API std::optional<double> TryToDouble(const Digits& value);
/// Error 6 when out of range.
TESSARIA_HOST_API double ToDouble(const Digits& value);
/// Nothing when the digits do not fit in 96 bits.
TESSARIA_HOST_API std::optional<Decimal> TryToDecimal(const Digits& value);
/// Error 6 when out of range. Decimals that do not fit are rounded, halves to even.
TESSARIA_HOST_API Decimal ToDecimal(const Digits& value);
/// The value in units of ten to the power of -decimals, halves to even. Error 6 when it does not
/// fit.
TESSARIA_HOST_API std::int64_t ToWhole(const Digits& value, int decimals = 0);

/// The order of the values; the number of trailing zeros does not matter.
TESSARIA_HOST_API std::strong_ordering Order(const Digits& a, const Digits& b);

/// The number as "-1234.50", with the given decimal mark and at least one digit before it.
String PlainText(const Digits& value, char16_t mark);
/// The same, but as "1,5E-05" when the exponent is below -4 or reaches `significant`.
String GeneralText(const Digits& value, char16_t mark, int significant);

}  // namespace tessaria
