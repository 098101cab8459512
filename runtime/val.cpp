// The number at the start of a text.

#include <algorithm>
#include <iterator>
#include <limits>

#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"

namespace tessaria {

namespace {

constexpr int kLargestExponent = 100000;  // far outside the range of doubles

bool TakeOneOf(StringView& rest, StringView letters) {
  if (rest.empty() || letters.find(rest.front()) == StringView::npos) return false;
  rest.remove_prefix(1);
  return true;
}

void TakeDigits(StringView& rest, std::string& digits) {
  for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1)) {
    digits.push_back(static_cast<char>(rest.front()));
  }
}

// "&H1F", "&O17", "&17". A number of up to 16 bits is signed and has 16 bits, so "&HFFFF" is -1; a
// longer one, or one with an "&" at the end, has 32 bits.
double ValueOfBits(StringView rest) {
  const int shift = TakeOneOf(rest, u"Hh") ? 4 : 3;
  if (shift == 3) TakeOneOf(rest, u"Oo");
  std::uint32_t bits = 0;
  for (; !rest.empty() && DigitValue(rest.front()) < 1 << shift; rest.remove_prefix(1)) {
    bits = (bits << shift) | static_cast<std::uint32_t>(DigitValue(rest.front()));
  }
  const bool isShort = bits <= 0xFFFF && !rest.starts_with(u'&');
  return isShort ? static_cast<Integer>(static_cast<std::uint16_t>(bits)) : static_cast<Long>(bits);
}

// The power of ten at the front; 0 when there is none or it is incomplete.
int ReadExponent(StringView rest) {
  if (!TakeOneOf(rest, u"EeDd")) return 0;
  const bool negative = TakeOneOf(rest, u"-");
  if (!negative) TakeOneOf(rest, u"+");
  int exponent = 0;
  for (; !rest.empty() && IsDigit(rest.front()); rest.remove_prefix(1)) {
    exponent = std::min(exponent * 10 + DigitValue(rest.front()), kLargestExponent);
  }
  return negative ? -exponent : exponent;
}

}  // namespace

double Val(StringView text) {
  String bare;  // blanks do not count, not even between digits
  std::ranges::remove_copy_if(text, std::back_inserter(bare), IsWhite);
  StringView rest = bare;
  if (TakeOneOf(rest, u"&")) return ValueOfBits(rest);
  Digits value;
  value.Negative = TakeOneOf(rest, u"-");
  if (!value.Negative) TakeOneOf(rest, u"+");
  TakeDigits(rest, value.Text);
  value.Point = static_cast<int>(value.Text.size());
  if (TakeOneOf(rest, u".")) TakeDigits(rest, value.Text);
  if (value.Text.empty()) return 0;
  value.Point += ReadExponent(rest);
  value.DropLeadingZeros();
  // A number too large for a double is not an error: the result is the largest double.
  constexpr double kLargest = std::numeric_limits<double>::max();
  return TryToDouble(value).value_or(value.Negative ? -kLargest : kLargest);
}

}  // namespace tessaria
