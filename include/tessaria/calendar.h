// Dates as year, month, day and time of day.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

/// Calendar parts of a date.
struct TESSARIA_CORE_API CivilTime {
  int Year = 1899, Month = 12, Day = 30, Hour = 0, Minute = 0, Second = 0;
};
/// Rounded to the second. For a day before the origin the fraction is the time of day as well:
/// -1.25 is 06:00 on 29/12/1899. Error 6 outside the years 100 to 9999.
TESSARIA_CORE_API CivilTime ToCivil(Date date);
/// Error 5 outside the years 100 to 9999 or for a day or time that does not exist.
TESSARIA_CORE_API Date FromCivil(const CivilTime& time);

}  // namespace tessaria
