// Conversions between kinds of value, under the Brazilian locale: comma decimal, point
// thousands, day before month. The system's locale plays no part.
//
// All of them raise error 13 for a text that holds no such value and for objects, 6 for a number
// out of range, 94 for Null.
#pragma once

#include "tessaria/calendar.h"
#include "tessaria/export.h"
#include "tessaria/string.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The text of a value. Empty and missing give ""; a number has the comma and up to 15
/// significant digits (7 for Single, all for Currency and Decimal), and an exponent ("1,5E-05")
/// below 0,0001 or with more digits in front of the comma than that; a date is dd/mm/yyyy, with
/// hh:mm:ss when it has a time, and only the time when it has no day; a Boolean is "Verdadeiro" or
/// "Falso".
TESSARIA_CORE_API String CStr(const Variant& value);
/// Empty is 0, True is -1, a date its days. A text may have points for thousands (at any place of
/// the whole part, so "12.34" is 1234), a comma for decimals, a leading or trailing sign,
/// parentheses for a negative number, "R$", an exponent after E or D, and surrounding blanks.
/// "&H1F" and "&O17" are hexadecimal and octal.
TESSARIA_CORE_API double CDbl(const Variant& value);
/// Rounds halves to even, as does CInt. A hexadecimal or octal text is a bit pattern of the
/// result's width: "&HFFFFFFFF" is -1.
TESSARIA_CORE_API Long CLng(const Variant& value);
/// As CLng, in 16 bits.
TESSARIA_CORE_API Integer CInt(const Variant& value);
/// True for any number but 0. A text is "Verdadeiro", "Falso", "True" or "False" in any case, or a
/// number.
TESSARIA_CORE_API bool CBool(const Variant& value);
/// A text may be d/m/y, d/m (this year), m/yyyy (the first of the month), y-m-d, eight digits (day,
/// month, year), each with or without a time h:m[:s] after a blank; a time may also stand alone.
/// Separators "/", "-" and ".". Two-digit years: 00 to 29 are 20xx, 30 to 99 are 19xx. When a text
/// with separators is no valid day, but is one with day and month swapped, it is read that way:
/// "12/25/2016" is 25 December. Error 13 for a day that does not exist. A number counts days; error
/// 6 outside the years 100 to 9999.
TESSARIA_CORE_API Date CDate(const Variant& value);
/// Rounds to four decimals, halves to even. A text is converted exactly.
TESSARIA_CORE_API Currency CCur(const Variant& value);
/// A double is converted with its 15 significant digits, a text with all digits that 96 bits hold.
TESSARIA_CORE_API Decimal CDec(const Variant& value);

/// True when CDbl accepts the value. A date does not count as a number here; Empty does.
TESSARIA_CORE_API bool IsNumeric(const Variant& value);
/// True when the value is a date or a text that CDate accepts.
TESSARIA_CORE_API bool IsDate(const Variant& value);

/// The number at the start of a text; 0 when there is none. Blanks are skipped, also between
/// digits; the point is the decimal mark. Accepts an exponent, "&H" and "&O". Never raises an
/// error.
TESSARIA_CORE_API double Val(StringView text);
/// The text of a number with a point for decimals and a leading blank instead of the plus sign. No
/// zero precedes the point: " .5".
TESSARIA_CORE_API String Str(double value);
/// The text of a value inside an SQL statement: a number has a point whatever its kind, a Boolean
/// is -1 or 0; everything else is as in CStr, and Null gives "".
TESSARIA_CORE_API String SqlText(const Variant& value);

/// Exact texts of the two exact kinds, for the data layer: a point, no thousands, and for a
/// decimal as many decimals as its scale.
TESSARIA_CORE_API String DecimalText(const Decimal& value);
/// Accepts [sign]digits[.digits] and [sign].digits. Decimals that do not fit are rounded, halves to
/// even. Error 13 for anything else, 6 above 96 bits.
TESSARIA_CORE_API Decimal DecimalFromText(StringView text);

/// As CDec, except that a Double or Single is converted with as many digits as distinguish it from
/// its neighbours: no digit of the whole part of a large number is lost.
TESSARIA_CORE_API Decimal ExactDecimal(const Variant& value);
/// Whether two numbers have the same digits, read as `ExactDecimal` reads them, however many there
/// are. Error 13 for a value that is not a number, 6 for infinity.
TESSARIA_CORE_API bool IsSameNumber(const Variant& a, const Variant& b);

}  // namespace tessaria
