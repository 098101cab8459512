// The columns of a result, as the driver tells them.
#pragma once

#include "hosts/sql/values/column.h"

namespace tessaria::odbc {

class OdbcStatement;

/// Empty when the executed statement gives no rows.
sql::Columns DescribeColumns(OdbcStatement& statement, bool postgres);

}  // namespace tessaria::odbc
