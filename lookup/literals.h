// Typed and stored values as SQL literals: each is one token, or an error.
#pragma once

#include "lookup/sql_scanner.h"
#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

/// How the thread's connection reads a statement that contains `value`. Without an open connection
/// the family is unknown. Error 5 when the value contains a backslash and the connection does not
/// know how its server reads one.
SqlRules RulesFor(StringView value);

/// The text with each apostrophe doubled and nothing else changed. For text in a statement use
/// `TextContent`.
String DoubleApostrophes(StringView text);

/// A text as the content of an SQL text between apostrophes: apostrophes are doubled, and so are
/// backslashes where the server reads them as escapes. Error 5 for a text that is not well formed,
/// and as above.
String TextContent(StringView text);
/// A text as the content of a LIKE pattern between apostrophes: "%" and "_" stay wildcards, and the
/// escape characters of the family's patterns match themselves. Errors as above.
String PatternContent(StringView text);
/// The result of `TextContent` with an apostrophe at each end.
String QuotedText(StringView text);

/// Whether a text is one SQL number: [+-](digits[.[digits]]|.digits)[E[+-]digits].
bool IsSqlNumber(StringView text);

/// A typed or stored text as an SQL number: blank, or one number, which may have blanks around it.
/// The text is not changed, except that a comma becomes a point. Error 13 for anything else; its
/// description contains the value and `name`, by which the operator knows it.
String SqlNumber(StringView value, StringView name);

/// A value as a literal: a text between apostrophes, anything else as a number without blanks.
/// Errors as above; also 13 for a date.
TESSARIA_HOST_API String SqlLiteral(const Variant& value, StringView name);

/// A literal that was made earlier, unchanged, when it is a number or one text between apostrophes.
/// Error 13 otherwise.
String ReadyLiteral(const Variant& literal, StringView name);

/// Raises error 13, which refuses a value; its description has `name`, the value (cut when long)
/// and the reason.
[[noreturn]] void RefuseValue(StringView name, StringView value, StringView reason);

}  // namespace tessaria
