#include "tessaria/conversion.h"

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "runtime/calendar.h"
#include "runtime/date_text.h"
#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

using Kind = Variant::Kind;

NumberText RequireNumber(const String& text) {
  auto number = ReadNumber(text);
  if (!number) throw HostError(errors::TypeMismatch);
  return *std::move(number);
}

void RequireNotNull(const Variant& value) {
  if (value.IsNull()) throw HostError(errors::InvalidUseOfNull);
}

// The value as a whole number, halves to even. Kinds with a binary fraction are rounded by their
// exact value, not by their text.
std::int64_t WholeNumber(const Variant& value) {
  switch (value.Type()) {
    case Kind::Single:
    case Kind::Double:
    case Kind::Date:
      return ToWhole(DigitsOf(std::nearbyint(CDbl(value))));
    default:
      return ToWhole(DigitsOf(value));
  }
}

template <class T>
T InRange(std::int64_t value) {
  if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max()) {
    throw HostError(errors::Overflow);
  }
  return static_cast<T>(value);
}

// A hexadecimal text that fills the width of the target is its bit pattern: "&HFFFF" is -1.
template <class T>
T FromText(const String& text) {
  const NumberText number = RequireNumber(text);
  using Pattern = std::make_unsigned_t<T>;
  if (number.Bits && *number.Bits <= std::numeric_limits<Pattern>::max()) {
    return static_cast<T>(static_cast<Pattern>(*number.Bits));
  }
  return InRange<T>(ToWhole(number.Value));
}

template <class T>
T ToInteger(const Variant& value) {
  RequireNotNull(value);
  if (const auto* text = value.TryGet<String>()) return FromText<T>(*text);
  if (const auto* whole = value.TryGet<Long>()) return InRange<T>(*whole);
  return InRange<T>(WholeNumber(value));
}

// The digits that the exact kinds keep.
Digits RequireDigits(const Variant& value) {
  RequireNotNull(value);
  if (const auto* text = value.TryGet<String>()) return RequireNumber(*text).Value;
  return DigitsOf(value);
}

struct TruthWord {
  StringView Text;
  bool Value;
};
constexpr TruthWord kTruthWords[] = {
    {u"Verdadeiro", true}, {u"Falso", false}, {u"True", true}, {u"False", false}};

bool TextToBool(const String& text) {
  const StringView bare = WithoutWhite(text);
  for (const auto& word : kTruthWords) {
    if (EqualNoCase(bare, word.Text)) return word.Value;
  }
  return !RequireNumber(text).Value.IsZero();
}

}  // namespace

double CDbl(const Variant& value) {
  RequireNotNull(value);
  switch (value.Type()) {
    case Kind::String:
      return ToDouble(RequireNumber(*value.TryGet<String>()).Value);
    case Kind::Single:
      return *value.TryGet<float>();
    case Kind::Double:
      return *value.TryGet<double>();
    case Kind::Date:
      return value.TryGet<Date>()->Days;
    default:
      return ToDouble(DigitsOf(value));
  }
}

Long CLng(const Variant& value) { return ToInteger<Long>(value); }

Integer CInt(const Variant& value) { return ToInteger<Integer>(value); }

bool CBool(const Variant& value) {
  RequireNotNull(value);
  if (const auto* text = value.TryGet<String>()) return TextToBool(*text);
  return CDbl(value) != 0;
}

Date CDate(const Variant& value) {
  RequireNotNull(value);
  if (const auto* text = value.TryGet<String>()) {
    const auto date = ReadDate(*text);
    if (!date) throw HostError(errors::TypeMismatch);
    return *date;
  }
  const Date date{CDbl(value)};
  if (!IsInCalendar(date)) throw HostError(errors::Overflow);
  return date;
}

Currency CCur(const Variant& value) {
  constexpr int kDecimals = 4;
  if (const auto* number = value.TryGet<double>()) {
    return {ToWhole(ShortestDigits(*number), kDecimals)};
  }
  return {ToWhole(RequireDigits(value), kDecimals)};
}

Decimal CDec(const Variant& value) { return ToDecimal(RequireDigits(value)); }

bool IsNumeric(const Variant& value) {
  if (const auto* text = value.TryGet<String>()) {
    const auto number = ReadNumber(*text);
    return number && TryToDouble(number->Value).has_value();
  }
  return value.IsEmpty() || value.IsNumeric();
}

bool IsDate(const Variant& value) {
  if (const auto* text = value.TryGet<String>()) return ReadDate(*text).has_value();
  return value.Type() == Kind::Date;
}

}  // namespace tessaria
