// Connections that a program has opened with Qt's SQL module.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

class QSqlDatabase;

namespace tessaria::qtsql {

/// An open connection object over a database that the program has opened with the driver QPSQL or
/// QODBC: same session, same transaction, `QSqlDatabase::transaction` included. The contract is
/// that of `postgres::AdoptConnection` or `odbc::AdoptConnection`; the server is PostgreSQL. A
/// database that the program closes or removes counts as lost and is not touched: close it before
/// or after the connection object, in any order, but on this thread.
///
/// Errors: 3709 for a database that is invalid, closed, of another driver or of another thread, or
/// that waits for notifications (`QSqlDriver::subscribeToNotification`), which it would read while
/// a statement runs; those of the functions above. With QPSQL a query in forward-only mode is
/// error 3711 until it is cleared or destroyed, also after its last row.
TESSARIA_QTSQL_API host::ConnectionPtr Adopt(const QSqlDatabase& database);

}  // namespace tessaria::qtsql
