// Conversion of fonts between the core and Qt.
#pragma once

#include <QFont>

#include "tessaria/host/widgets.h"

namespace tessaria::qt {

host::Font toFont(const QFont& font);
/// Sets only what differs from the surrounding font, so that the rest follows the operator's theme.
QFont toQFont(const host::Font& font, const QFont& surrounding);

}  // namespace tessaria::qt
