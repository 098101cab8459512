// The keys of a masked field that print nothing.
#pragma once

#include "mask/masked_field.h"

namespace tessaria {

/// Delete and F9 ahead of the box: Delete keeps the comma of a number, both go through the
/// keystroke filter otherwise. `KeyCode` 0 on return means that the box does nothing further.
/// Errors are reported, none is raised.
void txtEdit_KeyDown(MaskedField& field, Integer& KeyCode, Integer& Shift);

}  // namespace tessaria
