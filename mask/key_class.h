// The keys that a mask character accepts, and the case in which it stores them.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Codes that the key handlers use by name. Some are both a character and a key.
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

/// Whether a slot with that mask character accepts the key. Always false for "$", literals and the
/// empty character.
TESSARIA_HOST_API bool SlotTakes(StringView slot, Integer key);

/// The character that the slot stores for a key that it accepts.
String FoldForSlot(StringView slot, Integer key);

/// Whether a "$" slot accepts the key: digits, signs, both decimal marks, Backspace, and "k" and
/// "m", which are let through and have no other meaning.
bool IsNumberKey(Integer key);

}  // namespace tessaria
