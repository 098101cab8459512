#include "tessaria/calendar.h"

#include <cmath>

#include "runtime/calendar.h"
#include "tessaria/error.h"

namespace tessaria {

namespace {

constexpr int kFirstYear = 100, kLastYear = 9999;
constexpr int kSecondsOfDay = 24 * 60 * 60;

constexpr bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr int DaysBeforeMonth(int year, int month) {
  constexpr int kDays[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  return kDays[month - 1] + (month > 2 && IsLeapYear(year) ? 1 : 0);
}

constexpr int DaysInMonth(int year, int month) {
  const int end = month == 12 ? 365 + (IsLeapYear(year) ? 1 : 0) : DaysBeforeMonth(year, month + 1);
  return end - DaysBeforeMonth(year, month);
}

// Days from 1 January of year 1 to 1 January of a year.
constexpr int DaysBeforeYear(int year) {
  const int past = year - 1;
  return past * 365 + past / 4 - past / 100 + past / 400;
}

// Days from 1 January of year 1.
constexpr int CommonDay(int year, int month, int day) {
  return DaysBeforeYear(year) + DaysBeforeMonth(year, month) + day - 1;
}

constexpr int DayNumber(int year, int month, int day) {
  return CommonDay(year, month, day) - CommonDay(1899, 12, 30);
}

bool TimeExists(const CivilTime& time) {
  return time.Hour >= 0 && time.Hour < 24 && time.Minute >= 0 && time.Minute < 60 &&
         time.Second >= 0 && time.Second < 60;
}

void SetDay(CivilTime& time, int number) {
  // An estimate from the mean length of a year, then corrected in steps.
  time.Year = 1899 + static_cast<int>(std::floor((number - 2) / 365.25));
  while (DayNumber(time.Year + 1, 1, 1) <= number) ++time.Year;
  while (DayNumber(time.Year, 1, 1) > number) --time.Year;
  time.Month = 1;
  while (time.Month < 12 && DayNumber(time.Year, time.Month + 1, 1) <= number) ++time.Month;
  time.Day = number - DayNumber(time.Year, time.Month, 1) + 1;
}

}  // namespace

bool IsInCalendar(Date date) {
  const double day = std::trunc(date.Days);
  return day >= DayNumber(kFirstYear, 1, 1) && day <= DayNumber(kLastYear, 12, 31);
}

bool DayExists(int year, int month, int day) {
  return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month);
}

int WeekDay(const CivilTime& time) {
  // 1 January of year 1 is a Monday.
  return (CommonDay(time.Year, time.Month, time.Day) + 1) % 7 + 1;
}

int DayOfYear(const CivilTime& time) { return DaysBeforeMonth(time.Year, time.Month) + time.Day; }

CivilTime ToCivil(Date date) {
  // The fraction is the time, also when the day is negative.
  if (!IsInCalendar(date)) throw HostError(errors::Overflow);
  double day = std::trunc(date.Days);
  auto seconds = static_cast<int>(std::round(std::abs(date.Days - day) * kSecondsOfDay));
  if (seconds == kSecondsOfDay) {
    seconds = 0;
    ++day;
  }
  if (!IsInCalendar({day})) throw HostError(errors::Overflow);
  CivilTime time;
  SetDay(time, static_cast<int>(day));
  time.Hour = seconds / 3600;
  time.Minute = seconds / 60 % 60;
  time.Second = seconds % 60;
  return time;
}

Date FromCivil(const CivilTime& time) {
  if (!DayExists(time.Year, time.Month, time.Day) || !TimeExists(time)) {
    throw HostError(errors::InvalidArgument);
  }
  const int day = DayNumber(time.Year, time.Month, time.Day);
  const double fraction =
      static_cast<double>(time.Hour * 3600 + time.Minute * 60 + time.Second) / kSecondsOfDay;
  return {day < 0 ? day - fraction : day + fraction};
}

}  // namespace tessaria
