// Connections of an ODBC driver.
#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "hosts/odbc/line.h"
#include "hosts/sql/driver/link.h"

namespace tessaria::odbc {

class OdbcLink final : public sql::Link {
 public:
  /// Connects. `timeout` is in seconds, 0 for the driver's own.
  OdbcLink(const String& connectionString, Long timeout, sql::SettingsScope scope);
  /// Over a connection of the program, as `Line`.
  OdbcLink(SQLHDBC lent, std::function<bool()> isThere);

  sql::Standing ProgramStanding() override;
  sql::ServerFacts Facts() override;
  sql::StatementPtr NewStatement() override;
  bool IsLost() const noexcept override { return line_->IsLost(); }
  void StatementTimeout(Long seconds) override { line_->StatementTimeout(seconds); }
  bool Cancel() noexcept override;
  void GiveUp() noexcept override { line_->Lose(); }
  void Begin() override { AutoCommit(false); }
  void Commit() override { End(SQL_COMMIT); }
  void Rollback() override { End(SQL_ROLLBACK); }
  void NoteProcess() override;
  bool RunsBesideRows() const noexcept override { return line_->IsPostgres(); }
  /// PostgreSQL's driver takes in whole results.
  bool RowsArriveWithRun() const noexcept override { return line_->IsPostgres(); }
  StringView CursorKind() const noexcept override { return {}; }

  /// What its driver remembers cannot be reached.
  void ForgetTables() override {}
  std::vector<sql::TableFacts> Tables(const host::SchemaRestrictions& asked) override;
  std::vector<sql::ColumnFacts> TableColumns(const host::SchemaRestrictions& asked) override;
  std::optional<std::vector<sql::KeyPart>> PrimaryKey(const sql::TablePlace& table) override;
  std::vector<sql::KeyPart> UniqueIndexes(const sql::TablePlace& table) override;

 private:
  bool RequestCancel();
  void AutoCommit(bool on);
  void End(SQLSMALLINT completion);

  std::shared_ptr<Line> line_;
  String connectionString_;
  std::mutex processMutex_;
  String serverProcess_;  // of PostgreSQL: a condition, by which another connection cancels
};

}  // namespace tessaria::odbc
