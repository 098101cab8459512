// What every host's text box does, told once. A host instantiates the suite with its driver:
//
//   INSTANTIATE_TEST_SUITE_P(Memory, TextBoxContract,
//                            testing::Values(TextBoxHost{"memory", MakeMemoryTextBox}));
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaria/host/widgets.h"

namespace tessaria::contract {

/// Keys that print nothing, by their codes.
enum class EditKey : Integer {
  Backspace = 8,
  Enter = 13,
  End = 35,
  Home = 36,
  Left = 37,
  Right = 39,
  Delete = 46,
  A = 65  ///< only with Control
};

enum class With { Nothing, Shift, Control };

/// A host's text box on a surface beside something else that takes the focus. The box starts
/// empty, enabled, visible and without the focus.
class TextBoxDriver {
 public:
  TextBoxDriver() = default;
  TextBoxDriver(const TextBoxDriver&) = delete;
  TextBoxDriver& operator=(const TextBoxDriver&) = delete;
  virtual ~TextBoxDriver() = default;

  virtual host::TextBox& Box() = 0;
  /// Moves the focus to the box as the operator's Tab key does.
  virtual void Focus() = 0;
  /// Moves the focus from the box to the other widget.
  virtual void Leave() = 0;
  /// Types characters with the keyboard, each key pressed and released.
  virtual void Type(const String& text) = 0;
  virtual void Press(EditKey key, With with = With::Nothing) = 0;
  /// Text that comes without a key: the menu's Paste, a drop, the middle mouse button.
  virtual void Insert(const String& text) = 0;
};

struct TextBoxHost {
  const char* name;
  std::function<std::unique_ptr<TextBoxDriver>()> make;
  friend void PrintTo(const TextBoxHost& host, std::ostream* out) { *out << host.name; }
};

class TextBoxContract : public testing::TestWithParam<TextBoxHost> {
 protected:
  void SetUp() override {
    driver_ = GetParam().make();
    ASSERT_NE(driver_, nullptr);
  }

  host::TextBox& Box() { return driver_->Box(); }
  TextBoxDriver& Operator() { return *driver_; }

  /// Gives the box the focus, a text and a selection, and then starts the record of events.
  void Start(const String& text, Long selStart = 0, Long selLength = 0) {
    driver_->Focus();
    Box().Text(text);
    Box().SelStart(selStart);
    Box().SelLength(selLength);
    Record();
  }

  /// Writes each event of the box to `events_`.
  void Record() {
    Box().OnChange = [this] { events_.push_back("change"); };
    Box().OnKeyDown = [this](Integer& code, Integer& shift) {
      events_.push_back("down " + std::to_string(code) + " " + std::to_string(shift));
    };
    Box().OnKeyPress = [this](Integer& code) {
      events_.push_back("press " + std::to_string(code));
    };
    Box().OnKeyUp = [this](Integer& code, Integer&) {
      events_.push_back("up " + std::to_string(code));
    };
    Box().OnGotFocus = [this] { events_.push_back("got focus"); };
    Box().OnLostFocus = [this] { events_.push_back("lost focus"); };
  }

  long Count(const std::string& start) const {
    return std::count_if(events_.begin(), events_.end(),
                         [&](const std::string& e) { return e.rfind(start, 0) == 0; });
  }

  void ExpectSelection(Long start, Long length) {
    EXPECT_EQ(Box().SelStart(), start);
    EXPECT_EQ(Box().SelLength(), length);
  }

  std::vector<std::string> events_;
  std::unique_ptr<TextBoxDriver> driver_;
};

// --- Assigning the text -----------------------------------------------------------------------

TEST_P(TextBoxContract, AssigningTextPutsTheCaretAtTheStartAndClearsTheSelection) {
  Start(u"abcdef", 2, 3);
  Box().Text(u"uvwxyz");
  ExpectSelection(0, 0);
}

TEST_P(TextBoxContract, AssigningTheSameTextAlsoPutsTheCaretAtTheStart) {
  Start(u"abcdef", 2, 3);
  Box().Text(u"abcdef");
  ExpectSelection(0, 0);
}

TEST_P(TextBoxContract, AssigningTextTakesItWholeWhateverMaxLength) {
  Box().MaxLength(3);
  Start(u"");
  Box().Text(u"abcdef");
  EXPECT_EQ(Box().Text(), u"abcdef");
  EXPECT_EQ(Box().MaxLength(), 3);
  EXPECT_EQ(Count("change"), 1);
  Operator().Leave();
  Operator().Focus();
  EXPECT_EQ(Box().Text(), u"abcdef");
}

TEST_P(TextBoxContract, AMaxLengthOf0IsNoLimit) {
  const String text(5000, u'x');
  Box().MaxLength(0);
  Box().Text(text);
  EXPECT_EQ(Box().MaxLength(), 0);
  EXPECT_EQ(Box().Text(), text);
}

TEST_P(TextBoxContract, ANegativeMaxLengthIsKeptAs0) {
  Box().MaxLength(-5);
  EXPECT_EQ(Box().MaxLength(), 0);
  Box().Text(u"abcdef");
  EXPECT_EQ(Box().Text(), u"abcdef");
}

TEST_P(TextBoxContract, AssigningTextRaisesChangeOnceAndOnlyWhenTheTextDiffers) {
  Start(u"abc");
  Box().Text(u"abc");
  EXPECT_EQ(Count("change"), 0);
  Box().Text(u"xyz");
  EXPECT_EQ(Count("change"), 1);
  Box().Text(u"");
  EXPECT_EQ(Count("change"), 2);
}

TEST_P(TextBoxContract, ATextThatDiffersOnlyBehindMaxLengthRaisesChange) {
  Box().MaxLength(3);
  Start(u"abc");
  Box().Text(u"abcdef");
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, ChangeSeesTheNewTextAndTheNewCaret) {
  Box().Text(u"abc");
  Box().SelStart(3);
  String seen;
  Long caret = -1;
  Box().OnChange = [&] {
    seen = Box().Text();
    caret = Box().SelStart();
  };
  Box().Text(u"xyz");
  EXPECT_EQ(seen, u"xyz");
  EXPECT_EQ(caret, 0);
}

TEST_P(TextBoxContract, ChangeMayAssignTheTextAgain) {
  Box().OnChange = [&] {
    if (Box().Text() == u"a") Box().Text(u"A!");
  };
  Box().Text(u"a");
  EXPECT_EQ(Box().Text(), u"A!");
}

TEST_P(TextBoxContract, ChangingMaxLengthLeavesThePresentTextAlone) {
  Start(u"abcdef");
  Box().MaxLength(2);
  EXPECT_EQ(Box().Text(), u"abcdef");
  EXPECT_EQ(Box().MaxLength(), 2);
  EXPECT_EQ(Count("change"), 0);
}

// --- The selection ----------------------------------------------------------------------------

TEST_P(TextBoxContract, SelStartClampsToTheText) {
  Box().Text(u"abc");
  Box().SelStart(10);
  EXPECT_EQ(Box().SelStart(), 3);
  Box().SelStart(-1);
  EXPECT_EQ(Box().SelStart(), 0);
}

TEST_P(TextBoxContract, SettingSelStartEmptiesTheSelection) {
  Start(u"abcdef", 1, 3);
  Box().SelStart(2);
  ExpectSelection(2, 0);
}

TEST_P(TextBoxContract, SelLengthClampsToTheText) {
  Box().Text(u"abcdef");
  Box().SelStart(4);
  Box().SelLength(10);
  ExpectSelection(4, 2);
  Box().SelLength(-1);
  ExpectSelection(4, 0);
}

TEST_P(TextBoxContract, SelTextReadsTheSelection) {
  Start(u"abcdef", 1, 3);
  EXPECT_EQ(Box().SelText(), u"bcd");
  Box().SelLength(0);
  EXPECT_EQ(Box().SelText(), u"");
}

TEST_P(TextBoxContract, AssigningSelTextReplacesTheSelectionAndLeavesTheCaretBehindIt) {
  Start(u"abcdef", 1, 3);
  Box().SelText(u"XY");
  EXPECT_EQ(Box().Text(), u"aXYef");
  ExpectSelection(3, 0);
  EXPECT_EQ(Count("change"), 1);
}

TEST_P(TextBoxContract, AssigningSelTextTakesItWholeWhateverMaxLength) {
  Box().MaxLength(6);
  Start(u"abcdef", 1, 2);
  Box().SelText(u"WXYZ");
  EXPECT_EQ(Box().Text(), u"aWXYZdef");
  ExpectSelection(5, 0);
}

TEST_P(TextBoxContract, TheSelectionRaisesNoChange) {
  Start(u"abcdef", 1, 3);
  Box().SelStart(0);
  Box().SelLength(6);
  EXPECT_EQ(Count("change"), 0);
}

// --- The focus --------------------------------------------------------------------------------

TEST_P(TextBoxContract, GainingTheFocusSelectsNothing) {
  Box().Text(u"abcdef");
  Box().SelStart(2);
  Operator().Focus();
  ExpectSelection(2, 0);
}

TEST_P(TextBoxContract, LosingTheFocusKeepsTheSelection) {
  Start(u"abcdef", 2, 3);
  Operator().Leave();
  ExpectSelection(2, 3);
  EXPECT_EQ(Box().SelText(), u"cde");
  Operator().Focus();
  ExpectSelection(2, 3);
  Operator().Type(u"X");
  EXPECT_EQ(Box().Text(), u"abXf");
}

TEST_P(TextBoxContract, ASelectionWithoutTheFocusIsReplacedAndMoved) {
  Start(u"abcdef", 2, 3);
  Operator().Leave();
  Box().SelText(u"Z");
  EXPECT_EQ(Box().Text(), u"abZf");
  ExpectSelection(3, 0);
  Box().SelStart(0);
  Box().SelLength(2);
  ExpectSelection(0, 2);
  Box().Text(u"xyz");
  ExpectSelection(0, 0);
}

TEST_P(TextBoxContract, TakingTheFocusByProgramSelectsNothing) {
  Box().Text(u"abcdef");
  Box().SetFocus();
  EXPECT_EQ(Box().SelLength(), 0);
}

TEST_P(TextBoxContract, FocusEventsComeOnceEach) {
  Record();
  Operator().Focus();
  EXPECT_THAT(events_, testing::ElementsAre("got focus"));
  Box().SetFocus();
  EXPECT_THAT(events_, testing::ElementsAre("got focus"));
  Operator().Leave();
  EXPECT_THAT(events_, testing::ElementsAre("got focus", "lost focus"));
}

TEST_P(TextBoxContract, ADisabledBoxDoesNotTakeTheFocus) {
  Record();
  Box().Enabled(false);
  Box().SetFocus();
  EXPECT_EQ(Count("got focus"), 0);
}

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

TEST_P(TextBoxContract, AHandlerThatWritesTheTextAndSwallowsTheKeyHasTheLastWord) {
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

// --- Keys that edit ---------------------------------------------------------------------------

TEST_P(TextBoxContract, DeleteTakesTheCharacterBehindTheCaretWithoutAKeyPress) {
  Start(u"abc", 1);
  Operator().Press(EditKey::Delete);
  EXPECT_EQ(Box().Text(), u"ac");
  ExpectSelection(1, 0);
  EXPECT_THAT(events_, testing::ElementsAre("down 46 0", "change", "up 46"));
}

TEST_P(TextBoxContract, DeleteTakesTheSelection) {
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

TEST_P(TextBoxContract, BackspaceTakesTheSelection) {
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
