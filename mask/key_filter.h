// The keystroke filter of a masked field.
#pragma once

#include "mask/masked_field.h"

namespace tessaria {

/// Filters one character before it reaches the box, or one of the codes 46 (Delete) and 120 (F9)
/// that key-down forwards. In an ordinary mask the filter writes the new text itself and swallows
/// the key. In a numeric mask it refuses digits for which there is no place and lets the box insert
/// the others. A text that would be longer than both `MaxLength` and the text before it is refused
/// with a beep, never cut. `KeyAscii` is the character's code in the Western code page (1252), 63
/// for a character that the page lacks; 0 on return means that the box does nothing further with
/// the key. Errors are reported, not raised.
void txtEdit_KeyPress(MaskedField& field, Integer& KeyAscii);

/// The filter alone, for the codes 46 (Delete) and 120 (F9) of non-printing keys.
void FilterCode(MaskedField& field, Integer& code);

}  // namespace tessaria
