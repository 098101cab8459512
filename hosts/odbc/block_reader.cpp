#include "hosts/odbc/block_reader.h"

#include <algorithm>
#include <cstring>

#include "hosts/odbc/diagnostics.h"

namespace tessaria::odbc {
namespace {

// A block that stays in the processor's cache reads faster than a longer one.
constexpr SQLULEN kMostBlockRows = 128;
constexpr std::size_t kMostBlockBytes = 256 * 1024;
// Longer texts are rare; they are read again in full.
constexpr std::size_t kBoundCharacters = 255;
// Texts of up to this length are bound whole when the driver cannot read them again.
constexpr Long kBindableCharacters = 4000;
constexpr std::size_t kNumberCharacters = 63;

SQLSMALLINT CType(Storage storage) {
  switch (storage) {
    case Storage::Int16:
      return SQL_C_SSHORT;
    case Storage::Int32:
      return SQL_C_SLONG;
    case Storage::Int64:
      return SQL_C_SBIGINT;
    case Storage::Single:
      return SQL_C_FLOAT;
    case Storage::Double:
      return SQL_C_DOUBLE;
    case Storage::Boolean:
      return SQL_C_BIT;
    // Read as text: the time structure has no fraction, and a driver that cannot put an infinite
    // date into a structure leaves today's date there.
    case Storage::Day:
    case Storage::TimeOfDay:
    case Storage::Moment:
    case Storage::Money:
    case Storage::Number:
    case Storage::Text:
      break;
  }
  return SQL_C_WCHAR;
}

std::size_t FixedWidth(SQLSMALLINT type) {
  switch (type) {
    case SQL_C_SSHORT:
      return sizeof(SQLSMALLINT);
    case SQL_C_SLONG:
      return sizeof(SQLINTEGER);
    case SQL_C_FLOAT:
      return sizeof(SQLREAL);
    case SQL_C_BIT:
      return sizeof(SQLCHAR);
    default:
      return sizeof(std::int64_t);  // SQL_C_SBIGINT and SQL_C_DOUBLE
  }
}

bool IsBounded(const Column& column) {
  return column.storage != Storage::Text ||
         (column.definedSize > 0 && column.definedSize <= kBindableCharacters);
}

template <class T>
T CellAs(const char* cell) {
  T value;
  std::memcpy(&value, cell, sizeof value);
  return value;
}

void AppendFixedCell(ColumnStore& store, std::size_t column, SQLSMALLINT type, const char* cell) {
  switch (type) {
    case SQL_C_SSHORT:
      return store.AppendFixed(column, CellAs<std::int16_t>(cell));
    case SQL_C_SLONG:
      return store.AppendFixed(column, CellAs<std::int32_t>(cell));
    case SQL_C_FLOAT:
      return store.AppendFixed(column, CellAs<float>(cell));
    case SQL_C_BIT:
      return store.AppendFixed(column, CellAs<std::uint8_t>(cell));
    default:  // SQL_C_SBIGINT and SQL_C_DOUBLE
      return store.AppendFixed(column, CellAs<std::int64_t>(cell));
  }
}

}  // namespace

BlockReader::Buffer BlockReader::BufferFor(const Column& column, bool rereads) {
  Buffer buffer;
  buffer.form = {column.storage, column.padded, column.lowerCase};
  buffer.type = CType(column.storage);
  buffer.width = FixedWidth(buffer.type);
  if (buffer.type == SQL_C_WCHAR) {
    std::size_t characters = kNumberCharacters;
    if (column.storage == Storage::Text) {
      characters = static_cast<std::size_t>(column.definedSize);
      if (rereads && (characters == 0 || characters > kBoundCharacters)) {
        characters = kBoundCharacters;
      }
    }
    buffer.width = (characters + 1) * sizeof(char16_t);
  }
  return buffer;
}

BlockReader::BlockReader(SQLHSTMT statement, const Columns& columns, bool rereads)
    : statement_(statement) {
  for (const Column& column : columns) buffers_.push_back(BufferFor(column, rereads));
  bound_ = rereads || std::all_of(columns.begin(), columns.end(), IsBounded);
  ChooseBlock();
  Bind();
}

// Uses powers of two, so that blocks fill the store's chunks evenly.
void BlockReader::ChooseBlock() {
  std::size_t rowBytes = 1;
  for (const Buffer& buffer : buffers_) rowBytes += buffer.width;
  blockRows_ = bound_ ? kMostBlockRows : 1;
  while (blockRows_ > 1 && blockRows_ * rowBytes > kMostBlockBytes) blockRows_ /= 2;
}

void BlockReader::Bind() {
  const SQLHSTMT handle = statement_;
  rowStates_.resize(blockRows_);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(blockRows_), 0);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROW_STATUS_PTR, rowStates_.data(), 0);
  for (std::size_t i = 0; i < buffers_.size(); ++i) {
    Buffer& buffer = buffers_[i];
    buffer.lengths.resize(blockRows_);
    buffer.cells.resize(buffer.width * blockRows_);
    if (!bound_) continue;
    Check(SQLBindCol(handle, static_cast<SQLUSMALLINT>(i + 1), buffer.type, buffer.cells.data(),
                     static_cast<SQLLEN>(buffer.width), buffer.lengths.data()),
          SQL_HANDLE_STMT, handle);
  }
}

std::uint32_t BlockReader::Fetch() {
  const SQLRETURN result = SQLFetch(statement_);
  Check(result, SQL_HANDLE_STMT, statement_);
  if (result == SQL_NO_DATA) return 0;
  RequireSoundRows(result);
  return static_cast<std::uint32_t>(fetched_);
}

void BlockReader::Take(ColumnStore& store) {
  for (std::size_t column = 0; column < buffers_.size(); ++column) AppendColumn(store, column);
  store.EndRows(static_cast<std::uint32_t>(fetched_));
}

// A row that the driver could not convert must not count as a converted one.
void BlockReader::RequireSoundRows(SQLRETURN result) const {
  if (result != SQL_SUCCESS_WITH_INFO) return;
  const auto end = rowStates_.begin() + static_cast<std::ptrdiff_t>(fetched_);
  if (std::find(rowStates_.begin(), end, SQL_ROW_ERROR) == end) return;
  throw DiagnosticsOf(SQL_HANDLE_STMT, statement_);
}

void BlockReader::AppendColumn(ColumnStore& store, std::size_t column) {
  const Buffer& buffer = buffers_[column];
  const SQLULEN rows = fetched_;
  for (SQLULEN row = 0; row < rows; ++row) {
    hasWhole_ = false;
    if (!bound_) {
      LoadCell(column, row);
    } else if (IsCut(buffer, row)) {
      Check(SQLSetPos(statement_, row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE), SQL_HANDLE_STMT,
            statement_);
      LoadText(column, row);
    }
    if (buffer.lengths[row] == SQL_NULL_DATA) {
      store.AppendNull(column);
    } else if (buffer.type == SQL_C_WCHAR) {
      AppendText(store, column, TextOf(buffer, row));
    } else {
      AppendFixedCell(store, column, buffer.type, buffer.cells.data() + row * buffer.width);
    }
  }
}

bool BlockReader::IsCut(const Buffer& buffer, SQLULEN row) const {
  if (buffer.type != SQL_C_WCHAR || buffer.lengths[row] == SQL_NULL_DATA) return false;
  const auto room = static_cast<SQLLEN>(buffer.width - sizeof(char16_t));
  return buffer.lengths[row] > room || buffer.lengths[row] == SQL_NO_TOTAL;
}

void BlockReader::LoadCell(std::size_t column, SQLULEN row) {
  Buffer& buffer = buffers_[column];
  if (buffer.type == SQL_C_WCHAR) return LoadText(column, row);
  Check(SQLGetData(statement_, static_cast<SQLUSMALLINT>(column + 1), buffer.type,
                   buffer.cells.data(), static_cast<SQLLEN>(buffer.width), &buffer.lengths[row]),
        SQL_HANDLE_STMT, statement_);
}

// Reads a text in parts, from its start.
void BlockReader::LoadText(std::size_t column, SQLULEN row) {
  constexpr std::size_t kPart = 4096;
  SQLLEN& length = buffers_[column].lengths[row];
  char16_t part[kPart];
  whole_.clear();
  hasWhole_ = true;
  for (;;) {
    const SQLRETURN result = SQLGetData(statement_, static_cast<SQLUSMALLINT>(column + 1),
                                        SQL_C_WCHAR, part, sizeof part, &length);
    Check(result, SQL_HANDLE_STMT, statement_);
    if (result == SQL_NO_DATA || length == SQL_NULL_DATA) return;
    const bool more = result == SQL_SUCCESS_WITH_INFO &&
                      (length == SQL_NO_TOTAL || length >= static_cast<SQLLEN>(sizeof part));
    whole_.append(part, more ? kPart - 1 : static_cast<std::size_t>(length) / sizeof(char16_t));
    if (!more) return;
  }
}

StringView BlockReader::TextOf(const Buffer& buffer, SQLULEN row) const {
  if (hasWhole_) return whole_;
  return {reinterpret_cast<const char16_t*>(buffer.cells.data() + row * buffer.width),
          static_cast<std::size_t>(buffer.lengths[row]) / sizeof(char16_t)};
}

void BlockReader::AppendText(ColumnStore& store, std::size_t column, StringView text) const {
  sql::AppendArrived(store, column, buffers_[column].form, text);
}

}  // namespace tessaria::odbc
