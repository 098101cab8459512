#include "hosts/qt/dialogs/surface.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/metatypes.h"

namespace tessaria::qt {

namespace {

/// Surfaces whose last handle is gone, while Qt may still work with their widgets.
std::vector<std::shared_ptr<DialogSurface>>& leaving() {
  static std::vector<std::shared_ptr<DialogSurface>> surfaces;
  return surfaces;
}

void letGo() {
  for (auto& surface : std::exchange(leaving(), {})) retire(std::move(surface));
}

/// Not in the event itself: the program may end before it comes, and Qt cannot destroy widgets any
/// more when it clears its queue.
void letGoLater(std::shared_ptr<DialogSurface> surface) {
  static const bool atEnd = (qAddPostRoutine(letGo), true);
  static_cast<void>(atEnd);
  surface->abandon();
  leaving().push_back(std::move(surface));
  QMetaObject::invokeMethod(qApp, letGo, Qt::QueuedConnection);
}

}  // namespace

FramedSurface makeSurface(const host::DialogDescription& description) {
  auto made = std::make_shared<DialogSurface>(description);
  QWidget* widget = &made->holder();
  return {{made.get(), [made](host::Surface*) mutable { letGoLater(std::move(made)); }}, widget};
}

// --- Widgets ------------------------------------------------------------------------------------

SurfaceFace::SurfaceFace() { setProperty("dbForm", QVariant::fromValue(host::ConnectionPtr())); }

/// With a cycle in its window, the frame's buttons take the focus before a key presses them.
void SurfaceFace::showEvent(QShowEvent* event) {
  FocusCycle::of(window());
  if (aboutToShow && !event->spontaneous()) aboutToShow();
  QWidget::showEvent(event);
}

void SurfaceFace::keyPressEvent(QKeyEvent* event) {
  const int key = event->key() == Qt::Key_Enter ? Qt::Key_Return : event->key();
  if (!isDialogKey(*event) || !pressDialogButton(this, key)) QWidget::keyPressEvent(event);
}

SurfaceHolder::SurfaceHolder(SurfaceFace& face) : face_(&face) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(&face);
}

SurfaceHolder::~SurfaceHolder() {
  if (!face_) return;
  face_->hide();
  face_->setParent(nullptr);
}

// --- Surface ------------------------------------------------------------------------------------

DialogSurface::DialogSurface(const host::DialogDescription& description)
    : face_(std::make_unique<SurfaceFace>()),
      holder_(new SurfaceHolder(*face_)),
      items_(std::make_unique<SurfaceItems>(description, *face_, *this)) {
  face_->aboutToShow = [this] { items_->aboutToShow(); };
}

DialogSurface::~DialogSurface() {
  items_->close();
  face_.reset();
  delete holder_;
}

void DialogSurface::abandon() {
  items_->close();
  if (holder_) holder_->hide();
}

}  // namespace tessaria::qt
