// Messages to the operator.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlMsgBox {

/// The bits of `ExibeMensagem`'s flags.
namespace flag {
inline constexpr Long YesNo = 4;  ///< yes and no buttons
inline constexpr Long Stop = 16;
inline constexpr Long Question = 32;
inline constexpr Long Information = 64;  ///< shown with the exclamation icon
}  // namespace flag

/// Shows a modal message box owned by a window (0 for none).
/// `intFlags` is a sum of the bits above, 0 for none; all other bits are ignored, also those of the
/// default button.
/// Returns 6 for yes, 7 for no, 1 for anything else.
Long ExibeMensagem(Long varHwnd, const String& varTexto, Long intFlags,
                   const String& varTitulo = u"Alerta!");

}  // namespace tessaria::mdlMsgBox
