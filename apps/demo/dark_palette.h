// Dark colours for the whole program.
#pragma once

#include <QPalette>

namespace tessaria::demo {

QPalette darkPalette();

}  // namespace tessaria::demo
