// Where the statements of this layer differ from database to database.
#pragma once

#include <sql.h>

#include <optional>
#include <vector>

#include "hosts/odbc/statements/dialect.h"
#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// What a new connection is told before anything else.
std::vector<StringView> SettingsOf(Dialect dialect);

/// A value for a "?". It is handed over as text, which the driver turns into the SQL type; so no
/// server reads it by its own language, and no comparison mixes types.
struct Parameter {
  String text;
  SQLSMALLINT sqlType = SQL_WVARCHAR;
  SQLULEN size = 1;  ///< characters, bytes or digits
  SQLSMALLINT decimals = 0;
};

/// A value of a column, by its text as cell.h gives it. PostgreSQL takes every value as text and
/// reads it by the column's type.
Parameter ParameterOf(const Column& column, const String& text, Dialect dialect);

/// What stands for a column's value in a statement: "?", or what makes of it one of the type.
String ValueSlot(const Column& column, Dialect dialect);

/// The comparison of a column, under its name, with a parameter that is not Null. Nothing for what
/// the database cannot compare.
std::optional<String> ConditionOf(const Column& column, const String& name, Dialect dialect);

/// How the key that the database gave to a new row comes to be known.
enum class GivenKey {
  Unknown,
  Returned,   ///< by the insert itself, for all columns of the key
  SameBatch,  ///< asked right behind the insert, for one column
  Afterwards  ///< asked by a statement of its own, for one column
};
GivenKey GivenKeyOf(Dialect dialect);
/// The question for `SameBatch` and `Afterwards`.
StringView IdentityQuestion(Dialect dialect);

/// What the number of rows that a statement changed says of its one row.
enum class Outcome {
  Written,
  Refused,  ///< the row is not there as it was
  Unknown   ///< the server does not count
};
Outcome OutcomeOf(SQLLEN rows);

}  // namespace tessaria::odbc
