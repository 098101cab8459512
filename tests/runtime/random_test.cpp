// Random texts and numbers: nothing crashes, only run-time errors are raised, and values that are
// converted to a text and back stay the same.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "runtime/digits.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/format.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

constexpr int kRounds = 5000;

class Random {
 public:
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(engine_); }

  // A text of the given letters, occasionally with any other unit.
  String Text(StringView letters, int longest) {
    String text(static_cast<std::size_t>(Below(longest + 1)), u' ');
    for (auto& c : text) {
      c = Below(50) == 0
              ? static_cast<char16_t>(Below(0x10000))
              : letters[static_cast<std::size_t>(Below(static_cast<int>(letters.size())))];
    }
    return text;
  }

  // A finite double of any size.
  double Number() {
    for (;;) {
      const auto value = std::bit_cast<double>(std::uint64_t{engine_()});
      if (std::isfinite(value)) return value;
    }
  }

  // A double of a typical size.
  double Amount() { return static_cast<double>(static_cast<std::int64_t>(engine_() >> 20)) / 1000; }

 private:
  std::mt19937_64 engine_{20161225};
};

template <class Action>
void RaisesOnlyHostErrors(const Action& action) {
  try {
    action();
  } catch (const HostError&) {
  }
}

TEST(RandomTexts, AsNumbers) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const String text = random.Text(u"0123456789.,+-EeDd&HhOo()R$ ", 14);
    RaisesOnlyHostErrors([&] { CDbl(text); });
    RaisesOnlyHostErrors([&] { CLng(text); });
    RaisesOnlyHostErrors([&] { CCur(text); });
    RaisesOnlyHostErrors([&] { CDec(text); });
    RaisesOnlyHostErrors([&] { DecimalFromText(text); });
    RaisesOnlyHostErrors([&] { CBool(text); });
    EXPECT_TRUE(std::isfinite(Val(text)));
    if (IsNumeric(text)) {
      EXPECT_TRUE(std::isfinite(CDbl(text))) << ToUtf8(text);
    }
  }
}

TEST(RandomTexts, AsDates) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const String text = random.Text(u"0123456789012345678901/-.: ", 20);
    RaisesOnlyHostErrors([&] { CDate(text); });
    if (IsDate(text)) {
      const Date date = CDate(text);
      EXPECT_EQ(CDate(CStr(date)), date) << ToUtf8(text);
    }
  }
}

TEST(RandomTexts, AsPatterns) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const String pattern = random.Text(u"0#.,%;\"\\Ee+-dmyhnscqwtAMP/: R$@&<>!", 16);
    const Variant values[] = {random.Number(), random.Amount(), Date{random.Amount() / 1E9},
                              Variant(random.Text(u"0123456789,./", 12)), Variant(-0.001)};
    for (const auto& value : values) RaisesOnlyHostErrors([&] { Format(value, pattern); });
  }
}

TEST(RandomTexts, AsUtf8) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const String text = random.Text(u"aç\xD83D\xDE00€", 12);
    const String once = FromUtf8(ToUtf8(text));
    EXPECT_EQ(once.size(), text.size());
    EXPECT_EQ(FromUtf8(ToUtf8(once)), once);
  }
}

TEST(RandomNumbers, RoundTripThroughTextInFifteenDigits) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const double value = random.Number();
    // The very largest doubles are out of range when they are rounded up to 15 digits.
    if (std::abs(value) > 1.79769313486231E308) continue;
    const double back = CDbl(CStr(value));
    EXPECT_LE(std::abs(back - value), std::abs(value) * 1E-14 + 1E-320);
    EXPECT_EQ(CStr(back), CStr(value));
  }
}

TEST(RandomNumbers, FormattedAreReadBack) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const double value = random.Amount() * (i % 2 == 0 ? 1 : -1);
    const String text = Format(value, u"#,##0.000");
    EXPECT_NEAR(CDbl(text), value, std::abs(value) * 1E-14 + 1E-9) << ToUtf8(text);
    EXPECT_EQ(Format(text, u"#,##0.000"), text);
  }
}

TEST(RandomNumbers, DecimalsRoundTripThroughText) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const auto word = [&] { return static_cast<std::uint32_t>(random.Below(0x7FFFFFFF)) * 2u; };
    const Decimal value{{word() + 1, word(), word()},
                        static_cast<std::uint8_t>(random.Below(29)),
                        random.Below(2) == 0};
    EXPECT_EQ(DecimalFromText(DecimalText(value)), value);
    EXPECT_PRED2(Equal, CDec(CStr(value)), value);
  }
}

TEST(RandomNumbers, RoundingTwiceChangesNothing) {
  Random random;
  for (int i = 0; i < kRounds; ++i) {
    const double once = Round(random.Amount() / 1000, 2);
    EXPECT_EQ(Round(once, 2), once);
    EXPECT_EQ(Format(once, u"0.00"), Format(once, u"0.00####"));
  }
}

}  // namespace
}  // namespace tessaria
