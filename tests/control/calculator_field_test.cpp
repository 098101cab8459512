// The calculator of a number field: opened by the button, which checks the answer against the
// field, and by the keyboard, which does not.

#include "tests/control/button_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const memory::MessageBoxRecord refusal{
    0,
    u"Atenção. O resultado do calculo é superior ao tamanho do campo. O Valor será "
    u"desconsiderado !",
    host::box::Stop, u"Tessaria Sistemas"};

class CalculatorField : public ButtonTest {
 protected:
  /// A field that held 7 before its button is pressed.
  void Open(const String& mask, Long maxLength) {
    if (!form->Visible()) Show(TipoControle::Calculadora);
    form->Focus(u"chkAtivo");
    Control().Mascara(mask);
    Control().MaxLength(maxLength);
    Control().Value(7);
    form->Focus(u"txtCampo");
    app.TakeBoxes();
    field->ForgetEvents();
  }
  /// Presses the button and clears the calculator before the keys.
  void ClickAndAnswer(const String& keys) {
    Click(u"frmCalculadora", [&](memory::Dialog& shown) {
      shown.Click(u"btnOperador", 0);
      shown.Type(keys);
      if (shown.IsShown()) shown.Press(Key::Escape);
    });
  }
};

// --- The answer is checked ----------------------------------------------------------------------

struct Fit {
  const char16_t* Mask;
  Long MaxLength;
  const char16_t* Keys;
  bool Taken;
  double Value;          ///< if accepted
  const char16_t* Text;  ///< of the box, if accepted
};

const Fit fits[] = {
    // With decimals: the text, completed to the decimals of the mask, must fit.
    {u"$$$$$.$$", 9, u"1234,5", true, 1234.5, u"1.234,50"},
    {u"$$$$$.$$", 9, u"12345", true, 12345, u"12.345,00"},
    {u"$$$$$.$$", 9, u"123456", false, 0, u""},
    {u"$$$.$$", 6, u"123,45", true, 123.45, u"123,45"},
    {u"$$$.$$", 5, u"123,45", false, 0, u""},  // cut to "123,4", completed to six characters
    {u"$$$.$$", 6, u"-5=", true, -5, u"-5,00"},
    {u"$$$.$$", 6, u"-123=", false, 0, u""},
    // More decimals than the mask has: what is shown becomes the value.
    {u"$$$.$$", 6, u"1,239", true, 1.24, u"1,24"},
    // A text that is not a number counts as 0: with a suffix every answer is 0.
    {u"$$$.$$%", 7, u"12,5", true, 0, u"0,00%"},
    // Without decimals: no thousands points, and not more than the value itself.
    {u"$$$$$", 5, u"999", true, 999, u"999"},
    {u"$$$$$", 5, u"1000", false, 0, u""},
    {u"$$$", 3, u"2,4", true, 2.4, u"2"},
    {u"$$$", 3, u"2,6", false, 0, u""},            // shown as 3, which is above 2,6
    {u"####", 4, u"-1234=", false, 0, u""},        // cut to -123
    {u"####", 4, u"12345", true, 12345, u"1234"},  // a cut to a smaller number is accepted
    // No limit: accepted as it is.
    {u"$$$$$.$$", 0, u"123456789", true, 123456789, u"123.456.789,00"},
    {u"$$$", 0, u"2,6", true, 2.6, u"3"},
    {u"", 0, u"2,6", true, 2.6, u"2,6"},
};

TEST_F(CalculatorField, AnAnswerThatDoesNotFitIsRefused) {
  for (const Fit& fit : fits) {
    SCOPED_TRACE(ToUtf8(String(fit.Mask) + u" <- " + fit.Keys));
    Open(fit.Mask, fit.MaxLength);
    ClickAndAnswer(fit.Keys);
    if (fit.Taken) {
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
      EXPECT_EQ(Box().Text(), fit.Text);
    } else {
      EXPECT_THAT(app.TakeBoxes(), ElementsAre(refusal));
    }
    EXPECT_EQ(CDbl(Control().Value()), fit.Taken ? fit.Value : 7);
    ASSERT_THAT(Returns(), SizeIs(1));
    EXPECT_EQ(Returns().front().HouveAlteracao, fit.Taken);
    EXPECT_TRUE(AllReleased());
  }
}

TEST_F(CalculatorField, TheWindowIsStillOpenWhileTheRefusalIsShown) {
  Open(u"$$$", 3);
  app.OnMessageBox = [](const memory::MessageBoxRecord&) {
    EXPECT_TRUE(State().frmCalculadora != nullptr);
  };
  ClickAndAnswer(u"1000");
  EXPECT_FALSE(State().frmCalculadora);
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

TEST_F(CalculatorField, OpensOnTheNumberOfTheBoxAndKeepsItWhenCancelled) {
  Open(u"$$$$$.$$", 9);
  Click(u"frmCalculadora", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Find<host::DialogDisplay>(u"txtVisor").Text(), u"7");
    shown.Press(Key::Escape);
  });
  EXPECT_THAT(Control().Value(), IsValue(7.0));
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_FALSE(Returns().front().HouveAlteracao);
}

// --- The keyboard -------------------------------------------------------------------------------

TEST_F(CalculatorField, F9OpensItBelowTheFieldWithoutAFlagOrAReport) {
  field->Settings().Left = 500;
  field->Settings().Top = 700;
  Open(u"$$$$$.$$", 9);
  desktop->WillShow(u"frmCalculadora", [&](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), 700 + 315 + 930);
    EXPECT_EQ(shown.Left(), 530);
    EXPECT_EQ(shown.Find<host::DialogDisplay>(u"txtVisor").Text(), u"7");
    EXPECT_EQ(Box().Tag, u"");
    shown.Type(u"+5=");
  });
  form->Press(Key::F9);
  EXPECT_THAT(Control().Value(), IsValue(12.0));
  EXPECT_EQ(Box().Text(), u"12,00");
  EXPECT_THAT(Returns(), IsEmpty());
  EXPECT_TRUE(AllReleased());
}

TEST_F(CalculatorField, F9AcceptsAnAnswerThatDoesNotFit) {
  Open(u"$$$$$.$$", 9);
  desktop->WillShow(u"frmCalculadora", Calculate(u"X1000000="));
  form->Press(Key::F9);
  EXPECT_THAT(Control().Value(), IsValue(7000000.0));
  EXPECT_EQ(Box().Text(), u"7.000.000,00");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(CalculatorField, AnXIsTypedIntoTheBoxInAdditionToTheAnswer) {
  Open(u"$$$$$.$$", 9);
  desktop->WillShow(u"frmCalculadora", Calculate(u"+5"));
  form->Type(u"x");
  EXPECT_THAT(Control().Value(), IsValue(5.0));
  EXPECT_EQ(Box().Text(), u"x5,00");  // the assignment has moved the caret to the start
}

TEST_F(CalculatorField, WithoutAMaskNeitherXNorF9OpensIt) {
  Open(u"", 0);
  form->Press(Key::F9);
  form->Type(u"x");
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_EQ(Box().Text(), u"x");
}

TEST_F(CalculatorField, InALetterSlotAnXIsALetter) {
  Control().TipoDado(1);
  Open(u"AA", 0);
  Control().TipoDado(1);
  Control().Value(u"");
  form->Type(u"x");
  form->Press(Key::F9);
  EXPECT_EQ(Box().Text(), u"XX");
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(CalculatorField, TheKeyFilterReportsAnErrorOfTheCalculatorOpenedByAKey) {
  Open(u"####", 4);
  Box().Text(u"____");
  form->Press(Key::F9);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::TypeMismatch), u"txtEdit_Keypress")));
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_THAT(Control().Value(), IsValue(7.0));
}

}  // namespace
}  // namespace tessaria::test
