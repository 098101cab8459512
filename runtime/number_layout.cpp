#include "runtime/number_layout.h"

#include <utility>

namespace tessaria {

namespace {

class SectionReader {
 public:
  explicit SectionReader(PatternPart pattern) : pattern_(pattern) {
    section_.Tokens.reserve(pattern.size());
  }

  NumberSection Read() {
    for (at_ = 0; at_ < pattern_.size(); ++at_) ReadItem(pattern_[at_]);
    EndWhole();
    return std::move(section_);
  }

 private:
  void ReadItem(const PatternItem& item) {
    if (item.IsOneOf(u"0#")) {
      section_.HasPoint ? AddFraction(item.Character) : AddWhole(item.Character);
    } else if (item.Is(u'.') && !section_.HasPoint) {
      EndWhole();
      section_.HasPoint = true;
      Add(TokenKind::Point, item.Character);
    } else if (item.Is(u',')) {
      if (!section_.HasPoint && section_.WholePlaces > 0) ++commas_;
    } else if (item.IsOneOf(u"eE") && StartsExponent()) {
      ReadExponent();
    } else {
      if (item.Is(u'%')) section_.Shift += 2;
      Add(TokenKind::Literal, item.Character);
    }
  }

  void AddWhole(char16_t place) {
    if (commas_ > 0) section_.Groups = true;
    commas_ = 0;
    ++section_.WholePlaces;
    if (place == u'0' || section_.LeastWhole > 0) ++section_.LeastWhole;
    Add(TokenKind::Whole, place);
  }

  void AddFraction(char16_t place) {
    ++section_.FractionPlaces;
    if (place == u'0') section_.LeastFraction = section_.FractionPlaces;
    Add(TokenKind::Fraction, place);
  }

  // Each comma after the last place of the whole part divides by a thousand.
  void EndWhole() {
    section_.Shift -= 3 * commas_;
    commas_ = 0;
  }

  bool StartsExponent() const {
    return !section_.HasExponent && section_.HasPlaces() && at_ + 2 < pattern_.size() &&
           pattern_[at_ + 1].IsOneOf(u"+-") && pattern_[at_ + 2].IsOneOf(u"0#");
  }

  void ReadExponent() {
    section_.HasExponent = true;
    section_.PlusExponent = pattern_[at_ + 1].Is(u'+');
    Add(TokenKind::Exponent, pattern_[at_].Character);
    for (++at_; at_ + 1 < pattern_.size() && pattern_[at_ + 1].IsOneOf(u"0#"); ++at_) {
      if (pattern_[at_ + 1].Is(u'0')) ++section_.ExponentPlaces;
    }
  }

  void Add(TokenKind kind, char16_t c) { section_.Tokens.push_back({kind, c}); }

  const PatternPart pattern_;
  std::size_t at_ = 0;
  int commas_ = 0;
  NumberSection section_;
};

}  // namespace

NumberLayout ReadNumberLayout(const Pattern& pattern) {
  const std::vector<PatternPart> sections = Sections(pattern);
  const auto read = [&](std::size_t i) -> std::optional<NumberSection> {
    if (i >= sections.size() || sections[i].empty()) return std::nullopt;
    return SectionReader(sections[i]).Read();
  };
  return {SectionReader(sections[0]).Read(), read(1), read(2)};
}

}  // namespace tessaria
