#include "hosts/sql/values/calendar.h"

#include <cstdio>

#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::sql {

std::optional<std::int32_t> DayNumber(int year, int month, int day) {
  try {
    const Date date = FromCivil({year, month, day, 0, 0, 0});
    return static_cast<std::int32_t>(date.Days);
  } catch (const HostError&) {
    return std::nullopt;
  }
}

std::optional<std::int32_t> DayOfText(StringView text) {
  constexpr std::size_t kLongest = 10;
  if (text.size() > kLongest) return std::nullopt;
  int fields[3] = {0, 0, 0};
  std::size_t field = 0;
  for (const char16_t c : text) {
    if (c >= u'0' && c <= u'9') {
      fields[field] = fields[field] * 10 + (c - u'0');
    } else if (c != u'-' || ++field > 2) {
      return std::nullopt;
    }
  }
  return DayNumber(fields[0], fields[1], fields[2]);
}

std::optional<std::int64_t> MicrosOfTime(StringView text) {
  constexpr std::size_t kLongest = 18;  // with nine decimals
  if (text.size() > kLongest) return std::nullopt;
  std::int64_t fields[4] = {0, 0, 0, 0};  // the last one counts microseconds
  std::size_t field = 0;
  std::int64_t unit = kMicrosPerSecond / 10;
  for (const char16_t c : text) {
    if (c < u'0' || c > u'9') {
      if (c != (field < 2 ? u':' : u'.') || ++field > 3) return std::nullopt;
    } else if (field < 3) {
      fields[field] = fields[field] * 10 + (c - u'0');
    } else {
      fields[3] += (c - u'0') * unit;
      unit /= 10;
    }
  }
  const std::int64_t seconds = (fields[0] * 60 + fields[1]) * 60 + fields[2];
  if (seconds >= kSecondsPerDay) return std::nullopt;
  return seconds * kMicrosPerSecond + fields[3];
}

Date DateOf(std::int64_t day, std::int64_t micros) {
  const std::int64_t seconds = micros / kMicrosPerSecond;
  const double fraction = static_cast<double>(seconds) / static_cast<double>(kSecondsPerDay);
  // Before the first day the fraction still counts forward from midnight.
  const double days = static_cast<double>(day);
  return Date{day < 0 ? days - fraction : days + fraction};
}

SplitMoment Split(std::int64_t moment) {
  std::int64_t day = moment / kMicrosPerDay;
  std::int64_t micros = moment % kMicrosPerDay;
  if (micros < 0) {
    micros += kMicrosPerDay;
    --day;
  }
  return {day, micros};
}

std::int64_t MomentOf(Date date) {
  const CivilTime civil = ToCivil(date);
  const Date midnight = FromCivil({civil.Year, civil.Month, civil.Day, 0, 0, 0});
  return static_cast<std::int64_t>(midnight.Days) * kMicrosPerDay +
         (civil.Hour * 3600 + civil.Minute * 60 + civil.Second) * kMicrosPerSecond;
}

String DayText(std::int64_t day) {
  const CivilTime civil = ToCivil(Date{static_cast<double>(day)});
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", civil.Year, civil.Month, civil.Day);
  return FromUtf8(buffer);
}

String TimeText(std::int64_t micros) {
  const int seconds = static_cast<int>(micros / kMicrosPerSecond);
  const int fraction = static_cast<int>(micros % kMicrosPerSecond);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60,
                seconds % 60);
  String text = FromUtf8(buffer);
  if (fraction != 0) {
    std::snprintf(buffer, sizeof buffer, ".%06d", fraction);
    text += FromUtf8(buffer);
  }
  return text;
}

}  // namespace tessaria::sql
