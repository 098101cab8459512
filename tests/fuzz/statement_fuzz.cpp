// Any text as a statement is refused, or its scan ends and stays within the text. Any value stays
// one token between apostrophes, and as a number.
#include <cstdlib>

#include "hosts/sql/statements/statement_guard.h"
#include "lookup/literals.h"
#include "runtime/well_formed.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tests/fuzz/input.h"

namespace {

using namespace tessaria;

void Require(bool holds) {
  if (!holds) std::abort();
}

void TryAsStatement(const String& text, sql::Dialect dialect, bool backslashes) {
  try {
    Require(sql::RequireSingleStatement(text, dialect, backslashes).text.size() <= text.size());
  } catch (const HostError&) {
  }
}

void TryAsText(const String& value, SqlRules rules) {
  const String doubled = DoubleApostrophes(value);
  const String content = rules.backslashes ? Replace(doubled, u"\\", u"\\\\") : doubled;
  const String text = u"'" + content + u"'";
  SqlScanner scanner(text, rules);
  const SqlToken token = scanner.Next();
  Require(token.Is(SqlToken::Kind::Text) && token.length == text.size());
}

void TryAsNumber(const String& value, SqlRules rules) {
  String number;
  try {
    number = SqlNumber(value, {});
  } catch (const HostError&) {
    return;
  }
  SqlScanner scanner(number, rules);
  SqlToken token = scanner.Next();
  if (token.Is(SqlToken::Kind::Symbol)) token = scanner.Next();
  if (token.Is(SqlToken::Kind::Number)) token = scanner.Next();
  Require(token.Is(SqlToken::Kind::End));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const auto dialect = static_cast<sql::Dialect>(input.Byte() % 4);
  const bool backslashes = input.Byte() % 2 != 0;
  const SqlRules rules = sql::RulesOf(dialect, backslashes);
  const String text = input.Rest();
  TryAsStatement(text, dialect, backslashes);
  TryAsStatement(u"select 1 where a = " + text, dialect, backslashes);
  if (IsWellFormed(text)) TryAsText(text, rules);
  TryAsNumber(text, rules);
  return 0;
}
