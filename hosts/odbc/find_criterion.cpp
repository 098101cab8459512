#include "hosts/odbc/find_criterion.h"

#include <algorithm>
#include <cmath>

#include "hosts/odbc/diagnostics.h"
#include "runtime/conversion.h"
#include "runtime/text.h"

namespace tessaria::odbc {
namespace {

constexpr double kSecondsPerDay = 86400;

[[noreturn]] void RefuseCriterion(const String& text) {
  throw HostError(errors::InvalidCriteria, u"Critério de pesquisa inválido: " + text);
}

bool IsQuoted(const String& text, char16_t quote) {
  return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

// Where the field's name ends: behind its bracket, or at the blank or operator behind it.
std::size_t EndOfName(const String& text) {
  if (StartsWith(text, u"[")) {
    const std::size_t close = text.find(u']');
    return close == String::npos ? text.size() : close + 1;
  }
  return std::min(text.find_first_of(u" =<>"), text.size());
}

bool IsDateColumn(const Column& column) {
  return column.storage == Storage::Day || column.storage == Storage::TimeOfDay ||
         column.storage == Storage::Moment;
}

bool IsPlainNumber(StringView text) {
  return !text.empty() && text.find_first_not_of(u"+-0123456789.eE") == StringView::npos &&
         std::count(text.begin(), text.end(), u'.') <= 1;
}

// Dates as seconds, so that fractions of one do not count.
double NumberOf(const Variant& value) {
  return value.TryGet<Date>() ? std::nearbyint(CDbl(value) * kSecondsPerDay) : CDbl(value);
}

double ValueNumber(const Column& column, const String& text) {
  if (IsDateColumn(column)) return NumberOf(CDate(text));
  if (column.storage == Storage::Boolean) return NumberOf(CBool(text));
  return IsPlainNumber(text) ? Val(text) : CDbl(text);
}

}  // namespace

std::optional<std::size_t> ColumnOfName(const Columns& columns, StringView name) {
  String wanted = Trim(name);
  if (wanted.size() >= 2 && wanted.front() == u'[' && wanted.back() == u']') {
    wanted = wanted.substr(1, wanted.size() - 2);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (EqualNoCase(columns[i].name, wanted)) return i;
  }
  return std::nullopt;
}

FindCriterion::FindCriterion(const Columns& columns, const String& text) {
  const String trimmed = Trim(text);
  std::size_t at = EndOfName(trimmed);
  const String name = trimmed.substr(0, at);
  const auto op = OperatorAt(trimmed, at);
  if (name.empty() || !op) RefuseCriterion(text);
  const auto column = ColumnOfName(columns, name);
  if (!column) throw HostError(errors::ItemNotFound, u"Campo não encontrado: " + name);
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
  // Two signs before one.
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
  } else if (isText_) {
    value_ = text;
  } else {
    number_ = ValueNumber(column, text);
  }
}

bool FindCriterion::Matches(const RowTable& table, RowId row) const {
  const bool cellIsNull = table.IsNull(row, column_);
  if (isNull_) return operator_ == Operator::NotEqual ? !cellIsNull : cellIsNull;
  if (cellIsNull) return false;
  if (isText_) {
    const String text = FromUtf8(table.Text(row, column_));
    if (pattern_) return pattern_->Matches(text);
    if (operator_ == Operator::Equal || operator_ == Operator::NotEqual) {
      return EqualNoCase(text, value_) == (operator_ == Operator::Equal);
    }
    return Holds(CompareText(text, value_));
  }
  const double number = NumberOf(table.Value(row, column_));
  return Holds(number < number_ ? -1 : number > number_ ? 1 : 0);
}

bool FindCriterion::Holds(int comparison) const {
  switch (operator_) {
    case Operator::NotEqual:
      return comparison != 0;
    case Operator::Less:
      return comparison < 0;
    case Operator::Greater:
      return comparison > 0;
    case Operator::LessOrEqual:
      return comparison <= 0;
    case Operator::GreaterOrEqual:
      return comparison >= 0;
    case Operator::Equal:
    case Operator::Like:
      break;
  }
  return comparison == 0;
}

}  // namespace tessaria::odbc
