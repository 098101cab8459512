// When two values of a field are the same, and what they read as.
#pragma once

#include "tessaria/variant.h"

namespace tessaria {

/// Null is the same as Null alone, and so is what is no number.
bool IsSame(const Variant& a, const Variant& b);

/// Whether two values differ in no more than their kind, or in what no text of them tells.
bool ReadsAlike(const Variant& a, const Variant& b);

/// The text of a value, with Null as no text. What lies beyond all numbers is a word.
String TextOf(const Variant& v);

/// Null, Empty and what equals it.
bool IsBlank(const Variant& v);

}  // namespace tessaria
