// The order of cells of a column that is not text.
#pragma once

#include "hosts/sql/values/column_store.h"

namespace tessaria::sql {

/// A number that never orders two cells of a column wrongly; when it is the same for both, they may
/// still differ in digits that a double cannot hold. Infinite values, days outside the years of a
/// date value and "NaN" (after all others) have one too. Not for Null.
double CellRank(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                std::size_t column);

/// A cell that takes part in an exact comparison.
struct CellPlace {
  const ColumnStore* store;
  std::uint32_t row;
};
/// Below 0, 0 or above 0: the order of two cells of the same rank.
int CompareCells(const Columns& columns, std::size_t column, CellPlace a, CellPlace b);

}  // namespace tessaria::sql
