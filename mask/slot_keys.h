// Keys in a mask that is laid out slot by slot. Text is never shifted: a character overwrites its
// slot, and an erased slot shows the fill character.
#pragma once

#include "mask/keystroke.h"

namespace tessaria {

/// Empties the slots of the selection, or the one at the caret.
void DeleteSlots(Keystroke& k);

/// Empties the slots of the selection, or the slot to the left of the caret, skipping literals. At
/// the start of the text it does nothing and leaves the key to the box.
void BackspaceSlots(Keystroke& k);

/// Puts the key's character into its slot, empties the rest of the selection, and moves the caret
/// over the literals that follow.
void TakeCharacter(Keystroke& k);

}  // namespace tessaria
