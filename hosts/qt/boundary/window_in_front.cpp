#include "hosts/qt/boundary/window_in_front.h"

#include <QApplication>
#include <QPointer>

namespace tessaria::qt {
namespace {

QPointer<QWidget>& former() {
  static thread_local QPointer<QWidget> instance;
  return instance;
}

}  // namespace

QWidget* windowInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  return former() && former()->isVisible() ? former().data() : nullptr;
}

void noteActive(QWidget& window) {
  if (!window.isModal()) former() = &window;
}

}  // namespace tessaria::qt
