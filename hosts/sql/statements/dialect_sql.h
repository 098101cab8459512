// The parts of statements that differ from database to database.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/statements/dialect.h"
#include "hosts/sql/values/column.h"
#include "hosts/sql/values/sql_type.h"

namespace tessaria::sql {

/// The settings that a new connection sends before anything else.
std::vector<StringView> SettingsOf(Dialect dialect);

/// What makes a connection give up a statement that takes longer than `command`, and one that waits
/// longer than `lock` for what somebody else has locked. Both in seconds, 0 for no bound. Empty
/// where the server has no such settings.
String TimeoutSettings(Dialect dialect, Long command, Long lock);

/// A value for a "?". It is passed as text, which the driver converts to the SQL type; so no server
/// reads it by its own language settings, and no comparison mixes types.
struct Parameter {
  String text;
  Long sqlType = sql_type::WVarChar;
  std::size_t size = 1;  ///< characters, bytes or digits
  Long decimals = 0;
};

/// The parameter for a value of a column. `text` is the value as cell.h returns it. PostgreSQL
/// takes every value as text and reads it by the column's type.
Parameter ParameterOf(const Column& column, const String& text, Dialect dialect);

/// The placeholder for a column's value in a statement: "?", or an expression that converts it to
/// the column's type.
String ValueSlot(const Column& column, Dialect dialect);

/// The comparison of a column, under its name, with a parameter that is not Null. Nothing when the
/// database cannot compare the column.
std::optional<String> ConditionOf(const Column& column, const String& name, Dialect dialect);

/// How the key that the database gave to a new row is obtained.
enum class GivenKey {
  Unknown,
  Returned,   ///< by the insert itself, for all columns of the key
  SameBatch,  ///< queried right after the insert, for one column
  Afterwards  ///< queried by a separate statement, for one column
};
GivenKey GivenKeyOf(Dialect dialect);
/// The query for `SameBatch` and `Afterwards`.
StringView IdentityQuestion(Dialect dialect);

/// What the number of rows that a statement changed means for its one row.
enum class Outcome {
  Written,
  Refused,  ///< the row is no longer as it was
  Unknown   ///< the server does not count
};
Outcome OutcomeOf(std::int64_t rows);

}  // namespace tessaria::sql
