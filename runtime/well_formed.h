// Texts that reach a database uncut.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// True when a text contains neither a character of code 0, at which drivers cut it, nor half of a
/// surrogate pair.
bool IsWellFormed(StringView text);
/// Raises error 5, which says what the text contains, unless the text is well formed.
TESSARIA_HOST_API void RequireWellFormed(StringView text);

}  // namespace tessaria
