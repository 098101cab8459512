// One connection to a PostgreSQL server.
#pragma once

#include <memory>

#include "hosts/postgres/wire.h"
#include "hosts/sql/driver/link.h"

namespace tessaria::postgres {

class PgLink final : public sql::Link {
 public:
  PgLink(const String& connectionString, Long timeout, sql::SettingsScope scope);
  /// Over a connection of the program, as `Wire`.
  PgLink(PGconn* lent, std::function<bool()> isThere);

  sql::Standing ProgramStanding() override;
  sql::ServerFacts Facts() override;
  sql::StatementPtr NewStatement() override;
  bool IsLost() const noexcept override { return wire_->IsLost(); }
  /// The server bounds the time of its statements itself.
  void StatementTimeout(Long) override {}
  bool Cancel() noexcept override { return wire_->Cancel(); }
  void GiveUp() noexcept override { wire_->GiveUp(); }
  void Begin() override { wire_->Ask("BEGIN"); }
  void Commit() override;
  void Rollback() override { End("ROLLBACK"); }
  bool RunsBesideRows() const noexcept override { return true; }
  bool RowsArriveWithRun() const noexcept override { return false; }
  StringView CursorKind() const noexcept override { return u"BINARY "; }

  void ForgetTables() override { wire_->Tables().clear(); }
  std::vector<sql::TableFacts> Tables(const host::SchemaRestrictions& asked) override;
  std::vector<sql::ColumnFacts> TableColumns(const host::SchemaRestrictions& asked) override;
  std::optional<std::vector<sql::KeyPart>> PrimaryKey(const sql::TablePlace& table) override;
  std::vector<sql::KeyPart> UniqueIndexes(const sql::TablePlace& table) override;

 private:
  Result End(const char* command);

  std::shared_ptr<Wire> wire_;
};

}  // namespace tessaria::postgres
