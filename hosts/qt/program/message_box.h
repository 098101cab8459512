// Message boxes of the core as Qt message boxes.
#pragma once

#include <QWidget>

#include "tessaria/string.h"

namespace tessaria::qt {

/// Shows a modal box over `owner`, which may be nullptr, or over the modal window in front of it,
/// and waits; the focus goes back to that window. `style` is a sum of values of `host::box`.
/// Returns 6 for yes, 7 for no, 1 otherwise. The box closes with its owner and with the window
/// under it.
Long showMessageBox(QWidget* owner, const QString& text, Long style, const QString& title);

}  // namespace tessaria::qt
