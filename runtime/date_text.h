// Reading dates from texts, and the bounds of the calendar.
#pragma once

#include <optional>

#include "tessaria/conversion.h"

namespace tessaria {

/// The date, time or both that the whole text is, in the forms that `CDate` lists.
std::optional<Date> ReadDate(StringView text);

/// True for the days from 1/1/100 to 31/12/9999.
bool IsInCalendar(Date date);
/// True for a day of the calendar: the month has it, and the year is one of 100 to 9999.
bool DayExists(int year, int month, int day);
/// The day's number, from 1, Sunday first.
int WeekDay(const CivilTime& time);
/// The day's number in its year, from 1.
int DayOfYear(const CivilTime& time);

}  // namespace tessaria
