// A connection that passes everything to another one; tests override what they watch.
#pragma once

#include <utility>

#include "tessaria/host/data.h"

namespace tessaria::test {

class PassingConnection : public host::Connection {
 public:
  explicit PassingConnection(host::ConnectionPtr real) : real_(std::move(real)) {}

  Long State() const override { return real_->State(); }
  String ConnectionString() const override { return real_->ConnectionString(); }
  void ConnectionString(const String& text) override { real_->ConnectionString(text); }
  void Open() override { real_->Open(); }
  void Close() override { real_->Close(); }
  bool CanReconnect() const override { return real_->CanReconnect(); }
  bool IsLost() const override { return real_->IsLost(); }
  Long ConnectionTimeout() const override { return real_->ConnectionTimeout(); }
  void ConnectionTimeout(Long seconds) override { real_->ConnectionTimeout(seconds); }
  Long CommandTimeout() const override { return real_->CommandTimeout(); }
  void CommandTimeout(Long seconds) override { real_->CommandTimeout(seconds); }
  Long LockTimeout() const override { return real_->LockTimeout(); }
  void LockTimeout(Long seconds) override { real_->LockTimeout(seconds); }
  Variant Properties(const String& name) const override { return real_->Properties(name); }
  host::RecordsetPtr Execute(const String& statement) override { return real_->Execute(statement); }
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    return real_->OpenRecordset(source, cursor, lock, options);
  }
  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions) override {
    return real_->OpenSchema(kind, restrictions);
  }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void RollbackTrans() override { real_->RollbackTrans(); }

 protected:
  const host::ConnectionPtr real_;
};

}  // namespace tessaria::test
