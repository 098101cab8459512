// The window that the operator works with.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// The modal window, or the active one; nullptr for none. Right behind a box or a dialog no window
/// may be active yet: then it is the one that was active before.
QWidget* windowInFront();

/// A window has become active.
void noteActive(QWidget& window);

}  // namespace tessaria::qt
