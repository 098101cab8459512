// The whole check of a server, with its report.
#pragma once

#include <iosfwd>

#include "apps/check-server/options.h"

namespace tessaria::check {

/// Writes the report to `out`, and why there is none to `error`. Returns the exit code: 0 when all
/// guarantees are kept, 1 when not, 2 when the check could not be made.
int CheckServer(const Options& options, std::ostream& out, std::ostream& error);

}  // namespace tessaria::check
