// Cancels a statement in the driver itself, past the driver manager.
#pragma once

#include <sql.h>

#include <string>

namespace tessaria::odbc {

/// Of one connection. The driver manager lets one call of a connection through at a time, so that
/// its SQLCancel would wait for the statement; a connection of the program cannot be opened a
/// second time, because its connection string is not known.
class DriverCancel {
 public:
  /// `driver` is the name of its file, as SQL_DRIVER_NAME.
  DriverCancel(SQLHDBC connection, const std::string& driver);
  DriverCancel(const DriverCancel&) = delete;
  DriverCancel& operator=(const DriverCancel&) = delete;
  ~DriverCancel();

  /// The statement that runs next; a null handle for none.
  void Running(SQLHSTMT statement) noexcept;
  /// The same in the driver; a null handle also when the driver cannot be reached.
  SQLHSTMT Running() const noexcept { return running_; }
  /// Of a statement in the driver, from any thread. Does nothing for a null handle.
  void Cancel(SQLHSTMT running) noexcept;

 private:
  using Call = SQLRETURN(SQL_API*)(SQLHSTMT);

  SQLHDBC connection_;
  void* library_ = nullptr;
  Call cancel_ = nullptr;
  SQLHSTMT running_ = SQL_NULL_HSTMT;  // the driver's own handle
};

}  // namespace tessaria::odbc
