// Keys in a numeric field.
#pragma once

#include "mask/keystroke.h"

namespace tessaria {

/// Applies a key for which `IsNumberKey` is true. A key that is not swallowed goes on to the box,
/// which inserts or deletes by itself.
void EditNumber(Keystroke& k);

}  // namespace tessaria
