// Date patterns of `Format`.
#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <utility>

#include "runtime/calendar.h"
#include "runtime/format_pattern.h"
#include "tessaria/conversion.h"

namespace tessaria {

namespace {

constexpr std::array<StringView, 12> kMonths = {
    u"janeiro", u"fevereiro", u"março",    u"abril",   u"maio",     u"junho",
    u"julho",   u"agosto",    u"setembro", u"outubro", u"novembro", u"dezembro"};
constexpr std::array<StringView, 7> kWeekDays = {u"domingo",      u"segunda-feira", u"terça-feira",
                                                 u"quarta-feira", u"quinta-feira",  u"sexta-feira",
                                                 u"sábado"};
constexpr std::size_t kShortName = 3;

constexpr StringView kShortDate = u"dd/mm/yyyy";
constexpr StringView kLongDate = u"dddd, d\" de \"mmmm\" de \"yyyy";
constexpr StringView kLongTime = u"hh:nn:ss";

// The halves of the day, in the spellings that a pattern may use.
struct HalfDay {
  StringView Token, Morning, Afternoon;
};
constexpr HalfDay kHalfDays[] = {
    {u"AM/PM", u"AM", u"PM"}, {u"am/pm", u"am", u"pm"}, {u"A/P", u"A", u"P"}, {u"a/p", u"a", u"p"}};

const HalfDay* FindHalfDay(const Pattern& pattern, std::size_t at) {
  const auto* found = std::ranges::find_if(
      kHalfDays, [&](const HalfDay& half) { return StandsAt(pattern, at, half.Token); });
  return found == std::end(kHalfDays) ? nullptr : found;
}

String Number(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  String text(width - std::min(width, digits.size()), u'0');
  return text.append(digits.begin(), digits.end());
}

class DateWriter {
 public:
  DateWriter(Date date, const Pattern& pattern)
      : date_(date), time_(ToCivil(date)), pattern_(pattern) {
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      if (FindHalfDay(pattern, i)) halves_ = true;
    }
  }

  String Write() {
    for (std::size_t at = 0; at < pattern_.size();) at += WriteAt(at);
    return std::move(text_);
  }

 private:
  // Returns the number of items taken.
  std::size_t WriteAt(std::size_t at) {
    if (const auto* half = FindHalfDay(pattern_, at)) {
      text_ += time_.Hour < 12 ? half->Morning : half->Afternoon;
      return half->Token.size();
    }
    const char16_t letter = SmallLetter(pattern_[at]);
    const std::size_t taken = WriteLetter(letter, at);
    if (taken == 0) {
      text_ += pattern_[at].Character;
      return 1;
    }
    afterHour_ = letter == u'h';
    return taken;
  }

  // 0 when the letter has no meaning.
  std::size_t WriteLetter(char16_t letter, std::size_t at) {
    switch (letter) {
      case u'd':
        return WriteRun(at, 6, &DateWriter::WriteDay);
      case u'm':
        return afterHour_ ? WriteRun(at, 2, &DateWriter::WriteMinute)
                          : WriteRun(at, 4, &DateWriter::WriteMonth);
      case u'y':
        return WriteRun(at, 4, &DateWriter::WriteYear);
      case u'h':
        return WriteRun(at, 2, &DateWriter::WriteHour);
      case u'n':
        return WriteRun(at, 2, &DateWriter::WriteMinute);
      case u's':
        return WriteRun(at, 2, &DateWriter::WriteSecond);
      case u'w':
        return WriteRun(at, 2, &DateWriter::WriteWeek);
      case u'q':
        text_ += Number((time_.Month + 2) / 3, 1);
        return 1;
      case u'c':
        text_ += CStr(date_);
        return 1;
      case u't':
        if (RunLength(pattern_, at, kWholeTime) < kWholeTime) return 0;
        Append(kLongTime);
        return kWholeTime;
      default:
        return 0;
    }
  }

  std::size_t WriteRun(std::size_t at, std::size_t longest,
                       void (DateWriter::*write)(std::size_t)) {
    const std::size_t length = RunLength(pattern_, at, longest);
    (this->*write)(length);
    return length;
  }

  void WriteDay(std::size_t length) {
    const StringView name = kWeekDays[static_cast<std::size_t>(WeekDay(time_) - 1)];
    if (length <= 2) text_ += Number(time_.Day, length);
    if (length == 3) text_ += name.substr(0, kShortName);
    if (length == 4) text_ += name;
    if (length == 5) Append(kShortDate);
    if (length == 6) Append(kLongDate);
  }

  void WriteMonth(std::size_t length) {
    const StringView name = kMonths[static_cast<std::size_t>(time_.Month - 1)];
    if (length <= 2) text_ += Number(time_.Month, length);
    if (length == 3) text_ += name.substr(0, kShortName);
    if (length == 4) text_ += name;
  }

  void WriteYear(std::size_t length) {
    if (length == 1) text_ += Number(DayOfYear(time_), 1);
    if (length == 2) text_ += Number(time_.Year % 100, 2);
    if (length > 2) text_ += Number(time_.Year, 4);
  }

  void WriteHour(std::size_t length) {
    text_ += Number(halves_ ? (time_.Hour + 11) % 12 + 1 : time_.Hour, length);
  }

  void WriteMinute(std::size_t length) { text_ += Number(time_.Minute, length); }

  void WriteSecond(std::size_t length) { text_ += Number(time_.Second, length); }

  // The day of the week, or the week of the year; weeks begin on Sunday, the first on 1 January.
  void WriteWeek(std::size_t length) {
    const int day = WeekDay(time_), ofYear = DayOfYear(time_);
    text_ += Number(length == 1 ? day : (ofYear - day + 13) / 7, 1);
  }

  void Append(StringView pattern) { text_ += FormatDate(date_, ReadPattern(pattern)); }

  const Date date_;
  const CivilTime time_;
  const Pattern& pattern_;
  bool halves_ = false;
  bool afterHour_ = false;
  String text_;
};

}  // namespace

String FormatDate(Date value, const Pattern& pattern) { return DateWriter(value, pattern).Write(); }

}  // namespace tessaria
