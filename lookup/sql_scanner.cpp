#include "lookup/sql_scanner.h"

#include <algorithm>
#include <array>

namespace tessaria {
namespace {

using Kind = SqlToken::Kind;

bool IsNewLine(char16_t c) { return c == u'\n' || c == u'\r'; }
// The vertical tab is a blank only for some releases of PostgreSQL.
bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\f' || IsNewLine(c); }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsHexDigit(char16_t c) {
  return IsDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

struct Range {
  char16_t first, last;
};
// Control characters, and blanks and invisible characters beyond ASCII.
constexpr std::array<Range, 11> kOdd{{{0x00, 0x08},
                                      {0x0B, 0x0B},
                                      {0x0E, 0x1F},
                                      {0x7F, 0xA0},
                                      {0x1680, 0x1680},
                                      {0x180E, 0x180E},
                                      {0x2000, 0x200F},
                                      {0x2028, 0x202F},
                                      {0x205F, 0x206F},
                                      {0x3000, 0x3000},
                                      {0xFEFF, 0xFEFF}}};
bool IsOdd(char16_t c) {
  return std::any_of(kOdd.begin(), kOdd.end(),
                     [c](Range range) { return c >= range.first && c <= range.last; });
}

bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
         (c >= 0x80 && !IsOdd(c));
}
bool IsWordPart(char16_t c) { return IsLetter(c) || IsDigit(c) || c == u'$'; }

}  // namespace

SqlToken SqlScanner::Next() {
  SqlToken token;
  const bool readable = SkipBlanksAndComments();
  token.start = at_;
  if (!readable) {
    token.kind = Kind::Unreadable;
    at_ = text_.size();
  } else if (at_ < text_.size()) {
    token.kind = SkipToken();
  }
  token.length = at_ - token.start;
  return token;
}

// False before a comment that cannot be read.
bool SqlScanner::SkipBlanksAndComments() {
  for (;;) {
    const bool line = At(at_) == u'-' && At(at_ + 1) == u'-';
    const bool block = At(at_) == u'/' && At(at_ + 1) == u'*';
    if (at_ < text_.size() && IsBlank(text_[at_])) {
      ++at_;
    } else if (!line && !block) {
      return true;
    } else if (!HasComments() || !(line ? SkipLineComment() : SkipBlockComment())) {
      context_ = SqlContext::Closed;
      return false;
    }
  }
}

// Only for PostgreSQL is it certain which line ends count. Stops before the line end or at the end
// of the text.
bool SqlScanner::SkipLineComment() {
  std::size_t end = at_;
  while (end < text_.size() && !IsNewLine(text_[end])) {
    if (!IsPostgres() && IsOdd(text_[end])) return false;
    ++end;
  }
  if (!IsPostgres() && At(end) == u'\r' && At(end + 1) != u'\n') return false;
  if (end == text_.size()) context_ = SqlContext::Closed;
  at_ = end;
  return true;
}

bool SqlScanner::SkipBlockComment() {
  int depth = 1;
  std::size_t end = at_ + 2;
  for (; depth > 0; ++end) {
    if (end >= text_.size()) return false;
    const bool closes = At(end) == u'*' && At(end + 1) == u'/';
    const bool opens = At(end) == u'/' && At(end + 1) == u'*';
    if (!closes && !opens) continue;
    depth += opens ? 1 : -1;
    ++end;
  }
  at_ = end;
  return true;
}

Kind SqlScanner::Unfinished(SqlContext context) {
  at_ = text_.size();
  context_ = context;
  return Kind::Unreadable;
}

// Starts at the opening quote. A doubled closing quote belongs to the content.
Kind SqlScanner::SkipQuoted(char16_t quote, Kind kind, SqlContext context) {
  for (++at_; at_ < text_.size(); ++at_) {
    if (text_[at_] != quote) continue;
    if (At(++at_) != quote) return kind;
  }
  return Unfinished(context);
}

// Starts at the opening apostrophe. The continuation of a text on another line is of the same kind.
Kind SqlScanner::SkipText(TextKind kind) {
  const bool escapes = kind == TextKind::Escape || (kind == TextKind::Plain && rules_.backslashes);
  const bool doubles = kind != TextKind::Bits;
  ++at_;
  while (at_ < text_.size()) {
    const char16_t c = text_[at_++];
    if (escapes && c == u'\\') {
      if (at_++ >= text_.size()) return Unfinished(SqlContext::Closed);
    } else if (c == u'\'') {
      const bool doubled = doubles && At(at_) == u'\'';
      if (doubled) ++at_;
      if (!doubled && !SkipContinuation()) return Kind::Text;
    }
  }
  if (escapes) return Unfinished(SqlContext::EscapeText);
  return Unfinished(kind == TextKind::Plain ? SqlContext::PlainText : SqlContext::Closed);
}

// PostgreSQL continues a text after blanks and line comments that include a line end. Moves past
// the apostrophe that reopens the text, or not at all.
bool SqlScanner::SkipContinuation() {
  if (!IsPostgres()) return false;
  bool newLine = false;
  std::size_t end = at_;
  for (;;) {
    if (end < text_.size() && IsBlank(text_[end])) {
      newLine = newLine || IsNewLine(text_[end]);
      ++end;
    } else if (At(end) == u'-' && At(end + 1) == u'-') {
      while (end < text_.size() && !IsNewLine(text_[end])) ++end;
    } else {
      break;
    }
  }
  if (!newLine || At(end) != u'\'') return false;
  at_ = end + 1;
  return true;
}

// $$...$$, $tag$...$tag$ or $1; any other "$" is a symbol.
Kind SqlScanner::SkipDollar() {
  std::size_t end = at_ + 1;
  if (IsDigit(At(end))) {
    ++at_;
    SkipDigits();
    return IsLetter(At(at_)) ? (SkipWord(), Kind::Unreadable) : Kind::Symbol;
  }
  while (IsLetter(At(end)) || IsDigit(At(end))) ++end;
  if (At(end) != u'$') return ++at_, Kind::Symbol;
  const StringView tag = text_.substr(at_, end + 1 - at_);
  const std::size_t close = text_.find(tag, end + 1);
  if (close == StringView::npos) return Unfinished(SqlContext::Closed);
  at_ = close + tag.size();
  return Kind::Text;
}

Kind SqlScanner::SkipWord() {
  while (IsWordPart(At(at_))) ++at_;
  return Kind::Word;
}

void SqlScanner::SkipDigits() {
  while (IsDigit(At(at_))) ++at_;
}

void SqlScanner::SkipExponent() {
  if (At(at_) != u'e' && At(at_) != u'E') return;
  const std::size_t sign = At(at_ + 1) == u'+' || At(at_ + 1) == u'-' ? 1 : 0;
  if (!IsDigit(At(at_ + 1 + sign))) return;
  at_ += 1 + sign;
  SkipDigits();
}

// Servers, and releases of one server, differ on where a number ends that is followed by letters.
Kind SqlScanner::SkipNumber() {
  const bool hex = rules_.family == SqlFamily::SqlServer && At(at_) == u'0' &&
                   (At(at_ + 1) == u'x' || At(at_ + 1) == u'X');
  if (hex) {
    at_ += 2;
    while (IsHexDigit(At(at_))) ++at_;
  } else {
    SkipDigits();
    // "1..5" is a number, two points and a number.
    if (At(at_) == u'.' && At(at_ + 1) != u'.') ++at_, SkipDigits();
    SkipExponent();
  }
  return IsLetter(At(at_)) ? (SkipWord(), Kind::Unreadable) : Kind::Number;
}

// E'', U&'', U&"", B'' and X'' of PostgreSQL. Returns Symbol, without moving, when none begins
// here. N'' is a word followed by a plain text.
Kind SqlScanner::SkipPrefixedText() {
  const char16_t c = At(at_) | 0x20;
  if (c == u'u' && At(at_ + 1) == u'&' && (At(at_ + 2) == u'\'' || At(at_ + 2) == u'"')) {
    at_ += 2;
    return At(at_) == u'\'' ? SkipText(TextKind::Unicode)
                            : SkipQuoted(u'"', Kind::QuotedName, SqlContext::Closed);
  }
  if (At(at_ + 1) != u'\'' || (c != u'e' && c != u'b' && c != u'x')) return Kind::Symbol;
  ++at_;
  return SkipText(c == u'e' ? TextKind::Escape : TextKind::Bits);
}

Kind SqlScanner::SkipToken() {
  const char16_t c = text_[at_];
  const bool bracketed =
      rules_.family == SqlFamily::SqlServer || rules_.family == SqlFamily::Access;
  if (IsPostgres()) {
    const Kind prefixed = SkipPrefixedText();
    if (prefixed != Kind::Symbol) return prefixed;
    if (c == u'$') return SkipDollar();
  }
  if (IsLetter(c)) return SkipWord();
  if (IsDigit(c) || (c == u'.' && IsDigit(At(at_ + 1)))) return SkipNumber();
  if (c == u'\'') return SkipText(TextKind::Plain);
  if (c == u'"') return SkipQuoted(u'"', Kind::QuotedName, SqlContext::Name);
  if (c == u'[' && bracketed) return SkipQuoted(u']', Kind::QuotedName, SqlContext::Bracket);
  if (c == u'#' && rules_.family == SqlFamily::Access) {
    const std::size_t close = text_.find(u'#', at_ + 1);
    if (close == StringView::npos) return Unfinished(SqlContext::HashDate);
    at_ = close + 1;
    return Kind::Text;
  }
  ++at_;
  return IsOdd(c) ? Kind::Unreadable : Kind::Symbol;
}

SqlContext ContextBehind(StringView text, SqlRules rules) {
  SqlScanner scanner(text, rules);
  SqlToken token = scanner.Next();
  while (!token.Is(Kind::End) && !token.Is(Kind::Unreadable)) token = scanner.Next();
  const bool unclear = token.Is(Kind::Unreadable) && scanner.ContextAtEnd() == SqlContext::Code;
  return unclear ? SqlContext::Closed : scanner.ContextAtEnd();
}

}  // namespace tessaria
