// Pictures of a window with what lies in front of it.
#pragma once

#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace tessaria::demo {

/// The window and the windows in front of it, each where it lies on the screen, with their titles:
/// title bars are the window system's, and no part of what windows draw.
QPixmap pictureOf(QWidget& window, const QList<QPointer<QWidget>>& inFront);

}  // namespace tessaria::demo
