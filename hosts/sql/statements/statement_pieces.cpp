#include "hosts/sql/statements/statement_pieces.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria::sql {

using Kind = SqlToken::Kind;

Pieces PiecesOf(StringView statement, SqlRules rules) {
  constexpr std::size_t kMany = 64;  // more than a lookup's
  Pieces pieces;
  pieces.reserve(std::min(statement.size(), kMany));
  SqlScanner scanner(statement, rules);
  int depth = 0;
  for (SqlToken token = scanner.Next(); !token.Is(Kind::End); token = scanner.Next()) {
    const StringView text = scanner.TextOf(token);
    if (text == u")") --depth;
    pieces.push_back(
        {token.kind, token.Is(Kind::Word) ? UCase(text) : String(text), depth, token.start});
    if (text == u"(") ++depth;
  }
  return pieces;
}

bool IsSymbol(const Piece& piece, StringView text) {
  return piece.kind == Kind::Symbol && piece.text == text;
}

bool IsWordOf(const Piece& piece, std::span<const StringView> words) {
  return piece.kind == Kind::Word &&
         std::find(words.begin(), words.end(), piece.text) != words.end();
}

}  // namespace tessaria::sql
