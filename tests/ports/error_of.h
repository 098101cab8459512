// The number of the error that a call raises, for the contracts of ports.
#pragma once

#include "tessaria/error.h"

namespace tessaria::contract {

/// 0 for none.
template <class Call>
Long ErrorOf(Call&& call) {
  try {
    call();
  } catch (const HostError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace tessaria::contract
