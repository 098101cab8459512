#include "runtime/format_pattern.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "tessaria/text.h"

namespace tessaria {

namespace {

struct NamedPattern {
  StringView Name, Pattern;
};

constexpr NamedPattern kNames[] = {
    {u"General Number", u""},
    {u"Currency", u"\"R$ \"#,##0.00"},
    {u"Fixed", u"0.00"},
    {u"Standard", u"#,##0.00"},
    {u"Percent", u"0.00%"},
    {u"Scientific", u"0.00E+00"},
    {u"Yes/No", u"\"Sim\";\"Sim\";\"Não\""},
    {u"True/False", u"\"Verdadeiro\";\"Verdadeiro\";\"Falso\""},
    {u"On/Off", u"\"Ativado\";\"Ativado\";\"Desativado\""},
    {u"General Date", u"c"},
    {u"Long Date", u"dddddd"},
    {u"Medium Date", u"dd-mmm-yy"},
    {u"Short Date", u"ddddd"},
    {u"Long Time", u"ttttt"},
    {u"Medium Time", u"hh:nn AM/PM"},
    {u"Short Time", u"hh:nn"},
};

}  // namespace

Pattern ReadPattern(StringView text) {
  Pattern pattern;
  pattern.reserve(text.size());
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'"') {
      quoted = !quoted;
    } else if (text[i] == u'\\' && !quoted) {
      if (++i < text.size()) pattern.push_back({text[i], true});
    } else {
      pattern.push_back({text[i], quoted});
    }
  }
  return pattern;
}

char16_t SmallLetter(const PatternItem& item) {
  if (item.Literal) return 0;
  return item.Character >= u'A' && item.Character <= u'Z'
             ? static_cast<char16_t>(item.Character + (u'a' - u'A'))
             : item.Character;
}

std::size_t RunLength(const Pattern& pattern, std::size_t start, std::size_t longest) {
  const char16_t letter = SmallLetter(pattern[start]);
  std::size_t end = start;
  while (end < pattern.size() && end - start < longest && SmallLetter(pattern[end]) == letter) {
    ++end;
  }
  return end - start;
}

bool StandsAt(const Pattern& pattern, std::size_t start, StringView text) {
  if (pattern.size() - start < text.size()) return false;
  return std::ranges::equal(text, std::span(pattern).subspan(start, text.size()),
                            [](char16_t c, const PatternItem& item) { return item.Is(c); });
}

std::vector<PatternPart> Sections(const Pattern& pattern) {
  std::vector<PatternPart> sections;
  const PatternPart whole(pattern);
  std::size_t start = 0;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (!pattern[i].Is(u';')) continue;
    sections.push_back(whole.subspan(start, i - start));
    start = i + 1;
  }
  sections.push_back(whole.subspan(start));
  return sections;
}

PatternKind KindOf(const Pattern& pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i].IsOneOf(u"0#.,%")) return PatternKind::Number;
    if (pattern[i].IsOneOf(u"dDmMyYhHnNsScCwWqQ")) return PatternKind::Date;
    if (pattern[i].IsOneOf(u"@&<>!")) return PatternKind::Text;
    const bool isTime = SmallLetter(pattern[i]) == u't';
    if (isTime && RunLength(pattern, i, kWholeTime) == kWholeTime) return PatternKind::Date;
  }
  return PatternKind::Number;
}

StringView ExpandName(StringView text) {
  const auto* found = std::ranges::find_if(
      kNames, [text](const NamedPattern& entry) { return EqualNoCase(entry.Name, text); });
  return found == std::end(kNames) ? text : found->Pattern;
}

}  // namespace tessaria
