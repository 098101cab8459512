#include "tests/qt/key_queue.h"

// Qt's test keys are delivered at once. Only the interface of the platforms queues keys.
#include <qpa/qwindowsysteminterface.h>

namespace tessaria::qt::tests {

void queueKeyEvent(const QWidget& window, QEvent::Type type, int key, const QString& text,
                   bool repeated) {
  QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
      window.windowHandle(), type, key, Qt::NoModifier, text, repeated);
}

}  // namespace tessaria::qt::tests
