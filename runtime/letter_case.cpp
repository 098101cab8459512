// Capital and small letters of the Latin alphabets (Latin-1 and Latin Extended-A).
#include <algorithm>
#include <iterator>

#include "tessaria/text.h"

namespace tessaria {

namespace {

// Letters whose capital and small forms alternate; the capital comes first.
struct Alternating {
  char16_t First, Last;
};
constexpr Alternating kAlternating[] = {
    {0x0100, 0x012F}, {0x0132, 0x0137}, {0x0139, 0x0148}, {0x014A, 0x0177}, {0x0179, 0x017E}};

// Letters whose small form follows the capital at a fixed distance.
constexpr char16_t kDistance = 0x20;
bool IsShiftedCapital(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= 0x00C0 && c <= 0x00DE && c != 0x00D7);
}

constexpr char16_t kCapitalYDiaeresis = 0x0178;
constexpr char16_t kSmallYDiaeresis = 0x00FF;

const Alternating* FindAlternating(char16_t c) {
  const auto* found = std::ranges::find_if(
      kAlternating, [c](const Alternating& range) { return c >= range.First && c <= range.Last; });
  return found == std::end(kAlternating) ? nullptr : found;
}

constexpr bool IsAscii(char16_t c) { return c < 0x80; }

char16_t Capital(char16_t c) {
  if (IsAscii(c)) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - kDistance) : c;
  if (c >= kDistance && IsShiftedCapital(static_cast<char16_t>(c - kDistance))) {
    return static_cast<char16_t>(c - kDistance);
  }
  if (c == kSmallYDiaeresis) return kCapitalYDiaeresis;
  const auto* range = FindAlternating(c);
  const bool small = range && (c - range->First) % 2 == 1;
  return small ? static_cast<char16_t>(c - 1) : c;
}

char16_t Small(char16_t c) {
  if (IsAscii(c)) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + kDistance) : c;
  if (IsShiftedCapital(c)) return static_cast<char16_t>(c + kDistance);
  if (c == kCapitalYDiaeresis) return kSmallYDiaeresis;
  const auto* range = FindAlternating(c);
  const bool capital = range && (c - range->First) % 2 == 0;
  return capital ? static_cast<char16_t>(c + 1) : c;
}

}  // namespace

bool EqualNoCase(StringView a, StringView b) {
  return std::ranges::equal(a, b, {}, Capital, Capital);
}

String UCase(StringView text) {
  String result(text);
  std::ranges::transform(result, result.begin(), Capital);
  return result;
}

String LCase(StringView text) {
  String result(text);
  std::ranges::transform(result, result.begin(), Small);
  return result;
}

}  // namespace tessaria
