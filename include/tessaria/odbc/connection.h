// Connections over ODBC.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// A closed connection without a connection string. Its record sets are static and held by the
/// client. One thread at a time uses a connection with all that belongs to it.
///
/// A lost server shows as an error with the driver's own text, and `State` is 0 from then on;
/// `Open` connects again. Record sets keep the rows that they have read, and a pending edit is
/// written by `Update` once the connection is open again.
TESSARIA_ODBC_API host::ConnectionPtr CreateConnection();

}  // namespace tessaria::odbc
