// Keys as an operator's keyboard sends them.
#pragma once

#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::memory {

/// Codes of the keys that print nothing.
enum class Key : Integer {
  Backspace = 8,
  Tab = 9,
  Enter = 13,
  Shift = 16,
  Escape = 27,
  PageUp = 33,
  PageDown = 34,
  End = 35,
  Home = 36,
  Left = 37,
  Up = 38,
  Right = 39,
  Down = 40,
  Insert = 45,
  Delete = 46,
  A = 65,
  F9 = 120,
  AcuteOrGrave = 219,      ///< dead key of the Brazilian layout
  TildeOrCircumflex = 222  ///< dead key of the Brazilian layout
};

/// Bits of the `Shift` argument of key events.
namespace modifier {
inline constexpr Integer None = 0;
inline constexpr Integer Shift = 1;
inline constexpr Integer Control = 2;
inline constexpr Integer Alt = 4;
}  // namespace modifier

/// One key going down and up again.
struct TESSARIA_MEMORY_API Stroke {
  Integer Code = 0;
  Integer Shift = modifier::None;
  /// What the key prints; 0 for none. Backspace, Enter and Escape count as characters.
  char16_t Character = 0;
};

/// The stroke of a key by code, with the character of a key that has one without printing.
TESSARIA_MEMORY_API Stroke StrokeOf(Key key, Integer shift = modifier::None);
/// The strokes that print a character on a Brazilian keyboard: a dead key first where one is
/// needed, so that only the last of them carries the character.
TESSARIA_MEMORY_API std::vector<Stroke> StrokesOf(char16_t character);

}  // namespace tessaria::memory
