// The data source of the test's own server.
#pragma once

#include <QString>

#include "tessaria/string.h"

namespace tessaria::tests {

/// Adds a data source of that name to a file of the driver manager.
void addSource(const QString& path, const QString& name, const String& connectionString);

/// Adds the data source "loja", which leads to the server of this program, to a file of the driver
/// manager, and makes that the file of this program and of those that it starts.
void nameSource(const QString& path);

}  // namespace tessaria::tests
