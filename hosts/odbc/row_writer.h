// Writes rows of a record set back to their table.
#pragma once

#include <map>

#include "hosts/odbc/key_table.h"
#include "hosts/odbc/row_table.h"

namespace tessaria::odbc {

/// New values by column number.
using Changes = std::map<std::size_t, Variant>;

/// Statements take every value as a parameter. A row is found by its key, and only as long as
/// the values that were read are still there: otherwise error -2147217864, and nothing is
/// written. The driver's own errors come as they are.
class RowWriter {
 public:
  RowWriter(SessionPtr session, const Columns& columns, KeyTable table, String source);

  bool IsWritable(std::size_t column) const { return !columns_[column].baseColumn.empty(); }

  /// Both return the one row as the database has it now.
  ColumnStore Update(const RowTable& table, RowId row, const Changes& changes) const;
  ColumnStore Insert(const Changes& changes) const;
  void Delete(const RowTable& table, RowId row) const;

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
  Keys ReturnedKeys(const Statement& statement) const;
  std::optional<String> GivenNumber(const Statement& statement) const;
  Keys InsertedKeys(const Statement& statement, const Changes& changes) const;
  Keys KeysAfter(const RowTable& table, RowId row, const Changes& changes) const;
  bool ExecuteOnRow(const Command& command) const;
  bool Holds(const ColumnStore& row, const Changes& changes) const;
  std::optional<ColumnStore> ReadBack(const Keys& keys) const;
  Command ReadBackCommand(const Keys& keys) const;

  SessionPtr session_;
  const Columns& columns_;
  KeyTable table_;
  String source_;  // the statement of the record set
  bool hasExpressions_ = false;
};

}  // namespace tessaria::odbc
