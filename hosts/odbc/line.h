// The physical connection that a link and its statements share.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "hosts/odbc/driver_cancel.h"
#include "hosts/odbc/handles.h"
#include "hosts/sql/errors/driver_error.h"

namespace tessaria::odbc {

/// Stays open as long as one of its statements.
class Line {
 public:
  /// Connects. `timeout` is in seconds, 0 for the driver's own.
  Line(const String& connectionString, Long timeout);
  /// Over a connection of the program, which stays connected. `isThere` tells whether the program
  /// still has it; empty for always.
  Line(SQLHDBC lent, std::function<bool()> isThere);

  SQLHDBC Get() const { return handle_; }
  bool IsLent() const { return own_ == nullptr; }
  /// As the driver names the database; its names of types are those of PostgreSQL then.
  bool IsPostgres() const { return postgres_; }
  /// Whether a cell of a fetched block can be read again in parts.
  bool Rereads() const { return rereads_; }
  bool IsLost() const noexcept;
  /// Seconds that a statement may take by the driver's own clock; 0 for no bound.
  Long StatementTimeout() const { return statementTimeout_; }
  void StatementTimeout(Long seconds) { statementTimeout_ = seconds; }

  /// The statement that runs, for `CancelRunning` on another thread; nothing for none. It is not
  /// freed while it is cancelled, and nobody waits for that.
  void Running(std::shared_ptr<StatementHandle> statement);
  void CancelRunning() noexcept;
  /// A statement that nobody uses any more. It is freed: at once, or with the line when that is
  /// lost, because the driver manager would let it wait for a call that was left.
  void Release(std::shared_ptr<StatementHandle> statement);

  /// Of a connection of the program: error 3709 when it is not connected.
  void RequireConnected();
  /// A text that SQLGetInfo returns.
  String InfoText(SQLUSMALLINT what);
  /// Throws the handle's diagnostics unless the call succeeded or found no data; detects a lost
  /// connection.
  void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);
  /// Marks it as lost: nothing can be run any more.
  void Lose() noexcept { lost_ = true; }
  void NoteLoss(const sql::DriverError& error) noexcept;

 private:
  void ReadDriver();

  std::unique_ptr<ConnectionHandle> own_;
  SQLHDBC handle_;
  std::function<bool()> isThere_;
  std::optional<DriverCancel> driverCancel_;  // of a connection of the program
  bool postgres_ = false;
  bool rereads_ = false;
  mutable std::atomic<bool> lost_ = false;
  Long statementTimeout_ = 0;
  std::mutex statementsMutex_;
  std::shared_ptr<StatementHandle> running_;
  std::vector<std::shared_ptr<StatementHandle>> released_;
};

}  // namespace tessaria::odbc
