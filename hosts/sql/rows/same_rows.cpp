#include "hosts/sql/rows/same_rows.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace tessaria::sql {
namespace {

// A number of a row's cells, and the row's own.
using Marks = std::vector<std::pair<std::size_t, std::uint32_t>>;

Marks MarksOf(const ColumnStore& rows) {
  Marks marks;
  marks.reserve(rows.RowCount());
  std::string bytes;
  for (std::uint32_t row = 0; row < rows.RowCount(); ++row) {
    bytes.clear();
    rows.AppendRowBytes(row, bytes);
    marks.emplace_back(std::hash<std::string>{}(bytes), row);
  }
  std::sort(marks.begin(), marks.end());
  return marks;
}

}  // namespace

std::vector<std::uint32_t> NumbersInOrderOf(const ColumnStore& ordered, const ColumnStore& rows) {
  const Marks places = MarksOf(ordered), numbers = MarksOf(rows);
  const auto isSame = [](const auto& a, const auto& b) { return a.first == b.first; };
  if (!std::equal(places.begin(), places.end(), numbers.begin(), numbers.end(), isSame)) return {};
  std::vector<std::uint32_t> result(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) result[places[i].second] = numbers[i].second;
  return result;
}

}  // namespace tessaria::sql
