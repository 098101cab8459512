// Which keys a mask character takes, and in which case it stores them.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Codes that the key handlers know by name. Some are a character and a key at once.
namespace key {
inline constexpr Integer None = 0;  ///< a swallowed key
inline constexpr Integer Backspace = 8;
inline constexpr Integer Plus = 43;
inline constexpr Integer Comma = 44;
inline constexpr Integer Minus = 45;
inline constexpr Integer Delete = 46;  ///< also the character "."
inline constexpr Integer Point = Delete;
inline constexpr Integer F9 = 120;  ///< also the character "x"
}  // namespace key

/// Whether the key goes into a slot of that mask character. Always false for "$", literals and
/// the empty character.
TESSARIA_HOST_API bool SlotTakes(StringView slot, Integer key);

/// The character that the slot stores for a key that it takes.
String FoldForSlot(StringView slot, Integer key);

/// Whether a "$" slot has a use for the key: digits, signs, both decimal marks, Backspace, and
/// "k" and "m", which have no meaning beyond being let through.
bool IsNumberKey(Integer key);

}  // namespace tessaria
