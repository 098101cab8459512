// The non-printing keys of a masked field.
#pragma once

#include "mask/masked_field.h"

namespace tessaria {

/// Handles Delete and F9 before the box does. Delete keeps the comma of a number; otherwise both
/// keys go through the keystroke filter. `KeyCode` 0 on return means that the box does nothing
/// further. Errors are reported, not raised.
void txtEdit_KeyDown(MaskedField& field, Integer& KeyCode, Integer& Shift);

}  // namespace tessaria
