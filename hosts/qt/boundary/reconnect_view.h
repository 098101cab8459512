// Asks the operator whether a connection that was lost is opened again.
#pragma once

#include "tessaria/host/reconnecting.h"

namespace tessaria::qt {

/// The view of a Qt program: a box over the window in front.
class ReconnectView final : public host::ReconnectView {
 public:
  Long Action() override;
  bool Allows() override;

 private:
  Long answeredIn_ = 0;  // the action of the last answer
  bool answer_ = false;
};

}  // namespace tessaria::qt
