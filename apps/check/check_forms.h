// The whole check of form files, with its report.
#pragma once

#include <iosfwd>

#include "apps/check/options.h"

namespace tessaria::formcheck {

/// Writes the findings to `out`, and why there is no check to `error`. Returns the exit code: 0
/// without findings, 1 with some, 2 when a file or the database could not be opened.
int CheckForms(const Options& options, std::ostream& out, std::ostream& error);

}  // namespace tessaria::formcheck
