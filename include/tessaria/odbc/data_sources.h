// The data sources of this system.
#pragma once

#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::odbc {

/// The names of the user's data sources and of the system's, each once, as "DSN=" takes them in a
/// connection string. Left out is what no connection string reaches under the name that the driver
/// manager lists: entries without a driver, names that are longer than 32 characters, that hold ";"
/// or begin with "{", and names with letters outside ASCII, for which a driver would look in vain
/// and go to its default server. Errors are the driver manager's.
TESSARIA_ODBC_API std::vector<String> DataSourceNames();

}  // namespace tessaria::odbc
