// Messages to the operator.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlMsgBox {

/// Shows a modal message box owned by a window (0 for none).
/// `intFlags` adds up 4 (yes and no buttons), 16 (stop icon), 32 (question icon) and 64, which
/// shows the exclamation icon; all other bits are dropped, those of the default button too.
/// Answers 6 for yes, 7 for no, 1 for anything else.
Long ExibeMensagem(Long varHwnd, const String& varTexto, Long intFlags,
                   const String& varTitulo = u"Alerta!");

}  // namespace tessaria::mdlMsgBox
