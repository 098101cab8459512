// Connections to PostgreSQL over its own client library.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::postgres {

/// Creates a closed connection without a connection string. Its record sets are static and held by
/// the client. A connection and all that belongs to it may be used by one thread at a time.
///
/// The connection string is one of the client library ("host=... dbname=..." or
/// "postgresql://..."), or the one with which the ODBC driver reaches the same server: Servername
/// or Server, Port, Database, Username or Uid, Password or Pwd, SSLmode, ConnSettings. A data
/// source name is refused; Driver and the settings of that driver do nothing.
///
/// The loss of the server is raised as an error with the server's or the client library's own text,
/// and `State` is 0 from then on; `Open` connects again. Record sets keep the rows that they have
/// read, and a pending edit is written by `Update` once the connection is open again.
TESSARIA_POSTGRES_API host::ConnectionPtr CreateConnection();

}  // namespace tessaria::postgres
