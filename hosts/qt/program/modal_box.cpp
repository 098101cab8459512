#include "hosts/qt/program/modal_box.h"

#include <QApplication>
#include <QEvent>

namespace tessaria::qt {
namespace {

bool belongsTo(const QWidget* window, const QWidget* owner) {
  while (window && window != owner) window = window->parentWidget();
  return window && owner;
}

/// Closes the box when a window that it belongs to is hidden or destroyed.
class OwnerWatch final : public QObject {
 public:
  explicit OwnerWatch(QDialog* box) : QObject(box), box_(box) {}
  void watch(QWidget* window) {
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, box_, &QDialog::reject);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide && !event->spontaneous()) box_->reject();
    return false;
  }

 private:
  QDialog* box_;
};

}  // namespace

QWidget* windowOfBox(QWidget* owner) {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal || belongsTo(owner, modal)) return owner;
  const bool blocks = modal->windowModality() == Qt::ApplicationModal || belongsTo(modal, owner);
  return blocks ? modal : owner;
}

QPointer<QWidget> runBox(QDialog& box, QWidget* owner) {
  const QPointer<QWidget> window(box.parentWidget());
  auto* watch = new OwnerWatch(&box);
  if (owner) watch->watch(owner);
  if (window && window != owner) watch->watch(window);
  box.exec();
  return window;
}

void returnTo(const QPointer<QWidget>& window) {
  if (window && window->isVisible()) window->activateWindow();
}

QString withLineEnds(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace tessaria::qt
