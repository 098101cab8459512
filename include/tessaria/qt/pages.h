// Brings tab pages to the front.
#pragma once

#include "tessaria/export.h"

class QWidget;

namespace tessaria::qt {

/// Brings all pages of tab widgets that the widget is on to the front, so that it can be seen.
/// Does nothing for nullptr.
TESSARIA_QT_API void showPagesOf(QWidget* widget);

}  // namespace tessaria::qt
