// Connections over ODBC.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// Creates a closed connection without a connection string. Its record sets are static and held by
/// the client. A connection and all that belongs to it may be used by one thread at a time.
///
/// The loss of the server is raised as an error with the driver's own text, and `State` is 0 from
/// then on; `Open` connects again. Record sets keep the rows that they have read, and a pending
/// edit is written by `Update` once the connection is open again.
TESSARIA_ODBC_API host::ConnectionPtr CreateConnection();

}  // namespace tessaria::odbc
