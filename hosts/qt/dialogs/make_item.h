// Creates the widgets of a dialog from their descriptions.
#pragma once

#include <memory>

#include "hosts/qt/dialogs/dialog_item.h"

namespace tessaria::qt {

/// Creates the widget as a child of the window, with its own name.
std::unique_ptr<DialogItem> makeItem(const host::WidgetDescription& widget, QWidget& window,
                                     DialogGate& gate);

}  // namespace tessaria::qt
