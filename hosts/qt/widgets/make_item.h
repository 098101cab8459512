// Creates the widgets of a surface from their descriptions.
#pragma once

#include <memory>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

/// Creates the widget with its own name, as a child of `parent`. `container` is the frame, the tab
/// strip or the surface that it stands in.
std::unique_ptr<DialogItem> makeItem(const host::WidgetDescription& widget, QWidget& parent,
                                     QWidget& container, DialogGate& gate);

}  // namespace tessaria::qt
