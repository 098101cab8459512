// The name that a programmer probably meant.
#pragma once

#include <string>
#include <vector>

#include "tessaria/string.h"

namespace tessaria::formcheck {

/// " (did you mean 'X'?)" with the name nearest to a misspelt one, or nothing when none is near.
/// Without regard to case.
std::string DidYouMean(StringView misspelt, const std::vector<String>& names);

}  // namespace tessaria::formcheck
