// Buttons whose caption has a colour.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::mdlCorBtn {

/// Sets or changes the colour of a button's caption. Always true: a button of a dialog has a
/// window, so no button is refused.
bool CorBotao(host::DialogButton& objBotao, Colour lngCor);

}  // namespace tessaria::mdlCorBtn
