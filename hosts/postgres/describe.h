// The columns of a result.
#pragma once

#include "hosts/postgres/wire.h"
#include "hosts/sql/values/column.h"

namespace tessaria::postgres {

/// Asks the server, between the results of a batch, of the tables that the connection does not know
/// yet. Empty for a result that gives no rows.
sql::Columns DescribeColumns(Wire& wire, const PGresult* result);

}  // namespace tessaria::postgres
