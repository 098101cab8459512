// What the surfaces of one memory desktop share.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/file_system.h"
#include "tessaria/memory/dialogs/modal_script.h"

namespace tessaria::memory {

/// Outlives the desktop while a surface does.
struct TESSARIA_MEMORY_API DialogWorld {
  explicit DialogWorld(ModalScript::FaultHandler onFault) : Script(std::move(onFault)) {}

  ModalScript Script;
  std::shared_ptr<FileSystem> Files = std::make_shared<FileSystem>();
  Long DialogWidth = 6000;
  Long DialogHeight = 4000;
};

}  // namespace tessaria::memory
