// A memory connection that records how each statement reached it.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "tessaria/memory/connection.h"
#include "tests/support/passing_connection.h"

namespace tessaria::test {

/// A statement and how it was sent.
struct SentStatement {
  String Text;
  bool Executed = false;  ///< by Execute; the other members are those of OpenRecordset
  host::CursorType Cursor = host::CursorType::ForwardOnly;
  host::LockType Lock = host::LockType::ReadOnly;
  Long Options = 0;
};

class RecordingConnection final : public test::PassingConnection {
 public:
  RecordingConnection() : RecordingConnection(memory::Connection::CreateOpen()) {}
  explicit RecordingConnection(const std::shared_ptr<memory::Connection>& inner)
      : PassingConnection(inner), inner_(inner) {
    ConnectionString(u"DSN=teste");
    inner_->OnStatement = [this](const String&) -> std::optional<memory::Rows> {
      if (answers_.empty()) return memory::Rows{{{u"vazio"}}, {}};
      auto rows = std::move(answers_.front());
      answers_.pop_front();
      return rows;
    };
  }

  /// Sets what the provider reports about its database.
  void Dbms(const String& name, const String& version = u"") {
    inner_->SetProperty(u"DBMS Name", name);
    inner_->SetProperty(u"DBMS Version", version);
  }
  /// Sets what the provider reports about backslashes in plain texts.
  void Backslashes(const Variant& escapes) { inner_->SetProperty(u"Backslash Escapes", escapes); }
  /// Queues the answer to a later statement. A statement without one gets no rows, with one text
  /// column.
  void WillAnswer(memory::Rows rows) { answers_.push_back(std::move(rows)); }
  void WillFail(HostError error) { inner_->FailNext(std::move(error)); }

  const std::vector<SentStatement>& Statements() const { return statements_; }
  std::vector<String> Texts() const {
    std::vector<String> texts;
    for (const auto& statement : statements_) texts.push_back(statement.Text);
    return texts;
  }
  /// Called with each record set before it is returned.
  std::function<void(host::Recordset&)> OnRows;
  /// The record sets that were returned, in order.
  const std::vector<host::RecordsetPtr>& Recordsets() const { return recordsets_; }

  host::RecordsetPtr Execute(const String& statement) override {
    statements_.push_back({statement, true});
    return GiveOut(inner_->Execute(statement));
  }
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    statements_.push_back({source, false, cursor, lock, options});
    return GiveOut(inner_->OpenRecordset(source, cursor, lock, options));
  }

 private:
  host::RecordsetPtr GiveOut(host::RecordsetPtr rows) {
    if (OnRows) OnRows(*rows);
    return recordsets_.emplace_back(std::move(rows));
  }

  std::shared_ptr<memory::Connection> inner_;
  std::deque<memory::Rows> answers_;
  std::vector<SentStatement> statements_;
  std::vector<host::RecordsetPtr> recordsets_;
};

}  // namespace tessaria::test
