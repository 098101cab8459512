// Comparison of a field's values, and their text.
#pragma once

#include "tessaria/variant.h"

namespace tessaria {

/// Null is the same only as Null, and a NaN only as a NaN.
bool IsSame(const Variant& a, const Variant& b);

/// Whether two values differ only in their kind, or in what their texts do not show.
bool ReadsAlike(const Variant& a, const Variant& b);

/// The text of a value; "" for Null. Values beyond all numbers have a word as their text.
String TextOf(const Variant& v);

/// True for Null, Empty and what equals Empty.
bool IsBlank(const Variant& v);

}  // namespace tessaria
