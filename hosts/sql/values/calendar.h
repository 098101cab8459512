// Days and microseconds of the stored dates.
#pragma once

#include <cstdint>
#include <optional>

#include "tessaria/conversion.h"

namespace tessaria::sql {

inline constexpr std::int64_t kMicrosPerSecond = 1'000'000;
inline constexpr std::int64_t kSecondsPerDay = 86'400;
inline constexpr std::int64_t kMicrosPerDay = kSecondsPerDay * kMicrosPerSecond;

/// Days since 30 December 1899; nothing for a day outside the years 100 to 9999, which a date
/// value cannot hold (an infinite date, a year before Christ).
std::optional<std::int32_t> DayNumber(int year, int month, int day);
/// The same of yyyy-mm-dd; nothing for another text.
std::optional<std::int32_t> DayOfText(StringView text);

/// Microseconds since midnight of hh:mm[:ss[.f]], and of no text at all; nothing for another text
/// and from 24:00 on, which a date value cannot hold.
std::optional<std::int64_t> MicrosOfTime(StringView text);

/// The date value of a day and the microseconds since its midnight, without the fraction of the
/// second: rounded up it would be another second, and at midnight another day.
Date DateOf(std::int64_t day, std::int64_t micros);
/// The day of a moment, and the microseconds since its midnight.
struct SplitMoment {
  std::int64_t day;
  std::int64_t micros;
};
SplitMoment Split(std::int64_t moment);
/// The moment of a date value, to the second.
std::int64_t MomentOf(Date date);

/// yyyy-mm-dd.
String DayText(std::int64_t day);
/// hh:mm:ss, with six decimals when there is a fraction.
String TimeText(std::int64_t micros);

}  // namespace tessaria::sql
