#include "hosts/sql/rows/find_criterion.h"

#include <algorithm>
#include <string>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/values/calendar.h"
#include "runtime/field_names.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

[[noreturn]] void RefuseCriterion(const String& text) {
  throw HostError(errors::InvalidCriteria, u"Critério de pesquisa inválido: " + text);
}

bool IsQuoted(const String& text, char16_t quote) {
  return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

bool IsDateColumn(const Column& column) {
  return column.storage == Storage::Day || column.storage == Storage::TimeOfDay ||
         column.storage == Storage::Moment;
}

// Digits that every 64-bit number has room for.
constexpr int kSafeDigits = 18;

bool IsWholeNumber(const Column& column) {
  return column.storage == Storage::Int16 || column.storage == Storage::Int32 ||
         column.storage == Storage::Int64;
}

double BinaryOf(const Variant& value) {
  const float* single = value.TryGet<float>();
  return single ? double{*single} : CDbl(value);
}

}  // namespace

std::optional<std::size_t> ColumnOfName(const Columns& columns, StringView name) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (EqualNoCase(columns[i].name, name)) return i;
  }
  const bool isBracketed = name.size() >= 2 && name.front() == u'[' && name.back() == u']';
  return isBracketed ? ColumnOfName(columns, name.substr(1, name.size() - 2)) : std::nullopt;
}

FindCriterion::FindCriterion(const Columns& columns, const String& text) {
  const String trimmed = Trim(text);
  StringView rest = trimmed;
  const auto name = TakeFieldName(rest);
  std::size_t at = trimmed.size() - rest.size();
  const auto op = OperatorAt(trimmed, at);
  if (!name || !op) RefuseCriterion(text);
  const auto column = ColumnOfName(columns, *name);
  if (!column) throw HostError(errors::ItemNotFound, u"Campo não encontrado: " + *name);
  column_ = *column;
  operator_ = *op;
  try {
    TakeValue(columns[column_], Trim(trimmed.substr(at)));
  } catch (const HostError&) {
    RefuseCriterion(text);
  }
}

std::optional<FindCriterion::Operator> FindCriterion::OperatorAt(const String& text,
                                                                 std::size_t& at) {
  struct Entry {
    StringView sign;
    Operator op;
  };
  // Operators of two signs come before those of one.
  static constexpr Entry kOperators[] = {{u"<>", Operator::NotEqual},
                                         {u"<=", Operator::LessOrEqual},
                                         {u">=", Operator::GreaterOrEqual},
                                         {u"=", Operator::Equal},
                                         {u"<", Operator::Less},
                                         {u">", Operator::Greater},
                                         {u"like ", Operator::Like},
                                         {u"like'", Operator::Like}};
  at = std::min(text.find_first_not_of(u' ', at), text.size());
  const String rest = LCase(StringView(text).substr(at));
  for (const Entry& entry : kOperators) {
    if (!StartsWith(rest, entry.sign)) continue;
    at += entry.op == Operator::Like ? 4 : entry.sign.size();
    return entry.op;
  }
  return std::nullopt;
}

void FindCriterion::TakeValue(const Column& column, String text) {
  if (text.empty()) throw HostError(errors::InvalidCriteria);
  isText_ = column.storage == Storage::Text;
  isNull_ = EqualNoCase(text, u"null");
  if (isNull_) return;
  if (IsQuoted(text, u'\'')) {
    text = Replace(StringView(text).substr(1, text.size() - 2), u"''", u"'");
  } else if (IsQuoted(text, u'#')) {
    text = text.substr(1, text.size() - 2);
  } else if (isText_) {
    throw HostError(errors::InvalidCriteria);
  }
  if (operator_ == Operator::Like) {
    if (!isText_) throw HostError(errors::InvalidCriteria);
    pattern_.emplace(text);
    return;
  }
  if (isText_) {
    value_ = text;
  } else if (IsDateColumn(column)) {
    moment_ = MomentOf(CDate(text));
  } else {
    TakeNumber(column, text);
  }
}

// Keeps the digits that a value of the column shows.
void FindCriterion::TakeNumber(const Column& column, const String& text) {
  if (column.storage == Storage::Boolean) {
    number_ = DigitsOf(Variant(CBool(text)));
    return;
  }
  const auto digits = ReadCriterionNumber(text);
  if (!digits) throw HostError(errors::InvalidCriteria);
  number_ = *digits;
  const bool isWhole =
      static_cast<int>(number_.Text.size()) <= number_.Point && number_.Point <= kSafeDigits;
  if (IsWholeNumber(column) && isWhole) least_ = FromUtf8(std::to_string(ToWhole(number_)));
  if (column.storage == Storage::Double) TakeBinary(Variant(ToDouble(number_)));
  if (column.storage == Storage::Single) {
    TakeBinary(Variant(static_cast<float>(ToDouble(number_))));
  }
}

// A criterion with more digits than its value shows means exactly that binary number.
void FindCriterion::TakeBinary(const Variant& value) {
  const Digits shown = DigitsOf(value);
  if (Order(shown, number_) != 0) {
    binary_ = BinaryOf(value);
  }
  number_ = shown;
}

bool FindCriterion::Matches(const RowTable& table, RowId row) const {
  const bool cellIsNull = table.IsNull(row, column_);
  if (isNull_) return operator_ == Operator::NotEqual ? !cellIsNull : cellIsNull;
  if (cellIsNull) return false;
  if (!isText_) return Holds(Compare(table.Value(row, column_)));
  const String text = FromUtf8(table.Text(row, column_));
  if (pattern_) return pattern_->Matches(text);
  if (operator_ == Operator::Equal || operator_ == Operator::NotEqual) {
    return EqualNoCase(text, value_) == (operator_ == Operator::Equal);
  }
  return Holds(CompareText(text, value_) <=> 0);
}

std::optional<String> FindCriterion::LeastMatch() const {
  const bool isLike = operator_ == Operator::Like;
  const bool isFromThere = isLike || operator_ == Operator::Equal;
  if (isNull_ || !isFromThere) return std::nullopt;
  const String start = !isText_ ? least_ : isLike ? pattern_->Start() : LCase(value_);
  return start.empty() ? std::nullopt : std::optional(start);
}

// Unordered for a cell that is shown as text, unless the text is a number.
std::partial_ordering FindCriterion::Compare(const Variant& cell) const {
  if (const String* text = cell.TryGet<String>()) {
    const auto number = ReadNumber(*text);
    if (!number) return std::partial_ordering::unordered;
    return Order(number->Value, number_);
  }
  if (const Date* date = cell.TryGet<Date>()) return MomentOf(*date) <=> moment_;
  if (binary_) return BinaryOf(cell) <=> *binary_;
  return Order(DigitsOf(cell), number_);
}

bool FindCriterion::Holds(std::partial_ordering order) const {
  switch (operator_) {
    case Operator::NotEqual:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::Greater:
      return order > 0;
    case Operator::LessOrEqual:
      return order <= 0;
    case Operator::GreaterOrEqual:
      return order >= 0;
    case Operator::Equal:
    case Operator::Like:
      break;
  }
  return order == 0;
}

}  // namespace tessaria::sql
