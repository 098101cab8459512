#include "lookup/literals.h"

#include "lookup/sql_family.h"
#include "runtime/well_formed.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {
namespace {

constexpr Long kShownLength = 60;

bool IsAsciiDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// Moves a position past the digits that start there; false when there are none.
bool SkipAsciiDigits(StringView text, std::size_t& position) {
  const std::size_t start = position;
  while (position < text.size() && IsAsciiDigit(text[position])) ++position;
  return position > start;
}

bool SkipAnyOf(StringView text, std::size_t& position, StringView signs) {
  const bool found = position < text.size() && signs.find(text[position]) != StringView::npos;
  if (found) ++position;
  return found;
}

bool BackslashEscapes(const host::Connection& connection) {
  const Variant escapes = connection.Properties(u"Backslash Escapes");
  if (escapes.IsNull()) {
    throw HostError(errors::InvalidArgument,
                    u"O valor contém uma barra invertida (\\), e não se sabe como este banco de "
                    u"dados a lê. Tire a barra do valor.");
  }
  return CBool(escapes);
}

}  // namespace

SqlRules RulesFor(StringView value) {
  SqlRules rules;
  const auto& connection = State().dbConexao;
  if (!connection) return rules;
  const bool isOpen = connection->State() == host::state::Open;
  if (!isOpen && !connection->CanReconnect()) return rules;
  rules.family = FamilyOfDialect(DialectName(*connection));
  // Only when it matters, because this queries the server.
  if (value.find(u'\\') != StringView::npos) rules.backslashes = BackslashEscapes(*connection);
  return rules;
}

String DoubleApostrophes(StringView text) { return Replace(text, u"'", u"''"); }

String TextContent(StringView text) {
  RequireWellFormed(text);
  const String doubled = DoubleApostrophes(text);
  return RulesFor(text).backslashes ? Replace(doubled, u"\\", u"\\\\") : doubled;
}

String PatternContent(StringView text) {
  // Without an open connection the family is unknown, and no statement is sent.
  switch (RulesFor({}).family) {
    case SqlFamily::PostgreSQL:
      return TextContent(Replace(text, u"\\", u"\\\\"));
    case SqlFamily::Access:
    case SqlFamily::SqlServer:
      return TextContent(Replace(text, u"[", u"[[]"));
    case SqlFamily::Unknown:
      break;
  }
  return TextContent(text);
}

String QuotedText(StringView text) { return u"'" + TextContent(text) + u"'"; }

bool IsSqlNumber(StringView text) {
  std::size_t position = 0;
  SkipAnyOf(text, position, u"+-");
  const bool hasWhole = SkipAsciiDigits(text, position);
  const bool hasDecimals = SkipAnyOf(text, position, u".") && SkipAsciiDigits(text, position);
  if (!hasWhole && !hasDecimals) return false;
  if (SkipAnyOf(text, position, u"eE")) {
    SkipAnyOf(text, position, u"+-");
    if (!SkipAsciiDigits(text, position)) return false;
  }
  return position == text.size();
}

String SqlNumber(StringView value, StringView name) {
  const String number = Replace(value, u",", u".");
  const String trimmed = Trim(number);
  if (!trimmed.empty() && !IsSqlNumber(trimmed))
    RefuseValue(name, value, u"não é um número, e só um número é aceito aqui.");
  return number;
}

String SqlLiteral(const Variant& value, StringView name) {
  if (const String* text = value.TryGet<String>()) return QuotedText(*text);
  return SqlNumber(Trim(SqlText(value)), name);
}

String ReadyLiteral(const Variant& literal, StringView name) {
  String text = SqlText(literal);
  if (!StartsWith(text, u"'")) return SqlNumber(text, name);
  RequireWellFormed(text);
  SqlScanner scanner(text, RulesFor(text));
  const SqlToken only = scanner.Next();
  if (!only.Is(SqlToken::Kind::Text) || only.length != text.size())
    RefuseValue(name, text, u"não é um texto só.");
  return text;
}

void RefuseValue(StringView name, StringView value, StringView reason) {
  String shown;
  for (const char16_t c : LeftWhole(value, kShownLength)) shown += c < u' ' ? u' ' : c;
  if (Len(value) > kShownLength) shown += u"...";
  throw HostError(errors::TypeMismatch, String(name) + (name.empty() ? u"" : u": ") +
                                            u"o valor \"" + shown + u"\" " + String(reason));
}

}  // namespace tessaria
