// Short names that the tables of several tests use.
#pragma once

namespace tessaria::test {

inline constexpr bool yes = true;
inline constexpr bool no = false;

}  // namespace tessaria::test
