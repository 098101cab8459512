// Buttons whose caption has a colour.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::mdlCorBtn {

/// Gives a button's caption a colour, or another one. True: a button of a dialog always has its
/// window, so that there is none to refuse.
bool CorBotao(host::DialogButton& objBotao, Colour lngCor);

}  // namespace tessaria::mdlCorBtn
