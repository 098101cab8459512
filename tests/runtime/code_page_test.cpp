// The Western code page.
#include <gtest/gtest.h>

#include <set>

#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(CodePage, EveryCodeRoundTrips) {
  std::set<char16_t> seen;
  for (Long code = 0; code <= 255; ++code) {
    const char16_t character = AnsiCharacter(code);
    EXPECT_EQ(AnsiCode(character), code);
    EXPECT_TRUE(seen.insert(character).second) << code;
  }
}

TEST(CodePage, HasItsOwnCharactersFrom128To159) {
  const std::pair<Long, char16_t> rows[] = {
      {0x80, u'€'}, {0x82, u'‚'}, {0x83, u'ƒ'}, {0x84, u'„'}, {0x85, u'…'}, {0x86, u'†'},
      {0x87, u'‡'}, {0x88, u'ˆ'}, {0x89, u'‰'}, {0x8A, u'Š'}, {0x8B, u'‹'}, {0x8C, u'Œ'},
      {0x8E, u'Ž'}, {0x91, u'‘'}, {0x92, u'’'}, {0x93, u'“'}, {0x94, u'”'}, {0x95, u'•'},
      {0x96, u'–'}, {0x97, u'—'}, {0x98, u'˜'}, {0x99, u'™'}, {0x9A, u'š'}, {0x9B, u'›'},
      {0x9C, u'œ'}, {0x9E, u'ž'}, {0x9F, u'Ÿ'}};
  for (const auto& [code, character] : rows) EXPECT_EQ(AnsiCharacter(code), character) << code;
}

TEST(CodePage, UndefinedCodesMapToThemselves) {
  for (const Long code : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    EXPECT_EQ(AnsiCharacter(code), code);
    EXPECT_EQ(AnsiCode(static_cast<char16_t>(code)), code);
  }
}

TEST(CodePage, IsLatinElsewhere) {
  EXPECT_EQ(AnsiCode(u'A'), 65);
  EXPECT_EQ(AnsiCode(u'ç'), 231);
  EXPECT_EQ(AnsiCode(u'ÿ'), 255);
  EXPECT_EQ(AnsiCharacter(205), u'Í');
}

TEST(CodePage, UsesAQuestionMarkForOtherCharacters) {
  for (const char16_t c : {u'Ā', u'日', u'\x0080', u'\x009F', u'\xD83D', u'\xFFFF'}) {
    EXPECT_EQ(AnsiCode(c), u'?');
  }
}

TEST(CodePage, RefusesOtherCodes) {
  for (const Long code : {-1, 256, 1000, -2147483647}) {
    EXPECT_HOST_ERROR(AnsiCharacter(code), errors::InvalidArgument);
  }
}

}  // namespace
}  // namespace tessaria
