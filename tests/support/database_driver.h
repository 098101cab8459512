// The driver that the tests of databases use: what TESSARIA_DRIVER in the environment names.
#pragma once

#include "tessaria/host/data.h"

namespace tessaria::test {

/// "odbc", which is the default, or "postgres". Throws std::runtime_error for any other name.
const char* DriverName();
/// A closed connection over that driver. Every driver takes the cluster's connection string.
host::ConnectionPtr NewConnectionOfTheDriver();

}  // namespace tessaria::test
