#include "hosts/sql/values/money.h"

#include <cstdio>
#include <limits>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr int kDecimals = 4;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Digits after the decimal mark; 0 when the last mark only groups thousands.
std::size_t DecimalsOf(StringView text) {
  const std::size_t mark = text.find_last_of(u".,");
  if (mark == StringView::npos) return 0;
  std::size_t digits = 0;
  for (const char16_t c : text.substr(mark)) digits += IsDigit(c) ? 1 : 0;
  return digits == 3 || digits > kDecimals ? 0 : digits;
}

bool IsNegative(StringView text) { return text.find_first_of(u"-(") != StringView::npos; }

}  // namespace

std::optional<std::int64_t> MoneyFromText(StringView text) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  std::int64_t value = 0;
  const auto append = [&](int digit) {
    if (value > (kMost - digit) / 10) return false;
    value = value * 10 + digit;
    return true;
  };
  for (const char16_t c : text) {
    if (IsDigit(c) && !append(c - u'0')) return std::nullopt;
  }
  for (std::size_t i = DecimalsOf(text); i < kDecimals; ++i) {
    if (!append(0)) return std::nullopt;
  }
  return IsNegative(text) ? -value : value;
}

String PlainMoneyText(StringView text) {
  String digits;
  for (const char16_t c : text) {
    if (IsDigit(c)) digits += c;
  }
  const std::size_t decimals = DecimalsOf(text);
  if (decimals > 0) digits.insert(digits.size() - decimals, u".");
  return (IsNegative(text) ? u"-" : u"") + digits;
}

String MoneyText(std::int64_t tenThousandths) {
  const auto magnitude = tenThousandths < 0 ? 0 - static_cast<std::uint64_t>(tenThousandths)
                                            : static_cast<std::uint64_t>(tenThousandths);
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%s%llu.%04llu", tenThousandths < 0 ? "-" : "",
                static_cast<unsigned long long>(magnitude / 10000),
                static_cast<unsigned long long>(magnitude % 10000));
  return FromUtf8(buffer);
}

}  // namespace tessaria::sql
