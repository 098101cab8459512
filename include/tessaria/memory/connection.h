// A database connection whose answers a test supplies.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/recordset.h"
#include "tessaria/memory/table.h"

namespace tessaria::memory {

/// A statement is answered, in this order, by the faults, by the fixed answers, by `OnStatement`,
/// and by the tables (a bare name, or "Select * From name"). Anything else is a provider error.
class TESSARIA_MEMORY_API Connection final : public host::Connection,
                                             public std::enable_shared_from_this<Connection> {
 public:
  /// Closed, with no tables, "DBMS Name" "PostgreSQL", "DBMS Version" "PostgreSQL 15.0.0" and
  /// "Backslash Escapes" false.
  static std::shared_ptr<Connection> Create();
  /// The same, open.
  static std::shared_ptr<Connection> CreateOpen();
  ~Connection() override;

  Long State() const override { return open_ ? host::state::Open : host::state::Closed; }
  String ConnectionString() const override { return connectionString_; }
  void ConnectionString(const String& text) override { connectionString_ = text; }
  void Open() override;
  void Close() override;
  Long ConnectionTimeout() const override { return timeout_; }
  void ConnectionTimeout(Long seconds) override;
  Long CommandTimeout() const override { return commandTimeout_; }
  void CommandTimeout(Long seconds) override;
  Long LockTimeout() const override { return lockTimeout_; }
  void LockTimeout(Long seconds) override;
  Variant Properties(const String& name) const override;
  host::RecordsetPtr Execute(const String& statement) override;
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options = -1) override;
  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions = {}) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  // --- The database --------------------------------------------------------------------------
  /// Sets a provider property, such as "DBMS Version".
  void SetProperty(const String& name, const Variant& value);
  /// Adds a table, with its rows. The test keeps the table to look at it and to change it.
  TablePtr AddTable(const String& name, std::vector<Column> columns, std::vector<Row> rows = {});
  /// What the schema reports for a table: its type, "TABLE" by default, and its key's columns in
  /// their order. Error 3265 when there is no table of that name.
  void SetTableType(const String& name, const String& type);
  /// The key's columns in their order. Error 3265 when there is no table of that name.
  void SetPrimaryKey(const String& name, std::vector<String> columns);
  /// Error 3265 when there is no table of that name.
  TablePtr TableNamed(const String& name) const;
  /// Sets the answer to one exact statement.
  void Answer(const String& statement, Rows rows);
  /// Answers any statement, or returns no value to leave it to the tables; may raise an error.
  std::function<std::optional<Rows>(const String& statement)> OnStatement;

  // --- Faults --------------------------------------------------------------------------------
  /// The next statement, or the next Open, fails with this error; queued.
  void FailNext(HostError error) { faults_.push_back(std::move(error)); }
  /// Breaks the connection: the next call finds it closed.
  void Drop() { dropped_ = true; }
  /// Breaks the connection at the next write, by a record set or by a statement that is not a
  /// query, before (`stored` false) or after it is done; the writer gets error -2147217663. Inside
  /// a transaction everything is rolled back and the error is the provider's.
  void LoseNextAnswer(bool stored) { lostAnswer_ = stored; }

  // --- What happened -------------------------------------------------------------------------
  /// All statements and sources sent, in order.
  const std::vector<String>& Statements() const { return statements_; }
  /// The statements since the last call.
  std::vector<String> TakeStatements();

 private:
  friend class StatementRows;
  friend class SchemaRows;

  struct NamedTable {
    String Name;
    TablePtr Rows;
    String Type = u"TABLE";
    std::vector<String> Key;
  };

  Connection();
  void RequireOpen();
  void RaiseFault();
  void Write(const std::function<void()>& change);
  RowSource::Answer Run(const String& statement, bool writable);
  RowSource::Answer AnswerTo(const String& statement, bool writable);
  RowSource::Answer TableRows(const String& statement, bool writable) const;
  host::RecordsetPtr OpenRows(std::unique_ptr<RowSource> source, const String& text);
  RowSource::Answer Schema(host::SchemaKind kind, const host::SchemaRestrictions& restrictions);
  NamedTable& Named(const String& name);
  void CloseRecordsets();

  bool open_ = false;
  bool dropped_ = false;
  std::optional<bool> lostAnswer_;  ///< whether the write whose answer gets lost is stored
  Long timeout_ = 15;
  Long commandTimeout_ = 30;
  Long lockTimeout_ = 10;
  String connectionString_;
  std::map<String, Variant> properties_;  ///< by name in lower case
  std::map<String, NamedTable> tables_;   ///< by name in lower case
  std::map<String, Rows> answers_;
  std::deque<HostError> faults_;
  std::vector<String> statements_;
  std::vector<std::weak_ptr<Recordset>> recordsets_;
  std::optional<std::map<String, Table>> savedTables_;  ///< inside a transaction
  Long transactions_ = 0;
};

}  // namespace tessaria::memory
