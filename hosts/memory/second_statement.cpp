#include "hosts/memory/second_statement.h"

namespace tessaria::memory {

bool HoldsSecondStatement(StringView text, SqlRules rules) {
  SqlScanner scanner(text, rules);
  bool ended = false;
  for (SqlToken token = scanner.Next(); !token.Is(SqlToken::Kind::End); token = scanner.Next()) {
    const bool semicolon = scanner.TextOf(token) == u";";
    if (ended && !semicolon) return true;
    ended = ended || semicolon;
  }
  return false;
}

}  // namespace tessaria::memory
