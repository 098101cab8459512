// The rows of a record set in the order in which they are shown.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "hosts/sql/rows/row_table.h"

namespace tessaria::sql {

/// The rows of the statement in its order, without the deleted ones, and the added ones after them;
/// or all of these sorted. Positions are from 0. What a deletion, an addition or a step costs does
/// not depend on the number of rows, and an added row does not make the others be counted: its
/// position stays beyond all others until `Number` is asked.
class ShownRows {
 public:
  /// The table must live as long.
  explicit ShownRows(RowTable& table) : table_(table) {}

  /// Whether there is a row. Reads up to it; raises the errors of reading.
  bool Has(std::int64_t position) const;
  /// The row at a position where there is one.
  RowId At(std::int64_t position) const;
  /// The number of rows. Reads or asks to the end, as `Number` may.
  std::int64_t Count() const;
  /// The position in the sequence of all rows, for a position that `Add` returned.
  std::int64_t Number(std::int64_t position) const;
  /// The number that the next added row will have.
  std::int64_t NumberOfNext() const;
  /// Whether `Number` answers without waiting.
  bool IsNumbered(std::int64_t position) const;
  /// The number of rows that are known to be there, without waiting.
  std::int64_t Known() const;

  /// Returns the position of the new row, the last.
  std::int64_t Add(RowId row);
  void Hide(RowId row);
  bool IsChanged() const { return !hidden_.empty() || !added_.empty(); }

  /// All rows, in the statement's order with the added ones at the end. Reads to the end.
  std::vector<RowId> InStatementOrder() const;
  /// Shows the rows in this order, which are all of them.
  void Order(std::vector<RowId> rows);
  /// Back to the statement's order.
  void ForgetOrder() { order_.reset(); }

 private:
  RowId StatementRow(std::int64_t position) const;
  std::int64_t HiddenBelow(RowId end) const;
  std::int64_t KnownOfStatement() const;
  std::int64_t AddedIndex(std::int64_t position) const;

  RowTable& table_;
  std::vector<RowId> hidden_;  // of the statement, ascending
  std::vector<RowId> added_;
  std::optional<std::vector<RowId>> order_;
};

}  // namespace tessaria::sql
