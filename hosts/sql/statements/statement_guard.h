// Ensures one statement per call: reads what a text holds, and refuses a second statement.
#pragma once

#include "hosts/sql/statements/dialect.h"

namespace tessaria::sql {

/// What the guard has found out about one statement.
struct StatementFacts {
  /// Transaction control that the connection must do itself.
  enum class Control { None, Begin, Commit, Rollback, Savepoint };

  Control control = Control::None;
  /// The transaction modes after a Begin ("isolation level serializable").
  String modes;
  /// The statement, without a trailing semicolon.
  String text;
  /// Only reads: Select, Values, Table or With that does not write, lock or create a table.
  bool isPlainQuery = false;
  /// May lock tables against their readers.
  bool mayLockTables = false;
  /// May leave something in the session that later statements see: settings, temporary tables.
  bool leavesState = false;
  /// Reads with an outermost limit of one page or less.
  bool isSmallQuery = false;
  /// Shows rows of one table one to one, so that a row can be written back.
  bool isSingleTable = false;
  /// Where the text ends that gives the same rows in any order; 0 where they depend on it.
  std::size_t rowsEnd = 0;
  /// The column by which its rows come first of all, ascending: its name or its number from 1.
  /// Empty where that is not known.
  String firstOrder;
  /// Nothing but a name: a table to be read whole.
  bool isName = false;
};

/// Reads the statement. Errors (-2147217900): no statement at all; a second statement after a
/// semicolon (a trailing semicolon is none) or, for SQL Server, which needs no semicolon, after a
/// query or a change of rows; text that cannot be read with certainty; for PostgreSQL "?", "{" or
/// "}" outside quotes, which its driver would replace and its server would not take. When nothing
/// is known about the dialect's quoting, a semicolon inside the text is refused even between
/// quotes. Error 5: a character of code 0, or half of a surrogate pair. `backslashes`: whether the
/// server reads backslashes in plain texts as escapes.
StatementFacts RequireSingleStatement(StringView text, Dialect dialect, bool backslashes = false);

}  // namespace tessaria::sql
