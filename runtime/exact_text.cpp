// Exact numbers for the data layer: their texts, and values with all their digits.
#include <algorithm>

#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"

namespace tessaria {

String DecimalText(const Decimal& value) { return PlainText(DigitsOf(value), u'.'); }

Decimal DecimalFromText(StringView text) {
  Digits value;
  value.Negative = text.starts_with(u'-');
  if (value.Negative || text.starts_with(u'+')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find(u'.'), text.size());
  String digits(text);
  digits.erase(point, 1);
  const bool endsInPoint = point + 1 == text.size();
  if (digits.empty() || endsInPoint || !std::ranges::all_of(digits, IsDigit)) {
    throw HostError(errors::TypeMismatch);
  }
  value.Text.assign(digits.begin(), digits.end());
  value.Point = static_cast<int>(point);
  value.DropLeadingZeros();
  return ToDecimal(value);
}

Digits ExactDigits(const Variant& value) {
  if (const auto* number = value.TryGet<double>()) return ShortestDigits(*number);
  if (const auto* number = value.TryGet<float>()) return ShortestDigits(*number);
  const auto* text = value.TryGet<String>();
  if (text == nullptr) return DigitsOf(value);
  const auto number = ReadNumber(*text);
  if (!number) throw HostError(errors::TypeMismatch);
  return number->Value;
}

Decimal ExactDecimal(const Variant& value) { return ToDecimal(ExactDigits(value)); }

bool IsSameNumber(const Variant& a, const Variant& b) {
  return Order(ExactDigits(a), ExactDigits(b)) == 0;
}

}  // namespace tessaria
