// How a column stores a value.
#include "tessaria/stored_match.h"

#include <gtest/gtest.h>

#include "tessaria/conversion.h"

namespace tessaria {
namespace {

namespace type = host::type;

Variant Exact(const char16_t* text) { return ExactDecimal(Variant(text)); }

TEST(StoredMatch, NumbersAreStoredAtTheScaleOfTheirColumn) {
  const ColumnShape price{type::Numeric, 0, 2};
  EXPECT_TRUE(IsStoredFrom(Exact(u"1,239"), Exact(u"1,24"), price));
  EXPECT_TRUE(IsStoredFrom(Exact(u"1,235"), Exact(u"1,24"), price));
  EXPECT_TRUE(IsStoredFrom(Exact(u"-1,235"), Exact(u"-1,24"), price));
  EXPECT_FALSE(IsStoredFrom(Exact(u"1,239"), Exact(u"1,23"), price));
  // A scale that the driver only guesses.
  EXPECT_TRUE(IsStoredFrom(Exact(u"1,239"), Exact(u"1,239"), price));
  EXPECT_TRUE(IsStoredFrom(Currency{12390}, Currency{12400}, {type::Currency, 0, 4}));
  EXPECT_FALSE(IsStoredFrom(Currency{12390}, Currency{12300}, {type::Currency, 0, 4}));
}

TEST(StoredMatch, InexactNumbersAreStoredUnchanged) {
  EXPECT_TRUE(IsStoredFrom(1.5, 1.5, {type::Double, 0, 0}));
  EXPECT_FALSE(IsStoredFrom(1.5, 2.0, {type::Double, 0, 0}));
}

TEST(StoredMatch, TextsLoseTheBlanksThatTheirColumnDrops) {
  const ColumnShape padded{type::WChar, 5, 0};
  const ColumnShape varying{type::VarWChar, 5, 0};
  EXPECT_TRUE(IsStoredFrom(u"ab  ", u"ab", padded));
  EXPECT_FALSE(IsStoredFrom(u" ab", u"ab", padded));
  EXPECT_FALSE(IsStoredFrom(u"ab  ", u"ab", varying));
  EXPECT_TRUE(IsStoredFrom(u"abcde  ", u"abcde", varying));
  EXPECT_FALSE(IsStoredFrom(u"ab", u"AB", varying));
}

TEST(StoredMatch, DatesAreStoredInThePrecisionOfTheirColumn) {
  const Date noon{45000.5};
  EXPECT_TRUE(IsStoredFrom(noon, Date{45000}, {type::DBDate, 0, 0}));
  EXPECT_TRUE(IsStoredFrom(noon, Date{0.5}, {type::DBTime, 0, 0}));
  EXPECT_FALSE(IsStoredFrom(noon, Date{45000}, {type::DBTimeStamp, 0, 0}));
  EXPECT_TRUE(IsStoredFrom(noon, Date{45000.5 + 1e-7}, {type::DBTimeStamp, 0, 0}));
}

TEST(StoredMatch, NullIsStoredAsNull) {
  EXPECT_TRUE(IsStoredFrom(Variant::Null(), Variant::Null(), {type::Integer, 0, 0}));
  EXPECT_FALSE(IsStoredFrom(Long{0}, Variant::Null(), {type::Integer, 0, 0}));
  EXPECT_FALSE(IsStoredFrom(Variant::Null(), Long{0}, {type::Integer, 0, 0}));
}

}  // namespace
}  // namespace tessaria
