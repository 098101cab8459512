// Cells in the server's binary form, as columns keep them.
#pragma once

#include <cstddef>
#include <string_view>

#include "hosts/sql/values/column_store.h"

namespace tessaria::postgres {

/// Appends a cell. What a column's storage cannot hold (an infinite date, a year before Christ or
/// after 9999, the end of a day) is kept as the text that the server writes. Raises a `DriverError`
/// (08P01) for bytes that are no cell of the type.
using AppendBinary = void (*)(sql::ColumnStore& store, std::size_t column, std::string_view bytes);

void AppendBool(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendInt2(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendInt4(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendInt8(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendOid(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendFloat4(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendFloat8(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendNumeric(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendDate(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendTime(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendTimestamp(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendUuid(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
void AppendBytea(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
/// Any text type.
void AppendPlainText(sql::ColumnStore& store, std::size_t column, std::string_view bytes);
/// A text whose trailing blanks are not part of the value.
void AppendPadded(sql::ColumnStore& store, std::size_t column, std::string_view bytes);

}  // namespace tessaria::postgres
