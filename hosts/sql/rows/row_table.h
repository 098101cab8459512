// The rows that a record set holds, as they were read and as they were written since then.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "hosts/sql/rows/row_window.h"
#include "hosts/sql/rows/sort_key.h"
#include "hosts/sql/session/row_stream.h"
#include "hosts/sql/values/cell.h"
#include "hosts/sql/values/cell_order.h"

namespace tessaria::sql {

/// Identifies a row for as long as the table lives.
using RowId = std::uint32_t;

/// Reads rows as they are asked for. When reading fails, each request for a row that did not arrive
/// raises the error; the rows before it stay readable.
///
/// Small results are held whole. Of a large one only the first rows are, where the server can show
/// the others again as they were (`RowWindow`); where it cannot, its rows are held as they are
/// read.
class RowTable final : public PendingRows,
                       public DistantRows,
                       public std::enable_shared_from_this<RowTable> {
 public:
  RowTable(SessionPtr session, const StatementFacts& facts);
  /// Rows that are already read.
  RowTable(SessionPtr session, Columns columns, ColumnStore rows);
  /// The rows of a window. `ownQuery` gives them in the order of the statement, where the window
  /// has another.
  RowTable(SessionPtr session, Columns columns, std::unique_ptr<RowWindow> window, String ownQuery);
  ~RowTable();

  const Columns& TableColumns() const { return columns_; }

  /// Whether there is a row of that number, from 0. Reads up to that row.
  bool Reach(std::uint32_t number);
  /// The number of all rows. Reads or asks to the end.
  std::uint32_t RowCount();
  /// The number of rows of the statement that are known to be there, and whether they are all;
  /// after a failure they are not.
  std::uint32_t RowsKnown() const;
  /// Whether the row can be read without waiting.
  bool Holds(RowId row) const;
  /// Makes it so, and raises the errors of reading.
  void Hold(RowId row) const;
  /// Whether more rows can be read now: not while the connection runs another statement.
  bool CanRead() const { return session_->Waits().IsIdle(); }
  bool IsComplete() const;
  /// Whether more rows may become known.
  bool MayGrow() const;
  /// Raises the error of a reading that failed.
  void RequireSound() const {
    if (failure_) std::rethrow_exception(failure_);
  }
  /// Makes the connection free for another statement: what is not at the server afterwards is held.
  void ReadRest() noexcept override;
  void HoldAll() noexcept override;
  void HoldOrGiveUp() noexcept override;
  String Reader() const override;
  /// The same, raising the errors of reading; the rows stay at the server then.
  void HoldRows();
  /// Keeps this row, and no other that was kept so, whatever becomes of the server.
  void Pin(RowId row);
  /// Whether rows are at the server. Decides it for a result that has not been read to its end.
  bool IsDistant();
  /// Rows at the server in another order: of the same moment, or of the present one. Nothing when
  /// the server cannot sort them as `SortRows` does.
  std::shared_ptr<RowTable> Sorted(const StatementFacts& statement,
                                   const std::vector<SortKey>& keys, bool anew);
  /// The moment of rows at the server.
  Snapshot& Moment() const { return *window_->Moment(); }
  /// Whether the rows that are not at the server are numbered in the order of the statement. They
  /// are not when they were sorted there and are held since.
  bool IsInStatementOrder() const { return ownOrder_.empty(); }
  /// All rows as they were read, in the order of the statement. Reads to the end.
  std::vector<RowId> InStatementOrder();
  /// Whether rows were written or added.
  bool IsWritten() const { return !written_.empty(); }

  bool IsNull(RowId row, std::size_t column) const;
  Variant Value(RowId row, std::size_t column) const;
  /// See `CellRank` and `CompareCells`.
  double Rank(RowId row, std::size_t column) const;
  int Compare(RowId a, RowId b, std::size_t column) const;
  /// UTF-8, of a column that is kept as text.
  std::string_view Text(RowId row, std::size_t column) const;
  /// The cell as a statement's parameter; nothing for Null.
  std::optional<String> Parameter(RowId row, std::size_t column) const;

  /// Appends the cell to a store of the same columns.
  void CopyCell(RowId row, std::size_t column, ColumnStore& to) const;

  /// Replaces the values of the row with the only row of `values`.
  void Replace(RowId row, ColumnStore values);
  /// Adds the only row of `values` as a new row.
  RowId Add(ColumnStore values);

 private:
  CellPlace PlaceOf(RowId row) const;
  bool ReadBlock();
  void ReadUpTo(std::uint32_t number);
  bool MayMoveToWindow(std::uint32_t number);
  bool MoveToWindow(std::uint32_t number);
  std::unique_ptr<RowWindow> WindowOfTheStream(const SessionPtr& beside) const;
  void EndStream() noexcept;
  void EndWindow() noexcept;

  SessionPtr session_;
  std::unique_ptr<RowStream> stream_;  // until all rows are read
  std::exception_ptr failure_;
  Columns columns_;
  std::optional<ColumnStore> read_;    // the first rows
  std::uint32_t knownBefore_ = 0;      // when rows that were not read were given up
  std::unique_ptr<RowWindow> window_;  // the others of a large result
  String ownQuery_;                    // of a sorted window: the rows in the statement's order
  std::vector<RowId> ownOrder_;        // the same of rows that are held since
  bool isWindowRefused_ = false;
  std::optional<std::pair<RowId, ColumnStore>> pinned_;  // of the window
  std::uint32_t added_ = 0;
  std::vector<ColumnStore> written_;                 // one row each: as written since the read
  std::unordered_map<RowId, std::size_t> replaced_;  // index into `written_`
};

}  // namespace tessaria::sql
