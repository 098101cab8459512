#include "hosts/odbc/money.h"

#include <cstdio>

#include "runtime/text.h"

namespace tessaria::odbc {
namespace {

constexpr int kDecimals = 4;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Digits behind the decimal mark; 0 when the last mark only groups thousands.
std::size_t DecimalsOf(StringView text) {
  const std::size_t mark = text.find_last_of(u".,");
  if (mark == StringView::npos) return 0;
  std::size_t digits = 0;
  for (const char16_t c : text.substr(mark)) digits += IsDigit(c) ? 1 : 0;
  return digits == 3 || digits > kDecimals ? 0 : digits;
}

}  // namespace

std::int64_t MoneyFromText(StringView text) {
  std::int64_t value = 0;
  for (const char16_t c : text) {
    if (IsDigit(c)) value = value * 10 + (c - u'0');
  }
  for (std::size_t i = DecimalsOf(text); i < kDecimals; ++i) value *= 10;
  const bool negative = text.find_first_of(u"-(") != StringView::npos;
  return negative ? -value : value;
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

}  // namespace tessaria::odbc
