// Contract of every host's text box for keys that print.
#pragma once

#include "tests/ports/text_box_contract.h"

namespace tessaria::contract {

// --- Keys that print --------------------------------------------------------------------------

TEST_P(TextBoxContract, AKeyComesAsKeyDownKeyPressChangeKeyUp) {
  Start(u"");
  Operator().Type(u"a");
  EXPECT_THAT(events_, testing::ElementsAre("down 65 0", "press 97", "change", "up 65"));
}

TEST_P(TextBoxContract, DigitsHaveTheirOwnCodes) {
  Start(u"");
  Operator().Type(u"7");
  EXPECT_THAT(events_, testing::ElementsAre("down 55 0", "press 55", "change", "up 55"));
}

TEST_P(TextBoxContract, KeysThatAreLeftAloneInsertAtTheCaret) {
  Start(u"ad", 1);
  Operator().Type(u"bc");
  EXPECT_EQ(Box().Text(), u"abcd");
  ExpectSelection(3, 0);
}

TEST_P(TextBoxContract, AKeyReplacesTheSelectionWithOneChange) {
  Start(u"abcdef", 1, 3);
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"aXef");
  ExpectSelection(2, 0);
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, AKeyRespectsMaxLength) {
  Box().MaxLength(3);
  Start(u"abc", 3);
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abc");
  EXPECT_EQ(Count("press"), 1);
  EXPECT_EQ(Count("change"), 0);
}

TEST_P(TextBoxContract, AKeyReplacesASelectionInAFullBox) {
  Box().MaxLength(3);
  Start(u"abc", 1, 1);
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"aXc");
}

TEST_P(TextBoxContract, ATextLongerThanMaxLengthIsScrolledAndSelectedAsAnyOther) {
  Box().MaxLength(3);
  Start(u"abcdef");
  Operator().Press(EditKey::End);
  ExpectSelection(6, 0);
  Operator().Press(EditKey::Left, With::Shift);
  ExpectSelection(5, 1);
  EXPECT_EQ(Box().SelText(), u"f");
}

TEST_P(TextBoxContract, TypingIntoATextLongerThanMaxLengthIsRefused) {
  Box().MaxLength(3);
  for (const Long caret : {0, 3, 6}) {
    Start(u"abcdef", caret);
    Operator().Type(u"X");
    EXPECT_EQ(Box().Text(), u"abcdef");
    ExpectSelection(caret, 0);
    EXPECT_EQ(Count("change"), 0);
  }
}

TEST_P(TextBoxContract, ATextLongerThanMaxLengthIsDeletedCharacterByCharacter) {
  Box().MaxLength(3);
  Start(u"abcdef", 6);
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"abcde");
  Operator().Press(EditKey::Home);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"bcde");
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"bcde");
  Operator().Press(EditKey::Delete);
  Operator().Press(EditKey::Delete);
  Operator().Type(u"XY");
  EXPECT_EQ(Box().Text(), u"Xde");
}

TEST_P(TextBoxContract, ASelectionThatMakesRoomTakesAKeyInATextLongerThanMaxLength) {
  Box().MaxLength(3);
  Start(u"abcdef", 1, 4);
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"aXf");
}

TEST_P(TextBoxContract, ASelectionThatMakesNoRoomStaysWithItsText) {
  Box().MaxLength(3);
  Start(u"abcdef", 1, 2);
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"abcdef");
  ExpectSelection(1, 2);
  EXPECT_EQ(Count("change"), 0);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"adef");
}

TEST_P(TextBoxContract, AHandlerMayWriteATextLongerThanMaxLength) {
  Box().MaxLength(3);
  Start(u"abc", 3);
  Box().OnKeyPress = [&](Integer& code) {
    Box().Text(u"abcdef");
    code = 0;
  };
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abcdef");
}

TEST_P(TextBoxContract, AMaxLengthNear2To31IsALimitLikeAnyOther) {
  Box().MaxLength(2147483647);
  Start(u"abc", 3);
  Operator().Type(u"d");
  Operator().Insert(u"ef");
  EXPECT_EQ(Box().Text(), u"abcdef");
  EXPECT_EQ(Box().MaxLength(), 2147483647);
}

// --- Characters of two units ------------------------------------------------------------------

TEST_P(TextBoxContract, ACharacterOfTwoUnitsIsTypedWholeOrNotAtAll) {
  Box().MaxLength(4);
  Start(u"ab", 2);
  Operator().Type(u"😀");
  EXPECT_EQ(Box().Text(), u"ab😀");
  EXPECT_EQ(Count("press"), 1);
  EXPECT_EQ(Count("change"), 1);
  Start(u"abc", 3);
  Operator().Type(u"😀");
  EXPECT_EQ(Box().Text(), u"abc");
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abcd");
}

TEST_P(TextBoxContract, APasteIsNeverCutInsideACharacterOfTwoUnits) {
  Box().MaxLength(4);
  Start(u"a", 1);
  Operator().Insert(u"😀😀");
  EXPECT_EQ(Box().Text(), u"a😀");
  Start(u"abc", 0, 1);
  Box().MaxLength(3);
  Operator().Insert(u"😀");
  EXPECT_EQ(Box().Text(), u"abc");
  ExpectSelection(0, 1);
}

TEST_P(TextBoxContract, KeysMoveOverACharacterOfTwoUnitsAndDeleteItWhole) {
  Start(u"a😀b", 1);
  Operator().Press(EditKey::Right);
  ExpectSelection(3, 0);
  Operator().Press(EditKey::Left);
  ExpectSelection(1, 0);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"ab");
  Start(u"a😀b", 3);
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"ab");
}

// --- Keys that go no further ------------------------------------------------------------------

TEST_P(TextBoxContract, AKeyDownSetTo0GoesNoFurther) {
  Start(u"abc", 3);
  Box().OnKeyDown = [](Integer& code, Integer&) { code = 0; };
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abc");
  EXPECT_THAT(events_, testing::ElementsAre("up 68"));
}

TEST_P(TextBoxContract, AKeyPressSetTo0GoesNoFurther) {
  Start(u"abc", 3);
  Box().OnKeyPress = [](Integer& code) { code = 0; };
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abc");
  EXPECT_THAT(events_, testing::ElementsAre("down 68 0", "up 68"));
}

TEST_P(TextBoxContract, AKeyPressMayTurnIntoAnotherCharacter) {
  Start(u"");
  Box().OnKeyPress = [](Integer& code) { code = u'Z'; };
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"Z");
}

TEST_P(TextBoxContract, AHandlerThatWritesTheTextAndSwallowsTheKeyDecidesTheText) {
  Start(u"__/__");
  Box().OnKeyPress = [&](Integer& code) {
    Box().Text(u"1_/__");
    Box().SelStart(1);
    code = 0;
  };
  Operator().Type(u"1");
  EXPECT_EQ(Box().Text(), u"1_/__");
  ExpectSelection(1, 0);
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, AnAccentedLetterIsOneKeyPressOfItsWesternCode) {
  Start(u"");
  Operator().Type(u"á");
  EXPECT_EQ(Box().Text(), u"á");
  EXPECT_EQ(Count("press"), 1);
  EXPECT_EQ(Count("press 225"), 1);
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, ACharacterOutsideTheWesternCodesIsTypedAsItIs) {
  Start(u"");
  Operator().Type(u"Ω");
  EXPECT_EQ(Count("press 63"), 1);
  EXPECT_EQ(Box().Text(), u"Ω");
}

TEST_P(TextBoxContract, ADisabledBoxTakesNoKey) {
  Start(u"abc");
  Box().Enabled(false);
  Operator().Type(u"d");
  EXPECT_EQ(Box().Text(), u"abc");
  EXPECT_EQ(Count("press"), 0);
}

}  // namespace tessaria::contract
