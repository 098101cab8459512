#include "hosts/postgres/line_end.h"

#include <utility>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace tessaria::postgres {

#ifdef _WIN32
// Windows gives a socket a second handle only through a copy of its whole description.
LineEnd::LineEnd(int socket) noexcept {
  WSAPROTOCOL_INFOW description;
  if (WSADuplicateSocketW(static_cast<SOCKET>(socket), GetCurrentProcessId(), &description) == 0)
    socket_ = static_cast<int>(
        WSASocketW(FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, &description, 0, 0));
}
#else
LineEnd::LineEnd(int socket) noexcept : socket_(dup(socket)) {}
#endif

LineEnd::LineEnd(LineEnd&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}

LineEnd& LineEnd::operator=(LineEnd&& other) noexcept {
  std::swap(socket_, other.socket_);
  return *this;
}

LineEnd::~LineEnd() {
  if (socket_ < 0) return;
#ifdef _WIN32
  closesocket(static_cast<SOCKET>(socket_));
#else
  close(socket_);
#endif
}

void LineEnd::End() const noexcept {
  if (socket_ < 0) return;
#ifdef _WIN32
  shutdown(static_cast<SOCKET>(socket_), SD_BOTH);
#else
  shutdown(socket_, SHUT_RDWR);
#endif
}

}  // namespace tessaria::postgres
