// Virtual-key codes that several dialogs handle.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

inline constexpr Integer kKeyEnter = 13;
inline constexpr Integer kKeyEscape = 27;

}  // namespace tessaria
