// ODBC handles that free themselves.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace tessaria::odbc {

/// Owns one handle of the given type.
template <SQLSMALLINT type>
class Handle {
 public:
  Handle() = default;
  explicit Handle(SQLHANDLE parent) { SQLAllocHandle(type, parent, &handle_); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, SQLHANDLE{})) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (handle_ != SQL_NULL_HANDLE) SQLFreeHandle(type, handle_);
  }

  SQLHANDLE get() const { return handle_; }

 private:
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

using StatementHandle = Handle<SQL_HANDLE_STMT>;

/// An environment for the version of ODBC that this layer speaks.
class Environment : public Handle<SQL_HANDLE_ENV> {
 public:
  Environment();
};

/// One physical connection, with an environment of its own. Not connected when it is made;
/// disconnects at its end.
class ConnectionHandle {
 public:
  ConnectionHandle();
  ConnectionHandle(const ConnectionHandle&) = delete;
  ConnectionHandle& operator=(const ConnectionHandle&) = delete;
  ~ConnectionHandle() { SQLDisconnect(connection_.get()); }

  SQLHDBC get() const { return connection_.get(); }

 private:
  const Environment environment_;
  Handle<SQL_HANDLE_DBC> connection_;
};

}  // namespace tessaria::odbc
