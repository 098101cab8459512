#include "hosts/postgres/far_dates.h"

#include <chrono>
#include <cstdio>
#include <limits>
#include <string>

#include "hosts/sql/values/calendar.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

using sql::kMicrosPerDay;
using sql::kMicrosPerSecond;

// As columns count days, from 30 December 1899.
constexpr std::int32_t kEpoch = 36'526;
constexpr std::int32_t kFirstDay = -657'434;  // 1 January 100
constexpr std::int32_t kLastDay = 2'958'465;  // 31 December 9999

template <class T>
const char* InfiniteText(T count) {
  if (count == std::numeric_limits<T>::max()) return "infinity";
  return count == std::numeric_limits<T>::min() ? "-infinity" : nullptr;
}

std::int64_t DayOf(std::int64_t micros) {
  const std::int64_t day = micros / kMicrosPerDay;
  return micros % kMicrosPerDay < 0 ? day - 1 : day;
}

bool IsNear(std::int64_t day) { return day >= kFirstDay && day <= kLastDay; }

struct CivilDay {
  std::int64_t year;
  unsigned month, day;
};

// Years repeat every 400, so that a day of any year is found as one of the years 2000 to 2399.
CivilDay CivilOf(std::int64_t days) {
  constexpr std::int64_t kDaysOf400Years = 146'097;
  std::int64_t cycles = days / kDaysOf400Years;
  if (days % kDaysOf400Years < 0) --cycles;
  using namespace std::chrono;
  const sys_days start = January / 1 / 2000;
  const year_month_day civil =
      start + std::chrono::days(static_cast<int>(days - cycles * kDaysOf400Years));
  return {static_cast<int>(civil.year()) + 400 * cycles, static_cast<unsigned>(civil.month()),
          static_cast<unsigned>(civil.day())};
}

// "yyyy-mm-dd", the time and " BC", as far as they apply. There is no year 0.
std::string FarText(std::int64_t days, const std::string& time) {
  const CivilDay civil = CivilOf(days);
  const bool isBeforeChrist = civil.year < 1;
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%04lld-%02u-%02u",
                static_cast<long long>(isBeforeChrist ? 1 - civil.year : civil.year), civil.month,
                civil.day);
  return buffer + time + (isBeforeChrist ? " BC" : "");
}

std::string TimeText(std::int64_t micros) {
  const std::int64_t seconds = micros / kMicrosPerSecond;
  const auto fraction = static_cast<int>(micros % kMicrosPerSecond);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
  if (fraction == 0) return buffer;
  char decimals[16];
  std::snprintf(decimals, sizeof decimals, ".%06d", fraction);
  const std::string text = std::string(buffer) + decimals;
  return text.substr(0, text.find_last_not_of('0') + 1);
}

}  // namespace

std::optional<std::int32_t> NearDay(std::int32_t days) {
  const std::int64_t day = std::int64_t{days} + kEpoch;
  if (!IsNear(day)) return std::nullopt;
  return static_cast<std::int32_t>(day);
}

std::optional<std::int64_t> NearMoment(std::int64_t micros) {
  if (!IsNear(DayOf(micros) + kEpoch)) return std::nullopt;
  return micros + kEpoch * kMicrosPerDay;
}

bool IsWithinDay(std::int64_t micros) { return micros >= 0 && micros < kMicrosPerDay; }

String FarDateText(std::int32_t days) {
  if (const char* const text = InfiniteText(days)) return FromUtf8(text);
  return FromUtf8(FarText(days, {}));
}

String FarMomentText(std::int64_t micros) {
  if (const char* const text = InfiniteText(micros)) return FromUtf8(text);
  const std::int64_t day = DayOf(micros);
  return FromUtf8(FarText(day, " " + TimeText(micros - day * kMicrosPerDay)));
}

String FarTimeText(std::int64_t micros) { return FromUtf8(TimeText(micros)); }

}  // namespace tessaria::postgres
