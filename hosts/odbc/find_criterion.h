// The criterion of a seek in a record set.
#pragma once

#include <optional>

#include "hosts/odbc/row_table.h"
#include "hosts/odbc/text_order.h"

namespace tessaria::odbc {

/// The column of that name, without regard to case and in or without brackets.
std::optional<std::size_t> ColumnOfName(const Columns& columns, StringView name);

/// "field op value": =, <>, <, >, <=, >= or like; the value between apostrophes, between #,
/// or bare; Null stands for an empty cell. Numbers take a point or a comma; dates are read by the
/// Brazilian rules.
class FindCriterion {
 public:
  /// Errors: 3001 for a text that is no criterion, a pattern for a column that is no text and a
  /// value that is none of the column's kind; 3265 for an unknown field.
  FindCriterion(const Columns& columns, const String& text);

  bool Matches(const RowTable& table, RowId row) const;

 private:
  enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

  static std::optional<Operator> OperatorAt(const String& text, std::size_t& at);
  void TakeValue(const Column& column, String text);
  bool Holds(int comparison) const;

  std::size_t column_ = 0;
  Operator operator_ = Operator::Equal;
  bool isText_ = false;
  bool isNull_ = false;
  String value_;  // of a text column
  double number_ = 0;
  std::optional<LikePattern> pattern_;
};

}  // namespace tessaria::odbc
