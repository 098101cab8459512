#include "hosts/sql/statements/statement_pieces.h"

#include "tessaria/text.h"

namespace tessaria::sql {

using Kind = SqlToken::Kind;

Pieces PiecesOf(StringView text, SqlRules rules) {
  Pieces pieces;
  SqlScanner scanner(text, rules);
  int depth = 0;
  for (SqlToken token = scanner.Next(); !token.Is(Kind::End); token = scanner.Next()) {
    String piece(scanner.TextOf(token));
    if (token.Is(Kind::Word)) piece = UCase(piece);
    if (piece == u")") --depth;
    pieces.push_back({token.kind, std::move(piece), depth, token.start});
    if (pieces.back().text == u"(") ++depth;
  }
  return pieces;
}

bool IsSymbol(const Piece& piece, StringView text) {
  return piece.kind == Kind::Symbol && piece.text == text;
}

bool IsWordOf(const Piece& piece, const std::set<String>& words) {
  return piece.kind == Kind::Word && words.count(piece.text) > 0;
}

}  // namespace tessaria::sql
