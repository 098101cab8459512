// Builds the connection string that the driver gets.
#pragma once

#include "tessaria/string.h"

namespace tessaria::odbc {

/// The application's connection string with the settings that this layer depends on, which override
/// those of the string and of the data source. A string that names a driver other than PostgreSQL's
/// is returned unchanged.
String DriverConnectionText(const String& connectionString);

}  // namespace tessaria::odbc
