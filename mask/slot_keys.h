// What a key does in a mask that is laid out slot by slot. Nothing ever shifts: a character
// overwrites its slot, an erased slot shows the fill character.
#pragma once

#include "mask/keystroke.h"

namespace tessaria {

/// Empties the slots of the selection, or the one at the caret.
void DeleteSlots(Keystroke& k);

/// Empties the slots of the selection, or the one to the left of the caret, over literals. At
/// the very start it does nothing and leaves the key.
void BackspaceSlots(Keystroke& k);

/// Puts the key's character into its slot, empties the rest of the selection, and walks the
/// caret behind the literals that follow.
void TakeCharacter(Keystroke& k);

}  // namespace tessaria
