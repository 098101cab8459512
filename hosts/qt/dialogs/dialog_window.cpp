#include "hosts/qt/dialogs/dialog_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "hosts/qt/boundary/window_in_front.h"
#include "hosts/qt/focus/dialog_keys.h"

namespace tessaria::qt {
namespace {

/// The position between `least` and `most`; `least` if there is no room.
int within(int place, int least, int most) { return std::max(least, std::min(place, most)); }

}  // namespace

DialogWindow::DialogWindow(const QString& title) {
  setWindowTitle(title);
  setWindowModality(Qt::ApplicationModal);
}

void DialogWindow::run(const std::function<void()>& shown) {
  running_ = true;
  const QPointer<QWidget> owner(windowInFront());
  follow(owner);
  keepOnScreen(owner);
  show();
  keepOnScreen(owner);  // its frame is known now
  if (!first_) first_ = focusWidget();
  shown();
  wasLeft_ = false;  // the window system reports this show late
  waitUntilHidden();
  if (first_) first_->setFocus();
  if (owner) {
    owner->removeEventFilter(this);
    disconnect(owner, nullptr, this, nullptr);
  }
  // Not every window system returns the focus by itself.
  if (owner && owner->isVisible()) owner->activateWindow();
  running_ = false;
}

void DialogWindow::widenToHint() {
  layout()->invalidate();
  resize(std::max(width(), layout()->totalSizeHint().width()), height());
}

void DialogWindow::follow(QWidget* owner) {
  create();
  windowHandle()->setTransientParent(owner ? owner->windowHandle() : nullptr);
  if (!owner) return;
  owner->installEventFilter(this);
  connect(owner, &QObject::destroyed, this, &QWidget::hide);
}

void DialogWindow::waitUntilHidden() {
  if (!isVisible()) return;
  QEventLoop loop;
  loop_ = &loop;
  loop.exec(QEventLoop::DialogExec);
  loop_ = nullptr;
  hide();  // the program may be quitting
}

/// Centres the window over its owner unless it was placed, and keeps it wholly on the screen.
void DialogWindow::keepOnScreen(const QWidget* owner) {
  ensurePolished();
  if (layout()) resize(size().expandedTo(layout()->totalMinimumSize()));
  QPoint place = pos();
  if (!testAttribute(Qt::WA_Moved) && owner)
    place = owner->frameGeometry().center() - QPoint(width() / 2, height() / 2);
  const QScreen* screen = QGuiApplication::screenAt(place);
  if (!screen) screen = owner ? owner->screen() : QWidget::screen();
  const QRect room = screen->availableGeometry();
  resize(size().boundedTo(room.size() - (frameGeometry().size() - size())));
  move(within(place.x(), room.left(), room.right() + 1 - frameGeometry().width()),
       within(place.y(), room.top(), room.bottom() + 1 - frameGeometry().height()));
}

bool DialogWindow::event(QEvent* event) {
  const bool handled = QDialog::event(event);
  if (event->type() == QEvent::WindowDeactivate) wasLeft_ = true;
  if (event->type() == QEvent::WindowActivate && std::exchange(wasLeft_, false) && loop_ &&
      cameBack)
    cameBack();
  return handled;
}

bool DialogWindow::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous()) hide();
  return false;
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  if (loop_ && closeByFrame && closeByFrame()) return event->setAccepted(!isVisible());
  QDialog::closeEvent(event);
}

void DialogWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (sizeChanged) sizeChanged();
}

void DialogWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous() && loop_) loop_->quit();
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      if (!pressDialogButton(this, Qt::Key_Escape)) reject();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      pressDialogButton(this, Qt::Key_Return);
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

}  // namespace tessaria::qt
