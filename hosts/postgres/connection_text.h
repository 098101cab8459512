// Connection strings, as the client library takes them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tessaria/string.h"

namespace tessaria::postgres {

struct ConnectionOptions {
  /// The library's keywords with their values, in UTF-8.
  std::vector<std::pair<std::string, std::string>> pairs;
  bool isWhole = false;  ///< "dbname" is a whole connection string of the library
  /// Statements that a new connection runs first; usually empty.
  std::string statements;
};

/// Reads a connection string of the client library or of the ODBC driver for PostgreSQL. Raises a
/// `DriverError` (IM002) for a data source name, whose settings only ODBC knows.
ConnectionOptions OptionsOf(const String& connectionString);

}  // namespace tessaria::postgres
