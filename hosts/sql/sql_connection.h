// The connection object over a driver; each driver has a function that makes it.
#pragma once

#include "hosts/sql/session/session.h"
#include "hosts/sql/statements/statement_guard.h"

namespace tessaria::sql {

/// Over the links that a driver makes.
class SqlConnection final : public host::Connection {
 public:
  explicit SqlConnection(Connector connect)
      : session_(std::make_shared<Session>(std::move(connect))) {}

  Long State() const override;
  String ConnectionString() const override { return text_; }
  void ConnectionString(const String& text) override { text_ = text; }
  void Open() override { session_->Open(text_, timeout_); }
  void Close() override {
    session_->Waits().RequireIdle();
    session_->Close();
  }
  Long ConnectionTimeout() const override { return timeout_; }
  void ConnectionTimeout(Long seconds) override;
  Long CommandTimeout() const override { return session_->CommandTimeout(); }
  void CommandTimeout(Long seconds) override { session_->CommandTimeout(seconds); }
  Long LockTimeout() const override { return session_->LockTimeout(); }
  void LockTimeout(Long seconds) override { session_->LockTimeout(seconds); }

  Variant Properties(const String& name) const override;
  host::RecordsetPtr Execute(const String& statement) override;
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override;

  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions) override;

  void BeginTrans() override { session_->BeginTrans(); }
  void CommitTrans() override { session_->CommitTrans(); }
  void RollbackTrans() override { session_->RollbackTrans(); }

 private:
  StatementFacts Read(const String& statement) const;
  bool RunControl(const StatementFacts& facts);

  String text_;
  Long timeout_ = 15;
  SessionPtr session_;
};

/// A closed connection.
TESSARIA_SQL_API host::ConnectionPtr CreateConnection(Connector connect);

}  // namespace tessaria::sql
