// Where a dialog opens: below its field, inside the screen.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria {

/// Moves the dialog to the given position, in twips, and from there up and to the left in steps of
/// 10 until it is 450 from the lower edge of the screen and 150 from the right edge.
void PlaceOnScreen(host::Dialog& dialog, float top, float left);

}  // namespace tessaria
