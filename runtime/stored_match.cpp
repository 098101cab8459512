#include "tessaria/stored_match.h"

#include <tuple>

#include "runtime/digits.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr int kMoneyDecimals = 2;

bool IsInexact(const Variant& value) { return value.TryGet<double>() || value.TryGet<float>(); }

// A padded column drops trailing blanks; any other column drops those that do not fit.
bool IsStoredText(const String& given, const String& stored, const ColumnShape& column) {
  if (given == stored) return true;
  const bool isPadded = column.Type == host::type::Char || column.Type == host::type::WChar;
  const bool isCut = column.DefinedSize > 0 && Len(given) > column.DefinedSize;
  return (isPadded || isCut) && RTrim(given) == RTrim(stored);
}

bool IsStoredDate(const Date& given, const Date& stored, const ColumnShape& column) {
  const CivilTime a = ToCivil(given);
  const CivilTime b = ToCivil(stored);
  const bool sameDay = std::tie(a.Year, a.Month, a.Day) == std::tie(b.Year, b.Month, b.Day);
  const bool sameTime =
      std::tie(a.Hour, a.Minute, a.Second) == std::tie(b.Hour, b.Minute, b.Second);
  return (sameDay || column.Type == host::type::DBTime) &&
         (sameTime || column.Type == host::type::DBDate);
}

bool IsRoundedTo(const Variant& given, const Variant& stored, Long decimals) {
  const Digits rounded =
      Rounded(ExactDigits(given), static_cast<int>(decimals), Halves::AwayFromZero);
  return Order(rounded, ExactDigits(stored)) == std::strong_ordering::equal;
}

bool IsStoredNumber(const Variant& given, const Variant& stored, const ColumnShape& column) {
  if (IsInexact(given) || IsInexact(stored)) return CDbl(given) == CDbl(stored);
  if (IsSameNumber(given, stored)) return true;
  if (IsRoundedTo(given, stored, column.NumericScale)) return true;
  return column.Type == host::type::Currency && IsRoundedTo(given, stored, kMoneyDecimals);
}

}  // namespace

bool IsStoredFrom(const Variant& given, const Variant& stored, const ColumnShape& column) {
  if (given.IsNull() || stored.IsNull()) return given.IsNull() && stored.IsNull();
  const String* givenText = given.TryGet<String>();
  const String* storedText = stored.TryGet<String>();
  if (givenText != nullptr && storedText != nullptr)
    return IsStoredText(*givenText, *storedText, column);
  const Date* givenDate = given.TryGet<Date>();
  const Date* storedDate = stored.TryGet<Date>();
  if (givenDate != nullptr && storedDate != nullptr)
    return IsStoredDate(*givenDate, *storedDate, column);
  return given.IsNumeric() && stored.IsNumeric() && IsStoredNumber(given, stored, column);
}

}  // namespace tessaria
