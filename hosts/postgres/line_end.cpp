#include "hosts/postgres/line_end.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace tessaria::postgres {

void EndLine(int socket) noexcept {
#ifdef _WIN32
  shutdown(static_cast<SOCKET>(socket), SD_BOTH);
#else
  shutdown(socket, SHUT_RDWR);
#endif
}

}  // namespace tessaria::postgres
