#include "tessaria/memory/criteria.h"

#include <algorithm>
#include <iterator>

#include "runtime/digits.h"
#include "runtime/field_names.h"
#include "runtime/number_text.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

constexpr Long kInvalidCriterion = 3001;

[[noreturn]] void Refuse(StringView text) {
  throw HostError(kInvalidCriterion, u"Critério inválido: " + String(text));
}

std::size_t RequireColumn(const std::vector<Column>& columns, StringView name) {
  if (const auto column = ColumnByName(columns, name)) return *column;
  throw HostError(errors::ItemNotFound);
}

String TakeName(StringView& text) {
  const auto name = TakeFieldName(text);
  if (!name) Refuse(text);
  return *name;
}

/// The text between quotes, with doubled quotes made single.
String Unquoted(StringView text) {
  const String quote(1, text.front());
  if (text.size() < 2 || text.back() != text.front()) Refuse(text);
  const StringView inner = text.substr(1, text.size() - 2);
  const String marked = Replace(inner, quote + quote, String(1, u'\0'));
  if (InStr(marked, quote) > 0) Refuse(text);
  return Replace(marked, String(1, u'\0'), quote);
}

bool IsQuoted(StringView text) { return text.front() == u'\'' || text.front() == u'"'; }

/// A text without quotes that is not a number is left to its column, because it may be a date.
Variant ValueFrom(StringView text) {
  if (text.empty()) Refuse(text);
  if (EqualNoCase(text, u"null")) return Variant::Null();
  if (IsQuoted(text)) return Unquoted(text);
  if (text.front() == u'#') return CDate(Unquoted(text));
  const auto number = ReadCriterionNumber(text);
  return number ? Variant(ToDecimal(*number)) : Variant(String(text));
}

/// The form in which values are compared: texts without regard to case, dates to the second.
Variant Folded(const Variant& value) {
  if (const String* text = value.TryGet<String>()) return LCase(*text);
  if (const Date* date = value.TryGet<Date>()) return FromCivil(ToCivil(*date));
  return value;
}

bool IsNumberType(Long type) {
  static constexpr Long kTypes[] = {host::type::SmallInt, host::type::Integer,  host::type::Single,
                                    host::type::Double,   host::type::Currency, host::type::Decimal,
                                    host::type::TinyInt,  host::type::Numeric};
  return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

bool IsWildcard(char16_t c) { return c == u'*' || c == u'%'; }

}  // namespace

Criterion::Criterion(const std::vector<Column>& columns, StringView text) {
  static constexpr struct {
    const char16_t* Text;
    Operator Meaning;
  } kOperators[] = {
      {u"<>", Operator::NotEqual},
      {u"<=", Operator::LessOrEqual},
      {u">=", Operator::GreaterOrEqual},
      {u"=", Operator::Equal},
      {u"<", Operator::Less},
      {u">", Operator::Greater},
      {u"like ", Operator::Like},
  };
  const String trimmed = Trim(text);
  StringView rest = trimmed;
  column_ = RequireColumn(columns, TakeName(rest));
  const String condition = LTrim(rest);
  for (const auto& candidate : kOperators) {
    if (!EqualNoCase(Left(condition, Len(candidate.Text)), candidate.Text)) continue;
    operator_ = candidate.Meaning;
    TakeValue(columns[column_], LTrim(Mid(condition, Len(candidate.Text) + 1)));
    return;
  }
  Refuse(text);
}

void Criterion::TakeValue(const Column& column, StringView text) {
  try {
    value_ = Folded(ValueFrom(text));
  } catch (const HostError&) {
    Refuse(text);
  }
  if (value_.IsString() && IsTextType(column.Type) && !IsQuoted(text)) Refuse(text);
  if (operator_ == Operator::Like) {
    if (!IsTextType(column.Type) || !value_.IsString()) Refuse(text);
  } else if (!value_.IsNull() && !IsTextType(column.Type)) {
    TakeTyped(column, text);
  } else if (!value_.IsString() && !value_.IsNull() && IsTextType(column.Type)) {
    value_ = CStr(value_);
  }
}

/// A number keeps its exact value: 12.4 does not become an integer. A Single has fewer digits.
void Criterion::TakeTyped(const Column& column, StringView text) {
  const String* quoted = value_.TryGet<String>();
  if (quoted != nullptr && IsNumberType(column.Type)) {
    const auto number = ReadCriterionNumber(*quoted);
    if (!number) Refuse(text);
    value_ = ToDecimal(*number);
  }
  if (value_.IsNumeric() && column.Type != host::type::Single) {
    // A number with more digits than a Double shows means exactly that binary number.
    const double binary = CDbl(value_);
    const bool exact = Order(DigitsOf(Variant(binary)), DigitsOf(value_)) != 0;
    if (column.Type == host::type::Double && exact) value_ = binary;
    return;
  }
  try {
    value_ = Folded(ValueOfType(column, value_));
  } catch (const HostError&) {
    Refuse(text);
  }
}

bool Criterion::MatchesPattern(const Variant& cell) const {
  if (cell.IsNull()) return false;
  const String text = LCase(CStr(cell));
  StringView pattern = *value_.TryGet<String>();
  const bool openStart = !pattern.empty() && IsWildcard(pattern.front());
  if (openStart) pattern.remove_prefix(1);
  const bool openEnd = !pattern.empty() && IsWildcard(pattern.back());
  if (openEnd) pattern.remove_suffix(1);
  if (openStart && openEnd) return text.find(pattern) != String::npos;
  if (openStart) return EndsWith(text, pattern);
  return openEnd ? StartsWith(text, pattern) : text == pattern;
}

bool Criterion::Matches(const Row& row) const {
  const Variant cell = Folded(row[column_]);
  if (operator_ == Operator::Like) return MatchesPattern(cell);
  if (cell.IsNull() || value_.IsNull()) {
    const bool same = cell.IsNull() && value_.IsNull();
    return operator_ == Operator::Equal ? same : operator_ == Operator::NotEqual && !same;
  }
  // A stored text that is not a value of the column's type.
  if (cell.IsString() != value_.IsString()) return operator_ == Operator::NotEqual;
  switch (operator_) {
    case Operator::Equal:
      return Equal(cell, value_);
    case Operator::NotEqual:
      return !Equal(cell, value_);
    case Operator::Less:
      return Less(cell, value_);
    case Operator::Greater:
      return Less(value_, cell);
    case Operator::LessOrEqual:
      return !Less(value_, cell);
    default:
      return !Less(cell, value_);
  }
}

std::vector<SortKey> SortKeys(const std::vector<Column>& columns, StringView order) {
  const auto fields = ReadOrder(order);
  if (!fields) Refuse(order);
  std::vector<SortKey> keys;
  for (const auto& field : *fields)
    keys.push_back({RequireColumn(columns, field.Name), field.Descending});
  return keys;
}

bool StandsBefore(const std::vector<SortKey>& keys, const Row& a, const Row& b) {
  for (const SortKey& key : keys) {
    const Variant& first = key.Descending ? b[key.Column] : a[key.Column];
    const Variant& second = key.Descending ? a[key.Column] : b[key.Column];
    if (first.IsNull() || second.IsNull()) {
      if (first.IsNull() == second.IsNull()) continue;
      return first.IsNull();
    }
    const Variant left = Folded(first);
    const Variant right = Folded(second);
    if (Less(left, right)) return true;
    if (Less(right, left)) return false;
  }
  return false;
}

}  // namespace tessaria::memory
