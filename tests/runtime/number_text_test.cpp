// Numbers from texts and from the other kinds.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Reading {
  const char16_t* Text;
  double Value;
};

TEST(NumberTexts, AreReadInTheBrazilianWay) {
  const Reading rows[] = {
      {u"0", 0},
      {u"7", 7},
      {u"1.234,56", 1234.56},
      {u"1234,56", 1234.56},
      {u",5", 0.5},
      {u"5,", 5},
      {u"-,5", -0.5},
      {u"007,50", 7.5},
      {u"1.234.567", 1234567},
      {u"0,1", 0.1},
      {u"123456789012345678", 123456789012345678.0},
  };
  for (const auto& row : rows) EXPECT_EQ(CDbl(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(NumberTexts, PointsOfTheWholePartAreIgnored) {
  const Reading rows[] = {{u"12.34", 1234}, {u"1.2.3", 123},   {u".5", 5},
                          {u"5.", 5},       {u"1..2,5", 12.5}, {u"9.5", 95}};
  for (const auto& row : rows) EXPECT_EQ(CDbl(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(NumberTexts, TakeBlanksAndSigns) {
  const Reading rows[] = {
      {u"  1,5  ", 1.5}, {u"\t1,5\r\n", 1.5}, {u"-1,5", -1.5},      {u"+1,5", 1.5},
      {u"- 1,5", -1.5},  {u"1,5-", -1.5},     {u"1,5+", 1.5},       {u"1,5 -", -1.5},
      {u"(1,5)", -1.5},  {u"( 1,5 )", -1.5},  {u"R$ 1,50", 1.5},    {u"r$1,50", 1.5},
      {u"-R$ 2", -2},    {u"R$ -2", -2},      {u"R$ 2-", -2},       {u"(R$ 2,00)", -2},
      {u"2 R$", 2},      {u"-0", 0},          {u"1.234,5 ", 1234.5}};
  for (const auto& row : rows) EXPECT_EQ(CDbl(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(NumberTexts, TakeExponents) {
  const Reading rows[] = {{u"1E3", 1000},     {u"1D3", 1000},    {u"1e+3", 1000},
                          {u"1d-3", 0.001},   {u"1,5E2", 150},   {u"-2E-2", -0.02},
                          {u"0E999", 0},      {u"1E308", 1E308}, {u"1E-99999999999", 0},
                          {u"1E-320", 1E-320}};
  for (const auto& row : rows) EXPECT_EQ(CDbl(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(NumberTexts, TakeOtherBases) {
  const Reading rows[] = {{u"&H1F", 31},      {u"&h1f", 31}, {u"&O17", 15},
                          {u"&o17", 15},      {u"&17", 15},  {u" &HFF& ", 255},
                          {u"&HFFFF", 65535}, {u"&H0", 0},   {u"&H7FFFFFFFFFFFFFFF", 0x1p63}};
  for (const auto& row : rows) EXPECT_EQ(CDbl(row.Text), row.Value) << ToUtf8(row.Text);
}

TEST(NumberTexts, OthersAreATypeMismatch) {
  const char16_t* texts[] = {
      u"",           u" ",     u"abc",       u"1a",         u"a1",  u"1,2,3",
      u"1,234.5",    u"1,.5",  u".",         u",",          u"-",   u"+",
      u"--1",        u"-1-",   u"-1+",       u"1--",        u"1 2", u"1E",
      u"1E+",        u"1Ex",   u"E3",        u"1,5E2,5",    u"&H",  u"&",
      u"&O8",        u"&HG",   u"&",         u"(1",         u"1)",  u"-(1)",
      u"(-1)",       u"()",    u"R$",        u"R$R$1",      u"$1",  u"1%",
      u"25/12/2016", u"12:30", u"1.234,56.", u"Verdadeiro", u"_",   u"&HFFFFFFFFFFFFFFFFF",
      u"١"};
  for (const auto* text : texts) {
    EXPECT_HOST_ERROR(CDbl(text), errors::TypeMismatch) << ToUtf8(text);
    EXPECT_FALSE(IsNumeric(text)) << ToUtf8(text);
  }
}

TEST(NumberTexts, TooLargeOnesOverflow) {
  for (const auto* text : {u"1E309", u"-1E309", u"1E999999999999"}) {
    EXPECT_HOST_ERROR(CDbl(text), errors::Overflow);
    EXPECT_FALSE(IsNumeric(text));
  }
  const String digits(400, u'9');
  EXPECT_HOST_ERROR(CDbl(digits), errors::Overflow);
}

TEST(ToDoubles, FromEveryKind) {
  const std::pair<Variant, double> rows[] = {
      {Variant(), 0},
      {Integer{-7}, -7},
      {Long{2147483647}, 2147483647},
      {1.5f, 1.5},
      {0.1f, double{0.1f}},
      {0.1, 0.1},
      {Currency{-12345}, -1.2345},
      {Decimal{{150}, 2, true}, -1.5},
      {Date{42729.25}, 42729.25},
      {true, -1},
      {false, 0},
      {u"1.234,5", 1234.5},
      {kInfinity, kInfinity},
  };
  for (const auto& [value, number] : rows) EXPECT_EQ(CDbl(value), number);
}

TEST(ToDoubles, ErrorsOfTheOtherKinds) {
  EXPECT_HOST_ERROR(CDbl(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CDbl(Variant::Missing()), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CDbl(ObjectPtr()), errors::TypeMismatch);
}

TEST(IsNumerics, ByKind) {
  const std::pair<Variant, bool> rows[] = {{Variant(), true},
                                           {Variant::Null(), false},
                                           {Variant::Missing(), false},
                                           {Integer{1}, true},
                                           {Long{1}, true},
                                           {1.0f, true},
                                           {1.0, true},
                                           {Currency{1}, true},
                                           {Decimal{}, true},
                                           {Date{1}, false},
                                           {true, true},
                                           {u"1.234,56", true},
                                           {u" -7 ", true},
                                           {u"&H1F", true},
                                           {u"", false},
                                           {u"x", false},
                                           {ObjectPtr(), false}};
  for (const auto& [value, numeric] : rows) {
    EXPECT_EQ(IsNumeric(value), numeric) << ::testing::PrintToString(value);
  }
}

TEST(ToBooleans, FromEveryKind) {
  const std::pair<Variant, bool> rows[] = {
      {Variant(), false},    {Integer{0}, false},   {Integer{-1}, true}, {Long{5}, true},
      {0.0f, false},         {0.1, true},           {Currency{1}, true}, {Decimal{}, false},
      {Date{0}, false},      {Date{0.5}, true},     {true, true},        {false, false},
      {u"Verdadeiro", true}, {u"VERDADEIRO", true}, {u"falso", false},   {u"True", true},
      {u"fALSE", false},     {u" True ", true},     {u"0", false},       {u"0,00", false},
      {u"-1", true},         {u"0,1", true},        {u"&H0", false}};
  for (const auto& [value, truth] : rows) {
    EXPECT_EQ(CBool(value), truth) << ::testing::PrintToString(value);
  }
  EXPECT_HOST_ERROR(CBool(u""), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CBool(u"Sim"), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CBool(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CBool(Variant::Missing()), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CBool(ObjectPtr()), errors::TypeMismatch);
}

TEST(CriterionNumbers, HaveAPointOrAComma) {
  const std::pair<StringView, StringView> rows[] = {
      {u"12.5", u"12.5"},      {u"12,5", u"12.5"},
      {u"1.234,5", u"1234.5"}, {u"1E-05", u"0.00001"},
      {u"-.5", u"-0.5"},       {u"1.234.567", u"1234567"},
      {u"R$ 1,50", u"1.50"},   {u"9007199254740993", u"9007199254740993"},
  };
  for (const auto& [text, number] : rows) {
    const auto digits = ReadCriterionNumber(text);
    ASSERT_TRUE(digits) << ToUtf8(text);
    EXPECT_EQ(PlainText(*digits, u'.'), number);
  }
  for (const StringView wrong : {u"", u"+-1", u"1e", u"x", u"01/02/2020"}) {
    EXPECT_FALSE(ReadCriterionNumber(wrong)) << ToUtf8(wrong);
  }
}

}  // namespace
}  // namespace tessaria
