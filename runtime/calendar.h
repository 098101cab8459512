// The calendar of dates: days since 30 December 1899, Gregorian throughout.
#pragma once

#include "tessaria/calendar.h"

namespace tessaria {

/// True for the days from 1/1/100 to 31/12/9999.
bool IsInCalendar(Date date);
/// True for a day of the calendar: the month has it, and the year is one of 100 to 9999.
bool DayExists(int year, int month, int day);
/// The day's number, from 1, Sunday first.
int WeekDay(const CivilTime& time);
/// The day's number in its year, from 1.
int DayOfYear(const CivilTime& time);

}  // namespace tessaria
