// Keys as the window system queues them: they wait until events are processed.
#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

namespace tessaria::qt::tests {

void queueKeyEvent(const QWidget& window, QEvent::Type type, int key, const QString& text,
                   bool repeated);

}  // namespace tessaria::qt::tests
