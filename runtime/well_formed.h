// Texts that can be handed to a database whole.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Whether a text holds neither a character of code 0, at which drivers cut, nor half of a
/// surrogate pair.
bool IsWellFormed(StringView text);
/// Error 5, which says what the text holds, unless it is well formed.
TESSARIA_HOST_API void RequireWellFormed(StringView text);

}  // namespace tessaria
