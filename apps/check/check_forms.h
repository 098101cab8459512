// The check of form files as a whole.
#pragma once

#include <ostream>

#include "apps/check/options.h"

namespace tessaria::formcheck {

/// Writes the findings to `out` and what prevents the check to `error`; returns the exit code.
int CheckForms(const Options& options, std::ostream& out, std::ostream& error);

}  // namespace tessaria::formcheck
