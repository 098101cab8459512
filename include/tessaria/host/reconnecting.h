// Whether a connection that was lost is opened again.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::host {

/// Optional service of a thread (`ThreadState::reconnecting`). The first request of an action that
/// finds its connection lost asks it before anything is sent, and goes on over a new connection or
/// fails as without this service. It is not asked in the action in which the connection was lost,
/// nor while a transaction that the program has not ended yet was lost with it. Both functions
/// throw nothing.
class TESSARIA_CORE_API ReconnectView {
 public:
  ReconnectView() = default;
  ReconnectView(const ReconnectView&) = delete;
  ReconnectView& operator=(const ReconnectView&) = delete;
  virtual ~ReconnectView() = default;

  /// A number of the operator's present action that no other has; 0 for work that no operator has
  /// just asked for, such as that of a timer.
  virtual Long Action() = 0;
  /// Asks the operator, once an action: later calls in it return the same answer.
  virtual bool Allows() = 0;
};

}  // namespace tessaria::host
