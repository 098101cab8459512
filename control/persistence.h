// A control's start values, and its two walks through the property bag.
#pragma once

#include "control/definitions.h"
#include "control/members.h"
#include "tessaria/host/control.h"

namespace tessaria {

/// What of a control is stored, and what its storing asks. All outlive it.
struct StoredState {
  Members& Remembered;
  Definitions& Lookup;
  host::TextBox& Box;
  const host::ControlSite& Site;
};

/// Start values of a control that is newly placed on a form. Errors of all three are reported.
void SetStartValues(Members& members, host::TextBox& box);
/// Straight into the members and the box, with no side effects.
void ReadProperties(StoredState& state, const host::PropertyBag& bag);
void WriteProperties(const StoredState& state, host::PropertyBag& bag);

}  // namespace tessaria
