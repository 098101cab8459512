// Splits SQL text into tokens by the servers' own lexical rules, so far as it takes to tell code
// from quoted text, and tells what cannot be read with certainty.
#pragma once

#include <cstddef>

#include "lookup/sql_family.h"
#include "tessaria/export.h"

namespace tessaria {

/// How a server reads its statements.
struct SqlRules {
  SqlFamily family = SqlFamily::Unknown;
  /// Whether a backslash in a plain text ('...') escapes the character behind it.
  bool backslashes = false;
};

/// What a place in a statement lies in.
enum class SqlContext {
  Code,
  PlainText,   ///< '...'
  EscapeText,  ///< '...' where a backslash escapes what follows
  Name,        ///< "..."
  Bracket,     ///< [...]
  HashDate,    ///< #...#
  Closed       ///< comments, dollar quotes, other kinds of text, behind an escaping backslash
};

/// One token. Comments and blanks are none.
struct SqlToken {
  enum class Kind {
    Word,
    QuotedName,
    Text,
    Number,
    Symbol,
    Unreadable,  ///< servers may read it in several ways, or it never ends
    End
  };
  Kind kind = Kind::End;
  std::size_t start = 0;   ///< position from 0
  std::size_t length = 0;  ///< in UTF-16 units, quotes included; 0 at the end only

  bool Is(Kind wanted) const { return kind == wanted; }
};

/// Walks a text token by token. A quotation or comment that never ends reaches to the end of the
/// text and is unreadable. So are numbers with letters behind them, control characters and
/// Unicode blanks outside of quotes, and comments where the family is not known to have them.
class TESSARIA_HOST_API SqlScanner {
 public:
  SqlScanner(StringView text, SqlRules rules) : text_(text), rules_(rules) {}

  SqlToken Next();
  StringView TextOf(const SqlToken& token) const { return text_.substr(token.start, token.length); }
  /// What the end of the text lies in, once all tokens have been taken.
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

/// What the end of a text lies in. Closed, too, behind what cannot be read.
TESSARIA_HOST_API SqlContext ContextBehind(StringView text, SqlRules rules);

}  // namespace tessaria
