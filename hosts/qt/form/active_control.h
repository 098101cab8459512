// The control that counts as active in place of the widget in focus.
#pragma once

#include <QWidget>

#include "tessaria/host/form.h"

namespace tessaria::qt {

/// What counts as the active control of the window just now; nothing for the widget in focus.
host::WidgetPtr activeStandIn(const QWidget& window);
/// Nothing gives the part back to the widget in focus.
void setActiveStandIn(QWidget& window, const host::WidgetPtr& control);

}  // namespace tessaria::qt
