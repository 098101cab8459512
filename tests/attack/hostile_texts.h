// Texts that nobody types by mistake: quotes, comments, escapes, SQL, every plane of Unicode.
#pragma once

#include <vector>

#include "tessaria/string.h"
#include "tests/attack/run.h"

namespace tessaria::attack {

/// The table whose loss shows that a text became a command.
inline constexpr const char* kCanaryTable = "alvo";

/// Each fragment alone, whole attacks, very long ones, and joined fragments up to `count` texts,
/// which are the same for the same seed.
std::vector<String> HostileTexts(std::size_t count, Random& random);

}  // namespace tessaria::attack
