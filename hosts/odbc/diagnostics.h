// Errors made from what a driver reports about a failed call.
#pragma once

#include <sql.h>

#include "hosts/sql/errors/driver_error.h"

namespace tessaria::odbc {

using sql::DriverError;

/// The pending diagnostics of a handle.
DriverError DiagnosticsOf(SQLSMALLINT type, SQLHANDLE handle);

/// Throws the handle's diagnostics unless the call succeeded or found no data.
void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);

}  // namespace tessaria::odbc
