// Texts of statements whose parameters are numbered.
#pragma once

#include <string>

#include "tessaria/string.h"

namespace tessaria::postgres {

/// The text in UTF-8 with "$1", "$2", ... for each "?" outside quotes and comments. `backslashes`:
/// whether the server reads backslashes in plain texts as escapes.
std::string NumberedText(StringView text, bool backslashes);

}  // namespace tessaria::postgres
