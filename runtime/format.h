// Rounding, and number and date formatting under the Brazilian locale.
#pragma once

#include "tessaria/variant.h"

namespace tessaria {

/// Rounds to `decimals` places, halves to even. Error 5 for negative decimals.
double Round(double value, Long decimals = 0);

/// Formats a value with a user-defined pattern: number patterns of "0", "#", ",", ".", "%",
/// sections divided by ";", literals in quotes or behind "\"; date patterns of d, m, y, h, n,
/// s in their lengths, "/", ":". In a pattern "," groups thousands and "." is the decimal
/// mark; in the result they are "." and ",". Exact halves go away from zero; 15 significant
/// digits. A text that is a number (for a number pattern) or a date (for a date pattern) is
/// taken as one; any other text, and Empty for "", comes back as it stands. Null gives "".
/// An empty pattern gives CStr of the value.
String Format(const Variant& value, StringView pattern);

}  // namespace tessaria
