#include "hosts/sql/values/cell_order.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "hosts/sql/values/calendar.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The rank of an infinite value and of "NaN"; nothing for any other text.
std::optional<double> InfiniteRank(StringView text) {
  if (EqualNoCase(text, u"infinity") || EqualNoCase(text, u"nan")) return kInfinity;
  if (EqualNoCase(text, u"-infinity")) return -kInfinity;
  return std::nullopt;
}

std::optional<Digits> DigitsIn(std::string_view stored) {
  auto number = ReadNumber(Replace(FromUtf8(stored), u".", u","));
  if (!number) return std::nullopt;
  return std::move(number->Value);
}

double NumberRank(std::string_view stored) {
  const auto digits = DigitsIn(stored);
  if (!digits) return InfiniteRank(FromUtf8(stored)).value_or(0);
  return TryToDouble(*digits).value_or(digits->Negative ? -kInfinity : kInfinity);
}

// The rank of y-m-d with a year that no date value has: beyond all days of date values, in order.
double FarDay(StringView text) {
  const double year = Val(text.substr(0, text.find(u'-')));
  const StringView rest = text.substr(std::min(text.find(u'-') + 1, text.size()));
  const double month = Val(rest.substr(0, 2));
  const double day = Val(rest.substr(std::min<std::size_t>(3, rest.size())).substr(0, 2));
  const bool isBeforeChrist = EndsWith(String(text), u" BC");
  return ((isBeforeChrist ? 1 - year : year) - 1900) * 372 + (month - 1) * 31 + day;
}

double FarRank(Storage storage, std::string_view kept) {
  const String text = FromUtf8(kept);
  if (const auto infinite = InfiniteRank(text)) return *infinite;
  switch (storage) {
    case Storage::Day:
      return FarDay(text);
    case Storage::Moment:
      return FarDay(text) * static_cast<double>(kMicrosPerDay);
    case Storage::TimeOfDay:
      return static_cast<double>(kMicrosPerDay);
    default:
      return NumberRank(kept) * 10000;  // of money
  }
}

template <class T>
int Sign(T a, T b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

template <class T>
int CompareFixed(std::size_t column, CellPlace a, CellPlace b) {
  return Sign(a.store->Fixed<T>(a.row, column), b.store->Fixed<T>(b.row, column));
}

int CompareNumbers(std::string_view a, std::string_view b) {
  const auto first = DigitsIn(a), second = DigitsIn(b);
  if (first && second) {
    const auto order = Order(*first, *second);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
  }
  // Of the words, "NaN" comes last, as on the server.
  const auto place = [](const std::optional<Digits>& digits, std::string_view text) {
    if (digits) return 0;
    return text.starts_with('-') ? -1 : text.starts_with('N') ? 2 : 1;
  };
  return Sign(place(first, a), place(second, b));
}

}  // namespace

double CellRank(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                std::size_t column) {
  const Storage storage = columns[column].storage;
  if (const auto kept = store.KeptText(row, column)) return FarRank(storage, *kept);
  const auto number = [](double value) { return std::isnan(value) ? kInfinity : value; };
  switch (storage) {
    case Storage::Int16:
      return store.Fixed<std::int16_t>(row, column);
    case Storage::Int32:
    case Storage::Day:
      return store.Fixed<std::int32_t>(row, column);
    case Storage::Boolean:
      return -store.Fixed<std::uint8_t>(row, column);
    case Storage::Single:
      return number(store.Fixed<float>(row, column));
    case Storage::Double:
      return number(store.Fixed<double>(row, column));
    case Storage::Number:
      return NumberRank(store.Text(row, column));
    default:
      return static_cast<double>(store.Fixed<std::int64_t>(row, column));
  }
}

int CompareCells(const Columns& columns, std::size_t column, CellPlace a, CellPlace b) {
  const auto keptA = a.store->KeptText(a.row, column);
  const auto keptB = b.store->KeptText(b.row, column);
  if (keptA && keptB) return CompareNumbers(*keptA, *keptB);
  if (keptA || keptB) return 0;
  switch (columns[column].storage) {
    case Storage::Int64:
    case Storage::Money:
    case Storage::Moment:
    case Storage::TimeOfDay:
      return CompareFixed<std::int64_t>(column, a, b);
    case Storage::Number:
      return CompareNumbers(a.store->Text(a.row, column), b.store->Text(b.row, column));
    default:
      return 0;
  }
}

}  // namespace tessaria::sql
