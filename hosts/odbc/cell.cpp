#include "hosts/odbc/cell.h"

#include <charconv>
#include <cmath>

#include "hosts/odbc/calendar.h"
#include "hosts/odbc/money.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {
namespace {

template <class T>
String ShortestText(T number) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
  return FromUtf8({buffer, static_cast<std::size_t>(end - buffer)});
}

Variant NumberValue(std::string_view text) {
  try {
    return DecimalFromText(FromUtf8(text));
  } catch (const HostError&) {  // more digits than a Decimal has, or "NaN"
    return std::strtod(std::string(text).c_str(), nullptr);
  }
}

Decimal DecimalOf(std::int64_t value) {
  Decimal decimal;
  const auto magnitude =
      value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  decimal.Magnitude = {static_cast<std::uint32_t>(magnitude),
                       static_cast<std::uint32_t>(magnitude >> 32), 0};
  decimal.Negative = value < 0;
  return decimal;
}

// Without zeros behind the last decimal, so that 1.50 and 1.5 have one text.
String PlainText(const Decimal& decimal) {
  String text = DecimalText(decimal);
  if (decimal.Scale == 0) return text;
  text.resize(text.find_last_not_of(u'0') + 1);
  if (text.back() == u'.') text.pop_back();
  return text;
}

bool IsBlankValue(const Variant& value) {
  if (value.IsEmpty() || value.IsMissing()) return true;
  const String* text = value.TryGet<String>();
  return text != nullptr && Trim(*text).empty();
}

// The number without its decimals: DecimalText has a point only when there are any.
std::int64_t Int64Of(const Variant& value) {
  const double rounded = std::nearbyint(CDbl(value));
  const std::string text = ToUtf8(DecimalText(CDec(value)));
  std::int64_t exact = 0;
  const auto end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, exact);
  if (read.ec == std::errc() && read.ptr == end) return exact;
  if (std::abs(rounded) >= 9.2e18) throw HostError(errors::Overflow);
  return static_cast<std::int64_t>(rounded);
}

Variant DateFor(const Column& column, const Variant& value) {
  const SplitMoment moment = Split(MomentOf(CDate(value)));
  if (column.storage == Storage::Day) return DateOf(moment.day, 0);
  if (column.storage == Storage::TimeOfDay) return DateOf(0, moment.micros);
  return DateOf(moment.day, moment.micros);
}

const Date& DateIn(const Variant& value) { return *value.TryGet<Date>(); }

std::int64_t MoneyIn(const Variant& value) { return value.TryGet<Currency>()->TenThousandths; }

String NumberText(const Variant& value) {
  if (const auto* decimal = value.TryGet<Decimal>()) return DecimalText(*decimal);
  return ShortestText(CDbl(value));
}

}  // namespace

Variant CellValue(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                  std::size_t column) {
  if (store.IsNull(row, column)) return Variant::Null();
  switch (columns[column].storage) {
    case Storage::Int16:
      return store.Fixed<std::int16_t>(row, column);
    case Storage::Int32:
      return store.Fixed<std::int32_t>(row, column);
    case Storage::Int64:
      return DecimalOf(store.Fixed<std::int64_t>(row, column));
    case Storage::Single:
      return store.Fixed<float>(row, column);
    case Storage::Double:
      return store.Fixed<double>(row, column);
    case Storage::Boolean:
      return store.Fixed<std::uint8_t>(row, column) != 0;
    case Storage::Money:
      return Currency{store.Fixed<std::int64_t>(row, column)};
    case Storage::Day:
      return DateOf(store.Fixed<std::int32_t>(row, column), 0);
    case Storage::TimeOfDay:
      return DateOf(0, store.Fixed<std::int64_t>(row, column));
    case Storage::Moment: {
      const SplitMoment moment = Split(store.Fixed<std::int64_t>(row, column));
      return DateOf(moment.day, moment.micros);
    }
    case Storage::Number:
      return NumberValue(store.Text(row, column));
    case Storage::Text:
      break;
  }
  return FromUtf8(store.Text(row, column));
}

Variant ConvertFor(const Column& column, const Variant& value) {
  if (value.IsNull()) return value;
  if (column.storage == Storage::Text) return CStr(value);
  if (IsBlankValue(value)) return Variant::Null();
  switch (column.storage) {
    case Storage::Int16:
      return CInt(value);
    case Storage::Int32:
      return CLng(value);
    case Storage::Int64:
      return DecimalOf(Int64Of(value));
    case Storage::Single:
      return static_cast<float>(CDbl(value));
    case Storage::Double:
      return CDbl(value);
    case Storage::Boolean:
      return CBool(value);
    case Storage::Money:
      return CCur(value);
    case Storage::Number:
      return CDec(value);
    default:
      return DateFor(column, value);
  }
}

bool IsSame(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() && b.IsNull();
  if (a.IsString() || b.IsString()) {
    return a.IsString() && b.IsString() && *a.TryGet<String>() == *b.TryGet<String>();
  }
  if (a.TryGet<Date>() && b.TryGet<Date>()) return MomentOf(DateIn(a)) == MomentOf(DateIn(b));
  const auto* exactA = a.TryGet<Decimal>();
  const auto* exactB = b.TryGet<Decimal>();
  if (exactA && exactB) return PlainText(*exactA) == PlainText(*exactB);
  return CDbl(a) == CDbl(b);
}

String CellParameter(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                     std::size_t column) {
  switch (columns[column].storage) {
    case Storage::Text:
    case Storage::Number:
      return FromUtf8(store.Text(row, column));
    case Storage::TimeOfDay:
      return TimeText(store.Fixed<std::int64_t>(row, column));
    case Storage::Moment: {
      const SplitMoment moment = Split(store.Fixed<std::int64_t>(row, column));
      return DayText(moment.day) + u" " + TimeText(moment.micros);
    }
    default:
      return ValueParameter(columns[column], CellValue(store, columns, row, column));
  }
}

String ValueParameter(const Column& column, const Variant& value) {
  switch (column.storage) {
    case Storage::Single:
      return ShortestText(*value.TryGet<float>());
    case Storage::Double:
      return ShortestText(*value.TryGet<double>());
    case Storage::Int16:
    case Storage::Int32:
      return ShortestText(CLng(value));
    case Storage::Int64:
    case Storage::Number:
      return NumberText(value);
    case Storage::Boolean:
      return *value.TryGet<bool>() ? u"1" : u"0";
    case Storage::Money:
      return MoneyText(MoneyIn(value));
    case Storage::Text:
      return *value.TryGet<String>();
    case Storage::Day:
      return DayText(Split(MomentOf(DateIn(value))).day);
    case Storage::TimeOfDay:
      return TimeText(Split(MomentOf(DateIn(value))).micros);
    case Storage::Moment:
      break;
  }
  const SplitMoment moment = Split(MomentOf(DateIn(value)));
  return DayText(moment.day) + u" " + TimeText(moment.micros);
}

void AppendValue(ColumnStore& store, const Columns& columns, std::size_t column,
                 const Variant& value) {
  if (value.IsNull()) return store.AppendNull(column);
  const std::int64_t moment = value.TryGet<Date>() ? MomentOf(DateIn(value)) : 0;
  switch (columns[column].storage) {
    case Storage::Int16:
      return store.AppendFixed(column, CInt(value));
    case Storage::Int32:
      return store.AppendFixed(column, CLng(value));
    case Storage::Int64:
      return store.AppendFixed(column, Int64Of(value));
    case Storage::Single:
      return store.AppendFixed(column, *value.TryGet<float>());
    case Storage::Double:
      return store.AppendFixed(column, *value.TryGet<double>());
    case Storage::Boolean:
      return store.AppendFixed(column, static_cast<std::uint8_t>(*value.TryGet<bool>() ? 1 : 0));
    case Storage::Money:
      return store.AppendFixed(column, MoneyIn(value));
    case Storage::Day:
      return store.AppendFixed(column, static_cast<std::int32_t>(Split(moment).day));
    case Storage::TimeOfDay:
      return store.AppendFixed(column, Split(moment).micros);
    case Storage::Moment:
      return store.AppendFixed(column, moment);
    case Storage::Number:
      return store.AppendText(column, NumberText(value));
    case Storage::Text:
      return store.AppendText(column, *value.TryGet<String>());
  }
}

}  // namespace tessaria::odbc
