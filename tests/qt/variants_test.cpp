// Values that are converted between the core and Qt keep all their digits.
#include "tessaria/qt/variants.h"

#include <gtest/gtest.h>

#include <limits>

#include "tessaria/conversion.h"
#include "tessaria/qt/text.h"
#include "tests/support/printers.h"

namespace tessaria::qt {
namespace {

Variant exact(const char16_t* text) { return ExactDecimal(Variant(text)); }

TEST(Variants, WholeNumbersOf64BitsAreReadExactly) {
  EXPECT_EQ(toVariant(QVariant(7)).Type(), Variant::Kind::Long);
  EXPECT_EQ(toVariant(QVariant(qulonglong{7})).Type(), Variant::Kind::Long);
  const std::pair<QVariant, const char16_t*> rows[] = {
      {qlonglong{9007199254740993}, u"9007199254740993"},
      {std::numeric_limits<qlonglong>::max(), u"9223372036854775807"},
      {std::numeric_limits<qlonglong>::min(), u"-9223372036854775808"},
      {std::numeric_limits<qulonglong>::max(), u"18446744073709551615"},
  };
  for (const auto& [value, text] : rows) {
    EXPECT_EQ(toVariant(value).Type(), Variant::Kind::Decimal);
    EXPECT_EQ(CStr(toVariant(value)), text);
  }
}

TEST(Variants, ExactNumbersBecomeADoubleIfItHoldsAllTheirDigits) {
  for (const char16_t* text : {u"12,5", u"0,1", u"123456789012345", u"-3"}) {
    EXPECT_EQ(toQVariant(exact(text)).typeId(), QMetaType::Double);
    EXPECT_EQ(CStr(toVariant(toQVariant(exact(text)))), text);
  }
  EXPECT_EQ(toQVariant(Currency{125000}), QVariant(12.5));
  EXPECT_EQ(toQVariant(exact(u"9007199254740993")), QVariant(qlonglong{9007199254740993}));
  EXPECT_EQ(toQVariant(exact(u"12345678901234567890123,5")),
            QVariant(QStringLiteral("12345678901234567890123,5")));
  EXPECT_EQ(toQVariant(exact(u"18446744073709551615")),
            QVariant(QStringLiteral("18446744073709551615")));
  EXPECT_EQ(toQVariant(Currency{9223372036854775807}),
            QVariant(QStringLiteral("922337203685477,5807")));
}

TEST(Variants, EachExactNumberConvertsBackToItself) {
  for (const char16_t* text :
       {u"12,5", u"9007199254740993", u"0,1234567890123456789", u"79228162514264337593543950335"})
    EXPECT_TRUE(IsSameNumber(ExactDecimal(toVariant(toQVariant(exact(text)))), exact(text)));
}

}  // namespace
}  // namespace tessaria::qt
