// Texts that are hostile on purpose: quotes, comments, escapes, SQL, every plane of Unicode.
#pragma once

#include <vector>

#include "tessaria/string.h"
#include "tests/attack/run.h"

namespace tessaria::attack {

/// The table whose loss shows that a text became a command.
inline constexpr const char* kCanaryTable = "alvo";

/// Returns each fragment alone, complete attacks, very long texts, and joined fragments until there
/// are `count` texts. The same seed gives the same texts.
std::vector<String> HostileTexts(std::size_t count, Random& random);

}  // namespace tessaria::attack
