// A connection that passes every statement to another one, and lets a test act meanwhile.
#pragma once

#include <QThread>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/passing_connection.h"

namespace tessaria::qt::tests {

class WatchedConnection final : public test::PassingConnection {
 public:
  using PassingConnection::PassingConnection;

  /// Runs while each statement is executed, on the form's thread, without an event loop.
  std::function<void(const String& statement)> during;
  /// The minimum duration of each statement, in milliseconds.
  unsigned long delay = 0;
  /// The statements since the last call.
  std::vector<String> takeStatements() { return std::exchange(statements_, {}); }

  host::RecordsetPtr Execute(const String& statement) override {
    watch(statement);
    return real_->Execute(statement);
  }
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    watch(source);
    return real_->OpenRecordset(source, cursor, lock, options);
  }

 private:
  void watch(const String& statement) {
    statements_.push_back(statement);
    if (const auto copy = during) copy(statement);
    if (delay > 0) QThread::msleep(delay);
  }

  std::vector<String> statements_;
};

}  // namespace tessaria::qt::tests
