// The text in the box's tag that silences the exit of the field.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

/// Stands in `TextBox::Tag` while a dialog of the button is open, and after one that failed.
inline constexpr const char16_t* exitIsSilenced = u"Nao Dispara Valida";

}  // namespace tessaria
