#include "tests/qt/key_queue.h"

// Qt's own test keys are delivered at once. Only the platforms' interface queues them.
#include <qpa/qwindowsysteminterface.h>

namespace tessaria::qt::tests {

void queueKeyEvent(const QWidget& window, QEvent::Type type, int key, const QString& text,
                   bool repeated) {
  QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
      window.windowHandle(), type, key, Qt::NoModifier, text, repeated);
}

}  // namespace tessaria::qt::tests
