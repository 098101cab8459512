// One connection of an ODBC driver.
#pragma once

#include <memory>

#include "hosts/odbc/handles.h"
#include "hosts/sql/driver/link.h"
#include "hosts/sql/errors/driver_error.h"

namespace tessaria::odbc {

/// Made with `std::make_shared`; statements keep it.
class OdbcLink final : public sql::Link, public std::enable_shared_from_this<OdbcLink> {
 public:
  OdbcLink(const String& connectionString, Long timeout);

  sql::ServerFacts Facts() override;
  sql::StatementPtr NewStatement() override;
  bool IsLost() const noexcept override { return lost_; }
  void Begin() override { AutoCommit(false); }
  void Commit() override { End(SQL_COMMIT); }
  void Rollback() override { End(SQL_ROLLBACK); }
  bool RunsBesideRows() const noexcept override { return postgres_; }
  StringView CursorKind() const noexcept override { return {}; }

  std::vector<sql::TableFacts> Tables(const host::SchemaRestrictions& asked) override;
  std::vector<sql::ColumnFacts> TableColumns(const host::SchemaRestrictions& asked) override;
  std::optional<std::vector<sql::KeyPart>> PrimaryKey(const sql::TablePlace& table) override;
  std::vector<sql::KeyPart> UniqueIndexes(const sql::TablePlace& table) override;

  SQLHDBC Get() const { return connection_.get(); }
  bool IsPostgres() const { return postgres_; }
  /// Whether a cell of a fetched block can be read again in parts.
  bool Rereads() const { return rereads_; }
  /// Throws the handle's diagnostics unless the call succeeded or found no data; notices a lost
  /// connection.
  void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);
  void NoteLoss(const sql::DriverError& error) noexcept;

 private:
  String InfoText(SQLUSMALLINT what);
  void AutoCommit(bool on);
  void End(SQLSMALLINT completion);

  ConnectionHandle connection_;
  bool postgres_ = false;
  bool rereads_ = false;
  bool lost_ = false;
};

}  // namespace tessaria::odbc
