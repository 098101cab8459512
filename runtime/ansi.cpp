// The Western code page (1252).
#include <algorithm>
#include <array>

#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr Long kFirstSpecial = 0x80;

// Codes 0x80 to 0x9F. Every other code is the character of the same number, as are the five codes
// in this range that the page leaves undefined.
constexpr std::array<char16_t, 32> kSpecial = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr Long kBehindSpecial = kFirstSpecial + static_cast<Long>(kSpecial.size());
constexpr Long kLastCode = 0xFF;

bool IsSpecial(Long code) { return code >= kFirstSpecial && code < kBehindSpecial; }

}  // namespace

Integer AnsiCode(char16_t character) {
  const auto found = std::ranges::find(kSpecial, character);
  if (found != kSpecial.end()) {
    return static_cast<Integer>(kFirstSpecial + (found - kSpecial.begin()));
  }
  return character <= kLastCode && !IsSpecial(character) ? static_cast<Integer>(character) : u'?';
}

char16_t AnsiCharacter(Long code) {
  if (code < 0 || code > kLastCode) throw HostError(errors::InvalidArgument);
  return IsSpecial(code) ? kSpecial[static_cast<std::size_t>(code - kFirstSpecial)]
                         : static_cast<char16_t>(code);
}

}  // namespace tessaria
