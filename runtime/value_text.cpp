// Texts of values.
#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/format.h"

namespace tessaria {

namespace {

using Kind = Variant::Kind;

// The text of a value of any kind that holds a number, except Boolean.
String NumberAsText(const Variant& value, char16_t mark) {
  const Digits digits = DigitsOf(value);
  switch (value.Type()) {
    case Kind::Single:
      return GeneralText(digits, mark, kSingleDigits);
    case Kind::Double:
      return GeneralText(digits, mark, kDoubleDigits);
    default:  // the exact kinds show all their digits
      Digits shown = digits;
      shown.DropTrailingZeros();
      return PlainText(shown, mark);
  }
}

String DateText(Date date) {
  const CivilTime time = ToCivil(date);
  const bool hasTime = time.Hour != 0 || time.Minute != 0 || time.Second != 0;
  const bool hasDay = time.Year != 1899 || time.Month != 12 || time.Day != 30;
  if (!hasDay) return Format(date, u"hh:nn:ss");
  return Format(date, hasTime ? u"dd/mm/yyyy hh:nn:ss" : u"dd/mm/yyyy");
}

}  // namespace

String CStr(const Variant& value) {
  switch (value.Type()) {
    case Kind::Empty:
    case Kind::Missing:
      return {};
    case Kind::Null:
      throw HostError(errors::InvalidUseOfNull);
    case Kind::String:
      return *value.TryGet<String>();
    case Kind::Boolean:
      return *value.TryGet<bool>() ? u"Verdadeiro" : u"Falso";
    case Kind::Date:
      return DateText(*value.TryGet<Date>());
    case Kind::Object:
      throw HostError(errors::TypeMismatch);
    default:
      return NumberAsText(value, u',');
  }
}

String Str(double value) {
  String text = NumberAsText(value, u'.');
  const bool negative = text.starts_with(u'-');
  if (negative) text.erase(0, 1);
  if (text.starts_with(u"0.")) text.erase(0, 1);
  return (negative ? u"-" : u" ") + text;
}

String SqlText(const Variant& value) {
  if (value.IsNull()) return {};
  if (const auto* flag = value.TryGet<bool>()) return *flag ? u"-1" : u"0";
  return value.IsNumeric() ? NumberAsText(value, u'.') : CStr(value);
}

}  // namespace tessaria
