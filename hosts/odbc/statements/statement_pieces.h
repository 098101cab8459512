// A statement as the rules on whole statements see it: words, quotations and signs.
#pragma once

#include <set>
#include <vector>

#include "lookup/sql_scanner.h"

namespace tessaria::odbc {

/// A token.
struct Piece {
  SqlToken::Kind kind;
  String text;  ///< words in upper case
  int depth;    ///< open parentheses around it; a parenthesis lies outside of itself
};
using Pieces = std::vector<Piece>;

/// The words that a statement which reads begins with.
inline const std::set<String> kReaders = {u"SELECT", u"VALUES", u"TABLE", u"WITH"};

Pieces PiecesOf(StringView text, SqlRules rules);
bool IsSymbol(const Piece& piece, StringView text);
bool IsWordOf(const Piece& piece, const std::set<String>& words);

}  // namespace tessaria::odbc
