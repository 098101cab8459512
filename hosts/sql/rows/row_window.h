// The rows of a query that stay at the server, and those of them that are held here for a while.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/sql/session/snapshot.h"
#include "hosts/sql/values/cell_order.h"

namespace tessaria::sql {

/// Over a scrollable cursor in a snapshot: the rows and their order never change. Numbers of rows
/// are from 0. A failed request raises the driver's error and harms nothing that is held; while the
/// link stands, the next request asks the server again.
class RowWindow {
 public:
  /// `query` gives these columns, in the form in which the driver reads them.
  RowWindow(std::shared_ptr<Snapshot> snapshot, String query, Columns columns);
  RowWindow(const RowWindow&) = delete;
  RowWindow& operator=(const RowWindow&) = delete;
  ~RowWindow();

  const std::shared_ptr<Snapshot>& Moment() const { return snapshot_; }

  /// Whether the first rows are exactly these.
  bool StartsWith(const ColumnStore& rows);
  /// Whether there is a row of that number.
  bool Reach(std::uint32_t number);
  std::uint32_t Count();
  /// Makes the number known of another window with the same rows.
  void TakeCount(const RowWindow& other);
  /// The number of rows that are known to be there, and whether they are all.
  std::uint32_t Known() const { return known_; }
  bool IsEndKnown() const { return isEndKnown_; }

  /// Whether the row is held.
  bool Holds(std::uint32_t number) const;
  /// Where the row is; reads it when it is not held. Valid until other rows are asked for.
  CellPlace PlaceOf(std::uint32_t number);
  /// Appends all rows from this one on. None is held for it.
  void ReadOn(std::uint32_t from, ColumnStore& to);

 private:
  // Rows that are read together.
  struct Page {
    std::uint32_t number;
    ColumnStore rows;
  };

  void Declare();
  void RequireSameRows();
  template <class Request>
  auto Ask(Request request);
  Page* Find(std::uint32_t page);
  std::uint32_t PagesToRead(std::uint32_t page) const;
  Page& Load(std::uint32_t page);
  void Move(std::uint32_t first, std::uint32_t fetches);
  void Take(ColumnStore& to);
  void NoteRows(std::uint32_t end, bool isLast);

  std::shared_ptr<Snapshot> snapshot_;
  String query_;
  Columns columns_;
  String cursor_;
  StatementPtr statement_;
  std::list<Page> pages_;            // those that were asked for last come first
  std::optional<std::uint32_t> at_;  // rows before the cursor's place; nothing when unknown
  std::uint32_t known_ = 0;
  bool isEndKnown_ = false;
  std::optional<std::uint32_t> lastLoaded_;
  bool isBroken_ = false;   // it was found that the rows do not come as before
  int declaredAfter_ = -1;  // the recoveries of the snapshot before the cursor was declared
};

}  // namespace tessaria::sql
