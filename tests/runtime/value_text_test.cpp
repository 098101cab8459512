// Texts of values: CStr, Str, SqlText.
#include <gtest/gtest.h>

#include <limits>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(ValueTexts, OfDoublesHaveFifteenDigits) {
  const std::pair<double, StringView> rows[] = {
      {0, u"0"},
      {-0.0, u"0"},
      {1, u"1"},
      {-1.5, u"-1,5"},
      {0.1, u"0,1"},
      {0.1 + 0.2, u"0,3"},
      {1.0 / 3, u"0,333333333333333"},
      {2.0 / 3, u"0,666666666666667"},
      {1234567.891, u"1234567,891"},
      {123456789012345, u"123456789012345"},
      {999999999999999, u"999999999999999"},
      {1E15, u"1E+15"},
      {1234567890123456, u"1,23456789012346E+15"},
      {0.0001, u"0,0001"},
      {0.00012, u"0,00012"},
      {0.00001, u"1E-05"},
      {-0.000015, u"-1,5E-05"},
      {1E100, u"1E+100"},
      {1E-300, u"1E-300"},
      {1E14 + 0.5, u"100000000000000"},
      {1.7976931348623157E308, u"1,79769313486232E+308"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(CStr(value), text);
}

TEST(ValueTexts, OfSinglesHaveSevenDigits) {
  const std::pair<float, StringView> rows[] = {
      {0.1f, u"0,1"},   {16777216.0f, u"1,677722E+07"}, {1234567.0f, u"1234567"},
      {1E7f, u"1E+07"}, {1.0f / 3, u"0,3333333"},       {-2.5f, u"-2,5"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(CStr(value), text);
}

TEST(ValueTexts, OfExactKindsHaveAllDigits) {
  EXPECT_EQ(CStr(Currency{12345000}), u"1234,5");
  EXPECT_EQ(CStr(Currency{-1}), u"-0,0001");
  EXPECT_EQ(CStr(Currency{0}), u"0");
  EXPECT_EQ(CStr(Currency{std::numeric_limits<std::int64_t>::max()}), u"922337203685477,5807");
  EXPECT_EQ(CStr(Currency{std::numeric_limits<std::int64_t>::min()}), u"-922337203685477,5808");
  EXPECT_EQ(CStr(Decimal{{150}, 2, false}), u"1,5");
  EXPECT_EQ(CStr(Decimal{{~0u, ~0u, ~0u}, 0, true}), u"-79228162514264337593543950335");
  EXPECT_EQ(CStr(Decimal{{1}, 28, false}), u"0,0000000000000000000000000001");
  EXPECT_EQ(CStr(Decimal{{}, 3, false}), u"0");
  EXPECT_EQ(CStr(Decimal{{1500}, 0, false}), u"1500");
}

TEST(ValueTexts, OfDates) {
  const std::pair<double, StringView> rows[] = {{42729, u"25/12/2016"},
                                                {42729.5, u"25/12/2016 12:00:00"},
                                                {0, u"00:00:00"},
                                                {0.25, u"06:00:00"},
                                                {-0.25, u"06:00:00"},
                                                {1, u"31/12/1899"},
                                                {-1, u"29/12/1899"},
                                                {-1.25, u"29/12/1899 06:00:00"},
                                                {-657434, u"01/01/0100"},
                                                {2958465, u"31/12/9999"},
                                                {42729.9999999, u"26/12/2016"},
                                                {42729 + 1.0 / 86400, u"25/12/2016 00:00:01"}};
  for (const auto& [days, text] : rows) EXPECT_EQ(CStr(Date{days}), text) << days;
}

TEST(ValueTexts, OfTheOtherKinds) {
  EXPECT_EQ(CStr(Variant()), u"");
  EXPECT_EQ(CStr(Variant::Missing()), u"");
  EXPECT_EQ(CStr(Integer{-7}), u"-7");
  EXPECT_EQ(CStr(std::numeric_limits<Integer>::min()), u"-32768");
  EXPECT_EQ(CStr(std::numeric_limits<Long>::min()), u"-2147483648");
  EXPECT_EQ(CStr(Long{1000000}), u"1000000");
  EXPECT_EQ(CStr(true), u"Verdadeiro");
  EXPECT_EQ(CStr(false), u"Falso");
  EXPECT_EQ(CStr(u" texto "), u" texto ");
  EXPECT_HOST_ERROR(CStr(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CStr(ObjectPtr()), errors::TypeMismatch);
}

TEST(ValueTexts, RefuseValuesWithoutText) {
  EXPECT_HOST_ERROR(CStr(std::numeric_limits<double>::infinity()), errors::Overflow);
  EXPECT_HOST_ERROR(CStr(std::numeric_limits<double>::quiet_NaN()), errors::Overflow);
  EXPECT_HOST_ERROR(CStr(Date{3E6}), errors::Overflow);
}

TEST(Strs, HaveABlankOrAMinusAndAPoint) {
  const std::pair<double, StringView> rows[] = {
      {0, u" 0"},     {5, u" 5"},        {-5, u"-5"},          {1234.5, u" 1234.5"}, {0.5, u" .5"},
      {-0.5, u"-.5"}, {1E15, u" 1E+15"}, {0.00001, u" 1E-05"}, {-1E20, u"-1E+20"},   {-0.0, u" 0"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(Str(value), text);
}

TEST(SqlTexts, HaveAPointWhateverTheKind) {
  const std::pair<Variant, StringView> rows[] = {{Variant(), u""},
                                                 {Variant::Null(), u""},
                                                 {Variant::Missing(), u""},
                                                 {Integer{7}, u"7"},
                                                 {Long{-70000}, u"-70000"},
                                                 {0.5f, u"0.5"},
                                                 {1234.56, u"1234.56"},
                                                 {Currency{12345600}, u"1234.56"},
                                                 {Decimal{{150}, 2, true}, u"-1.5"},
                                                 {true, u"-1"},
                                                 {false, u"0"},
                                                 {Date{42729}, u"25/12/2016"},
                                                 {u"1.234,56", u"1.234,56"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(SqlText(value), text);
  EXPECT_HOST_ERROR(SqlText(ObjectPtr()), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria
