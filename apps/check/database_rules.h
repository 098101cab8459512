// What a database says about the statements of a form.
#pragma once

#include "apps/check/rules.h"
#include "tessaria/host/data.h"

namespace tessaria::formcheck {

/// Asks for tables, columns and statements, each with a condition that no row meets. Nothing is
/// written; where the server can, it refuses to.
void CheckDatabase(const CheckedForm& form, host::Connection& connection, Findings& findings);

}  // namespace tessaria::formcheck
