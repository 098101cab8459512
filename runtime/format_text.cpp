// Text patterns of `Format`.
#include <algorithm>
#include <utility>

#include "runtime/format_pattern.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr StringView kPlaces = u"@&";

bool Holds(const Pattern& pattern, char16_t sign) {
  return std::ranges::any_of(pattern, [sign](const PatternItem& item) { return item.Is(sign); });
}

// Distributes the characters of a text over the places of a pattern.
class TextWriter {
 public:
  TextWriter(StringView text, const Pattern& pattern) : rest_(text), pattern_(pattern) {
    if (Holds(pattern, u'!')) return;  // filled from the left
    const auto places = static_cast<std::size_t>(std::ranges::count_if(
        pattern, [](const PatternItem& item) { return item.IsOneOf(kPlaces); }));
    empty_ = places - std::min(places, text.size());
    surplus_ = text.size() - std::min(places, text.size());
  }

  String Write() {
    for (const auto& item : pattern_) WriteItem(item);
    text_ += rest_;
    return std::move(text_);
  }

 private:
  void WriteItem(const PatternItem& item) {
    if (item.IsOneOf(kPlaces)) {
      WritePlace(item.Character);
    } else if (!item.IsOneOf(u"<>!")) {
      text_ += item.Character;
    }
  }

  void WritePlace(char16_t place) {
    if (empty_ > 0 || rest_.empty()) {
      if (empty_ > 0) --empty_;
      if (place == u'@') text_ += u' ';
      return;
    }
    const std::size_t count = 1 + std::exchange(surplus_, 0);
    text_ += rest_.substr(0, count);
    rest_.remove_prefix(count);
  }

  StringView rest_;
  const Pattern& pattern_;
  // Filled from the right: the number of leading places that stay empty, and of characters without
  // a place of their own, which the first place takes.
  std::size_t empty_ = 0, surplus_ = 0;
  String text_;
};

String InCaseOf(StringView text, const Pattern& pattern) {
  if (Holds(pattern, u'>')) return UCase(text);
  return Holds(pattern, u'<') ? LCase(text) : String(text);
}

}  // namespace

String FormatText(StringView text, const Pattern& pattern) {
  return TextWriter(InCaseOf(text, pattern), pattern).Write();
}

}  // namespace tessaria
