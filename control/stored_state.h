// What of a control is stored.
#pragma once

#include "control/definitions.h"
#include "control/members.h"
#include "tessaria/host/control.h"
#include "tessaria/host/widgets.h"

namespace tessaria {

/// What the property bag holds, and what storing it asks. All outlive it.
struct StoredState {
  Members& Remembered;
  Definitions& Lookup;
  host::TextBox& Box;
  const host::ControlSite& Site;
};

}  // namespace tessaria
