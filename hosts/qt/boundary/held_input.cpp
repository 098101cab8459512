#include "hosts/qt/boundary/held_input.h"

#include <QCoreApplication>
#include <QThread>

namespace tessaria::qt {

HeldInput::HeldInput() : loopLevel_(QThread::currentThread()->loopLevel()) {
  QCoreApplication::instance()->installEventFilter(this);
}

HeldInput::~HeldInput() {
  QCoreApplication::instance()->removeEventFilter(this);
  for (Kept& kept : kept_)
    if (kept.receiver) QCoreApplication::postEvent(kept.receiver, kept.event.release());
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
  if (QThread::currentThread()->loopLevel() > loopLevel_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
      kept_.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
      event->accept();
      return true;
    default:
      return false;
  }
}

}  // namespace tessaria::qt
