// How the control classifies the type codes of values and fields.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

/// `TipoDado` of an unbound date; 2, 4 and 5 are numbers, all other codes are texts.
inline constexpr Long kUnboundDate = 7;
bool IsUnboundNumber(Long TipoDado);

enum class FieldFamily { Text, Number, Date, Other };

/// How a bound field of that type code takes a value.
FieldFamily FamilyOf(Long fieldType);

}  // namespace tessaria
