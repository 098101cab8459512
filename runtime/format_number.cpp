// Numbers as a number pattern shows them.
#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "runtime/number_layout.h"

namespace tessaria {

namespace {

constexpr char16_t kDecimalMark = u',';
constexpr char16_t kThousandsMark = u'.';

// A value prepared for a section: its digits, the whole ones first.
struct Shown {
  std::string Text;
  std::size_t Whole = 0;
  int Exponent = 0;

  bool IsZero() const { return Text.find_first_not_of('0') == std::string::npos; }
};

// Shifts the value so that the section's whole places are filled; returns the shift.
int Normalise(Digits& value, const NumberSection& section) {
  if (value.IsZero()) return 0;
  const int exponent = value.Point - section.WholePlaces;
  value.Point = section.WholePlaces;
  value = Rounded(std::move(value), section.FractionPlaces, Halves::AwayFromZero);
  const int carry = value.Point - section.WholePlaces;  // 9.99 became 10.0
  value.Point = section.WholePlaces;
  return exponent + carry;
}

std::size_t Places(int count) { return static_cast<std::size_t>(std::max(0, count)); }

Shown Prepare(Digits value, const NumberSection& section) {
  Shown shown;
  value.Point += section.Shift;
  if (section.HasExponent) shown.Exponent = Normalise(value, section);
  value = Rounded(std::move(value), section.FractionPlaces, Halves::AwayFromZero);
  if (value.IsZero()) value = {};
  std::string& digits = shown.Text = std::move(value.Text);
  shown.Whole = Places(value.Point);
  if (value.Point < 0) digits.insert(0, Places(-value.Point), '0');
  if (digits.size() < shown.Whole) digits.resize(shown.Whole, '0');
  if (const std::size_t least = Places(section.LeastWhole); shown.Whole < least) {
    digits.insert(0, least - shown.Whole, '0');
    shown.Whole = least;
  }
  const std::size_t end = std::max(shown.Whole, digits.find_last_not_of('0') + 1);
  digits.resize(std::max(end, shown.Whole + Places(section.LeastFraction)), '0');
  return shown;
}

class SectionWriter {
 public:
  SectionWriter(const NumberSection& section, const Shown& shown, bool showsMinus)
      : section_(section),
        shown_(shown),
        placesLeft_(Places(section.WholePlaces)),
        fraction_(shown.Whole) {
    text_.reserve(section.Tokens.size() + shown.Text.size() + shown.Whole / 3 + 1);
    if (showsMinus) text_ += u'-';
  }

  String Write() {
    for (const auto& token : section_.Tokens) WriteToken(token);
    return std::move(text_);
  }

 private:
  void WriteToken(const NumberToken& token) {
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
        if (fraction_ < shown_.Text.size()) Put(shown_.Text[fraction_++]);
        break;
      case TokenKind::Exponent:
        WriteExponent(token.Character);
        break;
    }
  }

  // The first place also takes all digits that have no place of their own.
  void WriteWhole() {
    while (shown_.Whole - whole_ > placesLeft_) {
      Put(shown_.Text[whole_++]);
      const std::size_t left = shown_.Whole - whole_;
      if (section_.Groups && left > 0 && left % 3 == 0) text_ += kThousandsMark;
    }
  }

  void WriteExponent(char16_t letter) {
    text_ += letter;
    if (shown_.Exponent < 0) text_ += u'-';
    if (shown_.Exponent >= 0 && section_.PlusExponent) text_ += u'+';
    const std::string digits = std::to_string(std::abs(shown_.Exponent));
    const auto places = Places(section_.ExponentPlaces);
    if (digits.size() < places) text_.append(places - digits.size(), u'0');
    for (const char digit : digits) Put(digit);
  }

  void Put(char digit) { text_ += static_cast<char16_t>(digit); }

  const NumberSection& section_;
  const Shown& shown_;
  std::size_t placesLeft_;
  std::size_t whole_ = 0, fraction_;
  String text_;
};

}  // namespace

// A sign is not shown when the value's own section shows only zeros.
String FormatNumber(const Digits& value, const NumberLayout& layout) {
  const bool isZero = value.IsZero();
  const bool negative = value.Negative && !isZero;
  const NumberSection& own = negative && layout.Negative ? *layout.Negative : layout.Any;
  const Shown shown = Prepare(value, own);
  if (!isZero && !(own.HasPlaces() && shown.IsZero()))
    return SectionWriter(own, shown, negative && !layout.Negative).Write();
  const NumberSection& zero = layout.Zero ? *layout.Zero : layout.Any;
  return SectionWriter(zero, Prepare({}, zero), false).Write();
}

}  // namespace tessaria
