// A call of a driver that is not waited for longer than for a bound of time.
#pragma once

#include <chrono>
#include <functional>

#include "tessaria/export.h"

namespace tessaria::sql {

/// Makes the call on a thread of its own. False when it is not over in that time: it goes on, and
/// owns all that it uses. It raises nothing. The end of the program does not wait for it.
TESSARIA_SQL_API bool IsOverWithin(std::chrono::seconds time, std::function<void()> call) noexcept;

}  // namespace tessaria::sql
