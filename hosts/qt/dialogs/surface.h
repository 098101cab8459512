// A surface in any frame of the program.
#pragma once

#include <QPointer>
#include <memory>

#include "hosts/qt/dialogs/surface_items.h"
#include "tessaria/export.h"

namespace tessaria::qt {

/// A surface and the widget that its frame shows. The surface owns the widget, and hides it when
/// the last handle is gone; a frame may put it into its layout, and may be destroyed first.
struct FramedSurface {
  host::SurfacePtr surface;
  QWidget* widget;
};

/// Creates a surface from its description, which must outlive it. Its Enter presses the default
/// button of the window around it, and its Escape the one with the property "Cancel".
TESSARIA_QT_API FramedSurface makeSurface(const host::DialogDescription& description);

/// What the widgets are children of: a form of its own inside the frame's window.
class SurfaceFace final : public QWidget {
  Q_OBJECT

 public:
  SurfaceFace();
  /// Called before it shows. Must not throw.
  std::function<void()> aboutToShow;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

/// What the frame receives. When the frame is destroyed, the face stays with the surface.
class SurfaceHolder final : public QWidget {
  Q_OBJECT

 public:
  explicit SurfaceHolder(SurfaceFace& face);
  ~SurfaceHolder() override;

 private:
  QPointer<SurfaceFace> face_;
};

class DialogSurface final : public SurfaceOf<host::Surface> {
 public:
  explicit DialogSurface(const host::DialogDescription& description);
  ~DialogSurface() override;

  QWidget& holder() const { return *holder_; }
  /// Called when the last handle is gone: no handler runs any more, and the surface hides.
  void abandon();

 private:
  SurfaceItems& items() const override { return *items_; }

  std::unique_ptr<SurfaceFace> face_;
  QPointer<SurfaceHolder> holder_;
  std::unique_ptr<SurfaceItems> items_;
};

}  // namespace tessaria::qt
