#include "tessaria/memory/dialogs/desktop.h"

#include <utility>

#include "tessaria/conversion.h"
#include "tessaria/thread_state.h"

namespace tessaria::memory {

Desktop::Desktop(ModalScript::FaultHandler onFault)
    : former_(std::exchange(State().desktop, this)),
      world_(std::make_shared<DialogWorld>(std::move(onFault))),
      today_(FromCivil({2017, 12, 25})) {}

Desktop::~Desktop() {
  world_->Script.Finish();
  State().desktop = former_;
}

host::DialogPtr Desktop::MakeDialog(const host::DialogDescription& description) {
  return Dialog::Make(world_, description);
}

std::shared_ptr<Surface> Desktop::MakeSurface(const host::DialogDescription& description) {
  return Surface::Make(world_, description);
}

void Desktop::ScreenSize(Long width, Long height) {
  screenWidth_ = width;
  screenHeight_ = height;
}

void Desktop::DialogSize(Long width, Long height) {
  world_->DialogWidth = width;
  world_->DialogHeight = height;
}

}  // namespace tessaria::memory
