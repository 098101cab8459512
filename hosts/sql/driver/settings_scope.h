// How far the settings of a session reach on its server.
#pragma once

namespace tessaria::sql {

/// Behind a pooler that gives a client another session of the server for each transaction, what is
/// set outside a transaction reaches somebody else.
enum class SettingsScope { Session, Transaction };

}  // namespace tessaria::sql
