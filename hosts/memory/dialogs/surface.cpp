#include "tessaria/memory/dialogs/surface.h"

namespace tessaria::memory {

std::shared_ptr<Surface> Surface::Make(std::shared_ptr<DialogWorld> world,
                                       const host::DialogDescription& description) {
  const std::shared_ptr<Surface> surface(new Surface(std::move(world), description));
  surface->Build();
  // The handle is separate from the surface, which outlives it inside a handler.
  return {surface.get(), [surface](Surface*) { surface->Abandon(); }};
}

}  // namespace tessaria::memory
