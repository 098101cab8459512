// Equality of the values of one column.
#pragma once

#include "tessaria/variant.h"

namespace tessaria::memory {

/// Dates to the second, numbers exactly.
bool SameValue(const Variant& a, const Variant& b);

}  // namespace tessaria::memory
