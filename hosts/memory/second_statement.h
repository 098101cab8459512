// Detects texts that hold more than one statement.
#pragma once

#include "lookup/sql_scanner.h"

namespace tessaria::memory {

/// Whether a text holds anything other than semicolons after a semicolon. Quoted texts and comments
/// do not count.
bool HoldsSecondStatement(StringView text, SqlRules rules);

}  // namespace tessaria::memory
