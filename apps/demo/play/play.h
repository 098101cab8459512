// A session that runs by itself, takes pictures, and checks what it has stored.
#pragma once

#include <QString>

#include "apps/demo/database.h"

namespace tessaria::demo {

/// Plays on a server of its own in a temporary folder. Pictures go into `folder`, which is created;
/// with an empty one there are none. Returns the program's result: 0 when the database holds what
/// was typed and every step went as expected. Raises `Failure` when no session is possible.
int play(const QString& folder, Driver driver = Driver::Odbc);

}  // namespace tessaria::demo
