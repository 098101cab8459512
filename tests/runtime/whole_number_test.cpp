// CLng and CInt.
#include <gtest/gtest.h>

#include <limits>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(WholeNumbers, RoundHalvesToEven) {
  const struct {
    double Value;
    Long Whole;
  } rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-0.5, 0},   {-1.5, -2},
              {-2.5, -2}, {2.5001, 3}, {2.4999, 2}, {1E-300, 0}, {32766.5, 32766}};
  for (const auto& row : rows) {
    EXPECT_EQ(CLng(row.Value), row.Whole) << row.Value;
    EXPECT_EQ(CInt(row.Value), row.Whole) << row.Value;
    EXPECT_EQ(CLng(CStr(row.Value)), row.Whole) << row.Value;
    if (row.Value * 10000 >= 1) {
      EXPECT_EQ(CLng(CDec(row.Value)), row.Whole);
    }
    EXPECT_EQ(CLng(CCur(row.Value)), row.Whole);
  }
}

TEST(WholeNumbers, FromEveryKind) {
  const std::pair<Variant, Long> rows[] = {
      {Variant(), 0}, {Integer{-7}, -7},    {Long{123}, 123},     {2.5f, 2},
      {3.5, 4},       {Currency{25000}, 2}, {Currency{35000}, 4}, {Decimal{{25}, 1, false}, 2},
      {Date{1.5}, 2}, {true, -1},           {u"2,5", 2},          {u" 3,5 ", 4}};
  for (const auto& [value, whole] : rows) {
    EXPECT_EQ(CLng(value), whole) << ::testing::PrintToString(value);
    EXPECT_EQ(CInt(value), whole) << ::testing::PrintToString(value);
  }
}

TEST(WholeNumbers, OfTextsTakeTrailingBlanksAndNothingElse) {
  EXPECT_EQ(CInt(u"953 "), 953);
  EXPECT_EQ(CInt(u"9.5 "), 95);  // the point is for thousands
  EXPECT_HOST_ERROR(CInt(u"101 o"), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CInt(u""), errors::TypeMismatch);
}

TEST(WholeNumbers, HaveTheirRange) {
  EXPECT_EQ(CInt(32767), 32767);
  EXPECT_EQ(CInt(-32768.5), -32768);
  EXPECT_EQ(CLng(2147483647.0), 2147483647);
  EXPECT_EQ(CLng(-2147483648.0), std::numeric_limits<Long>::min());
  for (const Variant& value : {Variant(32767.5), Variant(40000), Variant(-32769), Variant(u"99999"),
                               Variant(1E300), Variant(Date{40000})}) {
    EXPECT_HOST_ERROR(CInt(value), errors::Overflow);
  }
  for (const Variant& value :
       {Variant(2147483648.0), Variant(-2147483649.0), Variant(u"2147483647,5"), Variant(1E300),
        Variant(u"1E30"), Variant(std::numeric_limits<double>::infinity()),
        Variant(std::numeric_limits<double>::quiet_NaN()), Variant(Currency{25000000000000})}) {
    EXPECT_HOST_ERROR(CLng(value), errors::Overflow);
  }
}

TEST(WholeNumbers, OfOtherBasesAreBitPatterns) {
  EXPECT_EQ(CInt(u"&H1F"), 31);
  EXPECT_EQ(CInt(u"&HFFFF"), -1);
  EXPECT_EQ(CLng(u"&HFFFF"), 65535);
  EXPECT_EQ(CLng(u"&HFFFFFFFF"), -1);
  EXPECT_EQ(CLng(u"&H80000000"), std::numeric_limits<Long>::min());
  EXPECT_EQ(CLng(u"&O17"), 15);
  EXPECT_HOST_ERROR(CInt(u"&H10000"), errors::Overflow);
  EXPECT_HOST_ERROR(CLng(u"&H100000000"), errors::Overflow);
}

TEST(WholeNumbers, ErrorsOfTheOtherKinds) {
  EXPECT_HOST_ERROR(CLng(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CInt(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CLng(Variant::Missing()), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CLng(ObjectPtr()), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria
