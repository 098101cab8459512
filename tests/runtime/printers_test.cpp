// The shared printers of values in failing tests.
#include "tests/support/printers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessaria {
namespace {

using ::testing::PrintToString;

TEST(Printers, ShowTextsAsUtf8) {
  EXPECT_EQ(PrintToString(String(u"Descrição")), "\"Descrição\"");
  EXPECT_EQ(PrintToString(StringView(u"Atenção")), "\"Atenção\"");
  const auto failure = ::testing::internal::EqHelper::Compare("a", "b", String(u"ç"), u"á");
  EXPECT_THAT(failure.message(), ::testing::HasSubstr("\"ç\""));
  EXPECT_THAT(failure.message(), ::testing::HasSubstr("\"á\""));
}

TEST(Printers, ShowKindAndValueOfVariants) {
  EXPECT_EQ(PrintToString(Variant()), "Empty");
  EXPECT_EQ(PrintToString(Variant::Null()), "Null");
  EXPECT_EQ(PrintToString(Variant::Missing()), "Missing");
  EXPECT_EQ(PrintToString(Variant(1.5)), "Double(1.5)");
  EXPECT_EQ(PrintToString(Variant(u"São")), "String(São)");
  EXPECT_EQ(PrintToString(Variant(ObjectPtr())), "Object(no text)");
  EXPECT_EQ(PrintToString(Variant(Date{42729})), "Date(25/12/2016)");
}

TEST(Printers, ShowValuesAndErrors) {
  EXPECT_EQ(PrintToString(Date{1.5}), "Date(1.5)");
  EXPECT_EQ(PrintToString(Currency{12345}), "Currency(1.2345)");
  EXPECT_EQ(PrintToString(Decimal{{150}, 2, true}), "Decimal(-1.50)");
  EXPECT_EQ(PrintToString(HostError(13)), "HostError(13, \"Tipos incompatíveis\")");
}

TEST(Printers, HostErrorCheckShowsWhatHappenedInstead) {
  EXPECT_HOST_ERROR(throw HostError(6), 6);
  const auto other = test::RaisesHostError([] { throw HostError(6); }, 13);
  EXPECT_FALSE(other);
  EXPECT_THAT(other.message(), ::testing::HasSubstr("raises error 6 (Estouro)"));
  EXPECT_FALSE(test::RaisesHostError([] {}, 13));
  EXPECT_FALSE(test::RaisesHostError([] { throw std::runtime_error("x"); }, 13));
}

TEST(Printers, SameAlsoComparesTheKind) {
  EXPECT_SAME(Variant(1.5), 1.5);
  EXPECT_SAME(Variant::Null(), Variant::Null());
  EXPECT_FALSE(test::Same(Variant(1), Variant(1.0)));
  EXPECT_FALSE(test::Same(Variant(1), Variant(2)));
  EXPECT_FALSE(test::Same(Variant(), Variant(u"")));
}

}  // namespace
}  // namespace tessaria
