#include "runtime/number_text.h"

#include <algorithm>
#include <utility>

#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr StringView kCurrencySymbol = u"R$";
constexpr int kMostExponent = 100000;  // far outside every kind of number

// Reads the parts of a number text in their order; `rest_` is the unread part.
class NumberReader {
 public:
  explicit NumberReader(StringView text) : rest_(text) {}

  std::optional<NumberText> Read() {
    ReadFront();
    if (!ReadDigits() || !ReadExponent()) return std::nullopt;
    ReadBack();
    if (!rest_.empty() || open_) return std::nullopt;
    value_.Point += exponent_;
    value_.DropLeadingZeros();
    return NumberText{std::move(value_), std::nullopt};
  }

 private:
  void ReadFront() {
    while (SkipWhite() || TakeSign() || TakeSymbol() || TakeOpening()) {
    }
  }

  void ReadBack() {
    while (SkipWhite() || TakeSign() || TakeSymbol() || TakeClosing()) {
    }
  }

  bool SkipWhite() {
    if (rest_.empty() || !IsWhite(rest_.front())) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool Take(char16_t c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool TakeSign() {
    if (signed_) return false;
    const bool minus = Take(u'-');
    if (!minus && !Take(u'+')) return false;
    signed_ = true;
    value_.Negative = minus;
    return true;
  }

  bool TakeSymbol() {
    if (symbol_ || rest_.size() < 2 || rest_[1] != kCurrencySymbol[1]) return false;
    if (!EqualNoCase(rest_.substr(0, kCurrencySymbol.size()), kCurrencySymbol)) return false;
    rest_.remove_prefix(kCurrencySymbol.size());
    return symbol_ = true;
  }

  // Parentheses mean minus.
  bool TakeOpening() {
    if (signed_ || !Take(u'(')) return false;
    return signed_ = open_ = value_.Negative = true;
  }

  bool TakeClosing() {
    if (!open_ || !Take(u')')) return false;
    open_ = false;
    return true;
  }

  // Points group thousands; their positions are not checked.
  bool ReadDigits() {
    do TakeDigits();
    while (Take(u'.'));
    value_.Point = static_cast<int>(value_.Text.size());
    if (Take(u',')) TakeDigits();
    return !value_.Text.empty();
  }

  void TakeDigits() {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsDigit);
    const auto count = static_cast<std::size_t>(end - rest_.begin());
    const std::size_t before = value_.Text.size();
    value_.Text.resize(before + count);
    for (std::size_t i = 0; i < count; ++i) value_.Text[before + i] = static_cast<char>(rest_[i]);
    rest_.remove_prefix(count);
  }

  bool ReadExponent() {
    if (rest_.empty() || StringView(u"EeDd").find(rest_.front()) == StringView::npos) return true;
    rest_.remove_prefix(1);
    const bool negative = Take(u'-');
    if (!negative) Take(u'+');
    if (rest_.empty() || !IsDigit(rest_.front())) return false;
    for (; !rest_.empty() && IsDigit(rest_.front()); rest_.remove_prefix(1)) {
      exponent_ = std::min(exponent_ * 10 + DigitValue(rest_.front()), kMostExponent);
    }
    if (negative) exponent_ = -exponent_;
    return true;
  }

  StringView rest_;
  Digits value_;
  int exponent_ = 0;
  bool signed_ = false, symbol_ = false, open_ = false;
};

// "&H1F", "&O17", "&17", with or without an "&" at the end.
std::optional<NumberText> ReadBits(StringView text) {
  text.remove_prefix(1);
  int shift = 3;
  if (!text.empty() && (text.front() == u'H' || text.front() == u'h')) shift = 4;
  if (shift == 4 || text.starts_with(u'O') || text.starts_with(u'o')) text.remove_prefix(1);
  if (text.ends_with(u'&')) text.remove_suffix(1);
  if (text.empty()) return std::nullopt;
  std::uint64_t bits = 0;
  for (const char16_t c : text) {
    const int digit = DigitValue(c);
    if (digit >= 1 << shift || bits >> (63 - shift) != 0) return std::nullopt;
    bits = (bits << shift) | static_cast<std::uint64_t>(digit);
  }
  return NumberText{DigitsOf(static_cast<std::int64_t>(bits)), bits};
}

}  // namespace

std::optional<NumberText> ReadNumber(StringView text) {
  const StringView bare = WithoutWhite(text);
  return bare.starts_with(u'&') ? ReadBits(bare) : NumberReader(bare).Read();
}

std::optional<Digits> ReadCriterionNumber(StringView text) {
  const bool isPlain = text.find_first_not_of(u"+-0123456789.eE") == StringView::npos &&
                       std::count(text.begin(), text.end(), u'.') <= 1;
  const auto number = ReadNumber(isPlain ? Replace(text, u".", u",") : String(text));
  if (!number) return std::nullopt;
  return number->Value;
}

bool IsWhite(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

int DigitValue(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return 16;
}

StringView WithoutWhite(StringView text) {
  while (!text.empty() && IsWhite(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhite(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace tessaria
