// Contract of every host's text box for keys that edit, and for text that comes without a key.
#pragma once

#include "tests/ports/text_box_contract.h"

namespace tessaria::contract {

// --- Keys that edit ---------------------------------------------------------------------------

TEST_P(TextBoxContract, DeleteRemovesTheCharacterAfterTheCaretWithoutAKeyPress) {
  Start(u"abc", 1);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"ac");
  ExpectSelection(1, 0);
  EXPECT_THAT(events_, testing::ElementsAre("down 46 0", "change", "up 46"));
}

TEST_P(TextBoxContract, DeleteRemovesTheSelection) {
  Start(u"abcdef", 1, 3);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"aef");
}

TEST_P(TextBoxContract, DeleteAtTheEndChangesNothing) {
  Start(u"abc", 3);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"abc");
  EXPECT_EQ(Count("change"), 0);
}

TEST_P(TextBoxContract, ADeleteSetTo0DeletesNothing) {
  Start(u"abc", 1);
  Box().OnKeyDown = [](Integer& code, Integer&) { code = 0; };
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"abc");
}

TEST_P(TextBoxContract, BackspaceIsAKeyPress8) {
  Start(u"abc", 2);
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"ac");
  ExpectSelection(1, 0);
  EXPECT_THAT(events_, testing::ElementsAre("down 8 0", "press 8", "change", "up 8"));
}

TEST_P(TextBoxContract, BackspaceRemovesTheSelection) {
  Start(u"abcdef", 1, 3);
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"aef");
}

TEST_P(TextBoxContract, ABackspaceSetTo0DeletesNothing) {
  Start(u"abc", 2);
  Box().OnKeyPress = [](Integer& code) { code = 0; };
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"abc");
}

TEST_P(TextBoxContract, EnterLeavesTheTextAlone) {
  Start(u"abc", 1, 1);
  Operator().Press(EditKey::Enter);
  EXPECT_EQ(Box().Text(), u"abc");
}

TEST_P(TextBoxContract, ArrowsMoveTheCaret) {
  Start(u"abc", 1);
  Operator().Press(EditKey::Right);
  ExpectSelection(2, 0);
  Operator().Press(EditKey::Left);
  Operator().Press(EditKey::Left);
  Operator().Press(EditKey::Left);
  ExpectSelection(0, 0);
  EXPECT_EQ(Count("press"), 0);
  EXPECT_EQ(Count("change"), 0);
}

TEST_P(TextBoxContract, HomeAndEndMoveTheCaret) {
  Start(u"abc", 1);
  Operator().Press(EditKey::End);
  ExpectSelection(3, 0);
  Operator().Press(EditKey::Home);
  ExpectSelection(0, 0);
}

TEST_P(TextBoxContract, ShiftExtendsTheSelection) {
  Start(u"abcdef", 2);
  Operator().Press(EditKey::Right, With::Shift);
  Operator().Press(EditKey::Right, With::Shift);
  ExpectSelection(2, 2);
  Operator().Press(EditKey::Left, With::Shift);
  ExpectSelection(2, 1);
  Operator().Press(EditKey::Home, With::Shift);
  ExpectSelection(0, 2);
  Operator().Press(EditKey::End, With::Shift);
  ExpectSelection(2, 4);
}

TEST_P(TextBoxContract, AnArrowSetTo0LeavesTheCaret) {
  Start(u"abc", 1);
  Box().OnKeyDown = [](Integer& code, Integer&) { code = 0; };
  Operator().Press(EditKey::Right);
  ExpectSelection(1, 0);
}

TEST_P(TextBoxContract, ControlASelectsAll) {
  Start(u"abc", 1);
  Operator().Press(EditKey::A, With::Control);
  ExpectSelection(0, 3);
  EXPECT_EQ(Box().Text(), u"abc");
}

// --- Text without a key -----------------------------------------------------------------------

TEST_P(TextBoxContract, TextWithoutAKeyIsFollowedByOneKeyUpOfCode0) {
  Start(u"abc", 1, 1);
  Operator().Insert(u"12");
  EXPECT_EQ(Box().Text(), u"a12c");
  EXPECT_THAT(events_, testing::ElementsAre("change", "up 0"));
}

TEST_P(TextBoxContract, TextWithoutAKeyIsCutAtMaxLength) {
  Box().MaxLength(4);
  Start(u"abc", 3);
  Operator().Insert(u"1234");
  EXPECT_EQ(Box().Text(), u"abc1");
  ExpectSelection(4, 0);
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, TextWithoutAKeyIsCutToTheRoomThatItsSelectionMakes) {
  Box().MaxLength(4);
  Start(u"abcdef", 1, 4);
  Operator().Insert(u"1234");
  EXPECT_EQ(Box().Text(), u"a12f");
  Start(u"abcdef", 0, 6);
  Operator().Insert(u"123456");
  EXPECT_EQ(Box().Text(), u"1234");
}

TEST_P(TextBoxContract, TheSameTextInPlaceOfTheSelectionIsReported) {
  Start(u"abc", 1, 1);
  Operator().Type(u"b");
  EXPECT_EQ(Count("same text"), 1);
  Box().SelStart(0);
  Box().SelLength(3);
  Operator().Insert(u"abc");
  EXPECT_EQ(Count("same text"), 2);
  EXPECT_EQ(Count("change"), 0);
  ExpectSelection(3, 0);
}

TEST_P(TextBoxContract, TheSameTextFromAProgramIsNotReported) {
  Start(u"abc", 0, 3);
  Box().SelText(u"abc");
  Box().Text(u"abc");
  Operator().Press(EditKey::Left);
  EXPECT_EQ(Count("same text"), 0);
}

TEST_P(TextBoxContract, AKeyThatFindsNoRoomReportsNoText) {
  Start(u"abcdef", 0, 2);
  Box().MaxLength(3);
  Operator().Type(u"a");
  EXPECT_EQ(Box().Text(), u"abcdef");
  EXPECT_EQ(Count("same text") + Count("change"), 0);
}

TEST_P(TextBoxContract, TextWithoutAKeyThatHasNoRoomAtAllChangesNothing) {
  Box().MaxLength(3);
  Start(u"abcdef", 1, 2);
  Operator().Insert(u"12");
  EXPECT_EQ(Box().Text(), u"abcdef");
  ExpectSelection(1, 2);
  EXPECT_EQ(Count("change"), 0);
}

TEST_P(TextBoxContract, TextWithoutAKeyHasNoLimitWithAMaxLengthOf0) {
  Start(u"", 0);
  Operator().Insert(String(5000, u'x'));
  EXPECT_EQ(Box().Text(), String(5000, u'x'));
}

// --- Handlers ---------------------------------------------------------------------------------

TEST_P(TextBoxContract, AHandlerMayReplaceItself) {
  Start(u"");
  int calls = 0;
  const auto second = [&](Integer&, Integer&) { calls += 10; };
  Box().OnKeyDown = [&, second](Integer&, Integer&) {
    Box().OnKeyDown = second;
    ++calls;
  };
  Operator().Type(u"a");
  EXPECT_EQ(calls, 1);
  Operator().Type(u"b");
  EXPECT_EQ(calls, 11);
}

TEST_P(TextBoxContract, ABoxWithoutHandlersIsStillABox) {
  Operator().Focus();
  Operator().Type(u"abc");
  Operator().Press(EditKey::Backspace);
  EXPECT_EQ(Box().Text(), u"ab");
}

// --- Plain properties -------------------------------------------------------------------------

TEST_P(TextBoxContract, OnlyTheFirstPasswordCharacterCounts) {
  EXPECT_EQ(Box().PasswordChar(), u"");
  Box().PasswordChar(u"*+");
  EXPECT_EQ(Box().PasswordChar(), u"*");
  Box().Text(u"abc");
  EXPECT_EQ(Box().Text(), u"abc");
  Box().PasswordChar(u"");
  EXPECT_EQ(Box().PasswordChar(), u"");
}

TEST_P(TextBoxContract, LooksAreKept) {
  host::Font font;
  font.Name = u"Arial";
  font.Size = 10;
  font.Bold = true;
  Box().Alignment(host::Alignment::Right);
  Box().ForeColor(host::colour::Blue);
  Box().BackColor(host::colour::ButtonFace);
  Box().Font(font);
  EXPECT_EQ(Box().Alignment(), host::Alignment::Right);
  EXPECT_EQ(Box().ForeColor(), host::colour::Blue);
  EXPECT_EQ(Box().BackColor(), host::colour::ButtonFace);
  EXPECT_TRUE(Box().Font() == font);
}

TEST_P(TextBoxContract, SizesAreTwips) {
  Box().Width(1500);
  Box().Height(450);
  EXPECT_EQ(Box().Width(), 1500);
  EXPECT_EQ(Box().Height(), 450);
}

TEST_P(TextBoxContract, ANewBoxIsVisibleEnabledEmptyAndLeftAligned) {
  EXPECT_TRUE(Box().Visible());
  EXPECT_TRUE(Box().Enabled());
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_EQ(Box().Alignment(), host::Alignment::Left);
  EXPECT_EQ(Box().ForeColor(), host::colour::WindowText);
  EXPECT_EQ(Box().BackColor(), host::colour::WindowBackground);
}

}  // namespace tessaria::contract
