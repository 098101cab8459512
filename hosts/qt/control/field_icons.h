// The icons of the buttons of fields, drawn for light and dark themes.
#pragma once

#include <QIcon>
#include <QPalette>

#include "tessaria/tstext_interface.h"

namespace tessaria::qt {

/// Sharp at every size and density, in colours that contrast with the theme's buttons. All fields
/// of a kind share one icon. Null for a kind without a button.
QIcon fieldIcon(TipoControle kind, const QPalette& theme);

}  // namespace tessaria::qt
