// The text in the box's tag that suppresses the exit rules of the field.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

/// The value of `TextBox::Tag` while a dialog of the button is open, and after a dialog failed.
inline constexpr const char16_t* exitIsSilenced = u"Nao Dispara Valida";

}  // namespace tessaria
