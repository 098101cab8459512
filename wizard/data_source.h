// The data source that a connection string names.
#pragma once

#include "tessaria/string.h"

namespace tessaria::wizard {

/// The value of "DSN" in a text of the form "key=value;..."; "" when there is none.
String DataSourceIn(const String& connectionString);

}  // namespace tessaria::wizard
