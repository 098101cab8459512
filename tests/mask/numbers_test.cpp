#include "mask/numbers.h"

#include <gtest/gtest.h>

#include "tessaria/error.h"
#include "tessaria/masks.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using namespace mdlObjTxt;

struct ZeroCase {
  Variant value;
  Integer length, decimals;
  String text;
};

TEST(StrZero, PadsWithZeros) {
  const ZeroCase kCases[] = {
      {12.5, 6, 2, u"001250"},
      {u"12,5", 6, 2, u"001250"},
      {u"", 3, 0, u"000"},
      {u".", 3, 0, u"000"},
      {u" . ", 4, 2, u"0000"},
      {Variant(), 2, 0, u"00"},
      {Long{7}, 3, 0, u"007"},
      {u" 7 ", 3, 0, u"007"},
      {Long{1234}, 4, 0, u"1234"},
      {Long{1234}, 3, 0, u"***"},
      {Long{-5}, 4, 0, u"-005"},
      {Long{-5}, 2, 0, u"-5"},
      {Long{-5}, 1, 0, u"*"},
      {Long{0}, 0, 0, u""},
      // A zero is one digit, however many decimals are requested.
      {Long{0}, 1, 2, u"0"},
      {Long{0}, 2, 3, u"00"},
      {u"", 1, 2, u"0"},
      {u".", 2, 3, u"00"},
      {u"0", 1, 4, u"0"},
      {u"0,00", 1, 2, u"0"},
      {0.001, 1, 2, u"0"},
      {-0.4, 3, 0, u"000"},
      // Halves round to the even neighbour.
      {0.5, 2, 0, u"00"},
      {1.5, 2, 0, u"02"},
      {2.5, 2, 0, u"02"},
      {-2.5, 3, 0, u"-02"},
      {u"0,5", 2, 0, u"00"},
      {u"1,5", 2, 0, u"02"},
      {2.675, 4, 2, u"0268"},
      {u"-0,4", 3, 0, u"000"},
      {u"000", 2, 0, u"00"},
      // All digits count, however many.
      {u"1234567890123456", 18, 0, u"001234567890123456"},
      {u"12345678901234567890123", 24, 0, u"012345678901234567890123"},
      {u"12345678901234567890,125", 22, 2, u"1234567890123456789012"},
      {1e20, 21, 0, u"100000000000000000000"},
      {Decimal{{~0u, ~0u, ~0u}, 0, false}, 30, 0, u"079228162514264337593543950335"},
  };
  for (const ZeroCase& row : kCases) {
    EXPECT_EQ(StrZero(row.value, row.length, row.decimals), row.text);
  }
}

TEST(StrZero, ATextThatIsNotANumberIsAnError) {
  EXPECT_HOST_ERROR(StrZero(u"abc", 3, 0), errors::TypeMismatch);
}

struct FillCase {
  String mask, prompt, text, after;
};

String Filled(const FillCase& row, Long tipoStrZero) {
  memory::TextBox box;
  box.Text(row.text);
  PreencheZeros(box, row.mask, MontaItensMascara(row.mask, row.prompt), row.prompt, tipoStrZero);
  return box.Text();
}

TEST(PreencheZeros, FillsTheWholeTextAsOneNumber) {
  const FillCase kCases[] = {
      {u"0000/00", u"_", u"12__/3_", u"000123"},
      {u"0000/00", u"_", u"1___/__", u"000001"},
      {u"00000", u"_", u"_____", u"00000"},
      {u"##00", u"_", u"7___", u"0007"},
  };
  for (const FillCase& row : kCases) EXPECT_EQ(Filled(row, 1), row.after);
}

TEST(PreencheZeros, AsOneNumberLettersAreAnError) {
  EXPECT_HOST_ERROR(Filled({u"AA-00", u"_", u"AB-12", u""}, 1), errors::TypeMismatch);
  EXPECT_HOST_ERROR(Filled({u"AA-00", u"_", u"AB-__", u""}, 1), errors::TypeMismatch);
}

TEST(PreencheZeros, AsOneNumberATextLongerThanTheMaskBecomesAsterisks) {
  EXPECT_EQ(Filled({u"0000", u"_", u"12345", u""}, 1), u"****");
  EXPECT_EQ(Filled({u"00/00", u"_", u"12345", u""}, 1), u"****");
}

TEST(PreencheZeros, AGapInsideARunIsAnError) {
  EXPECT_HOST_ERROR(Filled({u"00000", u"_", u"1_2__", u""}, 2), errors::TypeMismatch);
  EXPECT_HOST_ERROR(Filled({u"00/000", u"_", u"12/3_4", u""}, 2), errors::TypeMismatch);
  // As one number the gap closes.
  EXPECT_EQ(Filled({u"00000", u"_", u"1_2__", u""}, 1), u"00012");
}

TEST(PreencheZeros, ARunKeepsEveryDigitHoweverManyWereTyped) {
  const String zeros(20, u'0');
  for (const Long tipoStrZero : {1, 2}) {
    const auto filled = [&](const String& text) {
      return Filled({zeros, u"_", text, u""}, tipoStrZero);
    };
    EXPECT_EQ(filled(u"12345678901234567890"), u"12345678901234567890");
    EXPECT_EQ(filled(u"12345678901234567___"), u"00012345678901234567");
    EXPECT_EQ(filled(u"123456789012345_____"), u"00000123456789012345");
  }
  const String key = u"35171012345678000195550010000123451001234567";
  EXPECT_EQ(Filled({String(44, u'0'), u"_", key, u""}, 2), key);
}

TEST(PreencheZeros, AMaskWithVeryManyRunsIsFilledQuickly) {
  String mask, text;
  for (int i = 0; i < 150'000; ++i) {
    mask += u"#-";
    text += u"_-";
  }
  EXPECT_EQ(Filled({mask, u"_", text, u""}, 2), text);
}

TEST(PreencheZeros, FillsRunByRun) {
  const FillCase kCases[] = {
      {u"0000/00", u"_", u"12__/3_", u"0012/03"},
      {u"0000/00", u"_", u"12__/__", u"0012/__"},
      {u"0000/00", u"_", u"____/3_", u"____/03"},
      {u"000.##", u"_", u"1__.2_", u"001.2_"},
      {u"AA-000", u"_", u"XY-7__", u"XY-007"},
      {u"0000", u"_", u"__12", u"0012"},
      {u"0000", u"_", u"12", u"0012"},
      // A typed 0 also fills the run.
      {u"000", u"_", u"0__", u"000"},
      // Without a fill character the place stays empty.
      {u"000", u"", u"7", u"007"},
      {u"00 00", u"", u"1  2", u"01 02"},
      {u"A 00", u"", u"B 2", u"B 02"},
  };
  for (const FillCase& row : kCases) {
    EXPECT_EQ(Filled(row, 2), row.after) << ToUtf8(row.mask) << " of " << ToUtf8(row.text);
    EXPECT_EQ(Filled(row, 0), row.after) << "any number but 1 fills run by run";
  }
}

TEST(PreencheZeros, ABlankLiteralBecomesAFillCharacter) {
  EXPECT_EQ(Filled({u"(00) 0000", u"_", u"(11) 22__", u""}, 2), u"(11)_0022");
}

TEST(PreencheZeros, BlankStartBecomesZerosWhenTheFillCharacterIsABlank) {
  EXPECT_EQ(Filled({u"##00", u" ", u"  12", u""}, 2), u"0012");
  EXPECT_EQ(Filled({u"00/00", u" ", u"  /1 ", u""}, 2), u"00/01");
}

}  // namespace
}  // namespace tessaria
