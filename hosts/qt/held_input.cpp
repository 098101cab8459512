#include "hosts/qt/held_input.h"

#include <QCoreApplication>

namespace tessaria::qt {

HeldInput::HeldInput() { QCoreApplication::instance()->installEventFilter(this); }

HeldInput::~HeldInput() {
  QCoreApplication::instance()->removeEventFilter(this);
  for (Kept& kept : kept_)
    if (kept.receiver) QCoreApplication::postEvent(kept.receiver, kept.event.release());
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
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
