// ODBC handles that free themselves.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <memory>
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

/// One physical connection. It stays alive as long as one of its statements.
class Link {
 public:
  Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link() { SQLDisconnect(connection_.get()); }

  SQLHDBC get() const { return connection_.get(); }

 private:
  Handle<SQL_HANDLE_ENV> environment_;
  Handle<SQL_HANDLE_DBC> connection_;
};

/// One statement handle, with the link that it belongs to.
class Statement {
 public:
  explicit Statement(std::shared_ptr<Link> link) : link_(std::move(link)), handle_(link_->get()) {}

  SQLHSTMT get() const { return handle_.get(); }

 private:
  std::shared_ptr<Link> link_;
  Handle<SQL_HANDLE_STMT> handle_;
};

}  // namespace tessaria::odbc
