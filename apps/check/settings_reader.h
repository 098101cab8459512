// Reads the lines of a field's settings, and finds those that the control cannot read.
#pragma once

#include "apps/check/field.h"

namespace tessaria::formcheck {

Field ReadSettings(const FormWidget& widget, Findings& findings);

}  // namespace tessaria::formcheck
