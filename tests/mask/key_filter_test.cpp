#include "mask/key_filter.h"

#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tessaria/text.h"
#include "tests/mask/session.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

// --- Typing -------------------------------------------------------------------------------------

TEST(Typing, OverwritesTheSlotsAndSkipsLiterals) {
  Session(R"(
    mask 00/00/0000
    show |__/__/____
    1     -> 1|_/__/____ ; texto 1_/__/____ ; key 0
    2     -> 12/|__/____ ; key 0
    a     -> 12/|__/____ ; key 0
    3 4   -> 12/34/|____
    5 6 7 -> 12/34/567|_
    8     -> 12/34/5678| ; texto 12/34/5678
    9     -> 12/34/5678| ; beep ; key 0
  )");
}

TEST(Typing, NeverShiftsTheTextToTheRight) {
  Session(R"(
    mask 00/00/0000
    show |25/12/2017
    3 1 -> 31/|12/2017
  )");
}

TEST(Typing, OnALiteralGoesIntoTheNextSlot) {
  Session(R"(
    mask 00/00/0000
    show 12|/__/____
    3 -> 12/3|_/____
  )");
}

TEST(Typing, OverASelectionFillsItsFirstSlotAndEmptiesTheRest) {
  Session(R"(
    mask 00/00/0000
    show 0[1/20]/2017
    9 -> 09/|__/2017 ; texto 09/__/2017
    show [25/12/2017]
    3 -> 3|_/__/____
  )");
}

TEST(Typing, OverASelectionThatStartsOnALiteralReachesOneSlotFurther) {
  // Also after the mask, so the text becomes longer than the mask.
  Session(R"(
    mask 00-000
    show 12[-3]45
    9 -> 12-9|_5
    show 12[-345]
    9 -> 12-9|___
  )");
}

TEST(Typing, FoldsByTheMaskCharacter) {
  Session(R"(
    mask AaCX
    show |____
    b B c d -> BbCd|
    show |____
    B c D E -> BcDE|
  )");
}

TEST(Typing, AcceptsBlanksAndDigitsInLetterSlotsButNoAccents) {
  Session(R"(
    mask XXXX
    show |
    a Space 7 -> a 7|
    ç á - , ; -> a 7|
    Z -> a 7Z|
  )");
}

TEST(Typing, RefusesLettersInDigitSlotsWithoutABeep) {
  Session(R"(
    mask N#0dmy
    show |______
    a A Space - Enter Esc Tab Paste -> |______ ; key 0
    1 2 3 4 5 6 -> 123456|
  )");
}

TEST(Typing, GrowsATextWithoutFillCharacters) {
  Session(R"(
    mask XX-XX
    value
    show |
    a   -> a| ; texto a
    b   -> ab| ; texto ab
    c   -> abc| ; texto abc
    d   -> abcd|
    e   -> abcde|
    f   -> abcde| ; beep
  )");
}

TEST(Typing, AtTheEndOfAShorterTextRemovesItsLiterals) {
  Session(R"(
    mask XX-XX
    show ab-|
    c -> abc| ; texto abc
  )");
}

TEST(Typing, EndsWhereTheCaretNoLongerMovesBeforeALiteral) {
  Session(R"(
    mask X-X-
    show |
    a -> a|
  )");
}

TEST(Typing, MaskOfOneCharacterTakesOneCharacter) {
  Session(R"(
    mask A
    show |_
    b -> B|
    c -> B| ; beep ; key 0
    mask X
    show |
    q -> q|
    r -> q| ; beep
  )");
}

TEST(Typing, UnmaskedFieldIsAnOrdinaryBox) {
  Session(R"(
    mask
    show |
    a ç . x -> aç.x| ; key 120
    Back -> aç.| ; key 8
    type 5
    F9 -> aç.| ; key 120
    x -> aç.x| ; key 120
  )");
}

TEST(Typing, LetsAKeyPassEarlyInAMaskWithManyLiterals) {
  // At the last literal, position 16 of 18, there are only 14 slots.
  Session(R"(
    mask 00.000.000/0000-00
    show 12.345.678/0001|-__
    9 -> 12.345.678/00019|-__ ; key 57
  )");
}

// --- MaxLength ------------------------------------------------------------------------------

TEST(MaxLength, ATextThatWouldOutgrowItIsRefusedAndNeverCut) {
  Session(R"(
    mask 00/00
    max 3
    show |__
    1 2 -> 12|
    3   -> 123| ; texto 123
    4   -> 123| ; texto 123 ; beep ; key 0
    mask XXXXX
    value
    show |
    a b c -> abc| ; texto abc
    d   -> abc| ; texto abc ; beep ; key 0
  )");
}

TEST(MaxLength, SlotsOfALongerMaskCanBeFilled) {
  Session(R"(
    mask 00/00/0000
    max 5
    show |__/__/____
    2 5 1 2 2 0 1 7 -> 25/12/2017| ; texto 25/12/2017
    Back -> 25/12/201|_
    show [25/12/2017]
    3 -> 3|_/__/____
    Del -> 3|_/__/____
    0 -> 30/|__/____
  )");
}

TEST(MaxLength, ASelectionThatReachesFurtherIsRefusedWhenTheTextWouldGrow) {
  Session(R"(
    mask 00-000
    max 6
    value 12345
    show 12[-345]
    9 -> 12[-345] ; texto 12345 ; beep ; key 0
    Del -> 12[-345] ; texto 12345 ; beep ; key 0
    Back -> 12[-345] ; texto 12345 ; beep ; key 0
  )");
}

TEST(MaxLength, RefusesBehindPasswordCharactersToo) {
  Session(R"(
    mask XXXX
    password *
    max 2
    value
    show |
    a b -> **| ; texto ab
    c   -> **| ; texto ab ; beep ; key 0
  )");
}

TEST(MaxLength, OfZeroIsNoLimit) {
  Session(R"(
    mask XXXXX
    show |
    a b c d e -> abcde|
  )");
}

TEST(MaxLength, NearTheEndOfItsRangeIsAnOrdinaryLimit) {
  Session(R"(
    mask XXXXX
    max 2147483647
    show |
    a b -> ab|
    mask 00
    show |__
    1 2 -> 12|
  )");
}

// --- The "x" and F9 -------------------------------------------------------------------------

TEST(KeyX, RefusedByItsSlotReachesTheBox) {
  Session(R"(
    mask 00/00
    show 1|_/__
    x -> 1x|_/__ ; key 120
    X -> 1x|_/__ ; key 0
  )");
}

TEST(KeyX, OpensTheCalculatorOfACalculatorFieldAndThenReachesTheBox) {
  Session(R"(
    mask $$$
    type 5
    show 1|
    x -> 1x| ; key 120 ; calculator
    X -> 1x| ; key 0
    mask 00/00
    show 1|_/__
    x -> 1x|_/__ ; key 120 ; calculator
    type 0
    show 1|_/__
    x -> 1x|_/__ ; key 120
  )");
}

TEST(KeyX, GoesIntoALetterSlot) {
  Session(R"(
    mask AX
    type 5
    show |__
    x -> X|_ ; key 0
    x -> Xx| ; key 0
  )");
}

TEST(KeyX, ReachesTheBoxOfANumber) {
  Session(R"(
    mask $$$
    show 1|
    x -> 1x| ; key 120
  )");
}

TEST(KeyF9, TypesAnXIntoALetterSlot) {
  Session(R"(
    mask AA
    show |__
    F9 -> X|_ ; key 0
    mask 00
    show |__
    F9 -> |__ ; key 120
    type 5
    mask AA
    show |__
    F9 -> X|_ ; key 0
  )");
}

TEST(KeyF9, OpensTheCalculatorOfACalculatorField) {
  Session(R"(
    mask $$$
    show 1|
    F9 -> 1| ; key 120
    type 5
    F9 -> 1| ; key 120 ; calculator
    mask 00
    show |__
    F9 -> |__ ; key 120 ; calculator
  )");
}

// --- Behind the last slot -----------------------------------------------------------------------

TEST(AfterTheLastSlot, EveryKeyButBackspaceBeeps) {
  Session(R"(
    mask 00
    type 5
    show 12|
    Del   -> 12| ; beep ; key 0
    .     -> 12| ; beep ; key 0
    F9    -> 12| ; beep ; key 0
    x     -> 12| ; beep ; key 0
    Enter -> 12| ; beep ; key 0
    Esc   -> 12| ; beep ; key 0
    Tab   -> 12| ; beep ; key 0
    Back  -> 1|_ ; key 0
  )");
}

// --- Delete and the typed point --------------------------------------------------------------

TEST(Delete, EmptiesTheSlotAtTheCaret) {
  Session(R"(
    mask 00/00/0000
    show |25/12/2017
    Del -> |_5/12/2017 ; key 0 ; texto _5/12/2017
    show 25|/12/2017
    Del -> 25/|_2/2017
  )");
}

TEST(Delete, EmptiesTheSelectionAndKeepsItsLiterals) {
  Session(R"(
    mask 00/00/0000
    show 2[5/1]2/2017
    Del -> 2|_/_2/2017
    show [25/12/2017]
    Del -> |__/__/____
  )");
}

TEST(Delete, AtTheEndIsSwallowed) {
  Session(R"(
    mask 00000
    show 12|
    Del -> 12| ; key 0
    mask XX
    show 1|
    Del -> 1| ; key 0
  )");
}

TEST(Delete, AtTheEndOfAShortTextTypesACommaIntoANumberSlot) {
  // Delete has the same code as the point, which acts as a comma there.
  Session(R"(
    mask 0$
    show 1|
    Del -> 1,| ; key 0
  )");
}

TEST(Delete, ActsLikeATypedPoint) {
  Session(R"(
    mask 00/00
    show |25/12
    . -> |_5/12 ; key 0
  )");
}

TEST(Delete, WithoutAFillCharacterRemovesTheSlot) {
  Session(R"(
    mask 00/00
    prompt
    show 2|5/12
    Del -> 2|/12
  )");
}

// --- Backspace ----------------------------------------------------------------------------------

TEST(Backspace, EmptiesTheSlotToTheLeft) {
  Session(R"(
    mask 00/00/0000
    show 25|/12/2017
    Back -> 2|_/12/2017 ; key 0 ; texto 2_/12/2017
    Back -> |__/12/2017
    Back -> |__/12/2017 ; key 0
  )");
}

TEST(Backspace, AfterALiteralMovesLeftOverIt) {
  Session(R"(
    mask 00/00/0000
    show 25/|12/2017
    Back -> 2|_/12/2017
    mask 00--00
    show 25--|12
    Back -> 2|_--12
  )");
}

TEST(Backspace, AfterTheLastSlotEmptiesIt) {
  Session(R"(
    mask 00/00/0000
    show 25/12/2017|
    Back -> 25/12/201|_
    mask A
    show B|
    Back -> |_
  )");
}

TEST(Backspace, EmptiesASelectionAndKeepsItsLiterals) {
  Session(R"(
    mask 00/00/0000
    show 0[1/2]0/____
    Back -> 0|_/_0/____ ; key 0
    show [01/20/2017]
    Back -> |__/__/____
  )");
}

TEST(Backspace, OfOneSelectedCharacterActsAsAfterIt) {
  Session(R"(
    mask 00/00/0000
    show 2[5]/12/2017
    Back -> 2|_/12/2017
    show [2]5/12/2017
    Back -> |_5/12/2017
    show 25/12/201[7]
    Back -> 25/12/201|_
    show 25/[1]2/2017
    Back -> 25/|_2/2017
    show 25[/]12/2017
    Back -> 2|_/12/2017
  )");
}

TEST(Backspace, SelectionThatStartsOnALiteralReachesOneSlotFurther) {
  Session(R"(
    mask 00/00/0000
    show 25[/1]2/2017
    Back -> 25/|__/2017
  )");
}

TEST(Backspace, WithoutAFillCharacterRemovesTheCharacterAtTheCaret) {
  // The erased text is empty, and only its length distinguishes a slot from a selection.
  Session(R"(
    mask 0000
    prompt
    show 12|34
    Back -> 12|4
    show 1234|
    Back -> 1234|
  )");
}

TEST(Backspace, AtTheEndDoesNotMoveAndWritesTheLiteral) {
  // The position before the end is a literal; the next character of the mask is written.
  Session(R"(
    mask 00-0
    show 12-|
    Back -> 12|0
  )");
}

TEST(Backspace, NoSlotToTheLeftOfAFirstLiteralIsAnError) {
  Session(R"(
    mask (00)00000
    show (|__)_____
    Back -> |__)_____ ; error 5 ; key 8
  )");
}

TEST(Backspace, SelectionInAMaskThatStartsWithALiteralIsAnOverflow) {
  Session(R"(
    mask (00)00000
    show (1[2)3]4567
    Back -> (1[2)3]4567 ; error 6 ; key 0
  )");
}

TEST(Backspace, OnAnEarlyLiteralIsLeftToTheBox) {
  Session(R"(
    mask (00)
    show (12|)
    Back -> (1|) ; key 8
  )");
}

TEST(Backspace, SelectionThatLeavesOneErasedCharacterAtTheStartIsAnError) {
  // Without fill characters only the literal remains, which counts as a single slot.
  Session(R"(
    mask 0/0
    prompt
    show [1/]2
    Back -> |2 ; error 5 ; key 8
  )");
}

// --- The handler itself ---------------------------------------------------------------------

// Positions of the filter have 16 bits. A longer text does not make any key fail.
TEST(KeyFilter, ACaretBeyondSixteenBitsIsAfterTheMask) {
  for (const char16_t* mask : {u"", u"XXXX", u"##/##"}) {
    memory::Application app;
    TestField field(mask);
    field.box.Text(String(40000, u'a'));
    field.box.SelStart(40000);
    Integer key = u'b';
    txtEdit_KeyPress(field, key);
    const bool masked = *mask != 0;
    EXPECT_EQ(key, masked ? 0 : u'b');
    EXPECT_EQ(app.Beeps(), masked ? 1 : 0);
    EXPECT_EQ(Len(field.box.Text()), 40000);
    EXPECT_TRUE(app.Boxes().empty());
  }
}

TEST(KeyFilter, ASelectionBeyondSixteenBitsIsEmptied) {
  for (const char16_t* mask : {u"XXXX", u"$$$$$$$.$$"}) {
    memory::Application app;
    TestField field(mask);
    field.box.Text(String(100000, u'1'));
    field.box.SelLength(100000);
    Integer key = 8;
    txtEdit_KeyPress(field, key);
    EXPECT_TRUE(app.Boxes().empty()) << testing::PrintToString(String(mask));
  }
}

TEST(KeyFilter, AcceptsCodesOfTheWesternPage) {
  memory::Application app;
  TestField field(u"XX");
  // An accented letter, one beyond Latin-1, and "?" for a character that the page lacks.
  for (const char16_t character : {u'ç', u'\x0160', u'\xFF21'}) {
    Integer key = AnsiCode(character);
    txtEdit_KeyPress(field, key);
    EXPECT_EQ(key, 0);
  }
  EXPECT_EQ(AnsiCode(u'\xFF21'), 63);
  EXPECT_EQ(field.box.Text(), u"");
}

TEST(KeyFilter, ReportsAnErrorOfTheChangeEvent) {
  memory::Application app;
  TestField field(u"00");
  field.Show(u"");
  field.box.OnChange = [] { throw HostError(13); };
  Integer key = u'1';
  txtEdit_KeyPress(field, key);
  EXPECT_EQ(key, u'1');
  EXPECT_EQ(app.Boxes().size(), 1u);
}

}  // namespace
}  // namespace tessaria
