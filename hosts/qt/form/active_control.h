// The control that counts as active in place of the widget with the focus.
#pragma once

#include <QWidget>

#include "tessaria/host/form.h"

namespace tessaria::qt {

/// The control that counts as active in the window at present; null for the widget with the focus.
host::WidgetPtr activeStandIn(const QWidget& window);
/// Null makes the widget with the focus the active control again.
void setActiveStandIn(QWidget& window, const host::WidgetPtr& control);

}  // namespace tessaria::qt
