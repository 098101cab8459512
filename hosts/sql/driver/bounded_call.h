// A call of a driver that is not waited for longer than for a bound of time.
#pragma once

#include <chrono>
#include <functional>
#include <future>

#include "tessaria/export.h"

namespace tessaria::sql {

/// A server that has not answered a short request in this time will hardly answer it any more.
inline constexpr std::chrono::seconds kSilence{5};

/// Makes the call on a thread of its own and tells its end, also by what it raises. It owns all
/// that it uses: whoever started it may leave it, and neither he nor the end of the program waits
/// for it.
std::future<void> CallApart(std::function<void()> call);

/// Makes the call on a thread of its own. False when it is not over in that time: it goes on, and
/// owns all that it uses. It raises nothing. The end of the program does not wait for it.
TESSARIA_SQL_API bool IsOverWithin(std::chrono::seconds time, std::function<void()> call) noexcept;

}  // namespace tessaria::sql
