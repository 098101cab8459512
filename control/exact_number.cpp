#include "control/exact_number.h"

#include <optional>

#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"

namespace tessaria {

namespace {

/// The digits of the value as written; empty for a value that a Double holds exactly.
std::optional<Digits> WrittenDigits(const Variant& value) {
  if (const String* text = value.TryGet<String>()) {
    const auto number = ReadNumber(*text);
    return number && !number->Bits ? std::optional(number->Value) : std::nullopt;
  }
  const bool isShort = value.Type() == Variant::Kind::Single;
  const bool isExact =
      value.Type() == Variant::Kind::Currency || value.Type() == Variant::Kind::Decimal;
  return isShort || isExact ? std::optional(DigitsOf(value)) : std::nullopt;
}

/// Empty if a Decimal would have to round.
std::optional<Decimal> AsDecimal(const Digits& value) {
  std::optional<Decimal> exact;
  Catch([&] { exact = ToDecimal(value); }, [] { Err().Clear(); });
  const bool isSame = exact && Order(DigitsOf(*exact), value) == 0;
  return isSame ? exact : std::nullopt;
}

int SignificantDigits(Digits value) {
  value.DropLeadingZeros();
  return static_cast<int>(value.Text.find_last_not_of('0') + 1);
}

}  // namespace

Variant ExactNumber(const Variant& value) {
  const double nearest = CDbl(value);
  const auto digits = WrittenDigits(value);
  if (!digits) return nearest;
  if (SignificantDigits(*digits) <= kDoubleDigits) return ToDouble(*digits);
  if (const auto exact = AsDecimal(*digits)) return *exact;
  throw HostError(errors::Overflow, u"O número tem mais dígitos do que o campo pode guardar.");
}

}  // namespace tessaria
