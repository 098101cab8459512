// A surface without a screen that stands in somebody else's frame.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/surface_body.h"

namespace tessaria::memory {

/// The frame shows and hides it; `Desktop::MakeSurface` makes it.
class TESSARIA_MEMORY_API Surface final : public SurfaceOf<host::Surface>,
                                          public std::enable_shared_from_this<Surface> {
 public:
  /// The surface hides when the last handle is gone.
  static std::shared_ptr<Surface> Make(std::shared_ptr<DialogWorld> world,
                                       const host::DialogDescription& description);

  /// Controls receive their first show.
  void Show() { ShowWidgets(); }
  void Hide() { HideWidgets(); }

 private:
  using SurfaceOf::SurfaceOf;
  std::shared_ptr<const void> Life() override { return shared_from_this(); }
  bool IsInFront() const override { return World().Script.InFront() == nullptr; }
};

}  // namespace tessaria::memory
