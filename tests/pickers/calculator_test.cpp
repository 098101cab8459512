// The calculator's window.
#include "pickers/calculator.h"

#include "tests/pickers/picker_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;

/// What a key shows, and what it leads to.
struct Outcome {
  String Display;  ///< right after the key
  bool Closed;
  String Answer;  ///< after 3 and "="
  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << ToUtf8(outcome.Display) << (outcome.Closed ? " closed " : " ") << ToUtf8(outcome.Answer);
}

class CalculatorTest : public PickerTest {
 protected:
  /// Opens with a text of the box; by default all of its characters count.
  String Run(const String& text, Script script) { return Run(text, text, std::move(script)); }
  String Run(const String& text, const String& stripped, Script script) {
    frmCalculadora form;
    box.Text(text);
    desktop->WillShow(u"frmCalculadora", std::move(script));
    const Variant answer = form.ExecutaCalculadora(100.0f, 200.0f, box, stripped, u"", u"");
    EXPECT_EQ(answer.Type(), Variant::Kind::String);
    return CStr(answer);
  }
  /// Types, and closes with Escape when the keys did not end it.
  String TypeOn(const String& text, StringView keys) {
    return Run(text, [&](memory::Dialog& shown) {
      shown.Type(keys);
      if (shown.IsShown()) shown.Press(Key::Escape);
    });
  }
  static String DisplayOf(memory::Dialog& shown) {
    return shown.Find<host::DialogDisplay>(u"txtVisor").Text();
  }
  /// 8 + 2, then an action, then 3 and "=": no two keys give the same outcome.
  Outcome Probe(const Script& act) {
    Outcome outcome;
    outcome.Answer = Run(u"", [&](memory::Dialog& shown) {
      shown.Click(u"btnNumero", 8);
      shown.Click(u"btnOperador", 2);
      shown.Click(u"btnNumero", 2);
      act(shown);
      outcome.Display = DisplayOf(shown);
      outcome.Closed = !shown.IsShown();
      if (outcome.Closed) return;
      shown.Click(u"btnNumero", 3);
      shown.Click(u"btnOperador", 6);
    });
    return outcome;
  }
  Outcome Clicked(StringView name, Integer index = -1) {
    return Probe([&](memory::Dialog& shown) { shown.Click(name, index); });
  }
  /// The key on an operator button, where the focus is by default, or on another button.
  Outcome TypedOn(StringView name, char16_t key) {
    return Probe([&](memory::Dialog& shown) {
      if (name == u"btnNumero") shown.FocusOn(name, 4);
      if (name == u"btnDecimal") shown.FocusOn(name);
      shown.Type(StringView(&key, 1));
    });
  }
};

// --- What it is made of -------------------------------------------------------------------------

TEST_F(CalculatorTest, DigitsAreBlueAndOperatorsRed) {
  const char16_t* const operators[] = {u"C", u"CE", u"+", u"-", u"X", u"/", u"=", u"%"};
  Run(u"", [&](memory::Dialog& shown) {
    for (Integer i = 0; i < 10; ++i) {
      auto& digit = shown.Find<host::DialogButton>(u"btnNumero", i);
      EXPECT_EQ(digit.Caption(), CStr(Variant(i)));
      EXPECT_EQ(digit.TextColour(), 0xFF0000u);
    }
    for (Integer i = 0; i < 8; ++i) {
      auto& key = shown.Find<host::DialogButton>(u"btnOperador", i);
      EXPECT_EQ(key.Caption(), operators[i]);
      EXPECT_EQ(key.TextColour(), 255u);
    }
    EXPECT_EQ(shown.Find<host::DialogButton>(u"btnDecimal").Caption(), u".");
    shown.CloseWindow();
  });
}

// --- Opening ------------------------------------------------------------------------------------

struct Opening {
  const char16_t* Text;
  const char16_t* Stripped;
  const char16_t* Display;
  const char16_t* PlusOne;  ///< the answer of "+", 1 and "="
};

constexpr Opening openings[] = {
    {u"", u"", u"0", u"1"},
    {u"12,50", u"12,50", u"12,5", u"13,5"},
    {u"1.234,50", u"1234,50", u"1234,5", u"1235,5"},
    {u"-3", u"-3", u"-3", u"-2"},
    {u"0,00", u"0,00", u"0", u"1"},
    {u" 7 ", u"", u"7", u"8"},     // blanks are not part of a number
    {u"", u"12", u"0", u"1"},      // an empty box, whatever the text without its mask
    {u"abc", u"abc", u"0", u"1"},  // not a number, but not empty
    {u"12,5%", u"12,5", u"0", u"1"},
};

TEST_F(CalculatorTest, OpensWithTheNumberOfTheBox) {
  for (const Opening& opening : openings) {
    SCOPED_TRACE(ToUtf8(opening.Text));
    EXPECT_EQ(Run(opening.Text, opening.Stripped,
                  [&](memory::Dialog& shown) {
                    EXPECT_EQ(DisplayOf(shown), opening.Display);
                    shown.Type(u"+1=");
                  }),
              opening.PlusOne);
    EXPECT_EQ(box.Text(), opening.Text);
  }
}

TEST_F(CalculatorTest, ABoxWithOnlyFillCharactersIsATypeMismatch) {
  frmCalculadora form;
  box.Text(u"___,__");
  EXPECT_HOST_ERROR(form.ExecutaCalculadora(0.0f, 0.0f, box, u"", u"", u""), errors::TypeMismatch);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(CalculatorTest, ADigitContinuesTheNumberOfTheBox) {
  EXPECT_EQ(TypeOn(u"12", u"3"), u"123");
  EXPECT_EQ(TypeOn(u"", u"3"), u"3");
}

TEST_F(CalculatorTest, TheFirstFocusIsOnEquals) {
  for (const StringView text : {u"", u"12,50"}) {
    Run(String(text), [](memory::Dialog& shown) {
      EXPECT_EQ(shown.Focused(), u"btnOperador");
      shown.Type(u" ");  // presses the button that has the focus
      EXPECT_FALSE(shown.IsShown());
    });
  }
}

TEST_F(CalculatorTest, OpensAtTheWantedPlace) {
  Run(u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), 100);
    EXPECT_EQ(shown.Left(), 200);
    shown.CloseWindow();
  });
}

TEST_F(CalculatorTest, StaysInsideASmallScreen) {
  desktop->ScreenSize(1000, 1200);
  desktop->DialogSize(700, 900);
  Run(u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), -150);
    EXPECT_EQ(shown.Left(), 150);
    shown.CloseWindow();
  });
}

// --- The end ------------------------------------------------------------------------------------

TEST_F(CalculatorTest, EveryWayOfClosingReturnsTheDisplay) {
  EXPECT_EQ(TypeOn(u"", u"2+3="), u"5");
  EXPECT_EQ(TypeOn(u"7", u""), u"7");  // Escape: a cancel also has an answer
  EXPECT_EQ(TypeOn(u"", u"2+3"), u"3");
  EXPECT_EQ(Run(u"9", [](memory::Dialog& shown) { shown.CloseWindow(); }), u"9");
}

TEST_F(CalculatorTest, EnterIsEqualsFromTheStartAndAfterEveryEntry) {
  EXPECT_EQ(Run(u"12,50", [](memory::Dialog& shown) { shown.Press(Key::Enter); }), u"12,5");
  for (const bool onOperator : {true, false}) {
    EXPECT_EQ(Run(u"",
                  [&](memory::Dialog& shown) {
                    shown.Click(u"btnNumero", 4);
                    shown.Click(u"btnOperador", 4);
                    if (!onOperator) shown.Click(u"btnNumero", 5);
                    shown.Press(Key::Enter);
                    EXPECT_FALSE(shown.IsShown());
                  }),
              onOperator ? u"0" : u"20");
  }
}

TEST_F(CalculatorTest, ItContinuesWhereItStoppedUntilItIsRecreated) {
  frmCalculadora form;
  const auto run = [&](StringView keys) {
    desktop->WillShow(u"frmCalculadora", [keys](memory::Dialog& shown) {
      shown.Type(keys);
      if (shown.IsShown()) shown.Press(Key::Escape);
    });
    return CStr(form.ExecutaCalculadora(0.0f, 0.0f, box, u"", u"", u""));
  };
  EXPECT_EQ(run(u"7+2"), u"2");
  EXPECT_EQ(run(u"="), u"7");  // 7 + 0: the display starts again, the sum is kept
}

// --- Errors -------------------------------------------------------------------------------------

TEST_F(CalculatorTest, DividingByZeroShowsABox) {
  EXPECT_EQ(TypeOn(u"", u"8/0="), u"8");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(Box{0, u"Erro, Divisão por zero impossível", 48, u"Tessaria Sistemas"}));
}

TEST_F(CalculatorTest, TheWindowDoesNotTrapNumberErrors) {
  const struct {
    const char16_t* Text;
    const char16_t* Keys;
    Long Error;
    const char16_t* Answer;
  } rows[] = {{u"1E+300", u"X9999999999999999=", errors::Overflow, u"9999999999999999"},
              {u"1E+20", u",+", errors::TypeMismatch, u"1E+20,"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Run(row.Text,
                  [&](memory::Dialog& shown) {
                    shown.Type(row.Keys);
                    ASSERT_EQ(shown.UnhandledErrors().size(), 1u);
                    EXPECT_EQ(shown.UnhandledErrors().front().Number(), row.Error);
                    EXPECT_TRUE(shown.IsShown());
                    shown.Press(Key::Escape);
                  }),
              row.Answer);
  }
}

// --- Keys ---------------------------------------------------------------------------------------

TEST_F(CalculatorTest, NoTwoButtonsGiveTheSameOutcome) {
  std::vector<Outcome> outcomes;
  for (Integer i = 0; i < 8; ++i) outcomes.push_back(Clicked(u"btnOperador", i));
  outcomes.push_back(Clicked(u"btnDecimal"));
  outcomes.push_back(Probe([](memory::Dialog&) {}));
  for (std::size_t a = 0; a < outcomes.size(); ++a)
    for (std::size_t b = 0; b < a; ++b) EXPECT_NE(outcomes[a], outcomes[b]) << a << " " << b;
}

struct KeyRow {
  char16_t Key;
  Integer OnOperator;  ///< index of the operator
  Integer OnDigit;
};

// The second layout differs from the first on purpose.
constexpr KeyRow keyRows[] = {
    {61, 6, 6}, {37, 7, 7}, {88, 4, 2}, {120, 4, 2}, {42, 4, 2}, {43, 2, 1}, {45, 3, 3}, {47, 5, 0},
};

TEST_F(CalculatorTest, OperatorKeysOnAnOperatorButton) {
  for (const KeyRow& row : keyRows)
    EXPECT_EQ(TypedOn(u"btnOperador", row.Key), Clicked(u"btnOperador", row.OnOperator))
        << static_cast<int>(row.Key);
}

TEST_F(CalculatorTest, OperatorKeysOnADigitButton) {
  for (const KeyRow& row : keyRows)
    EXPECT_EQ(TypedOn(u"btnNumero", row.Key), Clicked(u"btnOperador", row.OnDigit))
        << static_cast<int>(row.Key);
}

TEST_F(CalculatorTest, DigitsCommaAndPointOnEitherButton) {
  for (const StringView name : {u"btnOperador", u"btnNumero"}) {
    for (Integer i = 0; i < 10; ++i)
      EXPECT_EQ(TypedOn(name, static_cast<char16_t>(48 + i)), Clicked(u"btnNumero", i));
    EXPECT_EQ(TypedOn(name, 44), Clicked(u"btnDecimal"));
    EXPECT_EQ(TypedOn(name, 46), Clicked(u"btnDecimal"));
  }
}

const Outcome afterReset{u"0", false, u"3"};

TEST_F(CalculatorTest, ResetKeysDifferOnOperatorsAndOnDigits) {
  const Outcome untouched = Probe([](memory::Dialog&) {});
  for (const char16_t key : {u'\b', u'c'}) {
    EXPECT_EQ(TypedOn(u"btnOperador", key), afterReset);
    EXPECT_EQ(TypedOn(u"btnNumero", key), untouched);
  }
  for (const char16_t key : {u'C', u'D'}) {
    EXPECT_EQ(TypedOn(u"btnOperador", key), untouched);
    EXPECT_EQ(TypedOn(u"btnNumero", key), afterReset);
  }
}

TEST_F(CalculatorTest, EscapeHidesTheWindowFromAnyButton) {
  for (const StringView name : {u"btnOperador", u"btnNumero"})
    EXPECT_EQ(TypedOn(name, 27), (Outcome{u"2", true, u"2"}));
}

TEST_F(CalculatorTest, OnTheCommaButtonOnlyEscapeAndTheCommaWork) {
  const Outcome untouched = Probe([](memory::Dialog&) {});
  for (const char16_t key : StringView(u"=%Xx*+-/.0123456789\bcCD"))
    EXPECT_EQ(TypedOn(u"btnDecimal", key), untouched) << static_cast<int>(key);
  EXPECT_EQ(TypedOn(u"btnDecimal", 44), Clicked(u"btnDecimal"));
  EXPECT_EQ(TypedOn(u"btnDecimal", 27), (Outcome{u"2", true, u"2"}));
}

TEST_F(CalculatorTest, NoOtherKeyDoesAnything) {
  const StringView known = u"=%Xx*+-/.,0123456789\bcCD\x1B";
  const Outcome untouched = Probe([](memory::Dialog&) {});
  for (char16_t key = 1; key < 256; ++key) {
    // The blank and Enter press the focused button, as on any button.
    if (known.find(key) != StringView::npos || key == 13 || key == 32) continue;
    EXPECT_EQ(TypedOn(u"btnOperador", key), untouched) << static_cast<int>(key);
    EXPECT_EQ(TypedOn(u"btnNumero", key), untouched) << static_cast<int>(key);
  }
}

TEST_F(CalculatorTest, ResetMovesTheFocusToADigitSoThatTheSecondLayoutIsNext) {
  EXPECT_EQ(TypeOn(u"", u"9c+"), u"0");
  EXPECT_EQ(Run(u"",
                [](memory::Dialog& shown) {
                  shown.Type(u"9c");
                  EXPECT_EQ(shown.Focused(), u"btnNumero");
                  shown.Type(u"5*");  // after the digit the focus is back on "="
                  shown.Type(u"4=");
                }),
            u"20");
}

// The pending operator and the count of numbers are reset, but not the sum so far.
TEST_F(CalculatorTest, ResetKeepsTheAccumulator) {
  EXPECT_EQ(Run(u"",
                [](memory::Dialog& shown) {
                  shown.Type(u"9+");
                  shown.Type(u"c");
                  EXPECT_EQ(DisplayOf(shown), u"0");
                  shown.Click(u"btnOperador", 6);
                }),
            u"9");
}

TEST_F(CalculatorTest, DigitsTakeTheFormsBackColor) {
  Run(u"", [](memory::Dialog& shown) {
    auto& digit = shown.Find<host::DialogButton>(u"btnNumero", 5);
    auto& plus = shown.Find<host::DialogButton>(u"btnOperador", 2);
    EXPECT_EQ(digit.BackColor(), host::colour::ButtonFace);
    shown.BackColour = 0x00C0FFFF;
    shown.Type(u"c");  // runs the load step again
    EXPECT_EQ(digit.BackColor(), 0x00C0FFFFu);
    EXPECT_EQ(plus.BackColor(), host::colour::ButtonFace);
    shown.CloseWindow();
  });
}

TEST_F(CalculatorTest, ResetMovesTheFocusToTheZero) {
  Run(u"", [](memory::Dialog& shown) {
    shown.Type(u"9c");
    shown.Type(u" ");  // presses the button that has the focus
    EXPECT_EQ(CDbl(DisplayOf(shown)), 0);
    shown.CloseWindow();
  });
}

// The focus moves before the calculation.
TEST_F(CalculatorTest, AfterAnErrorTheFocusIsOnEquals) {
  const struct {
    const char16_t* Text;
    const char16_t* Keys;
    const char16_t* Last;
  } rows[] = {{u"1E+300", u"X9999999999999999", u"="}, {u"1E+20", u",", u"-"}};
  for (const auto& row : rows) {
    Run(row.Text, [&](memory::Dialog& shown) {
      shown.Type(row.Keys);
      shown.FocusOn(u"btnNumero", 4);
      shown.Type(row.Last);
      EXPECT_EQ(shown.UnhandledErrors().size(), 1u);
      EXPECT_EQ(shown.Focused(), u"btnOperador");
      shown.Press(Key::Escape);
    });
  }
}

TEST_F(CalculatorTest, ResetColoursTheButtonsAgain) {
  Run(u"", [](memory::Dialog& shown) {
    auto& digit = shown.Find<host::DialogButton>(u"btnNumero", 5);
    auto& plus = shown.Find<host::DialogButton>(u"btnOperador", 2);
    digit.TextColour(1);
    plus.TextColour(1);
    shown.Type(u"c");
    EXPECT_EQ(digit.TextColour(), 0xFF0000u);
    EXPECT_EQ(plus.TextColour(), 255u);
    shown.CloseWindow();
  });
}

TEST_F(CalculatorTest, TheCommaButtonKeepsTheFocus) {
  Run(u"", [](memory::Dialog& shown) {
    shown.Click(u"btnDecimal");
    EXPECT_EQ(shown.Focused(), u"btnDecimal");
    EXPECT_EQ(DisplayOf(shown), u"0,0");
    shown.Press(Key::Escape);
  });
}

}  // namespace
}  // namespace tessaria::test
