// The window that the operator is working in.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// The modal window, or the active one; nullptr for none. Right after a box or a dialog closes, no
/// window may be active yet: then it is the one that was active before.
QWidget* windowInFront();

/// Notes that a window has become active.
void noteActive(QWidget& window);

}  // namespace tessaria::qt
