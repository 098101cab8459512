// The pointer asks to wait while the database works.
#pragma once

#include "tessaria/host/dialog.h"
#include "tessaria/thread_state.h"

namespace tessaria {

/// Lives as long as the wait. No box or window opens in it. Error 91 without a desktop.
class BusyPointer {
 public:
  BusyPointer() { TheDesktop().Busy(true); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
  ~BusyPointer() { TheDesktop().Busy(false); }
};

}  // namespace tessaria
