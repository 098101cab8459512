// Splits SQL text into tokens by the servers' lexical rules, as far as needed to distinguish code
// from quoted text, and detects what cannot be read with certainty.
#pragma once

#include <cstddef>

#include "lookup/sql_family.h"
#include "tessaria/export.h"

namespace tessaria {

/// How a server reads its statements.
struct SqlRules {
  SqlFamily family = SqlFamily::Unknown;
  /// Whether a backslash in a plain text ('...') escapes the next character.
  bool backslashes = false;
};

/// What surrounds a position in a statement.
enum class SqlContext {
  Code,
  PlainText,   ///< '...'
  EscapeText,  ///< '...' where a backslash escapes the next character
  Name,        ///< "..."
  Bracket,     ///< [...]
  HashDate,    ///< #...#
  Closed       ///< comments, dollar quotes, other kinds of text, after an escaping backslash
};

/// One token. Comments and blanks are not tokens.
struct SqlToken {
  enum class Kind {
    Word,
    QuotedName,
    Text,
    Number,
    Symbol,
    Unreadable,  ///< servers may read it differently, or it is not terminated
    End
  };
  Kind kind = Kind::End;
  std::size_t start = 0;   ///< position from 0
  std::size_t length = 0;  ///< in UTF-16 units, quotes included; 0 at the end only

  bool Is(Kind wanted) const { return kind == wanted; }
};

/// Scans a text token by token. A quotation or comment that is not terminated reaches to the end of
/// the text and is unreadable. So are numbers that are followed by letters, control characters and
/// Unicode blanks outside quotes, and comments where the family is not known to have them.
class TESSARIA_HOST_API SqlScanner {
 public:
  SqlScanner(StringView text, SqlRules rules) : text_(text), rules_(rules) {}

  SqlToken Next();
  StringView TextOf(const SqlToken& token) const { return text_.substr(token.start, token.length); }
  /// The context at the end of the text, valid after all tokens have been read.
  SqlContext ContextAtEnd() const { return context_; }

 private:
  enum class TextKind { Plain, Escape, Unicode, Bits };

  char16_t At(std::size_t position) const {
    return position < text_.size() ? text_[position] : u'\0';
  }
  bool IsPostgres() const { return rules_.family == SqlFamily::PostgreSQL; }
  bool HasComments() const { return IsPostgres() || rules_.family == SqlFamily::SqlServer; }
  bool SkipBlanksAndComments();
  bool SkipLineComment();
  bool SkipBlockComment();
  SqlToken::Kind Unfinished(SqlContext context);
  SqlToken::Kind SkipQuoted(char16_t quote, SqlToken::Kind kind, SqlContext context);
  SqlToken::Kind SkipText(TextKind kind);
  bool SkipContinuation();
  SqlToken::Kind SkipDollar();
  SqlToken::Kind SkipWord();
  void SkipDigits();
  void SkipExponent();
  SqlToken::Kind SkipNumber();
  SqlToken::Kind SkipPrefixedText();
  SqlToken::Kind SkipToken();

  StringView text_;
  SqlRules rules_;
  std::size_t at_ = 0;
  SqlContext context_ = SqlContext::Code;
};

/// The context at the end of a text; also Closed after a part that cannot be read.
TESSARIA_HOST_API SqlContext ContextBehind(StringView text, SqlRules rules);

}  // namespace tessaria
