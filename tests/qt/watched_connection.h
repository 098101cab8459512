// A connection that passes every statement to another one, and lets a test act meanwhile.
#pragma once

#include <QThread>
#include <functional>
#include <utility>
#include <vector>

#include "tessaria/host/data.h"

namespace tessaria::qt::tests {

class WatchedConnection final : public host::Connection {
 public:
  explicit WatchedConnection(host::ConnectionPtr real) : real_(std::move(real)) {}

  /// Runs while each statement is executed, on the form's thread, without an event loop.
  std::function<void(const String& statement)> during;
  /// The minimum duration of each statement, in milliseconds.
  unsigned long delay = 0;
  /// The statements since the last call.
  std::vector<String> takeStatements() { return std::exchange(statements_, {}); }

  Long State() const override { return real_->State(); }
  String ConnectionString() const override { return real_->ConnectionString(); }
  void ConnectionString(const String& text) override { real_->ConnectionString(text); }
  void Open() override { real_->Open(); }
  void Close() override { real_->Close(); }
  Long ConnectionTimeout() const override { return real_->ConnectionTimeout(); }
  void ConnectionTimeout(Long seconds) override { real_->ConnectionTimeout(seconds); }
  Variant Properties(const String& name) const override { return real_->Properties(name); }
  host::RecordsetPtr Execute(const String& statement) override {
    watch(statement);
    return real_->Execute(statement);
  }
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    watch(source);
    return real_->OpenRecordset(source, cursor, lock, options);
  }
  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions) override {
    return real_->OpenSchema(kind, restrictions);
  }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void RollbackTrans() override { real_->RollbackTrans(); }

 private:
  void watch(const String& statement) {
    statements_.push_back(statement);
    if (const auto copy = during) copy(statement);
    if (delay > 0) QThread::msleep(delay);
  }

  host::ConnectionPtr real_;
  std::vector<String> statements_;
};

}  // namespace tessaria::qt::tests
