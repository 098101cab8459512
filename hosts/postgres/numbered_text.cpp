#include "hosts/postgres/numbered_text.h"

#include "hosts/sql/statements/dialect.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {

std::string NumberedText(StringView text, bool backslashes) {
  SqlScanner scanner(text, sql::RulesOf(sql::Dialect::PostgreSql, backslashes));
  std::string numbered;
  std::size_t copied = 0;
  int number = 0;
  for (SqlToken token = scanner.Next(); !token.Is(SqlToken::Kind::End); token = scanner.Next()) {
    if (!token.Is(SqlToken::Kind::Symbol) || scanner.TextOf(token) != u"?") continue;
    numbered += ToUtf8(text.substr(copied, token.start - copied)) + "$" + std::to_string(++number);
    copied = token.start + token.length;
  }
  return numbered + ToUtf8(text.substr(copied));
}

}  // namespace tessaria::postgres
