// The same rows in two orders.
#pragma once

#include <cstdint>
#include <vector>

#include "hosts/sql/values/column_store.h"

namespace tessaria::sql {

/// The numbers of the rows of `rows` in the order in which `ordered` has them, from 0. Rows that
/// are the same in all cells keep their order. Empty when the two do not hold the same rows.
std::vector<std::uint32_t> NumbersInOrderOf(const ColumnStore& ordered, const ColumnStore& rows);

}  // namespace tessaria::sql
