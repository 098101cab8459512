// Comparison of values of all kinds.
#include "tessaria/compare.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

// Values of all kinds with the same number.
std::vector<Variant> Zeros() {
  return {Integer{0},           Long{0}, 0.0f, 0.0, -0.0, Currency{0}, Decimal{},
          Decimal{{}, 2, true}, Date{0}, false};
}

std::vector<Variant> MinusOnes() {
  return {Integer{-1},
          Long{-1},
          -1.0f,
          -1.0,
          Currency{-10000},
          Decimal{{1}, 0, true},
          Decimal{{100}, 2, true},
          Date{-1},
          true};
}

void ExpectEqual(const Variant& a, const Variant& b) {
  EXPECT_PRED2(Equal, a, b);
  EXPECT_FALSE(Less(a, b)) << ::testing::PrintToString(a) << ::testing::PrintToString(b);
}

void ExpectLess(const Variant& a, const Variant& b) {
  EXPECT_PRED2(Less, a, b);
  EXPECT_FALSE(Equal(a, b)) << ::testing::PrintToString(a) << ::testing::PrintToString(b);
  EXPECT_FALSE(Less(b, a)) << ::testing::PrintToString(a) << ::testing::PrintToString(b);
}

TEST(Comparison, OfNumbersOfAllPairsOfKinds) {
  for (const auto& a : Zeros()) {
    for (const auto& b : Zeros()) ExpectEqual(a, b);
    for (const auto& b : MinusOnes()) ExpectLess(b, a);
  }
  for (const auto& a : MinusOnes()) {
    for (const auto& b : MinusOnes()) ExpectEqual(a, b);
  }
}

TEST(Comparison, NullEqualsNothing) {
  auto others = Zeros();
  others.insert(others.end(), {Variant(), Variant::Null(), Variant(u""), Variant(u"Null")});
  for (const auto& other : others) {
    EXPECT_FALSE(Equal(Variant::Null(), other));
    EXPECT_FALSE(Equal(other, Variant::Null()));
    EXPECT_FALSE(Less(Variant::Null(), other));
    EXPECT_FALSE(Less(other, Variant::Null()));
  }
}

TEST(Comparison, EmptyEqualsZeroAndTheEmptyText) {
  ExpectEqual(Variant(), Variant());
  ExpectEqual(Variant(), u"");
  ExpectEqual(u"", Variant());
  for (const auto& zero : Zeros()) ExpectEqual(Variant(), zero);
  for (const auto& number : MinusOnes()) ExpectLess(number, Variant());
  ExpectLess(Variant(), u"a");
  ExpectLess(Variant(), 1);
  ExpectLess(Variant(), u" ");
}

TEST(Comparison, ANumberIsBelowEveryText) {
  const Variant texts[] = {u"", u"0", u"-1", u"Falso", u"!"};
  auto numbers = Zeros();
  numbers.push_back(1E300);
  numbers.push_back(Date{42729});
  for (const auto& number : numbers) {
    for (const auto& text : texts) ExpectLess(number, text);
  }
  ExpectLess(Date{42729}, u"25/12/2016");
  ExpectLess(1, u"1");
}

TEST(Comparison, OfTextsIsExact) {
  ExpectEqual(u"Ação", u"Ação");
  ExpectLess(u"A", u"a");
  ExpectLess(u"a", u"ab");
  ExpectLess(u"ab", u"b");
  ExpectLess(u"z", u"á");
  ExpectLess(u"a", u"a ");
  ExpectLess(u"10", u"9");
}

TEST(Comparison, OfDates) {
  ExpectLess(Date{42729}, Date{42729.5});
  ExpectEqual(Date{42729}, 42729);
  ExpectEqual(Date{42729.5}, Currency{427295000});
}

TEST(Comparison, OfDoubleAndSingleIsInTheSinglesPrecision) {
  ExpectEqual(0.1f, 0.1);
  ExpectEqual(0.1, 0.1f);
  ExpectLess(0.1f, 0.2);
  ExpectLess(1.0f, 1E300);
  ExpectLess(-1E300, 1.0f);
}

TEST(Comparison, OfDoubleAndExactKindIsOnFifteenDigits) {
  ExpectEqual(0.1, Decimal{{1}, 1, false});
  ExpectEqual(0.1 + 0.2, Decimal{{3}, 1, false});
  ExpectEqual(0.1f, Decimal{{1}, 1, false});
  ExpectEqual(1234.56, Currency{12345600});
  ExpectLess(0.00001, Currency{1});
  ExpectLess(Currency{0}, 0.00001);
  ExpectLess(Decimal{{~0u, ~0u, ~0u}, 0, false}, 1E30);
}

TEST(Comparison, OfExactKindsIsExact) {
  ExpectLess(Decimal{{~0u - 1, ~0u, ~0u}, 0, false}, Decimal{{~0u, ~0u, ~0u}, 0, false});
  ExpectLess(Currency{9007199254740992}, Currency{9007199254740993});
  ExpectEqual(Decimal{{15}, 1, false}, Currency{15000});
  ExpectEqual(Decimal{{15}, 1, false}, Decimal{{150}, 2, false});
}

TEST(Comparison, OfInfiniteNumbers) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double none = std::numeric_limits<double>::quiet_NaN();
  ExpectEqual(infinity, infinity);
  ExpectLess(Currency{1}, infinity);
  ExpectLess(1.0f, infinity);
  EXPECT_FALSE(Equal(none, none));
  EXPECT_FALSE(Less(none, 1.0));
}

TEST(Comparison, OfObjectsAndMissingArgumentsIsATypeMismatch) {
  for (const Variant& odd : {Variant(ObjectPtr()), Variant::Missing()}) {
    for (const Variant& other : {Variant(), Variant(1), Variant(u"x"), odd}) {
      EXPECT_HOST_ERROR(Equal(odd, other), errors::TypeMismatch);
      EXPECT_HOST_ERROR(Equal(other, odd), errors::TypeMismatch);
      EXPECT_HOST_ERROR(Less(odd, other), errors::TypeMismatch);
    }
    EXPECT_HOST_ERROR(EqualsEmpty(odd), errors::TypeMismatch);
  }
}

TEST(EqualsEmptys, ByKind) {
  EXPECT_TRUE(EqualsEmpty(Variant()));
  EXPECT_TRUE(EqualsEmpty(u""));
  for (const auto& zero : Zeros()) EXPECT_TRUE(EqualsEmpty(zero));
  EXPECT_FALSE(EqualsEmpty(Variant::Null()));
  EXPECT_FALSE(EqualsEmpty(u" "));
  EXPECT_FALSE(EqualsEmpty(u"0"));
  for (const auto& number : MinusOnes()) EXPECT_FALSE(EqualsEmpty(number));
}

}  // namespace
}  // namespace tessaria
