#include "hosts/sql/values/text_order.h"

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// Base letters of the lower-case Latin letters from U+00E0; a letter that has none is itself.
constexpr StringView kBaseLetters = u"aaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00F7ouuuuy\u00FEy";
constexpr char16_t kFirstAccented = u'\u00E0';

int Sign(int comparison) { return comparison < 0 ? -1 : comparison > 0 ? 1 : 0; }

bool IsWildcard(char16_t c) { return c == u'*' || c == u'%'; }

}  // namespace

String BaseKey(StringView text) {
  String key = LCase(text);
  for (char16_t& c : key) {
    if (c >= kFirstAccented && c <= u'\u00FF') c = kBaseLetters[c - kFirstAccented];
  }
  return key;
}

int CompareText(StringView a, StringView b) {
  const int base = BaseKey(a).compare(BaseKey(b));
  return Sign(base != 0 ? base : LCase(a).compare(LCase(b)));
}

LikePattern::LikePattern(StringView pattern) {
  if (!pattern.empty() && IsWildcard(pattern.back())) {
    openEnd_ = true;
    pattern.remove_suffix(1);
  }
  if (!pattern.empty() && IsWildcard(pattern.front())) {
    openStart_ = true;
    pattern.remove_prefix(1);
  }
  part_ = LCase(pattern);
}

bool LikePattern::Matches(StringView text) const {
  const String folded = LCase(text);
  if (openStart_ && openEnd_) return folded.find(part_) != String::npos;
  if (openStart_) return EndsWith(folded, part_);
  if (openEnd_) return StartsWith(folded, part_);
  return folded == part_;
}

}  // namespace tessaria::sql
