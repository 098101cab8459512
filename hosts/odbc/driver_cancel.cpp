#include "hosts/odbc/driver_cancel.h"

#include <dlfcn.h>
#include <sqlext.h>

namespace tessaria::odbc {

// The manager has loaded the driver already, which has its file's name for its own.
DriverCancel::DriverCancel(SQLHDBC connection, const std::string& driver)
    : connection_(connection), library_(dlopen(driver.c_str(), RTLD_LAZY | RTLD_NOLOAD)) {
  if (library_ != nullptr) cancel_ = reinterpret_cast<Call>(dlsym(library_, "SQLCancel"));
}

DriverCancel::~DriverCancel() {
  if (library_ != nullptr) dlclose(library_);
}

void DriverCancel::Running(SQLHSTMT statement) noexcept {
  running_ = SQL_NULL_HSTMT;
  if (cancel_ == nullptr || statement == SQL_NULL_HSTMT) return;
  SQLHSTMT handle = statement;  // in: the manager's, out: the driver's
  if (SQL_SUCCEEDED(SQLGetInfo(connection_, SQL_DRIVER_HSTMT, &handle, sizeof handle, nullptr)))
    running_ = handle;
}

void DriverCancel::Cancel(SQLHSTMT running) noexcept {
  if (running != SQL_NULL_HSTMT) cancel_(running);
}

}  // namespace tessaria::odbc
