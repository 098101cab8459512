#include "hosts/odbc/sql_scanner.h"

#include "runtime/text.h"

namespace tessaria::odbc {
namespace {

bool IsBlank(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c >= 0x80;
}
bool IsWordPart(char16_t c) { return IsLetter(c) || IsDigit(c) || c == u'$'; }

}  // namespace

Dialect DialectOf(StringView dbmsName) {
  if (EqualNoCase(dbmsName, u"PostgreSQL")) return Dialect::PostgreSql;
  if (EqualNoCase(dbmsName, u"Microsoft SQL Server")) return Dialect::SqlServer;
  if (EqualNoCase(dbmsName, u"ACCESS") || EqualNoCase(dbmsName, u"MS JET")) return Dialect::Access;
  return Dialect::Other;
}

SqlToken SqlScanner::Next() {
  SkipBlanksAndComments();
  SqlToken token;
  token.start = at_;
  if (at_ < text_.size()) token.kind = SkipToken();
  token.length = at_ - token.start;
  return token;
}

void SqlScanner::SkipBlanksAndComments() {
  for (;;) {
    if (at_ < text_.size() && IsBlank(text_[at_])) {
      ++at_;
    } else if (At(at_) == u'-' && At(at_ + 1) == u'-') {
      while (at_ < text_.size() && text_[at_] != u'\n' && text_[at_] != u'\r') ++at_;
    } else if (At(at_) == u'/' && At(at_ + 1) == u'*') {
      SkipBlockComment();
    } else {
      return;
    }
  }
}

void SqlScanner::SkipBlockComment() {
  const bool nests = dialect_ != Dialect::Other;
  int depth = 1;
  at_ += 2;
  while (at_ < text_.size() && depth > 0) {
    if (At(at_) == u'*' && At(at_ + 1) == u'/') {
      --depth;
      at_ += 2;
    } else if (nests && At(at_) == u'/' && At(at_ + 1) == u'*') {
      ++depth;
      at_ += 2;
    } else {
      ++at_;
    }
  }
}

// Stands on the opening quote. A doubled quote is one of the text's own.
void SqlScanner::SkipQuoted(char16_t quote, bool backslashes) {
  ++at_;
  while (at_ < text_.size()) {
    const char16_t c = text_[at_++];
    if (backslashes && c == u'\\' && at_ < text_.size()) {
      ++at_;
    } else if (c == quote) {
      if (At(at_) != quote) return;
      ++at_;
    }
  }
}

// $$...$$ or $tag$...$tag$. False, without moving, when this "$" opens neither.
bool SqlScanner::SkipDollarQuoted() {
  std::size_t end = at_ + 1;
  if (IsDigit(At(end))) return false;
  while (IsLetter(At(end)) || IsDigit(At(end))) ++end;
  if (At(end) != u'$') return false;
  const StringView tag = text_.substr(at_, end + 1 - at_);
  const std::size_t close = text_.find(tag, end + 1);
  at_ = close == StringView::npos ? text_.size() : close + tag.size();
  return true;
}

void SqlScanner::SkipWord() {
  while (IsWordPart(At(at_))) ++at_;
}

void SqlScanner::SkipDigits() {
  while (IsDigit(At(at_))) ++at_;
}

// Ends where the servers end a number: a quote, a "$" or an "E'" behind it starts a token.
void SqlScanner::SkipNumber() {
  SkipDigits();
  if (At(at_) != u'e' && At(at_) != u'E') return;
  const std::size_t sign = At(at_ + 1) == u'+' || At(at_ + 1) == u'-' ? 1 : 0;
  if (!IsDigit(At(at_ + 1 + sign))) return;
  at_ += 1 + sign;
  SkipDigits();
}

SqlToken::Kind SqlScanner::SkipToken() {
  using Kind = SqlToken::Kind;
  const char16_t c = text_[at_];
  const bool postgres = dialect_ == Dialect::PostgreSql;
  if (postgres && (c == u'E' || c == u'e') && At(at_ + 1) == u'\'') {
    ++at_;
    SkipQuoted(u'\'', true);
    return Kind::Text;
  }
  if (IsLetter(c)) return SkipWord(), Kind::Word;
  if (IsDigit(c)) return SkipNumber(), Kind::Number;
  if (c == u'\'') return SkipQuoted(u'\'', false), Kind::Text;
  if (c == u'"') return SkipQuoted(u'"', false), Kind::QuotedName;
  if (c == u'[' && IsBracketed(dialect_)) return SkipQuoted(u']', false), Kind::QuotedName;
  if (c == u'$' && postgres && SkipDollarQuoted()) return Kind::Text;
  ++at_;
  if (c == u'$' && postgres) SkipDigits();
  return Kind::Symbol;
}

}  // namespace tessaria::odbc
