// Buttons whose caption has a colour.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::mdlCorBtn {

/// Gives a button's caption a colour, or another one. The result is true.
bool CorBotao(host::DialogButton& objBotao, Colour lngCor);

}  // namespace tessaria::mdlCorBtn
