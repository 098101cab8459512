#include "runtime/digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string_view>

#include "tessaria/error.h"

namespace tessaria {

namespace {

constexpr int kLargestScale = 28;

// Reads "-d.ddde+xx", as the standard library writes it.
Digits FromScientific(std::string_view text) {
  Digits result;
  result.Negative = text.starts_with('-');
  const std::size_t e = text.find('e');
  std::ranges::copy_if(text.substr(0, e), std::back_inserter(result.Text),
                       [](char c) { return c >= '0' && c <= '9'; });
  int exponent = 0;
  const std::string_view power = text.substr(e + (text[e + 1] == '+' ? 2 : 1));
  std::from_chars(power.data(), power.data() + power.size(), exponent);
  result.Point = exponent + 1;
  result.DropLeadingZeros();
  result.DropTrailingZeros();
  return result;
}

void RequireFinite(double value) {
  if (!std::isfinite(value)) throw HostError(errors::Overflow);
}

template <class Float>
Digits Shortest(Float value) {
  RequireFinite(value);
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific);
  return FromScientific({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())});
}

bool RoundsUp(const Digits& value, std::size_t keep, Halves halves) {
  const char first = value.Text[keep];
  if (first != '5') return first > '5';
  if (halves == Halves::AwayFromZero) return true;
  if (value.Text.find_first_not_of('0', keep + 1) != std::string::npos) return true;
  return keep > 0 && (value.Text[keep - 1] - '0') % 2 == 1;
}

void AddOneAtEnd(Digits& value) {
  auto digit = value.Text.rbegin();
  for (; digit != value.Text.rend() && *digit == '9'; ++digit) *digit = '0';
  if (digit != value.Text.rend()) {
    ++*digit;
  } else {
    value.Text.insert(value.Text.begin(), '1');
    ++value.Point;
  }
}

// value * 10 + digit; false when the result does not fit in 96 bits.
bool Append(std::array<std::uint32_t, 3>& magnitude, int digit) {
  auto carry = static_cast<std::uint64_t>(digit);
  for (auto& word : magnitude) {
    carry += std::uint64_t{word} * 10;
    word = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  return carry == 0;
}

// Divides by 10 and returns the remainder.
int TakeLastDigit(std::array<std::uint32_t, 3>& magnitude) {
  std::uint64_t remainder = 0;
  for (auto word = magnitude.rbegin(); word != magnitude.rend(); ++word) {
    const std::uint64_t part = (remainder << 32) | *word;
    *word = static_cast<std::uint32_t>(part / 10);
    remainder = part % 10;
  }
  return static_cast<int>(remainder);
}

// The digits of the whole number value * 10^scale, or false when they do not fit in 96 bits.
bool FillMagnitude(const Digits& value, int scale, Decimal& decimal) {
  decimal.Magnitude = {};
  const int count = value.Text.empty() ? 0 : value.Point + scale;
  for (int i = 0; i < count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const int digit = index < value.Text.size() ? value.Text[index] - '0' : 0;
    if (!Append(decimal.Magnitude, digit)) return false;
  }
  return true;
}

String Widen(std::string_view text) { return String(text.begin(), text.end()); }

String ScientificText(const Digits& value, char16_t mark) {
  String text = value.Negative ? u"-" : u"";
  text += static_cast<char16_t>(value.Text[0]);
  if (value.Text.size() > 1) (text += mark) += Widen(std::string_view(value.Text).substr(1));
  const int exponent = value.Point - 1;
  const std::string digits = std::to_string(std::abs(exponent));
  text += exponent < 0 ? u"E-" : u"E+";
  if (digits.size() < 2) text += u'0';
  return text += Widen(digits);
}

}  // namespace

int Digits::Scale() const { return std::max(0, static_cast<int>(Text.size()) - Point); }

void Digits::DropLeadingZeros() {
  const std::size_t zeros = std::min(Text.find_first_not_of('0'), Text.size());
  Text.erase(0, zeros);
  Point -= static_cast<int>(zeros);
}

void Digits::DropTrailingZeros() {
  Text.erase(Text.find_last_not_of('0') + 1);
  if (Text.empty()) Point = 0;
}

Digits DigitsOf(double value, int significant) {
  RequireFinite(value);
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific, significant - 1);
  return FromScientific({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())});
}

Digits ShortestDigits(double value) { return Shortest(value); }

Digits ShortestDigits(float value) { return Shortest(value); }

Digits DigitsOf(const Decimal& value) {
  Digits result;
  result.Negative = value.Negative;
  auto rest = value.Magnitude;
  while (rest != decltype(rest){}) {
    result.Text.push_back(static_cast<char>('0' + TakeLastDigit(rest)));
  }
  std::ranges::reverse(result.Text);
  result.Point = static_cast<int>(result.Text.size()) - value.Scale;
  return result;
}

Digits DigitsOf(std::int64_t value, int scale) {
  Digits result;
  result.Text = std::to_string(value);
  result.Negative = value < 0;
  if (result.Negative) result.Text.erase(0, 1);
  result.Point = static_cast<int>(result.Text.size()) - scale;
  result.DropLeadingZeros();
  return result;
}

Digits DigitsOf(const Variant& value) {
  switch (value.Type()) {
    case Variant::Kind::Integer:
      return DigitsOf(std::int64_t{*value.TryGet<Integer>()});
    case Variant::Kind::Long:
      return DigitsOf(std::int64_t{*value.TryGet<Long>()});
    case Variant::Kind::Boolean:
      return DigitsOf(std::int64_t{*value.TryGet<bool>() ? -1 : 0});
    case Variant::Kind::Single:
      return DigitsOf(double{*value.TryGet<float>()}, kSingleDigits);
    case Variant::Kind::Double:
      return DigitsOf(*value.TryGet<double>());
    case Variant::Kind::Date:
      return DigitsOf(value.TryGet<Date>()->Days);
    case Variant::Kind::Currency:
      return DigitsOf(value.TryGet<Currency>()->TenThousandths, 4);
    case Variant::Kind::Decimal:
      return DigitsOf(*value.TryGet<Decimal>());
    case Variant::Kind::Empty:
      return {};
    default:
      throw HostError(errors::TypeMismatch);
  }
}

Digits Rounded(Digits value, int decimals, Halves halves) {
  const int keep = value.Point + decimals;
  if (keep >= static_cast<int>(value.Text.size())) return value;
  if (keep < 0) {
    value.Text.clear();
    value.Point = -decimals;
    return value;
  }
  const bool up = RoundsUp(value, static_cast<std::size_t>(keep), halves);
  value.Text.resize(static_cast<std::size_t>(keep));
  if (up) AddOneAtEnd(value);
  return value;
}

bool IsInRangeOfDouble(const Digits& value) {
  return value.Point <= std::numeric_limits<double>::max_exponent10 ||
         TryToDouble(value).has_value();
}

std::optional<double> TryToDouble(const Digits& value) {
  if (value.IsZero()) return 0.0;
  const int exponent = value.Point - static_cast<int>(value.Text.size());
  const std::string text = value.Text + "e" + std::to_string(exponent);
  double result = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), result);
  if (end.ec == std::errc::result_out_of_range) {
    if (value.Point > 0) return std::nullopt;
    return 0.0;  // too small to distinguish from zero
  }
  return value.Negative ? -result : result;
}

double ToDouble(const Digits& value) {
  const auto result = TryToDouble(value);
  if (!result) throw HostError(errors::Overflow);
  return *result;
}

Decimal ToDecimal(const Digits& value) {
  Decimal result;
  result.Negative = value.Negative && !value.IsZero();
  for (int scale = std::min(value.Scale(), kLargestScale); scale >= 0; --scale) {
    if (FillMagnitude(Rounded(value, scale, Halves::ToEven), scale, result)) {
      result.Scale = static_cast<std::uint8_t>(scale);
      result.Negative = result.Negative && result.Magnitude != decltype(result.Magnitude){};
      return result;
    }
  }
  throw HostError(errors::Overflow);
}

std::optional<Decimal> TryToDecimal(const Digits& value) {
  Digits plain = value;
  plain.DropTrailingZeros();
  Decimal result;
  if (plain.Scale() > kLargestScale || !FillMagnitude(plain, plain.Scale(), result)) return {};
  return ToDecimal(value);
}

std::int64_t ToWhole(const Digits& value, int decimals) {
  const Digits rounded = Rounded(value, decimals, Halves::ToEven);
  const int count = rounded.Text.empty() ? 0 : rounded.Point + decimals;
  // Computed with negative numbers: the least number has no positive counterpart.
  std::int64_t result = 0;
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  for (int i = 0; i < count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const int digit = index < rounded.Text.size() ? rounded.Text[index] - '0' : 0;
    if (result < (kLeast + digit) / 10) throw HostError(errors::Overflow);
    result = result * 10 - digit;
  }
  if (rounded.Negative) return result;
  if (result == kLeast) throw HostError(errors::Overflow);
  return -result;
}

std::strong_ordering Order(const Digits& a, const Digits& b) {
  const auto sign = [](const Digits& value) {
    return value.IsZero() ? 0 : value.Negative ? -1 : 1;
  };
  if (sign(a) != sign(b)) return sign(a) <=> sign(b);
  if (sign(a) == 0) return std::strong_ordering::equal;
  const Digits& low = a.Negative ? b : a;
  const Digits& high = a.Negative ? a : b;
  if (low.Point != high.Point) return low.Point <=> high.Point;
  const auto significant = [](const Digits& value) {
    return std::string_view(value.Text).substr(0, value.Text.find_last_not_of('0') + 1);
  };
  return significant(low).compare(significant(high)) <=> 0;
}

String PlainText(const Digits& value, char16_t mark) {
  String text = value.Negative && !value.IsZero() ? u"-" : u"";
  if (value.Point <= 0) text += u'0';
  const int end = std::max(static_cast<int>(value.Text.size()), value.Point);
  for (int i = std::min(value.Point, 0); i < end; ++i) {
    if (i == value.Point) text += mark;
    const bool held = i >= 0 && static_cast<std::size_t>(i) < value.Text.size();
    text += held ? static_cast<char16_t>(value.Text[static_cast<std::size_t>(i)]) : u'0';
  }
  return text;
}

String GeneralText(const Digits& value, char16_t mark, int significant) {
  Digits shown = value;
  shown.DropTrailingZeros();
  const int exponent = shown.Point - 1;
  if (shown.IsZero() || (exponent >= -4 && exponent < significant)) return PlainText(shown, mark);
  return ScientificText(shown, mark);
}

}  // namespace tessaria
