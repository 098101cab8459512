// Cells of a result, column by column, in as little memory as their types allow.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/sql/values/column.h"
#include "tessaria/variant.h"

namespace tessaria::sql {

/// The text of a store is UTF-8: half the size of UTF-16 for typical texts of business data.
class TESSARIA_SQL_API ColumnStore {
 public:
  explicit ColumnStore(const Columns& columns);

  std::uint32_t RowCount() const { return rowCount_; }

  /// Appends one cell to a column. The type of `value` is that of the column's storage: 2 bytes
  /// for Int16, 4 for Int32, Single (float) and Day, 1 for Boolean, 8 for the others.
  template <class T>
  void AppendFixed(std::size_t column, T value) {
    AppendBytes(column, &value, sizeof value);
  }
  void AppendText(std::size_t column, std::u16string_view text);
  /// The same of a text that is UTF-8 already.
  void AppendUtf8(std::size_t column, std::string_view text);
  void AppendNull(std::size_t column);
  /// Appends a cell whose value the column's storage cannot hold, such as an infinite date.
  void AppendKept(std::size_t column, std::u16string_view text);
  /// Appends the same cell of another store with the same columns.
  void AppendCell(std::size_t column, const ColumnStore& from, std::uint32_t row);
  /// Counts `rows` more rows, once every column has their cells.
  void EndRows(std::uint32_t rows);

  bool IsNull(std::uint32_t row, std::size_t column) const;
  template <class T>
  T Fixed(std::uint32_t row, std::size_t column) const {
    T value;
    CopyFixed(row, column, &value, sizeof value);
    return value;
  }
  /// UTF-8. Valid until the next append.
  std::string_view Text(std::uint32_t row, std::size_t column) const;
  /// The text of a cell that was appended as kept, in UTF-8; nothing for all others.
  std::optional<std::string_view> KeptText(std::uint32_t row, std::size_t column) const;

  /// Appends bytes that are the same for two rows only when all their cells are.
  void AppendRowBytes(std::uint32_t row, std::string& to) const;

  /// Bytes held for cells.
  std::size_t Bytes() const;

  /// The same cells, appended to the same columns.
  bool operator==(const ColumnStore& other) const = default;

 private:
  static constexpr std::uint32_t kChunkRows = 2048;

  // The ends of the texts in a chunk, in two bytes each while that is enough.
  class Ends {
   public:
    void Add(std::size_t end);
    std::uint32_t At(std::uint32_t text) const {
      return wide_.empty() ? short_[text] : wide_[text];
    }
    void GiveBack();
    std::size_t Bytes() const;
    bool operator==(const Ends& other) const = default;

   private:
    std::vector<std::uint16_t> short_;
    std::vector<std::uint32_t> wide_;
  };

  // The cells of one column for up to kChunkRows rows. The store never grows by doubling as a
  // whole, so that a large one needs no second copy of itself.
  struct Chunk {
    std::vector<char> bytes;  // fixed cells, or all texts end to end
    Ends ends;                // of the texts
    std::vector<bool> nulls;  // empty while there is none
    std::uint32_t rows = 0;

    bool operator==(const Chunk& other) const = default;
  };
  struct Data {
    std::size_t width = 0;  // bytes of a fixed cell; 0 for text
    std::vector<Chunk> chunks;
    std::unordered_map<std::uint32_t, std::string> kept;  // by row; usually empty

    bool operator==(const Data& other) const = default;
  };

  Chunk& Room(Data& data);
  void AppendBytes(std::size_t column, const void* value, std::size_t size);
  void CopyFixed(std::uint32_t row, std::size_t column, void* value, std::size_t size) const;
  const Chunk& ChunkOf(std::uint32_t row, std::size_t column) const;

  std::vector<Data> data_;
  std::uint32_t rowCount_ = 0;
};

}  // namespace tessaria::sql
