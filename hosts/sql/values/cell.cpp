#include "hosts/sql/values/cell.h"

#include <charconv>
#include <cmath>

#include "hosts/sql/values/calendar.h"
#include "hosts/sql/values/money.h"
#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/data.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

template <class T>
String ShortestText(T number) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
  return FromUtf8({buffer, static_cast<std::size_t>(end - buffer)});
}

// With the decimal comma that the operator sees in numbers.
Variant NumberValue(std::string_view stored) {
  const String text = Replace(FromUtf8(stored), u".", u",");
  const auto number = ReadNumber(text);
  const auto decimal = number ? TryToDecimal(number->Value) : std::nullopt;
  return decimal ? Variant(*decimal) : Variant(text);
}

template <class Float>
Variant FloatValue(Float number) {
  if (std::isfinite(number)) return number;
  return std::isnan(number) ? u"NaN" : number > 0 ? u"Infinity" : u"-Infinity";
}

Variant KeptValue(const Column& column, std::string_view text) {
  return column.storage == Storage::Money ? NumberValue(text) : Variant(FromUtf8(text));
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

bool IsBlankValue(const Variant& value) {
  if (value.IsEmpty() || value.IsMissing()) return true;
  const String* text = value.TryGet<String>();
  return text != nullptr && Trim(*text).empty();
}

std::int64_t Int64Of(const Variant& value) { return ToWhole(ExactDigits(value)); }

Variant MoneyFor(const Variant& value) {
  try {
    return CCur(value);
  } catch (const HostError& error) {
    if (error.Number() != errors::Overflow) throw;
    return ExactDecimal(value);
  }
}

Variant DateFor(const Column& column, const Variant& value) {
  const SplitMoment moment = Split(MomentOf(CDate(value)));
  if (column.storage == Storage::Day) return DateOf(moment.day, 0);
  if (column.storage == Storage::TimeOfDay) return DateOf(0, moment.micros);
  return DateOf(moment.day, moment.micros);
}

const Date& DateIn(const Variant& value) { return *value.TryGet<Date>(); }

String DecimalTextOf(const Variant& value) { return DecimalText(*value.TryGet<Decimal>()); }

String MoneyTextOf(const Variant& value) {
  const auto* money = value.TryGet<Currency>();
  return money != nullptr ? MoneyText(money->TenThousandths) : DecimalTextOf(value);
}

bool IsFloat(const Variant& value) { return value.TryGet<double>() || value.TryGet<float>(); }

}  // namespace

Variant CellValue(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                  std::size_t column) {
  if (store.IsNull(row, column)) return Variant::Null();
  if (const auto kept = store.KeptText(row, column)) return KeptValue(columns[column], *kept);
  switch (columns[column].storage) {
    case Storage::Int16:
      return store.Fixed<std::int16_t>(row, column);
    case Storage::Int32:
      return store.Fixed<std::int32_t>(row, column);
    case Storage::Int64:
      return DecimalOf(store.Fixed<std::int64_t>(row, column));
    case Storage::Single:
      return FloatValue(store.Fixed<float>(row, column));
    case Storage::Double:
      return FloatValue(store.Fixed<double>(row, column));
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
  if (column.storage == Storage::Text) return column.lowerCase ? LCase(CStr(value)) : CStr(value);
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
      return MoneyFor(value);
    case Storage::Number:
      return ExactDecimal(value);
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
  return IsFloat(a) || IsFloat(b) ? CDbl(a) == CDbl(b) : IsSameNumber(a, b);
}

String CellParameter(const ColumnStore& store, const Columns& columns, std::uint32_t row,
                     std::size_t column) {
  if (const auto kept = store.KeptText(row, column)) return FromUtf8(*kept);
  switch (columns[column].storage) {
    case Storage::Text:
    case Storage::Number:
      return FromUtf8(store.Text(row, column));
    case Storage::Single:
      return ShortestText(store.Fixed<float>(row, column));
    case Storage::Double:
      return ShortestText(store.Fixed<double>(row, column));
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
      return DecimalTextOf(value);
    case Storage::Boolean:
      return *value.TryGet<bool>() ? u"1" : u"0";
    case Storage::Money:
      return MoneyTextOf(value);
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
      if (value.TryGet<Decimal>()) return store.AppendKept(column, DecimalTextOf(value));
      return store.AppendFixed(column, value.TryGet<Currency>()->TenThousandths);
    case Storage::Day:
      return store.AppendFixed(column, static_cast<std::int32_t>(Split(moment).day));
    case Storage::TimeOfDay:
      return store.AppendFixed(column, Split(moment).micros);
    case Storage::Moment:
      return store.AppendFixed(column, moment);
    case Storage::Number:
      return store.AppendText(column, DecimalTextOf(value));
    case Storage::Text:
      return store.AppendText(column, *value.TryGet<String>());
  }
}

}  // namespace tessaria::sql
