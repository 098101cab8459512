// Ends the line to a server from outside the client library.
#pragma once

namespace tessaria::postgres {

/// Holds a connection's socket by a handle of its own: the library may close its own at any moment,
/// and its number would then belong to another line.
class LineEnd {
 public:
  LineEnd() = default;
  /// `socket` stays the library's.
  explicit LineEnd(int socket) noexcept;
  LineEnd(LineEnd&& other) noexcept;
  LineEnd& operator=(LineEnd&& other) noexcept;
  ~LineEnd();

  /// From any thread: a call that waits for the server fails then. The library knows no way to
  /// interrupt one.
  void End() const noexcept;

 private:
  int socket_ = -1;
};

}  // namespace tessaria::postgres
