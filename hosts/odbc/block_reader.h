// Moves the rows of an executed statement into a column store, a block at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "hosts/odbc/handles.h"
#include "hosts/sql/values/arrived_text.h"
#include "hosts/sql/values/column.h"
#include "hosts/sql/values/column_store.h"

namespace tessaria::odbc {

using sql::Column;
using sql::Columns;
using sql::ColumnStore;
using sql::Storage;

/// Bound to one statement, which may be executed again while the reader lives: the buffers
/// stay bound.
class BlockReader {
 public:
  /// `rereads` says that the driver can read a cell of a fetched block again in parts (SQL_GD_BLOCK
  /// and SQL_GD_BOUND). If it cannot, and a text has no known maximum length, rows come one at a
  /// time.
  BlockReader(SQLHSTMT statement, const Columns& columns, bool rereads);
  BlockReader(const BlockReader&) = delete;
  BlockReader& operator=(const BlockReader&) = delete;

  /// Waits for the next rows and returns their number, 0 at the end of the result.
  std::uint32_t Fetch();
  /// Appends them.
  void Take(ColumnStore& store);

 private:
  struct Buffer {
    sql::ArrivingForm form;
    SQLSMALLINT type = 0;
    std::size_t width = 0;  // bytes of a cell
    std::vector<char> cells;
    std::vector<SQLLEN> lengths;
  };

  static Buffer BufferFor(const Column& column, bool rereads);
  void ChooseBlock();
  void Bind();
  void RequireSoundRows(SQLRETURN result) const;
  void AppendColumn(ColumnStore& store, std::size_t column);
  void LoadCell(std::size_t column, SQLULEN row);
  void LoadText(std::size_t column, SQLULEN row);
  bool IsCut(const Buffer& buffer, SQLULEN row) const;
  StringView TextOf(const Buffer& buffer, SQLULEN row) const;
  void AppendText(ColumnStore& store, std::size_t column, StringView text) const;

  SQLHSTMT statement_;
  std::vector<Buffer> buffers_;
  std::vector<SQLUSMALLINT> rowStates_;
  SQLULEN blockRows_ = 1;
  SQLULEN fetched_ = 0;
  bool bound_ = true;
  String whole_;           // the text of a cell that its buffer could not hold
  bool hasWhole_ = false;  // whether the current cell has one
};

}  // namespace tessaria::odbc
