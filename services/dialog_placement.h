// Where a dialog opens: below its field, inside the screen.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria {

/// Moves the dialog to the wanted place, in twips, and from there up and to the left by steps
/// of 10 until it keeps 450 from the lower edge of the screen and 150 from the right one.
void PlaceOnScreen(host::Dialog& dialog, float top, float left);

}  // namespace tessaria
