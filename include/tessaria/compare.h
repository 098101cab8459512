// Comparison of values.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

/// Null equals nothing, not even Null. Empty equals "", 0, the date 0 and False. A number never
/// equals a text when both are variants; a date counts as a number. Texts compare exactly. A Double
/// beside a Single counts as a Single; beside a Currency or Decimal, a Double counts with its 15
/// significant digits. Error 13 for objects and missing arguments.
TESSARIA_CORE_API bool Equal(const Variant& a, const Variant& b);
/// a < b under the same rules; a number is below every text. False when either is Null.
TESSARIA_CORE_API bool Less(const Variant& a, const Variant& b);
/// Whether the value equals Empty: "" and 0 do, Null does not.
TESSARIA_CORE_API bool EqualsEmpty(const Variant& value);

}  // namespace tessaria
