// The shapes of the statements that the library itself writes for the forms of the text attack.
#pragma once

#include <string>

namespace tessaria::attack {

/// Whether `sent` (see ShapeOf) is the shape of one of the library's own statements, with one value
/// at each place of a value.
bool IsShapeOfTheLibrary(const std::string& sent);

}  // namespace tessaria::attack
