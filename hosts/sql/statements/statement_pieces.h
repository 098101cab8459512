// Splits a statement into words, quotations and signs, for the rules on whole statements.
#pragma once

#include <span>
#include <vector>

#include "lookup/sql_scanner.h"

namespace tessaria::sql {

/// A token.
struct Piece {
  SqlToken::Kind kind;
  String text;        ///< words in upper case
  int depth;          ///< open parentheses around it; a parenthesis does not count itself
  std::size_t start;  ///< position from 0
};
using Pieces = std::vector<Piece>;

/// The first words of statements that read.
inline constexpr StringView kReaders[] = {u"SELECT", u"VALUES", u"TABLE", u"WITH"};

Pieces PiecesOf(StringView text, SqlRules rules);
bool IsSymbol(const Piece& piece, StringView text);
bool IsWordOf(const Piece& piece, std::span<const StringView> words);

}  // namespace tessaria::sql
