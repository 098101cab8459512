#include "mask/dates.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

struct DateText {
  String day, month, year;
};

/// Splits by fixed places. All parts stay empty where only the empty date is valid.
DateText SplitDate(const String& text, const String& mask, const String& items) {
  switch (DateFormOf(mask)) {
    case DateForm::MonthYear:
      return {u"01", Mid(text, 1, 2), LimpaMascara(Mid(text, 4, 4), mask, items)};
    case DateForm::DayMonthYear:
      return {Mid(text, 1, 2), Mid(text, 4, 2), Trim(LimpaMascara(Mid(text, 7, 4), mask, items))};
    case DateForm::EmptyOnly:
    case DateForm::None:
      break;
  }
  return {};
}

/// Adds the century to a short year. Three digits become five, which is not a date.
String ExpandYear(const String& year) {
  constexpr double kLastOfThisCentury = 40;
  if (Len(year) >= 4) return year;
  if (Len(year) == 1 && Val(year) <= 9) return u"200" + year;
  return (Val(year) <= kLastOfThisCentury ? u"20" : u"19") + year;
}

bool IsShortMonth(const String& month) {
  static constexpr StringView kShort[] = {u"04", u"06", u"09", u"11"};
  return std::find(std::begin(kShort), std::end(kShort), StringView(month)) != std::end(kShort);
}

/// There is no rule for centuries: 1900 is a leap year here.
double LastOfFebruary(const String& year) { return std::fmod(Val(year), 4) == 0 ? 29 : 28; }

bool IsValid(const DateText& date) {
  if (Len(date.day) + Len(date.month) + Len(date.year) != 8) return false;
  const double day = Val(date.day), month = Val(date.month);
  if (day == 0 || day > 31 || month == 0 || month > 12) return false;
  if (day == 31 && IsShortMonth(date.month)) return false;
  return date.month != u"02" || day <= LastOfFebruary(date.year);
}

}  // namespace

bool ChecaData(host::TextBox& box, const String& mask, const String& items) {
  const String text = box.Text();
  if (LimpaMascara(text, mask, items).empty()) return true;
  DateText date = SplitDate(text, mask, items);
  date.year = ExpandYear(date.year);
  if (!IsValid(date)) return false;
  const String monthAndYear = date.month + u"/" + date.year;
  const bool withoutDay = DateFormOf(mask) == DateForm::MonthYear;
  box.Text(withoutDay ? monthAndYear : date.day + u"/" + monthAndYear);
  return true;
}

}  // namespace tessaria::mdlObjTxt
