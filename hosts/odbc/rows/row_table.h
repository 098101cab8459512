// The rows that a record set holds: as they were read, and as they were written since.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <unordered_map>
#include <vector>

#include "hosts/odbc/session/row_stream.h"
#include "hosts/odbc/values/cell.h"
#include "hosts/odbc/values/cell_order.h"

namespace tessaria::odbc {

/// Identifies a row for as long as the table lives.
using RowId = std::uint32_t;

/// Fills as rows are asked for. A failure of the reading is raised to whoever asks for a row
/// that did not arrive, each time; the rows before it stay readable.
class RowTable final : public PendingRows {
 public:
  RowTable(SessionPtr session, const StatementFacts& facts);
  /// Rows that are there already.
  RowTable(SessionPtr session, Columns columns, ColumnStore rows);
  ~RowTable();

  const Columns& TableColumns() const { return columns_; }

  /// Whether there is a row of that number, from 0, in the order of the statement. Reads as far.
  bool Reach(std::uint32_t number);
  /// Reads to the end.
  std::uint32_t RowCount();
  /// Rows of the statement that were read, and whether they are all: after a failure they are not.
  std::uint32_t RowsRead() const { return read_->RowCount(); }
  bool IsComplete() const { return !stream_ && !failure_; }
  void ReadRest() noexcept override;

  bool IsNull(RowId row, std::size_t column) const;
  Variant Value(RowId row, std::size_t column) const;
  /// As `CellRank` and `CompareCells` tell it.
  double Rank(RowId row, std::size_t column) const;
  int Compare(RowId a, RowId b, std::size_t column) const;
  /// UTF-8, of a column that is kept as text.
  std::string_view Text(RowId row, std::size_t column) const;
  /// The cell as a statement's parameter; nothing for Null.
  std::optional<String> Parameter(RowId row, std::size_t column) const;

  /// Appends the cell to a store of the same columns.
  void CopyCell(RowId row, std::size_t column, ColumnStore& to) const;

  /// Takes the one row of `values` in place of the row's present ones.
  void Replace(RowId row, ColumnStore values);
  /// Takes the one row of `values` as a new row.
  RowId Add(ColumnStore values);

 private:
  CellPlace PlaceOf(RowId row) const;
  bool ReadBlock();

  SessionPtr session_;
  std::unique_ptr<RowStream> stream_;  // until all rows are read
  std::exception_ptr failure_;
  Columns columns_;
  std::optional<ColumnStore> read_;
  std::uint32_t added_ = 0;
  std::vector<ColumnStore> written_;  // one row each: what became of rows since they were read
  std::unordered_map<RowId, std::size_t> replaced_;  // into `written_`
};

}  // namespace tessaria::odbc
