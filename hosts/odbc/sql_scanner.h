// Splits SQL text into tokens, so far as it takes to tell code from quoted text.
#pragma once

#include <cstddef>

#include "tessaria/string.h"

namespace tessaria::odbc {

/// A database whose ways are known.
enum class Dialect {
  PostgreSql,  ///< E'' and dollar quotes, nested comments
  SqlServer,   ///< [identifiers]; statements may follow each other without a semicolon
  Access,      ///< [identifiers]; one statement at a time
  Other        ///< nothing is known beyond '' and ""
};

/// Whether [names] are quoted.
constexpr bool IsBracketed(Dialect dialect) {
  return dialect == Dialect::SqlServer || dialect == Dialect::Access;
}

/// The dialect of a database by the name that its driver gives ("PostgreSQL", "ACCESS", ...).
Dialect DialectOf(StringView dbmsName);

/// One token. Comments and blanks are none.
struct SqlToken {
  enum class Kind { Word, QuotedName, Text, Number, Symbol, End };
  Kind kind = Kind::End;
  std::size_t start = 0;   ///< position from 0
  std::size_t length = 0;  ///< in UTF-16 units, quotes included

  bool Is(Kind wanted) const { return kind == wanted; }
};

/// Walks a text token by token. Unfinished quotes and comments reach to the end of the text.
class SqlScanner {
 public:
  SqlScanner(StringView text, Dialect dialect) : text_(text), dialect_(dialect) {}

  SqlToken Next();
  StringView TextOf(const SqlToken& token) const { return text_.substr(token.start, token.length); }

 private:
  char16_t At(std::size_t position) const {
    return position < text_.size() ? text_[position] : u'\0';
  }
  void SkipBlanksAndComments();
  void SkipBlockComment();
  void SkipQuoted(char16_t quote, bool backslashes);
  bool SkipDollarQuoted();
  void SkipWord();
  void SkipDigits();
  void SkipNumber();
  SqlToken::Kind SkipToken();

  StringView text_;
  Dialect dialect_;
  std::size_t at_ = 0;
};

}  // namespace tessaria::odbc
