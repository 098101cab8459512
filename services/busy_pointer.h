// Shows the busy pointer while the database works.
#pragma once

#include "tessaria/host/dialog.h"
#include "tessaria/thread_state.h"

namespace tessaria {

/// The pointer is busy during this object's lifetime, in which no box or window opens. Error 91
/// without a desktop.
class BusyPointer {
 public:
  BusyPointer() { TheDesktop().Busy(true); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { TheDesktop().Busy(false); }
};

}  // namespace tessaria
