// What lies on the pages of a window, and the walk with Tab from one page to the next.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// Whether nothing but pages that are not in front hides the widget.
bool isReachable(const QWidget* widget);
/// Moves the focus on to a control of a page that is not in front, when that is the next in the
/// order of tabs. False when the next one is elsewhere.
bool focusNextPage(QWidget* window, bool next);

}  // namespace tessaria::qt
