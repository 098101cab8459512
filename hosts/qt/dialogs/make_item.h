// From a widget's description to the widget.
#pragma once

#include <memory>

#include "hosts/qt/dialogs/dialog_item.h"

namespace tessaria::qt {

/// Makes the widget as the window's child, under its own name.
std::unique_ptr<DialogItem> makeItem(const host::WidgetDescription& widget, QWidget& window,
                                     const DialogGate& gate);

}  // namespace tessaria::qt
