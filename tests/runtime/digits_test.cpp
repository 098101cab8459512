// Decimal digits, on which the conversions are based.
#include "runtime/digits.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

String Plain(const Digits& value) { return PlainText(value, u'.'); }

TEST(DigitValues, OfWholeNumbers) {
  EXPECT_EQ(Plain(DigitsOf(std::int64_t{0})), u"0");
  EXPECT_EQ(Plain(DigitsOf(std::int64_t{-1200})), u"-1200");
  EXPECT_EQ(Plain(DigitsOf(std::int64_t{5}, 4)), u"0.0005");
  EXPECT_EQ(Plain(DigitsOf(std::int64_t{0}, 4)), u"0.0000");
  EXPECT_EQ(Plain(DigitsOf(std::numeric_limits<std::int64_t>::min())), u"-9223372036854775808");
}

TEST(DigitValues, OfDoubles) {
  EXPECT_EQ(Plain(DigitsOf(2.675)), u"2.675");
  EXPECT_EQ(Plain(DigitsOf(1E20)), u"100000000000000000000");
  EXPECT_EQ(Plain(DigitsOf(1E-7)), u"0.0000001");
  EXPECT_EQ(Plain(DigitsOf(double{0.1f}, kSingleDigits)), u"0.1");
  EXPECT_EQ(Plain(ShortestDigits(123456789012345.67)), u"123456789012345.67");
  EXPECT_HOST_ERROR(ShortestDigits(std::numeric_limits<double>::infinity()), errors::Overflow);
}

TEST(DigitRounding, GoesToEvenOrAway) {
  const struct {
    double Value;
    int Decimals;
    StringView Even, Away;
  } rows[] = {
      {2.5, 0, u"2", u"3"},         {3.5, 0, u"4", u"4"},           {-2.5, 0, u"-2", u"-3"},
      {0.5, 0, u"0", u"1"},         {0.05, 0, u"0", u"0"},          {2.51, 0, u"3", u"3"},
      {9.5, 0, u"10", u"10"},       {99.95, 1, u"100.0", u"100.0"}, {0.005, 2, u"0.00", u"0.01"},
      {0.015, 2, u"0.02", u"0.02"}, {1.25, 5, u"1.25", u"1.25"},    {0.0004, 2, u"0.00", u"0.00"},
      {0.96, 1, u"1.0", u"1.0"},    {1234, 2, u"1234", u"1234"}};
  for (const auto& row : rows) {
    const Digits digits = DigitsOf(row.Value);
    EXPECT_EQ(Plain(Rounded(digits, row.Decimals, Halves::ToEven)), row.Even) << row.Value;
    EXPECT_EQ(Plain(Rounded(digits, row.Decimals, Halves::AwayFromZero)), row.Away) << row.Value;
  }
}

TEST(DigitOrder, LooksAtValuesOnly) {
  const double values[] = {-1000, -1.5, -1.25, -0.001, 0, 0.001, 0.0011, 1, 1.25, 9, 10, 1000};
  for (const double a : values) {
    for (const double b : values) {
      EXPECT_TRUE(Order(DigitsOf(a), DigitsOf(b)) == (a <=> b)) << a << " " << b;
    }
  }
  EXPECT_TRUE(Order(DigitsOf(Decimal{{150}, 2, false}), DigitsOf(1.5)) == 0);
  EXPECT_TRUE(Order(DigitsOf(Decimal{{}, 2, true}), DigitsOf(0.0)) == 0);
}

}  // namespace
}  // namespace tessaria
