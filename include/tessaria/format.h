// Rounding, and number and date formatting under the Brazilian locale.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"
#include "tessaria/variant.h"

namespace tessaria {

/// Rounds to `decimals` places, halves to even, on the 15 significant digits that a text of the
/// value shows: 2.675 to two places is 2.68. Error 5 for negative decimals, 6 for infinity and NaN.
TESSARIA_CORE_API double Round(double value, Long decimals = 0);

/// Formats a value with a pattern.
///
/// Number patterns: "0" is a digit, "#" a digit where there is one; "," between places groups
/// thousands, "," after the last one divides by a thousand; "." is the decimal mark; "%" multiplies
/// by a hundred; "E+00" and "E-00" an exponent. In the result the two marks are "." and ",".
/// Sections divided by ";": positive, negative, zero; a section that is missing or empty is
/// replaced by the first. Exact halves are rounded away from zero. A double counts with 15
/// significant digits, an exact number and a text with all of theirs. A value that shows as zero
/// has no minus.
///
/// Date patterns: d, dd, ddd, dddd, m to mmmm, yy, yyyy, y (day of the year), h, hh, n, nn, s, ss,
/// q, w, ww; "ddddd" a short and "dddddd" a long date, "ttttt" the time, "c" as CStr; "AM/PM",
/// "am/pm", "A/P", "a/p" for twelve hours; m after h is minutes. Names are Portuguese.
///
/// Text patterns, for the text of any value: "@" is a character or a blank, "&" a character or
/// nothing, filled from the right, with "!" from the left; characters without a place of their own
/// go to the first place, with "!" to the end; ">" and "<" convert to upper and lower case.
///
/// All: text in quotes or a character after "\" is literal, as is every character without a
/// meaning. The names "General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific",
/// "Yes/No", "True/False", "On/Off", "General Date", "Long Date", "Medium Date", "Short Date",
/// "Long Time", "Medium Time", "Short Time" stand for patterns.
///
/// A text that is a number (for a number pattern) or a date (for a date pattern) is formatted as
/// one; any other text is returned unchanged. Empty and Null give "". An empty pattern gives CStr
/// of the value. Errors: 13 for objects, 6 for a number that is not a date in a date pattern.
TESSARIA_CORE_API String Format(const Variant& value, StringView pattern);

}  // namespace tessaria
