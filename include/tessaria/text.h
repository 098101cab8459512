// Text functions of the run time. Positions count from 1; lengths are in UTF-16 units.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"
#include "tessaria/utf8.h"

namespace tessaria {

/// The number of characters.
TESSARIA_CORE_API Long Len(StringView text);
/// The first `count` characters, or all there are. Error 5 for a negative count.
TESSARIA_CORE_API String Left(StringView text, Long count);
/// As `Left`, but without half a surrogate pair at the end.
TESSARIA_CORE_API String LeftWhole(StringView text, Long count);
/// The last `count` characters, or all there are. Error 5 for a negative count.
TESSARIA_CORE_API String Right(StringView text, Long count);
/// From `start` to the end; "" past the end. Error 5 for a start below 1.
TESSARIA_CORE_API String Mid(StringView text, Long start);
/// `count` characters from `start`, or as many as there are. Error 5 for a start below 1 or a
/// negative count.
TESSARIA_CORE_API String Mid(StringView text, Long start, Long count);
/// Position of the first `part`, exact comparison; 0 when absent. An empty part is at 1,
/// except in an empty text, where it is at 0.
TESSARIA_CORE_API Long InStr(StringView text, StringView part);
/// The same from position `start` on. Error 5 for a start below 1.
TESSARIA_CORE_API Long InStr(Long start, StringView text, StringView part);
/// Position of the last `part`; 0 when absent.
TESSARIA_CORE_API Long InStrRev(StringView text, StringView part);

/// Removes blanks only (character 32), as do the next two.
TESSARIA_CORE_API String Trim(StringView text);
/// Removes the blanks at the beginning.
TESSARIA_CORE_API String LTrim(StringView text);
/// Removes the blanks at the end.
TESSARIA_CORE_API String RTrim(StringView text);
/// Letters of every alphabet that Brazilian text uses; nothing depends on the system's locale.
TESSARIA_CORE_API String UCase(StringView text);
/// The text in lower case, by the same rules.
TESSARIA_CORE_API String LCase(StringView text);
/// Whether two texts are equal without regard to case.
TESSARIA_CORE_API bool EqualNoCase(StringView a, StringView b);
/// Exact comparison, as for the next function.
TESSARIA_CORE_API bool StartsWith(StringView text, StringView start);
/// Whether the text ends with `end`.
TESSARIA_CORE_API bool EndsWith(StringView text, StringView end);

/// All occurrences, left to right, exact comparison. An empty `find` changes nothing.
TESSARIA_CORE_API String Replace(StringView text, StringView find, StringView replacement);
/// Error 5 for a negative count, as for the next function.
TESSARIA_CORE_API String Space(Long count);
/// `count` copies of the first character of `text`; error 5 when that is empty.
TESSARIA_CORE_API String StringOf(Long count, StringView text);

/// The code of a character in the Western code page (1252), 0 to 255; 63 ("?") for a character that
/// the page does not contain.
TESSARIA_CORE_API Integer AnsiCode(char16_t character);
/// The character of a code of that page. Error 5 outside 0 to 255.
TESSARIA_CORE_API char16_t AnsiCharacter(Long code);

}  // namespace tessaria
