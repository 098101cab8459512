#include "hosts/sql/rows/sort_order.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/rows/find_criterion.h"
#include "hosts/sql/values/text_order.h"
#include "runtime/field_names.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// A number for each double, in the same order as the doubles.
std::uint64_t RankOf(double number) {
  number += 0.0;  // turns a negative zero into zero
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof number);
  std::memcpy(&bits, &number, sizeof bits);
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// A number from the first letters, in their order.
std::uint64_t RankOf(StringView letters) {
  constexpr std::size_t kLetters = sizeof(std::uint64_t) / sizeof(char16_t);
  std::uint64_t rank = 0;
  for (std::size_t i = 0; i < kLetters; ++i) {
    rank = rank << 16 | (i < letters.size() ? letters[i] : u'\0');
  }
  return rank;
}

// The values of one column that are compared, computed once for each row. Rows are numbered by
// their place in the list that is being sorted.
class KeyColumn {
 public:
  KeyColumn(const RowTable& table, const SortKey& key, const std::vector<RowId>& rows)
      : table_(table), key_(key), rows_(rows) {
    isText_ = table.TableColumns()[key.column].storage == Storage::Text;
    nulls_.reserve(rows.size());
    for (const RowId row : rows) {
      nulls_.push_back(table.IsNull(row, key.column));
      isText_ ? TakeText(row) : TakeNumber(row);
    }
  }

  // The row with the lower rank comes first; rows with the same rank must be compared.
  std::uint64_t Rank(std::uint32_t place) const {
    const std::uint64_t rank = nulls_[place] ? 0
                               : isText_     ? RankOf(Letters(place))
                                             : RankOf(numbers_[place]);
    return key_.descending ? ~rank : rank;
  }

  int Compare(std::uint32_t a, std::uint32_t b) const {
    int order = nulls_[a] || nulls_[b] ? static_cast<int>(nulls_[b]) - static_cast<int>(nulls_[a])
                : isText_              ? CompareTexts(a, b)
                                       : CompareNumbers(a, b);
    return key_.descending ? -order : order;
  }

 private:
  void TakeText(RowId row) {
    if (!nulls_.back()) letters_ += BaseKey(FromUtf8(table_.Text(row, key_.column)));
    ends_.push_back(letters_.size());
  }
  void TakeNumber(RowId row) {
    numbers_.push_back(nulls_.back() ? 0 : table_.Rank(row, key_.column));
  }
  StringView Letters(std::uint32_t place) const {
    const std::size_t start = place == 0 ? 0 : ends_[place - 1];
    return StringView(letters_).substr(start, ends_[place] - start);
  }
  // Accents are compared only when the base letters are equal, which is rare.
  int CompareTexts(std::uint32_t a, std::uint32_t b) const {
    const int base = Letters(a).compare(Letters(b));
    if (base != 0) return base;
    return CompareText(FromUtf8(table_.Text(rows_[a], key_.column)),
                       FromUtf8(table_.Text(rows_[b], key_.column)));
  }
  int CompareNumbers(std::uint32_t a, std::uint32_t b) const {
    if (numbers_[a] != numbers_[b]) return numbers_[a] < numbers_[b] ? -1 : 1;
    return table_.Compare(rows_[a], rows_[b], key_.column);
  }

  const RowTable& table_;
  SortKey key_;
  const std::vector<RowId>& rows_;
  bool isText_ = false;
  std::vector<bool> nulls_;
  std::vector<double> numbers_;
  String letters_;
  std::vector<std::size_t> ends_;
};

// A row in the list that is being sorted. The rank is stored with it, because most comparisons need
// no more and the rest of the key is elsewhere in memory.
struct Ranked {
  std::uint64_t rank;
  std::uint32_t place;
};

}  // namespace

std::vector<SortKey> ParseSortOrder(const Columns& columns, const String& text) {
  const auto fields = ReadOrder(text);
  if (!fields) throw HostError(errors::InvalidCriteria, u"Ordem inválida: " + text);
  std::vector<SortKey> keys;
  for (const auto& field : *fields) {
    const auto column = ColumnOfName(columns, field.Name);
    if (!column) throw HostError(errors::ItemNotFound, u"Campo não encontrado: " + field.Name);
    keys.push_back({*column, field.Descending});
  }
  return keys;
}

void SortRows(const RowTable& table, const std::vector<SortKey>& keys, std::vector<RowId>& rows) {
  std::vector<std::unique_ptr<KeyColumn>> columns;
  columns.reserve(keys.size());
  for (const SortKey& key : keys) columns.push_back(std::make_unique<KeyColumn>(table, key, rows));
  std::vector<Ranked> ranked;
  ranked.reserve(rows.size());
  for (std::uint32_t place = 0; place < rows.size(); ++place) {
    ranked.push_back({columns.empty() ? 0 : columns.front()->Rank(place), place});
  }
  std::sort(ranked.begin(), ranked.end(), [&](const Ranked& a, const Ranked& b) {
    if (a.rank != b.rank) return a.rank < b.rank;
    for (const auto& column : columns) {
      const int order = column->Compare(a.place, b.place);
      if (order != 0) return order < 0;
    }
    return a.place < b.place;
  });
  std::vector<RowId> sorted;
  sorted.reserve(rows.size());
  for (const Ranked& row : ranked) sorted.push_back(rows[row.place]);
  rows = std::move(sorted);
}

}  // namespace tessaria::sql
