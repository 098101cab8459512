// What a key does in a numeric field.
#pragma once

#include "mask/keystroke.h"

namespace tessaria {

/// Applies a key for which `IsNumberKey` holds. A key that is left goes on to the box, which
/// inserts or deletes by itself.
void EditNumber(Keystroke& k);

}  // namespace tessaria
