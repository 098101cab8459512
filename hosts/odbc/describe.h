// The columns of a result, as the driver reports them.
#pragma once

#include <sql.h>

#include "hosts/sql/values/column.h"

namespace tessaria::odbc {

/// Empty when the executed statement gives no rows.
sql::Columns DescribeColumns(SQLHSTMT statement, bool postgres);

}  // namespace tessaria::odbc
