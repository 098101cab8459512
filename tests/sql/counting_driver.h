// A driver that counts what it is asked for, for tests of costs that must not grow.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/odbc/odbc_link.h"
#include "hosts/postgres/pg_link.h"
#include "hosts/sql/driver/link.h"
#include "tests/support/database_driver.h"

namespace tessaria::sql::test {

/// What was asked of the server, over all sessions of a connection.
struct Work {
  std::int64_t sessions = 0;
  std::int64_t statements = 0;  ///< texts that were sent, transactions and questions of a catalogue
  std::int64_t rows = 0;        ///< that arrived

  bool operator==(const Work&) const = default;
  Work operator-(const Work& other) const {
    return {sessions - other.sessions, statements - other.statements, rows - other.rows};
  }
};

inline void PrintTo(const Work& work, std::ostream* out) {
  *out << work.sessions << " sessions, " << work.statements << " statements, " << work.rows
       << " rows";
}

class CountingStatement : public Statement {
 public:
  CountingStatement(StatementPtr real, std::shared_ptr<Work> work)
      : real_(std::move(real)), work_(std::move(work)) {}

  void Run(const String& text) override {
    ++work_->statements;
    real_->Run(text);
  }
  std::int64_t RunWith(const String& text, const std::vector<Parameter>& values) override {
    ++work_->statements;
    return real_->RunWith(text, values);
  }
  Columns Describe() override { return real_->Describe(); }
  void Bind(const Columns& columns) override { real_->Bind(columns); }
  std::uint32_t Fetch() override {
    const std::uint32_t rows = real_->Fetch();
    work_->rows += rows;
    return rows;
  }
  void Take(ColumnStore& store) override { real_->Take(store); }
  bool NextResult() override { return real_->NextResult(); }
  void KeepRest() override { real_->KeepRest(); }

 private:
  const StatementPtr real_;
  const std::shared_ptr<Work> work_;
};

class CountingLink : public Link {
 public:
  CountingLink(LinkPtr real, std::shared_ptr<Work> work)
      : real_(std::move(real)), work_(std::move(work)) {
    ++work_->sessions;
  }

  Standing ProgramStanding() override { return real_->ProgramStanding(); }
  ServerFacts Facts() override { return real_->Facts(); }
  StatementPtr NewStatement() override {
    return std::make_shared<CountingStatement>(real_->NewStatement(), work_);
  }
  bool IsLost() const noexcept override { return real_->IsLost(); }
  void StatementTimeout(Long seconds) override { real_->StatementTimeout(seconds); }
  bool Cancel() noexcept override { return real_->Cancel(); }
  void GiveUp() noexcept override { real_->GiveUp(); }
  void Begin() override { Counted().Begin(); }
  void Commit() override { Counted().Commit(); }
  void Rollback() override { Counted().Rollback(); }
  bool RunsBesideRows() const noexcept override { return real_->RunsBesideRows(); }
  bool RowsArriveWithRun() const noexcept override { return real_->RowsArriveWithRun(); }
  StringView CursorKind() const noexcept override { return real_->CursorKind(); }
  void ForgetTables() override { real_->ForgetTables(); }
  std::vector<TableFacts> Tables(const host::SchemaRestrictions& asked) override {
    return Counted().Tables(asked);
  }
  std::vector<ColumnFacts> TableColumns(const host::SchemaRestrictions& asked) override {
    return Counted().TableColumns(asked);
  }
  std::optional<std::vector<KeyPart>> PrimaryKey(const TablePlace& table) override {
    return Counted().PrimaryKey(table);
  }
  std::vector<KeyPart> UniqueIndexes(const TablePlace& table) override {
    return Counted().UniqueIndexes(table);
  }

 private:
  Link& Counted() {
    ++work_->statements;
    return *real_;
  }

  const LinkPtr real_;
  const std::shared_ptr<Work> work_;
};

/// Makes links of the driver of the tests, which count into `work`.
inline Connector CountingConnector(const std::shared_ptr<Work>& work) {
  const bool isOdbc = std::string_view(tessaria::test::DriverName()) == "odbc";
  return [isOdbc, work](const String& text, Long timeout, SettingsScope scope) -> LinkPtr {
    LinkPtr real;
    if (isOdbc) {
      real = std::make_shared<odbc::OdbcLink>(text, timeout, scope);
    } else {
      real = std::make_shared<postgres::PgLink>(text, timeout, scope);
    }
    return std::make_shared<CountingLink>(std::move(real), work);
  };
}

}  // namespace tessaria::sql::test
