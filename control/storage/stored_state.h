// The parts of a control that are stored.
#pragma once

#include "control/definitions.h"
#include "control/members.h"
#include "tessaria/host/control.h"
#include "tessaria/host/widgets.h"

namespace tessaria {

/// What the property bag holds, and what storing it needs. All of it must outlive this object.
struct StoredState {
  Members& Remembered;
  Definitions& Lookup;
  host::TextBox& Box;
  const host::ControlSite& Site;
};

}  // namespace tessaria
