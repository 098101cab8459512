// Connections over ODBC.
#pragma once

#include <functional>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// Creates a closed connection without a connection string. Its record sets are static; of
/// those with many rows on PostgreSQL, rows that are not looked at stay at the server, for which a
/// second connection is opened with the same string. It lasts as long as the record set is open,
/// also when this one is closed. A connection and all that belongs to it may be used by one thread
/// at a time.
///
/// The loss of the server is raised as an error with the driver's own text, and `State` is 0 from
/// then on; `Open` connects again. Record sets keep the rows that they hold, and a pending
/// edit is written by `Update` once the connection is open again.
TESSARIA_ODBC_API host::ConnectionPtr CreateConnection();

/// An open connection object over a connection to PostgreSQL that the program has; `connection` is
/// its SQLHDBC. The contract is that of `postgres::AdoptConnection` (`isThere` included), with
/// these differences:
///
/// - Whether the driver undoes a whole transaction after an error is tried in a transaction that is
///   undone: one that is open already is refused, so adopt before it begins. The connection options
///   Protocol=7.4-1, UseDeclareFetch=1 and LFConversion=1 are refused, with their names; error
///   3709.
/// - With autocommit off, the driver's own transaction counts as open always.
/// - `DefinedSize` is what the driver is set to tell.
/// `MaxVarcharSize=10485761;MaxLongVarcharSize=0`
///   in the connection string make it tell of texts without a declared size as other connections of
///   this library do.
///
/// Error 3709 for another database.
TESSARIA_ODBC_API host::ConnectionPtr AdoptConnection(void* connection,
                                                      std::function<bool()> isThere = {});

}  // namespace tessaria::odbc
