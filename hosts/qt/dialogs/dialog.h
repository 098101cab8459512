// A dialog of the library as a Qt window.
#pragma once

#include <memory>

#include "hosts/qt/dialogs/dialog_window.h"
#include "hosts/qt/dialogs/surface_items.h"

namespace tessaria::qt {

/// The modal window around a surface, whose widgets are children of the window. Showing it again
/// while it is open raises error 400.
class Dialog final : public SurfaceOf<host::Dialog>, public std::enable_shared_from_this<Dialog> {
 public:
  static host::DialogPtr make(const host::DialogDescription& description);
  ~Dialog() override;

  String Caption() const override;
  void Caption(const String& text) override;
  Long Left() const override;
  void Left(Long twips) override;
  Long Top() const override;
  void Top(Long twips) override;
  Long Width() const override;
  void Width(Long twips) override;
  Long Height() const override;
  void Height(Long twips) override;
  void ShowModal() override;
  void Hide() override { window_->hide(); }

 private:
  /// A number as it was assigned, valid while the window stays at the pixel it was moved to.
  struct Kept {
    Long twips = 0;
    int pixel = 0;
    bool holds = false;
    Long value(int now, Long measured) const { return holds && now == pixel ? twips : measured; }
  };

  explicit Dialog(const host::DialogDescription& description);
  SurfaceItems& items() const override { return *items_; }
  void resized();
  void shown();
  /// Called when the last handle is gone: no handler runs any more, and the window hides.
  void abandon();

  std::unique_ptr<DialogWindow> window_;
  std::unique_ptr<SurfaceItems> items_;
  Kept left_, top_, width_, height_;
  bool wasShown_ = false;
};

}  // namespace tessaria::qt
