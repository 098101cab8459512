// Numbers with all their digits.
#pragma once

#include "tessaria/variant.h"

namespace tessaria {

/// The value as a Double, or as a Decimal where a Double would lose digits. Errors: those of CDbl,
/// and 6 for a number with more digits than a Decimal holds.
Variant ExactNumber(const Variant& value);

}  // namespace tessaria
