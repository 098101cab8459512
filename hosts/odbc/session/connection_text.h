// The connection string that the driver gets.
#pragma once

#include "tessaria/string.h"

namespace tessaria::odbc {

/// The application's connection string with the settings that this layer depends on, which win
/// over those of the string and of the data source. Another driver than PostgreSQL's named in
/// the string gets it as it stands.
String DriverConnectionText(const String& connectionString);

}  // namespace tessaria::odbc
