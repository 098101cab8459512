// Whether a connection of the program can be adopted, and what it stands in.
#pragma once

#include <memory>

#include "hosts/odbc/line.h"
#include "hosts/sql/driver/link.h"

namespace tessaria::odbc {

/// What the driver's mode tells; the rest only the server knows. Error 3709 for a connection that
/// is closed.
sql::Standing StandingOf(Line& line);

/// Finds out how PostgreSQL's driver is set, in a transaction that is undone. Errors 3709: a
/// setting that this layer cannot work with, by its name; a transaction that is open already, in
/// which that cannot be tried without harm.
void RequireHarmlessDriver(const std::shared_ptr<Line>& line);

}  // namespace tessaria::odbc
