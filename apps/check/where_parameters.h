// The `@name@` parameters of a condition.
#pragma once

#include <vector>

#include "lookup/sql_scanner.h"

namespace tessaria::formcheck {

struct WhereParameter {
  String name;
  SqlContext context = SqlContext::Code;  ///< what the parameter stands in
  std::size_t start = 0, length = 0;      ///< with both "@", in the condition
  bool isClosed = true;                   ///< whether the second "@" is there
};

std::vector<WhereParameter> ParametersOf(const String& where);

/// The condition with a value in place of each parameter: 0, or Null for a text that is nothing but
/// the parameter.
String WithSampleValues(const String& where);

/// How the conditions are read: as the database does that most forms are made for.
inline constexpr SqlRules kConditionRules{SqlFamily::PostgreSQL, false};

}  // namespace tessaria::formcheck
