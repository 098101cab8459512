// Searching and ordering rows.
#pragma once

#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/table.h"

namespace tessaria::memory {

/// A search criterion "field op value". Texts compare without regard to case; Null matches only "=
/// Null", and "<> Null" matches everything else.
class TESSARIA_MEMORY_API Criterion {
 public:
  /// Errors: 3265 for an unknown field, 3001 for anything else that cannot be read, and for `like`
  /// on a field that is not text.
  Criterion(const std::vector<Column>& columns, StringView text);

  /// Whether a row matches; its cells stand in the order of the columns.
  bool Matches(const Row& row) const;

 private:
  enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

  void TakeValue(const Column& column, StringView text);
  void TakeTyped(const Column& column, StringView text);
  bool MatchesPattern(const Variant& cell) const;

  std::size_t column_ = 0;
  Operator operator_ = Operator::Equal;
  Variant value_;
};

/// Row order by one column.
struct TESSARIA_MEMORY_API SortKey {
  std::size_t Column = 0;
  bool Descending = false;
};

/// Reads "field [ASC|DESC], ...". Errors: 3265 for an unknown field, 3001 for another word.
TESSARIA_MEMORY_API std::vector<SortKey> SortKeys(const std::vector<Column>& columns,
                                                  StringView order);
/// Whether `a` comes before `b`. Null comes before every value.
TESSARIA_MEMORY_API bool StandsBefore(const std::vector<SortKey>& keys, const Row& a, const Row& b);

}  // namespace tessaria::memory
