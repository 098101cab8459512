// The keys of the contracts as the memory host names them.
#pragma once

#include "tessaria/memory/keys.h"
#include "tests/ports/text_box_contract.h"

namespace tessaria::contract {

inline Integer ModifierOf(With with) {
  if (with == With::Shift) return memory::modifier::Shift;
  return with == With::Control ? memory::modifier::Control : memory::modifier::None;
}

}  // namespace tessaria::contract
