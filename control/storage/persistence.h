// A control's start values, and its two walks through the property bag.
#pragma once

#include "control/storage/stored_state.h"

namespace tessaria {

/// Start values of a control that is newly placed on a form. Errors are reported, as are those of
/// the two walks.
void SetStartValues(Members& members, host::TextBox& box);
/// Directly to and from the members and the box, without side effects.
void ReadProperties(StoredState& state, const host::PropertyBag& bag);
/// The same, but raises the error that ended the walk.
void ReadOrRaise(StoredState& state, const host::PropertyBag& bag);
void WriteProperties(const StoredState& state, host::PropertyBag& bag);

}  // namespace tessaria
