// Values of cells: from the store, from the program, and into statements.
#pragma once

#include "hosts/sql/values/column_store.h"

namespace tessaria::sql {

/// The cell as a value of the column's kind: Integer, Long, Single, Double, Currency, Decimal
/// (exact numbers, 64-bit integers, and money that no Currency holds), Date without the fraction of
/// its second, Boolean or String. A value that the kind cannot hold comes as a String: infinity,
/// "NaN", a number of more digits than a Decimal has (with a comma), a day outside the years 100 to
/// 9999. Null for Null.
Variant CellValue(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                  std::size_t column);

/// The value as the column keeps it; numbers go into exact columns with all their digits. A blank
/// (Empty, or nothing but blanks) is "" for a text column and Null for all others. Errors: 13 for a
/// value that is not of the column's kind, 6 for one out of its range.
Variant ConvertFor(const Column& column, const Variant& value);

/// Whether two values of a column, as it keeps them, are the same: dates to the second, all else
/// exactly. Null is the same as Null.
bool IsSame(const Variant& a, const Variant& b);

/// The exact text of a cell that is not Null, as a statement's parameter takes it.
String CellParameter(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                     std::size_t column);
/// The text of a value of the column's kind as a parameter. Not for Null.
String ValueParameter(const Column& column, const Variant& value);

/// Appends a value of the column's kind.
void AppendValue(ColumnStore& store, const Columns& columns, std::size_t column,
                 const Variant& value);

}  // namespace tessaria::sql
