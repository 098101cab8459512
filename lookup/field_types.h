// Which fields of the database hold numbers, and which texts.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// True for the type codes of numeric fields, whose values stand in SQL without quotes. The
/// `TipoDado` of a sibling is compared with them as it stands, although it is numbered otherwise.
TESSARIA_HOST_API bool IsNumericFieldType(Long type);

/// True for the type codes of text fields.
TESSARIA_HOST_API bool IsTextFieldType(Long type);

}  // namespace tessaria
