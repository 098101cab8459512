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
  /// Over a connection of the program, open from the start.
  explicit SqlConnection(LinkPtr adopted);

  Long State() const override;
  String ConnectionString() const override { return text_; }
  void ConnectionString(const String& text) override { text_ = text; }
  void Open() override { Kept()->Open(text_, timeout_); }
  void Close() override {
    session_->Waits().RequireIdle();
    Kept()->Close();
  }
  bool CanReconnect() const override { return session_->CanReconnect(); }
  bool IsLost() const override { return session_->IsLost(); }
  Long ConnectionTimeout() const override { return timeout_; }
  void ConnectionTimeout(Long seconds) override;
  Long CommandTimeout() const override { return session_->CommandTimeout(); }
  void CommandTimeout(Long seconds) override { Kept()->CommandTimeout(seconds); }
  Long LockTimeout() const override { return session_->LockTimeout(); }
  void LockTimeout(Long seconds) override { Kept()->LockTimeout(seconds); }

  Variant Properties(const String& name) const override;
  host::RecordsetPtr Execute(const String& statement) override;
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override;

  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions) override;

  void BeginTrans() override { Kept()->BeginTrans(); }
  void CommitTrans() override { Kept()->CommitTrans(); }
  void RollbackTrans() override { Kept()->RollbackTrans(); }

 private:
  // Something that runs while the server is waited for may let go of the connection.
  SessionPtr Kept() const { return session_; }

  String text_;
  Long timeout_ = 15;
  SessionPtr session_;
};

/// A closed connection.
TESSARIA_SQL_API host::ConnectionPtr CreateConnection(Connector connect);

/// An open connection over a link to a connection of the program; `Open` never connects it again.
/// Errors as `Session::Adopt`.
TESSARIA_SQL_API host::ConnectionPtr AdoptConnection(LinkPtr adopted);

}  // namespace tessaria::sql
