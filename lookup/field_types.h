// The type codes of numeric and of text fields.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// True for the type codes of numeric fields, whose values are written in SQL without quotes. The
/// `TipoDado` of a sibling is compared with these codes unchanged, although it has other numbers.
TESSARIA_HOST_API bool IsNumericFieldType(Long type);

/// True for the type codes of text fields.
TESSARIA_HOST_API bool IsTextFieldType(Long type);

}  // namespace tessaria
