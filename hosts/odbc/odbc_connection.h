// The connection object; programs make it with `CreateConnection`.
#pragma once

#include "hosts/odbc/session/session.h"
#include "hosts/odbc/statements/statement_guard.h"
#include "tessaria/odbc/connection.h"

namespace tessaria::odbc {

class OdbcConnection final : public host::Connection {
 public:
  Long State() const override;
  String ConnectionString() const override { return text_; }
  void ConnectionString(const String& text) override { text_ = text; }
  void Open() override { session_->Open(text_, timeout_); }
  void Close() override { session_->Close(); }
  Long ConnectionTimeout() const override { return timeout_; }
  void ConnectionTimeout(Long seconds) override;

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
  SessionPtr session_ = std::make_shared<Session>();
};

}  // namespace tessaria::odbc
