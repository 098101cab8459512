// The controls on the pages of a window, and Tab from one page to the next.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// The property of a tab widget whose pages do not turn for the sake of the focus.
inline constexpr char kPagesStay[] = "pagesStay";

/// Whether the widget is hidden only by pages that are not in front.
bool isReachable(const QWidget* widget);
/// Moves the focus to the next control in the tab order if it is on a page that is not in front.
/// Returns false if it is elsewhere.
bool focusNextPage(QWidget* window, bool next);

}  // namespace tessaria::qt
