// The columns of a result, as the driver reports them.
#pragma once

#include <sql.h>

#include "hosts/sql/values/column.h"

namespace tessaria::odbc {

/// The type of a number that the driver manager gives to a program of ODBC 2, as Qt's is: dates and
/// times had others then. Any other number is its own.
Long TypeOf(Long reported);

/// Empty when the executed statement gives no rows.
sql::Columns DescribeColumns(SQLHSTMT statement, bool postgres);

}  // namespace tessaria::odbc
