// The setting of a connection behind a pooler, and what a transaction sets there.
#pragma once

#include "hosts/sql/driver/settings_scope.h"
#include "tessaria/string.h"

namespace tessaria::sql {

/// Takes "Pooling=transaction" or "Pooling=session", which no driver knows, out of a connection
/// string of any form. Without it the scope is the session. Error 3001 for another value.
SettingsScope TakePooling(String& connectionString);

/// What this layer depends on, and the bounds of `host::Connection`, for one transaction of
/// PostgreSQL.
String LocalSettings(Long commandTimeout, Long lockTimeout);

}  // namespace tessaria::sql
