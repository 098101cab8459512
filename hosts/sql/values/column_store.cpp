#include "hosts/sql/values/column_store.h"

#include <cstring>
#include <limits>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

std::size_t WidthOf(Storage storage) {
  switch (storage) {
    case Storage::Int16:
      return sizeof(std::int16_t);
    case Storage::Int32:
    case Storage::Day:
      return sizeof(std::int32_t);
    case Storage::Single:
      return sizeof(float);
    case Storage::Double:
      return sizeof(double);
    case Storage::Boolean:
      return sizeof(std::uint8_t);
    case Storage::Int64:
    case Storage::Money:
    case Storage::TimeOfDay:
    case Storage::Moment:
      return sizeof(std::int64_t);
    case Storage::Number:
    case Storage::Text:
      return 0;
  }
  return 0;
}

// Writes a character as UTF-8 and returns the end. The caller provides room for four bytes.
char* Encode(char32_t c, char* out) {
  const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x800) {
    *out++ = static_cast<char>(0xC0 | (c >> 6));
  } else if (c < 0x10000) {
    *out++ = static_cast<char>(0xE0 | (c >> 12));
    *out++ = tail(6);
  } else {
    *out++ = static_cast<char>(0xF0 | (c >> 18));
    *out++ = tail(12);
    *out++ = tail(6);
  }
  *out++ = tail(0);
  return out;
}

bool IsAscii(std::u16string_view text) {
  unsigned bits = 0;
  for (const char16_t unit : text) bits |= unit;
  return bits < 0x80;
}

void AppendUtf8(std::vector<char>& bytes, std::u16string_view text) {
  const std::size_t before = bytes.size();
  if (IsAscii(text)) {
    bytes.insert(bytes.end(), text.begin(), text.end());
    return;
  }
  bytes.resize(before + 3 * text.size());  // a unit takes at most three bytes
  char* out = bytes.data() + before;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0x80) {
      *out++ = static_cast<char>(unit);
    } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      const char32_t high = static_cast<char32_t>(unit - 0xD800) << 10;
      out = Encode(0x10000 + high + (text[++i] - 0xDC00), out);
    } else {
      out = Encode(unit, out);
    }
  }
  bytes.resize(static_cast<std::size_t>(out - bytes.data()));
}

}  // namespace

void ColumnStore::Ends::Add(std::size_t end) {
  if (wide_.empty() && end <= std::numeric_limits<std::uint16_t>::max()) {
    return short_.push_back(static_cast<std::uint16_t>(end));
  }
  if (wide_.empty()) wide_.assign(short_.begin(), short_.end());
  short_ = {};
  wide_.push_back(static_cast<std::uint32_t>(end));
}

void ColumnStore::Ends::GiveBack() {
  short_.shrink_to_fit();
  wide_.shrink_to_fit();
}

std::size_t ColumnStore::Ends::Bytes() const {
  return short_.capacity() * sizeof(std::uint16_t) + wide_.capacity() * sizeof(std::uint32_t);
}

ColumnStore::ColumnStore(const Columns& columns) {
  for (const Column& column : columns) data_.push_back({WidthOf(column.storage), {}, {}});
}

// The chunk that takes the next cell. A full chunk releases the memory that it reserved and did not
// use.
ColumnStore::Chunk& ColumnStore::Room(Data& data) {
  if (!data.chunks.empty() && data.chunks.back().rows == kChunkRows) {
    Chunk& full = data.chunks.back();
    full.bytes.shrink_to_fit();
    full.ends.GiveBack();
  }
  if (data.chunks.empty() || data.chunks.back().rows == kChunkRows) {
    // The next rows usually need as much room as those before.
    const std::size_t bytes = data.chunks.empty() ? 0 : data.chunks.back().bytes.size();
    data.chunks.emplace_back().bytes.reserve(bytes);
  }
  return data.chunks.back();
}

void ColumnStore::AppendBytes(std::size_t column, const void* value, std::size_t size) {
  Chunk& chunk = Room(data_[column]);
  const std::size_t before = chunk.bytes.size();
  chunk.bytes.resize(before + size);
  std::memcpy(chunk.bytes.data() + before, value, size);
  if (!chunk.nulls.empty()) chunk.nulls.push_back(false);
  ++chunk.rows;
}

void ColumnStore::AppendText(std::size_t column, std::u16string_view text) {
  Chunk& chunk = Room(data_[column]);
  sql::AppendUtf8(chunk.bytes, text);
  chunk.ends.Add(chunk.bytes.size());
  if (!chunk.nulls.empty()) chunk.nulls.push_back(false);
  ++chunk.rows;
}

void ColumnStore::AppendNull(std::size_t column) {
  Data& data = data_[column];
  Chunk& chunk = Room(data);
  if (chunk.nulls.empty()) chunk.nulls.resize(chunk.rows, false);
  chunk.nulls.push_back(true);
  if (data.width == 0) {
    chunk.ends.Add(chunk.bytes.size());
  } else {
    chunk.bytes.resize(chunk.bytes.size() + data.width);
  }
  ++chunk.rows;
}

void ColumnStore::AppendUtf8(std::size_t column, std::string_view text) {
  Chunk& chunk = Room(data_[column]);
  chunk.bytes.insert(chunk.bytes.end(), text.begin(), text.end());
  chunk.ends.Add(chunk.bytes.size());
  if (!chunk.nulls.empty()) chunk.nulls.push_back(false);
  ++chunk.rows;
}

void ColumnStore::AppendKept(std::size_t column, std::u16string_view text) {
  Data& data = data_[column];
  const Chunk& chunk = Room(data);
  const auto row = static_cast<std::uint32_t>(data.chunks.size() - 1) * kChunkRows + chunk.rows;
  std::vector<char> bytes;
  sql::AppendUtf8(bytes, text);
  data.kept.emplace(row, std::string(bytes.begin(), bytes.end()));
  const std::vector<char> blank(data.width);
  AppendBytes(column, blank.data(), blank.size());
}

void ColumnStore::AppendCell(std::size_t column, const ColumnStore& from, std::uint32_t row) {
  if (from.IsNull(row, column)) return AppendNull(column);
  if (const auto kept = from.KeptText(row, column)) return AppendKept(column, FromUtf8(*kept));
  const std::size_t width = data_[column].width;
  if (width == 0) return AppendUtf8(column, from.Text(row, column));
  std::vector<char> cell(width);
  from.CopyFixed(row, column, cell.data(), width);
  AppendBytes(column, cell.data(), width);
}

void ColumnStore::EndRows(std::uint32_t rows) { rowCount_ += rows; }

const ColumnStore::Chunk& ColumnStore::ChunkOf(std::uint32_t row, std::size_t column) const {
  return data_[column].chunks[row / kChunkRows];
}

bool ColumnStore::IsNull(std::uint32_t row, std::size_t column) const {
  const Chunk& chunk = ChunkOf(row, column);
  return !chunk.nulls.empty() && chunk.nulls[row % kChunkRows];
}

void ColumnStore::CopyFixed(std::uint32_t row, std::size_t column, void* value,
                            std::size_t size) const {
  const Chunk& chunk = ChunkOf(row, column);
  std::memcpy(value, chunk.bytes.data() + (row % kChunkRows) * size, size);
}

std::string_view ColumnStore::Text(std::uint32_t row, std::size_t column) const {
  const Chunk& chunk = ChunkOf(row, column);
  const std::uint32_t index = row % kChunkRows;
  const std::uint32_t start = index == 0 ? 0 : chunk.ends.At(index - 1);
  return {chunk.bytes.data() + start, chunk.ends.At(index) - start};
}

std::optional<std::string_view> ColumnStore::KeptText(std::uint32_t row, std::size_t column) const {
  const auto& kept = data_[column].kept;
  if (kept.empty()) return std::nullopt;
  const auto text = kept.find(row);
  if (text == kept.end()) return std::nullopt;
  return text->second;
}

void ColumnStore::AppendRowBytes(std::uint32_t row, std::string& to) const {
  const auto append = [&to](char kind, std::string_view bytes) {
    to += kind;
    to += std::to_string(bytes.size());
    to += ' ';
    to += bytes;
  };
  std::string cell;
  for (std::size_t column = 0; column < data_.size(); ++column) {
    const auto kept = KeptText(row, column);
    if (IsNull(row, column)) {
      append('n', {});
    } else if (kept) {
      append('k', *kept);
    } else if (data_[column].width == 0) {
      append('t', Text(row, column));
    } else {
      cell.resize(data_[column].width);
      CopyFixed(row, column, cell.data(), cell.size());
      append('f', cell);
    }
  }
}

std::size_t ColumnStore::Bytes() const {
  std::size_t bytes = 0;
  for (const Data& data : data_) {
    for (const auto& [row, text] : data.kept)
      bytes += sizeof(decltype(data.kept)::value_type) + text.capacity();
    for (const Chunk& chunk : data.chunks) {
      bytes += chunk.bytes.capacity() + chunk.ends.Bytes() + chunk.nulls.capacity() / 8;
    }
  }
  return bytes;
}

}  // namespace tessaria::sql
