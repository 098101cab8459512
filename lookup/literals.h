// Typed and stored values as they stand in SQL: each of them one token, or an error.
#pragma once

#include "lookup/sql_scanner.h"
#include "tessaria/variant.h"

namespace tessaria {

/// How the thread's connection reads a statement into which `value` is joined. With no open
/// connection the family is unknown. Error 5 when the value holds a backslash and the connection
/// does not know what its server makes of one.
SqlRules RulesFor(StringView value);

/// The text with every apostrophe doubled, and nothing else changed. For a statement's text see
/// `TextContent`.
String DoubleApostrophes(StringView text);

/// What stands for a text between apostrophes: its apostrophes are doubled, and its backslashes
/// where the server reads them as escapes. Error 5 for a text that is not well formed, and as
/// above.
String TextContent(StringView text);
/// What stands for a text in a pattern of LIKE, between apostrophes: "%" and "_" stay wildcards,
/// and what the family's patterns escape with stands for itself. Errors as above.
String PatternContent(StringView text);
/// A text as `TextContent` gives it, with an apostrophe at each end.
String QuotedText(StringView text);

/// Whether a text is one number of SQL: [+-](digits[.[digits]]|.digits)[E[+-]digits].
bool IsSqlNumber(StringView text);

/// A typed or stored text as a number of SQL: nothing, or one number with blanks around it. It
/// stays as it is, but a comma becomes a point. Error 13 for anything else; the error tells the
/// value and `name`, which names it to the operator.
String SqlNumber(StringView value, StringView name);

/// A value as a literal: a text between apostrophes, anything else as a number without blanks.
/// Errors as above; 13, too, for a date.
String SqlLiteral(const Variant& value, StringView name);

/// A literal that was made earlier, as it stands, when it is a number or one text between
/// apostrophes. Error 13 otherwise.
String ReadyLiteral(const Variant& literal, StringView name);

/// The error that refuses a value: number 13, with `name`, the value (cut when long) and the
/// reason.
[[noreturn]] void RefuseValue(StringView name, StringView value, StringView reason);

}  // namespace tessaria
