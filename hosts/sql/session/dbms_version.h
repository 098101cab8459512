// The version text of a PostgreSQL server, in the form that version rules read.
#pragma once

#include "tessaria/string.h"

namespace tessaria::sql {

/// "PostgreSQL " and major.minor.patch of what the driver reports ("15.0.18", "15.18",
/// "9.5.3", "09.05.0003"). Releases since 10 have two numbers; they get a minor of 0, so that
/// the first six characters of the number, without the points, grow with the release.
String PostgreSqlVersion(StringView reported);

}  // namespace tessaria::sql
