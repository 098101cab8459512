// What a widget reports after the core has finished its work.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// Must not throw.
using Reporter = void (*)(QWidget&);

/// Calls `report` once when the outermost entry into the core that the present event loop has begun
/// ends, or at once when there is none. A widget that is destroyed before reports nothing.
void afterEntry(QWidget& widget, Reporter report);

}  // namespace tessaria::qt
