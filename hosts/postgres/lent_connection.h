// Whether a connection of the program can be used, and what it stands in.
#pragma once

#include <libpq-fe.h>

#include "hosts/sql/driver/link.h"

namespace tessaria::postgres {

/// Errors: 3711 when the program still reads a statement there; 3709, with the name of what is in
/// the way, for a mode or an encoding that this layer cannot work with. Nothing is sent.
void RequireUsable(PGconn* connection);

/// Of a usable connection.
sql::Standing StandingOf(const PGconn* connection);

}  // namespace tessaria::postgres
