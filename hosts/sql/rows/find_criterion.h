// The criterion of a search in a record set.
#pragma once

#include <compare>
#include <optional>

#include "hosts/sql/rows/row_table.h"
#include "hosts/sql/values/text_order.h"
#include "runtime/digits.h"

namespace tessaria::sql {

/// The column of that name, without regard to case and with or without brackets.
std::optional<std::size_t> ColumnOfName(const Columns& columns, StringView name);

/// "field op value": =, <>, <, >, <=, >= or like; the value between apostrophes, between #, or
/// bare; Null stands for an empty cell. Numbers take a point or a comma and compare exactly, a
/// Double by 15 significant digits and a Single by 7, or exactly when the criterion has more; dates
/// are read by the Brazilian rules and compare to the second. A cell that is shown as text and is
/// not a number matches only "<>".
class FindCriterion {
 public:
  /// Errors: 3001 for a text that is not a criterion, a pattern for a column that is not text, and
  /// a value that is not of the column's kind; 3265 for an unknown field.
  FindCriterion(const Columns& columns, const String& text);

  bool Matches(const RowTable& table, RowId row) const;
  std::size_t ColumnNumber() const { return column_; }
  /// A value, as a text, before which nothing matches in the ascending order of the column, texts
  /// as in a dictionary. Nothing where there is none or it is not known.
  std::optional<String> LeastMatch() const;
  /// Whether all rows that match are next to each other in that order.
  bool IsOneNumber() const { return !isText_ && LeastMatch().has_value(); }

 private:
  enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

  static std::optional<Operator> OperatorAt(const String& text, std::size_t& at);
  void TakeValue(const Column& column, String text);
  void TakeNumber(const Column& column, const String& text);
  void TakeBinary(const Variant& value);
  std::partial_ordering Compare(const Variant& cell) const;
  bool Holds(std::partial_ordering order) const;

  std::size_t column_ = 0;
  Operator operator_ = Operator::Equal;
  bool isText_ = false;
  bool isNull_ = false;
  String value_;   // of a text column
  Digits number_;  // of a column of numbers
  String least_;   // the same of whole numbers, as a text
  std::optional<double> binary_;
  std::int64_t moment_ = 0;  // of a column of dates
  std::optional<LikePattern> pattern_;
};

}  // namespace tessaria::sql
