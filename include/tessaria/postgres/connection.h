// Connections to PostgreSQL over its own client library.
#pragma once

#include <functional>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

struct pg_conn;  // PGconn of the client library

namespace tessaria::postgres {

/// Creates a closed connection without a connection string. Its record sets are static; of
/// those with many rows, rows that are not looked at stay at the server, for which a second
/// connection is opened with the same string. It lasts as long as the record set is open, also when
/// this one is closed. A connection and all that belongs to it may be used by one thread at a time.
///
/// The connection string is one of the client library ("host=... dbname=..." or
/// "postgresql://..."), or the one with which the ODBC driver reaches the same server: Servername
/// or Server, Port, Database, Username or Uid, Password or Pwd, SSLmode, ConnSettings. A data
/// source name is refused; Driver and the settings of that driver do nothing.
///
/// The loss of the server is raised as an error with the server's or the client library's own text,
/// and `State` is 0 from then on; `Open` connects again. Record sets keep the rows that they
/// hold, and a pending edit is written by `Update` once the connection is open again.
TESSARIA_POSTGRES_API host::ConnectionPtr CreateConnection();

/// An open connection object over a connection that the program has: same session, same
/// transaction. The program keeps it open as long as the object and its record sets are used; it is
/// never closed here. `isThere` is asked before each use, from the program's thread: once it
/// returns false, the connection counts as lost and is not touched. Empty: it is always there.
///
/// What the program wrote in its open transaction is seen, and what record sets write ends with
/// that transaction. A failed statement is undone alone; it leaves the transaction usable. A
/// transaction of the program is never ended here: `BeginTrans` is refused while one is open,
/// `CommitTrans` and `RollbackTrans` end one that `BeginTrans` has begun. Between two calls nothing
/// is left open and no setting is changed: time-outs hold for the one statement, and rows are read
/// whole when they are opened, however many they are. While a statement runs, the program must not
/// use the connection, from a timer for instance; windows take events meanwhile.
///
/// `ConnectionString` tells only that the connection is the program's.
///
/// Errors, here and at each use: 3709 for a connection that is closed or lost, is not blocking, is
/// in pipeline mode, or whose client_encoding is not UTF8; 3711 when a statement of the program is
/// still being read there, COPY included; -2147467259 when its transaction has failed, so that it
/// can only be undone. After a loss, or after `Close`, which leaves the program's connection open,
/// `Open` raises 3709: adopt again.
TESSARIA_POSTGRES_API host::ConnectionPtr AdoptConnection(pg_conn* connection,
                                                          std::function<bool()> isThere = {});

}  // namespace tessaria::postgres
