#include "lookup/where_text.h"

#include <algorithm>
#include <vector>

#include "lookup/literals.h"
#include "mask/form_helpers.h"
#include "runtime/well_formed.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr char16_t kParameterMark = u'@';

bool IsPartOfWord(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') ||
         c >= 0x80 || StringView(u"_$.#").find(c) != StringView::npos;
}
bool SeparatesTokens(char16_t c) { return StringView(u" \t\r\n\f(),").find(c) != StringView::npos; }
/// Whether a sign after this text would be read as part of the operator at its end: "--", or an
/// operator with a character after which the servers let a sign end an operator, as in "!=-".
bool JoinsSign(StringView text) {
  const std::size_t before = text.find_last_not_of(u"+-*/<>=~!@#%^&|`?");
  const StringView operation = text.substr(before == StringView::npos ? 0 : before + 1);
  if (operation.empty()) return false;
  const bool endsInSign = operation.back() == u'+' || operation.back() == u'-';
  return endsInSign || operation.find_first_of(u"~!@#%^&|`?") != StringView::npos;
}

bool IsSymbol(const SqlScanner& scanner, const SqlToken& token, StringView signs) {
  return token.Is(SqlToken::Kind::Symbol) &&
         signs.find(scanner.TextOf(token).front()) != StringView::npos;
}

/// Whether a text ends where an item in the list of an "in" begins.
bool OpensListItem(StringView text, SqlRules rules) {
  SqlScanner scanner(text, rules);
  std::vector<bool> parentheses;  // for each open one: whether it is the list of an "in"
  bool afterIn = false;
  bool startsItem = false;
  for (SqlToken token = scanner.Next(); token.length > 0; token = scanner.Next()) {
    startsItem = IsSymbol(scanner, token, u"(,");
    if (IsSymbol(scanner, token, u"(")) parentheses.push_back(afterIn);
    if (IsSymbol(scanner, token, u")") && !parentheses.empty()) parentheses.pop_back();
    afterIn = token.Is(SqlToken::Kind::Word) && EqualNoCase(scanner.TextOf(token), u"in");
  }
  return startsItem && !parentheses.empty() && parentheses.back();
}

/// One parameter and the text around it.
class Parameter {
 public:
  /// `before` is the text before the parameter, already expanded; `after` is the template after it.
  Parameter(const String& name, const String& value, StringView before, StringView after)
      : name_(name),
        value_(value),
        rules_(RulesFor(String(before) + value)),
        before_(before),
        after_(after) {}

  String Text() const {
    RequireWellFormed(value_);
    switch (ContextBehind(before_, rules_)) {
      case SqlContext::Code:
        return Number();
      case SqlContext::PlainText:
        return DoubleApostrophes(value_);
      case SqlContext::EscapeText:
        return Replace(DoubleApostrophes(value_), u"\\", u"\\\\");
      case SqlContext::Name:
        return Replace(value_, u"\"", u"\"\"");
      case SqlContext::Bracket:
        return WithoutClosing(u']', u"contém \"]\", que não é aceito entre colchetes.");
      case SqlContext::HashDate:
        return WithoutClosing(u'#', u"contém \"#\", que não é aceito em uma data entre \"#\".");
      case SqlContext::Closed:
        break;
    }
    RefuseValue(name_, value_,
                u"está onde a condição não aceita parâmetros (comentário ou texto especial).");
  }

 private:
  String WithoutClosing(char16_t closing, StringView reason) const {
    if (value_.find(closing) != String::npos) RefuseValue(name_, value_, reason);
    return value_;
  }

  String Number() const {
    if (IsListItem() && value_.find(u',') != String::npos)
      RefuseValue(name_, value_, u"é uma lista, e só um número é aceito aqui.");
    const String number = SqlNumber(value_, name_);
    const char16_t previous = before_.empty() ? u' ' : before_.back();
    const char16_t next = after_.empty() ? u' ' : after_.front();
    if (number.empty())
      return SeparatesTokens(previous) || SeparatesTokens(next) ? String() : String(u" ");
    const char16_t first = number.front();
    const bool touches =
        (first != u' ' && IsPartOfWord(previous)) || (number.back() != u' ' && IsPartOfWord(next));
    if (touches) RefuseValue(name_, value_, u"encosta em outra palavra da condição.");
    const bool sign = first == u'+' || first == u'-';
    return (sign && JoinsSign(before_) ? u" " : u"") + number;
  }

  /// Whether the parameter is an item of its own in the list of an "in", where "1,2" could mean two
  /// numbers.
  bool IsListItem() const {
    SqlScanner after(after_, rules_);
    const SqlToken next = after.Next();
    return IsSymbol(after, next, u"),") && OpensListItem(before_, rules_);
  }

  const String& name_;
  const String& value_;
  SqlRules rules_;
  StringView before_;
  StringView after_;
};

}  // namespace

String ExpandCondition(const host::FormPtr& form, const String& text) {
  String result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t open = std::min(text.find(kParameterMark, position), text.size());
    result.append(text, position, open - position);
    if (open == text.size()) break;
    const std::size_t close = std::min(text.find(kParameterMark, open + 1), text.size());
    const String reference = text.substr(open, close + 1 - open);
    const String name = text.substr(open + 1, close - open - 1);
    position = std::min(close + 1, text.size());
    const String value = ExpandeParametros(form, reference);
    result += Parameter(name, value, result, StringView(text).substr(position)).Text();
  }
  return result;
}

}  // namespace tessaria::mdlObjTxt
