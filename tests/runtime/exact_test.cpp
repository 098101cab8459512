// The exact kinds: Decimal and Currency.
#include <gtest/gtest.h>

#include <limits>

#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
constexpr StringView kLargest = u"79228162514264337593543950335";

TEST(DecimalTexts, RoundTrip) {
  const StringView texts[] = {u"0",
                              u"0.00",
                              u"1",
                              u"-1",
                              u"1.50",
                              u"-0.001",
                              u"100",
                              u"123456789012345678901234567.89",
                              kLargest,
                              u"-7.9228162514264337593543950335",
                              u"0.0000000000000000000000000001",
                              u"4294967296",
                              u"18446744073709551616"};
  for (const auto text : texts) EXPECT_EQ(DecimalText(DecimalFromText(text)), text);
}

TEST(DecimalTexts, KeepTheirScale) {
  const Decimal value = DecimalFromText(u"-12.50");
  EXPECT_EQ(value, (Decimal{{1250}, 2, true}));
  EXPECT_EQ(DecimalFromText(u"+0012"), (Decimal{{12}, 0, false}));
  EXPECT_EQ(DecimalFromText(u"-0.00"), (Decimal{{}, 2, false}));
  EXPECT_EQ(DecimalFromText(u"18446744073709551616"), (Decimal{{0, 0, 1}, 0, false}));
  EXPECT_EQ(DecimalFromText(u".5"), (Decimal{{5}, 1, false}));
}

TEST(DecimalTexts, RoundDecimalsThatDoNotFit) {
  EXPECT_EQ(DecimalText(DecimalFromText(u"0.00000000000000000000000000005")),
            u"0.0000000000000000000000000000");
  EXPECT_EQ(DecimalText(DecimalFromText(u"0.00000000000000000000000000015")),
            u"0.0000000000000000000000000002");
  EXPECT_EQ(DecimalText(DecimalFromText(u"7.9228162514264337593543950336")),
            u"7.922816251426433759354395034");
  EXPECT_EQ(DecimalText(DecimalFromText(u"79228162514264337593543950335.4")), kLargest);
}

TEST(DecimalTexts, OthersAreErrors) {
  for (const StringView text : {u"", u"-", u".", u"5.", u"1,5", u" 1", u"1 ", u"1.2.3", u"--1",
                                u"+-1", u"1E3", u"x", u"1.", u"-."}) {
    EXPECT_HOST_ERROR(DecimalFromText(text), errors::TypeMismatch) << ToUtf8(text);
  }
  EXPECT_HOST_ERROR(DecimalFromText(u"79228162514264337593543950336"), errors::Overflow);
  EXPECT_HOST_ERROR(DecimalFromText(u"79228162514264337593543950335.5"), errors::Overflow);
  EXPECT_HOST_ERROR(DecimalFromText(String(100, u'9')), errors::Overflow);
}

TEST(ToDecimals, FromEveryKind) {
  const std::pair<Variant, Decimal> rows[] = {
      {Variant(), Decimal{}},
      {Integer{-7}, {{7}, 0, true}},
      {Long{70000}, {{70000}, 0, false}},
      {0.1f, {{1}, 1, false}},
      {0.1, {{1}, 1, false}},
      {1.0 / 3, {{921490773, 77610}, 15, false}},
      {Currency{-15000}, {{15000}, 4, true}},
      {Decimal{{150}, 2, true}, {{150}, 2, true}},
      {Date{1.5}, {{15}, 1, false}},
      {true, {{1}, 0, true}},
      {u"1.234,50", {{123450}, 2, false}},
      {u"-1E2", {{100}, 0, true}},
  };
  for (const auto& [value, decimal] : rows) EXPECT_EQ(CDec(value), decimal);
}

TEST(ToDecimals, OfATextIsExact) {
  EXPECT_EQ(DecimalText(CDec(u"12.345.678.901.234.567.890,12")), u"12345678901234567890.12");
}

TEST(ToDecimals, Errors) {
  EXPECT_HOST_ERROR(CDec(1E29), errors::Overflow);
  EXPECT_HOST_ERROR(CDec(u"1E99999"), errors::Overflow);
  EXPECT_HOST_ERROR(CDec(u"x"), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CDec(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CDec(Variant::Missing()), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CDec(ObjectPtr()), errors::TypeMismatch);
  EXPECT_EQ(CDec(u"1E-99999"), (Decimal{{}, 28, false}));
}

TEST(ToCurrencies, FromEveryKind) {
  const std::pair<Variant, std::int64_t> rows[] = {
      {Variant(), 0},
      {Integer{-7}, -70000},
      {Long{7}, 70000},
      {0.1f, 1000},
      {1.5, 15000},
      {0.00005, 0},  // halves to even
      {0.00015, 2},
      {1.00005, 10000},
      {123456789012345.67, 1234567890123456700},
      {Currency{123}, 123},
      {Decimal{{150}, 2, true}, -15000},
      {Date{1.5}, 15000},
      {true, -10000},
      {u"1.234,56785", 12345678},
      {u"R$ 10,00", 100000},
      {u"922337203685477,5807", kMost},
      {u"-922337203685477,5808", kLeast},
  };
  for (const auto& [value, amount] : rows) {
    EXPECT_EQ(CCur(value).TenThousandths, amount) << ::testing::PrintToString(value);
  }
}

TEST(ToCurrencies, Errors) {
  EXPECT_HOST_ERROR(CCur(u"922337203685477,5808"), errors::Overflow);
  EXPECT_HOST_ERROR(CCur(u"-922337203685477,5809"), errors::Overflow);
  EXPECT_HOST_ERROR(CCur(1E15), errors::Overflow);
  EXPECT_HOST_ERROR(CCur(std::numeric_limits<double>::quiet_NaN()), errors::Overflow);
  EXPECT_HOST_ERROR(CCur(u""), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CCur(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CCur(ObjectPtr()), errors::TypeMismatch);
}

TEST(ExactDecimals, KeepTheDigitsOfADouble) {
  const std::pair<Variant, StringView> rows[] = {
      {0.1, u"0.1"},
      {9007199254740992.0, u"9007199254740992"},
      {0.1F, u"0.1"},
      {16777216.0F, u"16777216"},
      {Long{7}, u"7"},
      {u"1.234,50", u"1234.50"},
      {Currency{5000}, u"0.5000"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(DecimalText(ExactDecimal(value)), text);
  EXPECT_HOST_ERROR(ExactDecimal(1E29), errors::Overflow);
  EXPECT_HOST_ERROR(ExactDecimal(u"x"), errors::TypeMismatch);
}

TEST(ExactDecimals, AreTheSameByValue) {
  EXPECT_TRUE(IsSameNumber(DecimalFromText(u"1.50"), 1.5));
  EXPECT_TRUE(
      IsSameNumber(u"12345678901234567890123456789012,10", u"12345678901234567890123456789012,1"));
  EXPECT_FALSE(IsSameNumber(DecimalFromText(u"9007199254740993"), 9007199254740992.0));
  EXPECT_HOST_ERROR(IsSameNumber(1, u"x"), errors::TypeMismatch);
}

TEST(ExactDecimals, HoldAllDigitsOrNothing) {
  const auto held = [](const char16_t* text) {
    return TryToDecimal(ExactDigits(Variant(text))).has_value();
  };
  EXPECT_TRUE(held(u"79228162514264337593543950335"));
  EXPECT_FALSE(held(u"79228162514264337593543950336"));
  EXPECT_TRUE(held(u"0,0000000000000000000000000001"));
  EXPECT_FALSE(held(u"0,00000000000000000000000000011"));
  EXPECT_TRUE(held(u"1,0000000000000000000000000000000"));
}

}  // namespace
}  // namespace tessaria
