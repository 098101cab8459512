// A modal window without a screen, operated by a script while it is open.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/surface_body.h"

namespace tessaria::memory {

/// A window around a surface, built from its description.
class TESSARIA_MEMORY_API Dialog final : public SurfaceOf<host::Dialog>,
                                         public std::enable_shared_from_this<Dialog> {
 public:
  /// A hidden window; the description must outlive it.
  static host::DialogPtr Make(std::shared_ptr<DialogWorld> world,
                              const host::DialogDescription& description);

  String Caption() const override { return caption_; }
  void Caption(const String& text) override { caption_ = text; }
  Long Left() const override { return TheForm().Left(); }
  void Left(Long twips) override { TheForm().Left(twips); }
  Long Top() const override { return TheForm().Top(); }
  void Top(Long twips) override { TheForm().Top(twips); }
  Long Width() const override { return width_; }
  void Width(Long twips) override { Size(twips, height_); }
  Long Height() const override { return height_; }
  void Height(Long twips) override { Size(width_, twips); }
  void ShowModal() override;
  void Hide() override { HideWidgets(); }

  // --- Operator input -------------------------------------------------------------------------
  /// The operator drags the frame to another size, in twips.
  void Resize(Long width, Long height);
  /// The window's own close button.
  void CloseWindow();
  /// The window is in front again: a box over it is gone, or the operator is back from another
  /// program. A script need not call this after a window over it has closed.
  void Reactivate();

 private:
  Dialog(std::shared_ptr<DialogWorld> world, const host::DialogDescription& description);

  class InFront;
  std::shared_ptr<const void> Life() override { return shared_from_this(); }
  bool IsInFront() const override { return World().Script.InFront() == this; }
  /// Lets its script operate the window, and hides the window afterwards.
  void WorkInFront();
  void Size(Long width, Long height);

  String caption_;
  Long width_;
  Long height_;
  bool wasShown_ = false;
};

}  // namespace tessaria::memory
