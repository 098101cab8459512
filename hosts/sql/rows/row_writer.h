// Writes rows of a record set back to their table.
#pragma once

#include <map>

#include "hosts/sql/rows/key_table.h"
#include "hosts/sql/rows/row_table.h"

namespace tessaria::sql {

/// New values by column number.
using Changes = std::map<std::size_t, Variant>;

/// Statements take every value as a parameter. A row is found by its key, and only while the values
/// that were read are unchanged: otherwise error -2147217864 is raised and nothing is written. The
/// driver's own errors are raised unchanged. An error means that nothing was written, except for
/// -2147217663: the connection was lost before the answer, so the outcome is unknown. Inside a
/// transaction a lost write is undone and the error is the driver's own.
class RowWriter {
 public:
  RowWriter(SessionPtr session, const Columns& columns, KeyTable table, String source);

  bool IsWritable(std::size_t column) const { return !columns_[column].baseColumn.empty(); }

  /// Both return the row as it is now in the database.
  ColumnStore Update(const RowTable& table, RowId row, const Changes& changes) const;
  ColumnStore Insert(const Changes& changes) const;
  void Delete(const RowTable& table, RowId row) const;

  /// The row with the key of that row as it is in the database, or nothing when there is none.
  /// Raises the errors of reading.
  std::optional<ColumnStore> Read(const RowTable& table, RowId row) const;

  // The outcome of a write in doubt. All of these functions raise the errors of reading.
  /// The row as it is in the database, when it holds the changes that were sent; nothing when it is
  /// as it was read, or no longer exists. Error -2147217663 when it holds something else.
  std::optional<ColumnStore> FindUpdated(const RowTable& table, RowId row,
                                         const Changes& sent) const;
  /// The new row, or nothing when it does not exist. Error -2147217663 when that cannot be
  /// determined: the database generates the key, or a row of that key holds something else.
  std::optional<ColumnStore> FindInserted(const Changes& sent) const;
  /// Whether there is a row with the key of that row.
  bool IsThere(const RowTable& table, RowId row) const;
  /// The changes that a row, the first of a store, does not hold, not even in the form in which its
  /// columns store them.
  Changes MissingIn(const ColumnStore& row, const Changes& changes) const;

 private:
  struct Command;
  using Keys = std::vector<std::optional<String>>;

  String NameOf(std::size_t column) const;
  void AddCondition(Command& command, std::size_t column, const String& name,
                    const std::optional<String>& value) const;
  void AddValue(Command& command, std::size_t column, const Variant& value) const;
  void AddKeyCondition(Command& command, const RowTable& table, RowId row) const;
  Command InsertCommand(const Changes& changes) const;
  std::ptrdiff_t MissingKeys(const Changes& changes) const;
  Keys ReturnedKeys(Statement& statement) const;
  std::optional<String> GivenNumber(Statement& statement, Dialect dialect) const;
  Keys KnownKeys(const Changes& changes) const;
  Keys InsertedKeys(Statement& statement, const Changes& changes, Dialect dialect) const;
  Keys KeysAfter(const RowTable& table, RowId row, const Changes& changes) const;
  std::int64_t Send(Statement& statement, const Command& command, StringView doubt) const;
  bool ExecuteOnRow(const Command& command, StringView doubt) const;
  bool IsKeyChanged(const Changes& changes) const;
  bool IsAsRead(const ColumnStore& now, const RowTable& table, RowId row,
                const Changes& sent) const;
  std::optional<ColumnStore> Look(const Keys& keys) const;
  std::optional<ColumnStore> ReadBack(const Keys& keys) const noexcept;
  Command ReadBackCommand(const Keys& keys) const;

  SessionPtr session_;
  Columns columns_;
  KeyTable table_;
  String source_;  // the statement of the record set
  bool hasExpressions_ = false;
};

}  // namespace tessaria::sql
