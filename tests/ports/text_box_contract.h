// Contract of every host's text box. A host instantiates the suite with its driver:
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

/// A host's text box on a surface next to something else that takes the focus. The box starts
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
    Box().OnSameText = [this] { events_.push_back("same text"); };
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

TEST_P(TextBoxContract, ATextThatDiffersOnlyBeyondMaxLengthRaisesChange) {
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

TEST_P(TextBoxContract, AssigningSelTextReplacesTheSelectionAndLeavesTheCaretAfterIt) {
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

}  // namespace tessaria::contract
