#include "runtime/date_text.h"

#include <ctime>
#include <vector>

#include "runtime/calendar.h"
#include "runtime/number_text.h"

namespace tessaria {

namespace {

// One group of digits of a date text.
struct Part {
  int Value = 0;
  std::size_t Size = 0;

  bool IsYear() const { return Size >= 3; }
};

struct Day {
  int Year, Month, Number;
};

constexpr std::size_t kLongestPart = 4;
constexpr std::size_t kBareDate = 8;  // digits of a date with no separators

bool AllDigits(StringView text) {
  return !text.empty() && text.find_first_not_of(u"0123456789") == StringView::npos;
}

int NumberOf(StringView digits) {
  int value = 0;
  for (const char16_t c : digits) value = value * 10 + DigitValue(c);
  return value;
}

std::optional<Part> ReadPart(StringView text, std::size_t longest) {
  const StringView bare = WithoutWhite(text);
  if (!AllDigits(bare) || bare.size() > longest) return std::nullopt;
  return Part{NumberOf(bare), bare.size()};
}

// The parts between the separators, or none when one of them is not a number.
std::vector<Part> Split(StringView text, StringView separators, std::size_t longest) {
  std::vector<Part> parts;
  for (;;) {
    const std::size_t end = text.find_first_of(separators);
    const auto part = ReadPart(text.substr(0, end), longest);
    if (!part) return {};
    parts.push_back(*part);
    if (end == StringView::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

int YearOf(const Part& part) {
  if (part.IsYear()) return part.Value;
  return part.Value < 30 ? 2000 + part.Value : 1900 + part.Value;
}

// The current year in local time, without the calls that share a buffer.
int CurrentYear() {
  const std::time_t now = std::time(nullptr);
  int year = ToCivil({25569 + static_cast<double>(now) / 86400}).Year + 1;
  for (;; --year) {
    std::tm start{};
    start.tm_year = year - 1900;
    start.tm_mday = 1;
    start.tm_isdst = -1;
    if (std::mktime(&start) <= now) return year;
  }
}

// Day and month in either order: the second order is tried when the first is not a valid day.
std::optional<Day> DayOf(int year, const Part& day, const Part& month) {
  if (day.IsYear() || month.IsYear()) return std::nullopt;
  if (DayExists(year, month.Value, day.Value)) return Day{year, month.Value, day.Value};
  if (DayExists(year, day.Value, month.Value)) return Day{year, day.Value, month.Value};
  return std::nullopt;
}

std::optional<Day> ReadBareDate(StringView text) {
  const Day day{NumberOf(text.substr(4, 4)), NumberOf(text.substr(2, 2)),
                NumberOf(text.substr(0, 2))};
  if (!DayExists(day.Year, day.Month, day.Number)) return std::nullopt;
  return day;
}

std::optional<Day> ReadTwoParts(const Part& first, const Part& second) {
  if (!second.IsYear()) return DayOf(CurrentYear(), first, second);
  if (first.IsYear() || !DayExists(second.Value, first.Value, 1)) return std::nullopt;
  return Day{second.Value, first.Value, 1};
}

std::optional<Day> ReadDay(StringView text) {
  if (text.size() == kBareDate && AllDigits(text)) return ReadBareDate(text);
  const auto parts = Split(text, u"/-.", kLongestPart);
  if (parts.size() == 2) return ReadTwoParts(parts[0], parts[1]);
  if (parts.size() != 3) return std::nullopt;
  if (parts[0].IsYear()) return DayOf(parts[0].Value, parts[2], parts[1]);
  return DayOf(YearOf(parts[2]), parts[0], parts[1]);
}

bool ReadTime(StringView text, CivilTime& time) {
  const auto parts = Split(text, u":", 2);
  if (parts.size() < 2 || parts.size() > 3) return false;
  time.Hour = parts[0].Value;
  time.Minute = parts[1].Value;
  time.Second = parts.size() == 3 ? parts[2].Value : 0;
  return time.Hour < 24 && time.Minute < 60 && time.Second < 60;
}

}  // namespace

std::optional<Date> ReadDate(StringView text) {
  StringView rest = WithoutWhite(text);
  CivilTime time;
  if (const std::size_t colon = rest.find(u':'); colon != StringView::npos) {
    const std::size_t blank = rest.find_last_of(u" \t", colon);
    const bool alone = blank == StringView::npos;
    if (!ReadTime(alone ? rest : rest.substr(blank), time)) return std::nullopt;
    if (alone) return FromCivil(time);
    rest = WithoutWhite(rest.substr(0, blank));
  }
  const auto day = ReadDay(rest);
  if (!day) return std::nullopt;
  time.Year = day->Year;
  time.Month = day->Month;
  time.Day = day->Number;
  return FromCivil(time);
}

}  // namespace tessaria
