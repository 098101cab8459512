// Number patterns of `Format`.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "runtime/format_pattern.h"

namespace tessaria {

namespace {

constexpr char16_t kDecimalMark = u',';
constexpr char16_t kThousandsMark = u'.';

enum class TokenKind { Literal, Whole, Fraction, Point, Exponent };

struct Token {
  TokenKind Kind;
  char16_t Character;  // of a literal or a place; the letter of an exponent
};

// One section of a pattern, parsed.
struct Section {
  std::vector<Token> Tokens;
  int WholePlaces = 0, FractionPlaces = 0, ExponentPlaces = 0;
  int LeastWhole = 0;     // places from the first "0" to the decimal mark
  int LeastFraction = 0;  // places from the decimal mark to the last "0"
  int Shift = 0;          // powers of ten: two for a "%", less three for a trailing comma
  bool Groups = false, HasPoint = false, HasExponent = false, PlusExponent = false;

  bool HasPlaces() const { return WholePlaces + FractionPlaces > 0; }
};

class SectionReader {
 public:
  explicit SectionReader(PatternPart pattern) : pattern_(pattern) {
    section_.Tokens.reserve(pattern.size());
  }

  Section Read() {
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
  Section section_;
};

// A value prepared for a section: its digits on both sides of the decimal mark.
struct Shown {
  std::string Whole, Fraction;
  int Exponent = 0;

  bool IsZero() const { return (Whole + Fraction).find_first_not_of('0') == std::string::npos; }
};

// Shifts the value so that the section's whole places are filled; returns the shift.
int Normalise(Digits& value, const Section& section) {
  if (value.IsZero()) return 0;
  const int exponent = value.Point - section.WholePlaces;
  value.Point = section.WholePlaces;
  value = Rounded(value, section.FractionPlaces, Halves::AwayFromZero);
  const int carry = value.Point - section.WholePlaces;  // 9.99 became 10.0
  value.Point = section.WholePlaces;
  return exponent + carry;
}

Shown Prepare(Digits value, const Section& section) {
  Shown shown;
  value.Point += section.Shift;
  if (section.HasExponent) shown.Exponent = Normalise(value, section);
  value = Rounded(value, section.FractionPlaces, Halves::AwayFromZero);
  if (value.IsZero()) value = {};
  value.Text.insert(0, static_cast<std::size_t>(std::max(0, -value.Point)), '0');
  const auto whole = static_cast<std::size_t>(std::max(0, value.Point));
  value.Text.resize(std::max(whole, value.Text.size()), '0');
  shown.Whole = value.Text.substr(0, whole);
  shown.Fraction = value.Text.substr(whole);
  const auto least = static_cast<std::size_t>(section.LeastWhole);
  if (shown.Whole.size() < least) shown.Whole.insert(0, least - shown.Whole.size(), '0');
  shown.Fraction.erase(shown.Fraction.find_last_not_of('0') + 1);
  const auto leastFraction = static_cast<std::size_t>(section.LeastFraction);
  if (shown.Fraction.size() < leastFraction) shown.Fraction.resize(leastFraction, '0');
  return shown;
}

class SectionWriter {
 public:
  SectionWriter(const Section& section, const Shown& shown)
      : section_(section), shown_(shown), placesLeft_(section.WholePlaces) {}

  String Write() {
    for (const auto& token : section_.Tokens) WriteToken(token);
    return std::move(text_);
  }

 private:
  void WriteToken(const Token& token) {
    switch (token.Kind) {
      case TokenKind::Literal:
        text_ += token.Character;
        break;
      case TokenKind::Whole:
        --placesLeft_;
        WriteWhole();
        break;
      case TokenKind::Point:
        WriteWhole();
        text_ += kDecimalMark;
        break;
      case TokenKind::Fraction:
        if (fraction_ < shown_.Fraction.size()) Put(shown_.Fraction[fraction_++]);
        break;
      case TokenKind::Exponent:
        WriteExponent(token.Character);
        break;
    }
  }

  // The first place also takes all digits that have no place of their own.
  void WriteWhole() {
    while (shown_.Whole.size() - whole_ > static_cast<std::size_t>(placesLeft_)) {
      Put(shown_.Whole[whole_++]);
      const std::size_t left = shown_.Whole.size() - whole_;
      if (section_.Groups && left > 0 && left % 3 == 0) text_ += kThousandsMark;
    }
  }

  void WriteExponent(char16_t letter) {
    text_ += letter;
    if (shown_.Exponent < 0) text_ += u'-';
    if (shown_.Exponent >= 0 && section_.PlusExponent) text_ += u'+';
    const std::string digits = std::to_string(std::abs(shown_.Exponent));
    const auto places = static_cast<std::size_t>(section_.ExponentPlaces);
    if (digits.size() < places) text_.append(places - digits.size(), u'0');
    for (const char digit : digits) Put(digit);
  }

  void Put(char digit) { text_ += static_cast<char16_t>(digit); }

  const Section& section_;
  const Shown& shown_;
  int placesLeft_;
  std::size_t whole_ = 0, fraction_ = 0;
  String text_;
};

// A sign is not shown when the value's own section shows only zeros.
struct Choice {
  Section Layout;
  Shown Value;
  bool ShowsMinus = false;
};

Choice Choose(const Digits& value, const std::vector<PatternPart>& sections) {
  const auto has = [&](std::size_t i) { return i < sections.size() && !sections[i].empty(); };
  const bool negative = value.Negative && !value.IsZero();
  const std::size_t own = negative && has(1) ? 1 : 0;
  Choice choice{SectionReader(sections[own]).Read(), {}, negative && own == 0};
  choice.Value = Prepare(value, choice.Layout);
  if (!value.IsZero() && !(choice.Layout.HasPlaces() && choice.Value.IsZero())) return choice;
  choice.Layout = SectionReader(sections[has(2) ? 2 : 0]).Read();
  choice.Value = Prepare({}, choice.Layout);
  choice.ShowsMinus = false;
  return choice;
}

}  // namespace

String FormatNumber(const Digits& value, const Pattern& pattern) {
  const Choice choice = Choose(value, Sections(pattern));
  return (choice.ShowsMinus ? u"-" : u"") + SectionWriter(choice.Layout, choice.Value).Write();
}

}  // namespace tessaria
