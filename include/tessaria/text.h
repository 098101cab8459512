// Text functions of the run time. Positions count from 1; lengths are in UTF-16 units.
#pragma once

#include <string>

#include "tessaria/string.h"

namespace tessaria {

Long Len(StringView text);
/// The first `count` characters, or all there are. Error 5 for a negative count.
String Left(StringView text, Long count);
/// As `Left`, but for half a surrogate pair at the end.
String LeftWhole(StringView text, Long count);
/// The last `count` characters, or all there are. Error 5 for a negative count.
String Right(StringView text, Long count);
/// From `start` to the end; "" behind the end. Error 5 for a start below 1.
String Mid(StringView text, Long start);
/// `count` characters from `start`, or what there is. Error 5 as for both above.
String Mid(StringView text, Long start, Long count);
/// Position of the first `part`, exact comparison; 0 when absent. An empty part is at 1,
/// except in an empty text, where it is at 0.
Long InStr(StringView text, StringView part);
/// The same from position `start` on. Error 5 for a start below 1.
Long InStr(Long start, StringView text, StringView part);
/// Position of the last `part`; 0 when absent.
Long InStrRev(StringView text, StringView part);

/// Blanks only (character 32), as all three of these.
String Trim(StringView text);
String LTrim(StringView text);
String RTrim(StringView text);
/// Letters of every alphabet that Brazilian text uses; nothing depends on the system's locale.
String UCase(StringView text);
String LCase(StringView text);
bool EqualNoCase(StringView a, StringView b);
bool StartsWith(StringView text, StringView start);
bool EndsWith(StringView text, StringView end);

/// All occurrences, left to right, exact comparison. An empty `find` changes nothing.
String Replace(StringView text, StringView find, StringView replacement);
/// Error 5 for a negative count, as the next.
String Space(Long count);
/// `count` copies of the first character of `text`; error 5 when that is empty.
String StringOf(Long count, StringView text);

/// Whether the unit is the first, or second, half of a surrogate pair.
constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// The code of a character in the Western code page (1252), 0 to 255; 63 ("?") for a
/// character that the page does not hold.
Integer AnsiCode(char16_t character);
/// The character of a code of that page. Error 5 outside 0 to 255.
char16_t AnsiCharacter(Long code);

std::string ToUtf8(StringView text);
/// Invalid bytes become U+FFFD.
String FromUtf8(std::string_view bytes);

}  // namespace tessaria
