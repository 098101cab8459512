#include "hosts/odbc/line.h"

#include <array>
#include <utility>

#include "hosts/odbc/connection_text.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/wide.h"
#include "hosts/sql/statements/dialect.h"
#include "tessaria/utf8.h"

namespace tessaria::odbc {

Line::Line(const String& connectionString, Long timeout)
    : own_(std::make_unique<ConnectionHandle>()), handle_(own_->get()) {
  // A driver that knows no time-out connects without one.
  if (timeout > 0) {
    SQLSetConnectAttrW(Get(), SQL_ATTR_LOGIN_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(timeout)), 0);
  }
  const String text = DriverConnectionText(connectionString);
  Check(SQLDriverConnectW(Get(), nullptr, Wide(text.c_str()), static_cast<SQLSMALLINT>(text.size()),
                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
        SQL_HANDLE_DBC, Get());
  ReadDriver();
}

Line::Line(SQLHDBC lent, std::function<bool()> isThere)
    : handle_(lent), isThere_(std::move(isThere)) {
  RequireConnected();
  ReadDriver();
  driverCancel_.emplace(Get(), ToUtf8(InfoText(SQL_DRIVER_NAME)));
}

void Line::ReadDriver() {
  postgres_ = sql::DialectOf(InfoText(SQL_DBMS_NAME)) == sql::Dialect::PostgreSql;
  SQLUINTEGER extensions = 0;
  Check(SQLGetInfoW(Get(), SQL_GETDATA_EXTENSIONS, &extensions, 0, nullptr), SQL_HANDLE_DBC, Get());
  constexpr SQLUINTEGER kNeeded = SQL_GD_BLOCK | SQL_GD_BOUND | SQL_GD_ANY_COLUMN;
  rereads_ = (extensions & kNeeded) == kNeeded;
}

// For good: the program may connect again with the same handle.
bool Line::IsLost() const noexcept {
  if (isThere_ && !isThere_()) lost_ = true;
  return lost_;
}

// Not every attribute of a handle tells whether it is connected.
void Line::RequireConnected() {
  try {
    InfoText(SQL_DBMS_NAME);
  } catch (const DriverError& error) {
    if (!lost_) throw;
    throw HostError(
        errors::InvalidConnection,
        u"A conexão ODBC do programa está fechada ou foi perdida.\r\n" + error.Description());
  }
}

String Line::InfoText(SQLUSMALLINT what) {
  std::array<char16_t, 256> buffer{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(Get(), what, buffer.data(), sizeof buffer, &bytes), SQL_HANDLE_DBC, Get());
  return String(buffer.data());
}

void Line::Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  const DriverError error = DiagnosticsOf(type, handle);
  NoteLoss(error);
  throw sql::InWords(error);
}

void Line::Running(std::shared_ptr<StatementHandle> statement) {
  const std::lock_guard lock(statementsMutex_);
  running_.swap(statement);
  if (driverCancel_) driverCancel_->Running(running_ ? running_->get() : SQL_NULL_HSTMT);
}

void Line::CancelRunning() noexcept {
  std::unique_lock lock(statementsMutex_);
  const auto running = running_;
  const SQLHSTMT ofDriver = driverCancel_ ? driverCancel_->Running() : SQL_NULL_HSTMT;
  lock.unlock();
  if (!running) return;
  driverCancel_ ? driverCancel_->Cancel(ofDriver) : void(SQLCancel(running->get()));
}

// The program's own line is freed by the program, and nothing of it is left to itself.
void Line::Release(std::shared_ptr<StatementHandle> statement) {
  if (IsLent() || !lost_) return;
  const std::lock_guard lock(statementsMutex_);
  released_.push_back(std::move(statement));
}

void Line::NoteLoss(const DriverError& error) noexcept {
  SQLINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  if (error.IsConnectionLoss() || dead == SQL_CD_TRUE) lost_ = true;
}

}  // namespace tessaria::odbc
