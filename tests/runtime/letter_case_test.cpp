// Capital and small letters.
#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(LetterCase, OfPortuguese) {
  EXPECT_EQ(UCase(u"não à ação, pingüim; übung ñ"), u"NÃO À AÇÃO, PINGÜIM; ÜBUNG Ñ");
  EXPECT_EQ(LCase(u"ÁÉÍÓÚ ÂÊÔ ÃÕ ÀÇÜ"), u"áéíóú âêô ãõ àçü");
  EXPECT_EQ(UCase(u"abcxyz"), u"ABCXYZ");
  EXPECT_EQ(LCase(u"ABCXYZ"), u"abcxyz");
}

TEST(LetterCase, OfExtendedLetters) {
  EXPECT_EQ(UCase(u"āąćđĩįĳķĺłňŋőœřšűŷźžÿ"), u"ĀĄĆĐĨĮĲĶĹŁŇŊŐŒŘŠŰŶŹŽŸ");
  EXPECT_EQ(LCase(u"ĀĄĆĐĨĮĲĶĹŁŇŊŐŒŘŠŰŶŹŽŸ"), u"āąćđĩįĳķĺłňŋőœřšűŷźžÿ");
}

TEST(LetterCase, LeavesOtherCharactersUnchanged) {
  // Signs, letters without a counterpart, and letters whose counterpart is not a single letter.
  const String others = u"0123 @[`{|}~ ×÷ ßµªº ĸŉſİı €日本";
  EXPECT_EQ(UCase(others), others);
  EXPECT_EQ(LCase(others), others);
}

TEST(LetterCase, OfEveryLatinLetterRoundTrips) {
  for (char16_t c = 0; c < 0x0180; ++c) {
    const String letter(1, c);
    if (UCase(letter) != letter) {
      EXPECT_EQ(LCase(UCase(letter)), letter);
    }
    if (LCase(letter) != letter) {
      EXPECT_EQ(UCase(LCase(letter)), letter);
    }
  }
}

TEST(LetterCase, DoesNotAffectComparison) {
  EXPECT_TRUE(EqualNoCase(u"txtDescrição", u"TXTDESCRIÇÃO"));
  EXPECT_TRUE(EqualNoCase(u"", u""));
  EXPECT_FALSE(EqualNoCase(u"a", u"á"));
  EXPECT_FALSE(EqualNoCase(u"a", u"ab"));
}

}  // namespace
}  // namespace tessaria
