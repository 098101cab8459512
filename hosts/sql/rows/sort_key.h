// One field of a sort order.
#pragma once

#include <cstddef>

namespace tessaria::sql {

struct SortKey {
  std::size_t column = 0;
  bool descending = false;
};

}  // namespace tessaria::sql
