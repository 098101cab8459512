// UTF-8.
#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using namespace std::string_view_literals;

TEST(Utf8, RoundTrips) {
  const std::pair<StringView, std::string_view> rows[] = {
      {u""sv, ""sv},
      {u"abc"sv, "abc"sv},
      {u"a\0b"sv, "a\0b"sv},
      {u"\x7F\x80"sv, "\x7F\xC2\x80"sv},
      {u"ação"sv, "a\xC3\xA7\xC3\xA3o"sv},
      {u"\x07FF\x0800"sv, "\xDF\xBF\xE0\xA0\x80"sv},
      {u"€"sv, "\xE2\x82\xAC"sv},
      {u"\xD7FF\xE000\xFFFF"sv, "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"sv},
      {u"\U00010000\U0001F600\U0010FFFF"sv, "\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF"sv},
  };
  for (const auto& [wide, bytes] : rows) {
    EXPECT_EQ(ToUtf8(wide), bytes);
    EXPECT_EQ(FromUtf8(bytes), wide);
  }
}

TEST(Utf8, ReplacesHalfPairs) {
  const char16_t high[] = {0xD83D, 'x'}, low[] = {0xDE00, 0xD83D};
  EXPECT_EQ(ToUtf8(StringView(high, 2)), "\xEF\xBF\xBDx");
  EXPECT_EQ(ToUtf8(StringView(low, 2)), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, ReplacesInvalidBytes) {
  const std::pair<std::string_view, StringView> rows[] = {
      {"a\x80z"sv, u"a\xFFFDz"sv},                            // a tail without a lead
      {"\xC3"sv, u"\xFFFD"sv},                                // cut short
      {"\xC3z"sv, u"\xFFFDz"sv},                              // a lead without a tail
      {"\xC0\xAF"sv, u"\xFFFD\xFFFD"sv},                      // longer than needed
      {"\xE0\x80\x80"sv, u"\xFFFD\xFFFD\xFFFD"sv},            // the same
      {"\xED\xA0\x80"sv, u"\xFFFD\xFFFD\xFFFD"sv},            // a surrogate
      {"\xF4\x90\x80\x80"sv, u"\xFFFD\xFFFD\xFFFD\xFFFD"sv},  // beyond the last character
      {"\xFF\xFE"sv, u"\xFFFD\xFFFD"sv},
  };
  for (const auto& [bytes, wide] : rows) EXPECT_EQ(FromUtf8(bytes), wide);
}

}  // namespace
}  // namespace tessaria
