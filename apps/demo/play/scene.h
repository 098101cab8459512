// Pictures of a window with the windows in front of it.
#pragma once

#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace tessaria::demo {

/// The window and the windows in front of it, each at its place on the screen, with their titles:
/// title bars belong to the window system, so windows do not draw them.
QPixmap pictureOf(QWidget& window, const QList<QPointer<QWidget>>& inFront);

}  // namespace tessaria::demo
