#include "wizard/hand_over_texts.h"

#include <vector>

namespace tessaria::wizard {
namespace {

/// For each place of a text, whether it lies inside quotation marks, brackets or parentheses.
std::vector<bool> InsidePlaces(const String& text) {
  std::vector<bool> inside;
  char16_t end = 0;
  int depth = 0;
  for (const char16_t c : text) {
    inside.push_back(end != 0 || depth > 0);
    if (end != 0) {
      if (c == end) end = 0;
    } else if (c == u'\'' || c == u'"') {
      end = c;
    } else if (c == u'[') {
      end = u']';
    } else if (c == u'(') {
      ++depth;
    } else if (c == u')') {
      --depth;
    }
  }
  return inside;
}

/// Whether what stands before an entry's name is nothing, or the expression that it names.
bool IsEntryBefore(const String& before) {
  constexpr StringView kAs = u" as";
  const auto last = before.find_last_not_of(u' ');
  if (last == String::npos || before[last] == u',') return true;
  return last + 1 < before.size() && before.substr(0, last + 1).ends_with(kAs);
}

bool IsEntryBehind(const String& text, std::size_t end) {
  const auto next = text.find_first_not_of(u' ', end);
  return next == String::npos || text[next] == u',';
}

/// Cuts the name of an entry at its first place; an empty one is no name.
String WithoutFirst(const String& text, const String& name, const String& behind) {
  if (name.empty()) return text;
  const String cut = name + behind;
  const std::vector<bool> inside = InsidePlaces(text);
  for (auto at = text.find(cut); at != String::npos; at = text.find(cut, at + 1)) {
    if (!inside[at] && IsEntryBefore(text.substr(0, at)) && IsEntryBehind(text, at + name.size()))
      return text.substr(0, at) + text.substr(at + cut.size());
  }
  return text;
}

String Trimmed(const String& text) {
  constexpr StringView kEnds = u", ";
  const auto first = text.find_first_not_of(kEnds);
  if (first == String::npos) return {};
  return text.substr(first, text.find_last_not_of(kEnds) - first + 1);
}

}  // namespace

String BrwWhere(const mdlObjTxt::ListRows& rows) {
  String condition;
  for (const auto& row : rows) {
    const String term = mdlObjTxt::SearchTerm(row);
    if (term.empty()) continue;
    if (!condition.empty()) condition += u" and ";
    condition += term;
  }
  return condition;
}

String BrwCampoOutros(const String& campos, const String& chave, const String& irmao,
                      const String& tabela) {
  String rest = campos;
  for (const String& name : {chave, irmao}) {
    if (name.empty()) continue;
    const String whole = tabela.empty() ? name : tabela + u"." + name;
    rest = WithoutFirst(rest, whole, u",");
    rest = WithoutFirst(rest, whole, u"");
  }
  return Trimmed(rest);
}

}  // namespace tessaria::wizard
