#include "tessaria/masks.h"

#include <gtest/gtest.h>

#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using namespace mdlObjTxt;

/// The value laid out with the items of the mask and the fill character.
String LaidOut(const Variant& value, const String& mask, const String& fill = u"_",
               const String& password = u"") {
  return AplicaMascara(value, mask, fill, MontaItensMascara(mask, fill), password);
}

struct MaskText {
  String mask, text;
};

TEST(MontaItensMascara, ContainsTheFillCharacterThenEachLiteralOnce) {
  const MaskText kCases[] = {
      {u"(00) 0000-0000", u"_() -"},
      {u"", u"_"},
      {u"00/00/0000", u"_/"},
      {u"00_00", u"_"},
      {u"$$$.$$", u"_."},
      {u"DMYcxn", u"_DMYcxn"},
      {u"0#dmyAaC$XN", u"_"},
      {u"é0É", u"_éÉ"},
      {u"+55 (00)", u"_+5 ()"},
  };
  for (const MaskText& row : kCases) EXPECT_EQ(MontaItensMascara(row.mask, u"_"), row.text);
}

TEST(MontaItensMascara, HasOnlyLiteralsWithoutAFillCharacter) {
  EXPECT_EQ(MontaItensMascara(u"00/00", u""), u"/");
}

TEST(EhItemMascara, LooksAtOnePosition) {
  EXPECT_FALSE(EhItemMascara(u"00/00", 1, u"_/"));
  EXPECT_TRUE(EhItemMascara(u"00/00", 3, u"_/"));
  EXPECT_TRUE(EhItemMascara(u"1_/__", 2, u"_/"));
  EXPECT_FALSE(EhItemMascara(u"00/", 4, u"_/"));
  EXPECT_FALSE(EhItemMascara(u"", 1, u"_/"));
  EXPECT_FALSE(EhItemMascara(u"/", 1, u""));
}

TEST(EhItemMascara, PositionZeroIsAnError) {
  EXPECT_HOST_ERROR(EhItemMascara(u"00/00", 0, u"/"), errors::InvalidArgument);
  EXPECT_HOST_ERROR(EhItemMascara(u"00/00", -1, u"/"), errors::InvalidArgument);
}

TEST(LimpaMascara, RemovesEveryItem) {
  EXPECT_EQ(LimpaMascara(u"25/12/20__", u"00/00/0000", u"_/"), u"251220");
  EXPECT_EQ(LimpaMascara(u"/__/", u"00", u"_/"), u"");
  EXPECT_EQ(LimpaMascara(u"12", u"00", u""), u"12");
}

TEST(LimpaMascara, WithAnEmptyMaskLeavesTheText) {
  EXPECT_EQ(LimpaMascara(u"25/12", u"", u"_/"), u"25/12");
}

TEST(LimpaMascara, RemovesADigitThatIsALiteralFromTheTypedText) {
  const String mask = u"+55 (00) 0000", items = MontaItensMascara(mask, u"_");
  EXPECT_EQ(LimpaMascara(u"+55 (11) 2345", mask, items), u"11234");
  EXPECT_EQ(LimpaMascara(u"+55 (55) 5555", mask, items), u"");
}

TEST(LimpaMascara, ACommaInANumericMaskRemovesTheDecimalComma) {
  const String mask = u"$$$,$$", items = MontaItensMascara(mask, u"_");
  EXPECT_EQ(LimpaMascara(u"12,50", mask, items), u"1250");
}

TEST(LimpaMascara, RemovesAFillCharacterThatIsADigitFromEveryText) {
  EXPECT_EQ(LimpaMascara(u"10/20", u"00/00", MontaItensMascara(u"00/00", u"0")), u"12");
}

TEST(AplicaMascara, EmptyMaskReturnsTheText) {
  EXPECT_EQ(LaidOut(u"25/12", u""), u"25/12");
  EXPECT_EQ(LaidOut(Variant::Null(), u""), u"");
  EXPECT_EQ(LaidOut(12.5, u""), u"12,5");
}

struct LayoutCase {
  Variant value;
  String mask, text;
};

TEST(AplicaMascara, OrdinaryMaskFillsFromLeftToRight) {
  const LayoutCase kCases[] = {
      {Variant::Null(), u"00/00", u"__/__"},
      {Variant(), u"00/00", u"__/__"},
      {u"1", u"00/00", u"1_/__"},
      {u"12345", u"00/00", u"12/34"},
      {u"12/34", u"00/00", u"12/34"},
      {Long{1234}, u"00/00", u"12/34"},
      {u"25122017", u"00/00/0000", u"25/12/2017"},
      {u"", u"dd/mm/yyyy", u"__/__/____"},
      {u"1133334444", u"(00) 0000-0000", u"(11) 3333-4444"},
      {u"ab", u"AAA", u"ab_"},
  };
  for (const LayoutCase& row : kCases) EXPECT_EQ(LaidOut(row.value, row.mask), row.text);
}

TEST(AplicaMascara, MaskThatStartsWithXHasNoFillCharacters) {
  EXPECT_EQ(LaidOut(u"", u"XX-XX"), u"-");
  EXPECT_EQ(LaidOut(u"abc", u"XX-XX"), u"ab-c");
  EXPECT_EQ(LaidOut(u"", u"0X"), u"__");
}

TEST(AplicaMascara, NumericMaskFormatsTheNumber) {
  const LayoutCase kCases[] = {
      {u"1234,5", u"$$$$$$$.$$", u"1.234,50"},
      {1234567.891, u"$$$.$$$", u"1.234.567,891"},
      {u"1234,5", u"$$$", u"1.235"},
      {u"-12,5", u"$$.$$", u"-12,50"},
      {Long{0}, u"$$.$$", u"0,00"},
      {u"", u"$$.$$", u""},
      {Variant::Null(), u"$$.$$", u""},
      {u"abc", u"$$.$$", u"abc"},
      {u"1234,5", u"$$$.$$%", u"1.234,50%"},
      {u"1,55", u"$$$.", u"1,6"},
      {u"12", u"$$$%", u"12%"},
      {u"1.234,5", u"$$$.$$", u"1.234,50"},
      // Exact halves round away from zero.
      {u"0,125", u"$$$.$$", u"0,13"},
      {u"-0,125", u"$$$.$$", u"-0,13"},
      {2.5, u"$$$", u"3"},
      {2.675, u"$$$.$$", u"2,68"},
      // All digits of a text and of an exact number count, fifteen of a double.
      {u"12345678901234567890,125", u"$$$.$$", u"12.345.678.901.234.567.890,13"},
      {Decimal{{~0u, ~0u, ~0u}, 0, false}, u"$$$", u"79.228.162.514.264.337.593.543.950.335"},
      {1234567890123456789.0, u"$$$", u"1.234.567.890.123.460.000"},
      {0.1 + 0.2, u"$$$.$$$$$$$$$$$$$$$$$", u"0,30000000000000000"},
  };
  for (const LayoutCase& row : kCases) EXPECT_EQ(LaidOut(row.value, row.mask), row.text);
}

TEST(AplicaMascara, ALongerSuffixIsRepeatedFromEachOfItsCharacters) {
  EXPECT_EQ(LaidOut(u"12", u"$$$ kg"), u"12 kgkgg");
}

TEST(AplicaMascara, LiteralsBetweenTheDollarsAlsoCountAsSuffix) {
  EXPECT_EQ(LaidOut(u"12", u"$$-$$%"), u"12-$$%%");
  EXPECT_EQ(LaidOut(u"12", u"$$-$$"), u"12");  // a mask that ends in "$" has no suffix
}

TEST(AplicaMascara, ANumberWithItsSuffixGetsAnotherOne) {
  // With its suffix the text is not a number, so it is not formatted again.
  EXPECT_EQ(LaidOut(u"1.234,50%", u"$$$.$$%"), u"1.234,50%%");
  EXPECT_EQ(LaidOut(u"1234,5%", u"$$$.$$%"), u"1234,5%%");
}

TEST(AplicaMascara, ATextThatIsNotANumberIsReturnedWithItsSuffix) {
  EXPECT_EQ(LaidOut(u"12a", u"$$$.$$"), u"12a");
  EXPECT_EQ(LaidOut(u"-", u"$$$.$$"), u"-");
  EXPECT_EQ(LaidOut(u"1,2,3", u"$$$.$$"), u"1,2,3");
  EXPECT_EQ(LaidOut(u"12a", u"$$$.$$%"), u"12a%");
}

TEST(AplicaMascara, ASuffixOfMillionsOfCharactersIsAnError) {
  // A suffix of n characters grows to half the square of n.
  EXPECT_EQ(Len(LaidOut(u"1", u"$" + String(1000, u'k'))), 500501);
  EXPECT_HOST_ERROR(LaidOut(u"1", u"$" + String(2000, u'k')), errors::OutOfMemory);
  EXPECT_HOST_ERROR(LaidOut(u"1", u"$" + String(1'000'000, u'k')), errors::OutOfMemory);
}

TEST(AplicaMascara, HandlesVeryLongTextsAndMasksQuickly) {
  const std::size_t length = 300'000;
  const String digits(length, u'7'), slots(length, u'0'), filled = u"_" + digits;
  EXPECT_TRUE(LaidOut(digits, slots) == digits);
  EXPECT_TRUE(LaidOut(u"", slots) == String(length, u'_'));
  EXPECT_TRUE(LaidOut(digits, u"N" + slots) == filled);
  EXPECT_TRUE(LaidOut(digits, u"NA" + slots) == digits + u"__");
  EXPECT_TRUE(LaidOut(String(length, u' '), u"A" + slots) == String(length, u' ') + u"_");
  EXPECT_EQ(LaidOut(digits, u"00"), u"77");
}

TEST(AplicaMascara, APointIsNotASuffix) { EXPECT_EQ(LaidOut(u"12", u"$$$."), u"12,0"); }

TEST(AplicaMascara, TwoSidedMaskAlignsItsLeftPartRight) {
  const LayoutCase kCases[] = {
      {u"12", u"N00", u"_12"},         {u"", u"N00", u"___"},
      {u"1234", u"N00", u"234"},       {u"123", u"N0-00", u"_1-23"},
      {u"_12", u"N00", u"_12"},        {u"1", u"N000A", u"___1_"},
      {u"1234B", u"N000A", u"1234B"},  {u"12", u"N000A", u"__12_"},
      {u"1234BC", u"N000A", u"1234B"}, {u"12/34-AB", u"N0/00-AA", u"12/34-AB"},
  };
  for (const LayoutCase& row : kCases) {
    EXPECT_EQ(LaidOut(row.value, row.mask), row.text)
        << ToUtf8(row.mask) << " of " << ToUtf8(*row.value.TryGet<String>());
  }
}

TEST(AplicaMascara, TwoSidedMaskWithoutASplitKeepsLiteralsOfTheText) {
  // The text is not stripped in this case, so its "-" takes a slot.
  EXPECT_EQ(LaidOut(u"1-2", u"N0-00"), u"_1--2");
}

TEST(AplicaMascara, SplitCountsThePlacesOfTheTextWithItsLiterals) {
  // Without its "-" the text would be cut one position too late.
  EXPECT_EQ(LaidOut(u"12/34AB", u"N0/00-AA"), u"23/4A-B_");
}

TEST(AplicaMascara, OnlyAnUpperAMakesASplit) {
  EXPECT_EQ(LaidOut(u"12", u"N0a"), u"_12");
  EXPECT_EQ(LaidOut(u"12", u"N0C"), u"_12");
}

TEST(AplicaMascara, SplitMovesToAnEarlierLetterSlot) {
  EXPECT_EQ(LaidOut(u"1", u"N0aA"), u"_1__");
  EXPECT_EQ(LaidOut(u"12xy", u"N0aA"), u"12xy");
  EXPECT_EQ(LaidOut(u"1", u"N0CA"), u"_1__");
  EXPECT_EQ(LaidOut(u"1", u"N0CaA"), u"_1___");
  EXPECT_EQ(LaidOut(u"1", u"N0Aa"), u"_1__");
}

TEST(AplicaMascara, PasswordCharacterHidesEveryCharacter) {
  EXPECT_EQ(LaidOut(u"12", u"00/00", u"_", u"*"), u"*****");
  EXPECT_EQ(LaidOut(u"abc", u"", u"_", u"#*"), u"###");
  EXPECT_EQ(LaidOut(u"", u"XX", u"_", u"*"), u"");
}

TEST(AplicaMascara, ObjectHasNoText) {
  EXPECT_HOST_ERROR(LaidOut(Variant(ObjectPtr()), u"00"), errors::TypeMismatch);
}

TEST(ContaDecimais, CountsTheMarkersAfterTheSeparator) {
  struct Case {
    String mask;
    Integer count;
  };
  const Case kCases[] = {
      {u"", 0},       {u"$$$", 0},     {u"$$$.$", 1},   {u"$$$.$$", 2}, {u"$$$.$$%", 2},
      {u"$$$.%$", 0}, {u"$.$.$$$", 1}, {u"$.$$$$$", 5}, {u".$", 1},
  };
  for (const Case& row : kCases) EXPECT_EQ(ContaDecimais(row.mask, u".", u"$"), row.count);
}

TEST(ContaDecimais, MaskThatEndsInItsSeparatorCountsOne) {
  EXPECT_EQ(ContaDecimais(u"$$$.", u".", u"$"), 1);
}

TEST(FormatoNumero, HasTheDecimalsOfTheMaskWhateverTheFlag) {
  for (const bool flag : {false, true}) {
    EXPECT_EQ(FormatoNumero(u"$$$", flag), u"#,##0");
    EXPECT_EQ(FormatoNumero(u"$$$.$$", flag), u"#,##0.00");
    EXPECT_EQ(FormatoNumero(u"$$$.", flag), u"#,##0.0");
    EXPECT_EQ(FormatoNumero(u"$$$.%", flag), u"#,##0");
  }
}

TEST(CapacidadeInteira, LeavesRoomForCommaDecimalsSuffixAndPoints) {
  struct Case {
    String mask;
    Long maxLength;
    Integer capacity;
  };
  const Case kCases[] = {
      {u"$$$$$$$.$$", 10, 6}, {u"$$$$$$$.$$", 13, 8}, {u"$$$.$$", 6, 3},  {u"$$$.$$", 7, 3},
      {u"$$$.$$", 8, 4},      {u"$$$.$$%", 10, 5},    {u"$$$", 3, 3},     {u"$$$", 4, 3},
      {u"$$$", 8, 6},         {u"$$$%", 5, 3},        {u"$$$.$$", 0, -3}, {u"$$$", 0, 0},
      {u"$$$%", 0, -1},       {u"$$$.$$%", 0, -4},    {u"$$$.", 6, 3},    {u"$", 32767, 24576},
  };
  for (const Case& row : kCases) {
    EXPECT_EQ(CapacidadeInteira(row.mask, row.maxLength), row.capacity)
        << ToUtf8(row.mask) << " in " << row.maxLength;
  }
}

TEST(CapacidadeInteira, OverflowsSixteenBits) {
  struct Case {
    String mask;
    Long maxLength;
  };
  const Case kCases[] = {{u"$", 32768},        {u"$$$.$$", 32768}, {u"$$$.$$%", 32770},
                         {u"$", -32769},       {u"$$$%", -32768},  {u"$$$.$$", -32766},
                         {u"$$$.$$%", -32765}, {u"$", -2147483647}};
  for (const Case& row : kCases) {
    EXPECT_HOST_ERROR(CapacidadeInteira(row.mask, row.maxLength), errors::Overflow);
  }
  EXPECT_EQ(CapacidadeInteira(u"$", -32768), -32768);
  EXPECT_EQ(CapacidadeInteira(u"$$$.$$", -32765), -32768);
}

TEST(CommaRemovalOverflows, CountsTheDigitsThatWouldRemainWithoutTheComma) {
  EXPECT_FALSE(CommaRemovalOverflows(u"1234,56", u"$$$$$$$.$$", 10));
  EXPECT_TRUE(CommaRemovalOverflows(u"12345,67", u"$$$$$$$.$$", 10));
  EXPECT_TRUE(CommaRemovalOverflows(u"1,2", u"$$$.$$", 0));
}

TEST(IsNumericMask, LooksAtTheFirstCharacter) {
  EXPECT_TRUE(IsNumericMask(u"$"));
  EXPECT_FALSE(IsNumericMask(u"0$"));
  EXPECT_FALSE(IsNumericMask(u""));
}

TEST(DateFormOf, RecognisesTheFormInItsExactCase) {
  struct Case {
    String mask;
    DateForm form;
  };
  const Case kCases[] = {
      {u"dd/mm/yyyy", DateForm::DayMonthYear}, {u"dd/mm/yy", DateForm::DayMonthYear},
      {u"mm/yyyy", DateForm::MonthYear},       {u"mm/yy", DateForm::MonthYear},
      {u"00/00/0000", DateForm::EmptyOnly},    {u"DD/MM/YYYY", DateForm::None},
      {u"00/00/00", DateForm::None},           {u"", DateForm::None},
  };
  for (const Case& row : kCases) EXPECT_EQ(DateFormOf(row.mask), row.form) << ToUtf8(row.mask);
}

TEST(IsDateMask, RecognisesFiveForms) {
  for (const StringView mask :
       {u"00/00/0000", u"dd/mm/yyyy", u"dd/mm/yy", u"mm/yyyy", u"mm/yy", u"DD/MM/YYYY", u"Mm/yY"}) {
    EXPECT_TRUE(IsDateMask(String(mask)));
  }
  for (const StringView mask : {u"", u"00/00/00", u"dd-mm-yyyy", u"yyyy/mm/dd", u"dd/mm/yyyy "}) {
    EXPECT_FALSE(IsDateMask(String(mask)));
  }
}

}  // namespace
}  // namespace tessaria
