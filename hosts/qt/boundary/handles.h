// Window handles of the core: 32-bit tokens that stand for widgets.
#pragma once

#include <QWidget>

#include "tessaria/string.h"

namespace tessaria::qt {

/// The widget's token, the same on each call; never 0.
Long handleOf(QWidget& widget);
/// The widget of a token; nullptr for 0, an unknown token, or a destroyed widget.
QWidget* widgetOf(Long handle);

}  // namespace tessaria::qt
