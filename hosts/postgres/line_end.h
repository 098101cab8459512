// Ends the line to a server from outside the client library.
#pragma once

namespace tessaria::postgres {

/// Of a connection's socket, from any thread: a call that waits for the server fails then. The
/// library knows no way to interrupt one.
void EndLine(int socket) noexcept;

}  // namespace tessaria::postgres
