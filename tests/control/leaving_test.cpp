// Leaving a field: silenced exits, the zero fill, the new value, and refusals.

#include "tests/control/focus_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

// --- Exit: silenced -----------------------------------------------------------------------------

TEST_F(FocusTest, TheFlagInTheTagSilencesTheExit) {
  Show();
  Enter();
  Box().Text(u"novo");
  Box().Tag = u"Nao Dispara Valida";
  Leave();
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_THAT(Returns(), IsEmpty());
}

TEST_F(FocusTest, AnyOtherTagDoesNotSilenceTheExit) {
  Show();
  Enter();
  Box().Text(u"novo");
  Box().Tag = u"nao dispara valida";
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(u"novo"));
}

TEST_F(FocusTest, ADisabledFieldRaisesNothingWhenLeft) {
  Show();
  Enter();
  Box().Text(u"novo");
  Box().Enabled(false);
  Control().UserControl_ExitFocus();
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_THAT(Returns(), IsEmpty());
}

// --- Exit: zero fill ----------------------------------------------------------------------------

struct ZeroFill {
  const char16_t* Mask;
  Long TipoStrZero;
  const char16_t* Text;
  const char16_t* TextAfter;
};

const ZeroFill zeroFills[] = {
    {u"00000", 2, u"12___", u"00012"},
    {u"00000", 1, u"12___", u"00012"},
    {u"0000/00", 2, u"12__/3_", u"0012/03"},  // each run by itself
    {u"0000/00", 1, u"12__/3_", u"0001/23"},  // as one number
    {u"0000/00", 3, u"12__/3_", u"0012/03"},
    {u"0000/00", 2, u"____/__", u"____/__"},  // a blank text is not filled
    {u"0000/00", 1, u"____/__", u"____/__"},
    {u"###", 2, u"1__", u"1__"},        // no zero in the mask
    {u"##/00", 2, u"1_/2_", u"10/2_"},  // filled to 1_/02, then laid out again without the gap
};

TEST_F(FocusTest, ZeroFillOnLeaving) {
  Show();
  for (const ZeroFill& row : zeroFills) {
    SCOPED_TRACE(ToUtf8(row.Mask) + " with " + ToUtf8(row.Text));
    Control().Mascara(row.Mask);
    Control().PromptInclude(true);
    Control().TipoStrZero(row.TipoStrZero);
    Enter();
    Box().Text(row.Text);
    Leave();
    EXPECT_EQ(Box().Text(), row.TextAfter);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Exit: the new value ------------------------------------------------------------------------

struct ValueRule {
  bool PromptInclude;
  const char16_t* Mask;
  const char16_t* Texto;  ///< typed; the box shows it laid out in the mask
  const char16_t* Box;
  const char16_t* Value;
};

// The stored form of "ab-cd" and of "abcd".
const char16_t* const scrambledWithDash = u"\u2019\u2013\\\u2122\u2018";
const char16_t* const scrambled = u"\u2019\u2013\u2019\u0161";

const ValueRule valueRules[] = {
    {true, u"##/##", u"12", u"12/__", u"12/__"},
    {false, u"##/##", u"12", u"12/__", u"12"},
    {true, u"", u"a.b", u"a.b", u"a.b"},
    {false, u"", u"a.b", u"a.b", u"a.b"},
    {true, u"##/##", u"12", u"1-2", u"1-/2_"},  // the box is laid out again first
    {true, u"XX-XX", u"ab-cd", u"ab-cd", scrambledWithDash},
    {false, u"XX-XX", u"ab-cd", u"ab-cd", scrambled},
    {false, u"XXXX", u"abcd", u"abcd", scrambled},
    // The box does not matter for a hidden text.
    {false, u"XXXX", u"abcd", u"****", scrambled},
    // A small "x" is a literal in the mask, but still hides the text.
    {false, u"xAAAA", u"abcd", u"xABCD", scrambled},
};

TEST_F(FocusTest, TheValueAfterTheExit) {
  Show();
  for (const ValueRule& row : valueRules) {
    SCOPED_TRACE(ToUtf8(row.Mask) + " with " + ToUtf8(row.Box));
    Control().Mascara(row.Mask);
    Control().PromptInclude(row.PromptInclude);
    Enter();
    Control().Texto(row.Texto);
    Box().Text(row.Box);
    Leave();
    EXPECT_THAT(Control().Value(), IsValue(row.Value));
  }
}

TEST_F(FocusTest, AnAmountIsFormattedBeforeItIsAssigned) {
  Control().Mascara(u"$$$$$$$.$$");
  Show();
  Enter();
  Box().Text(u"1234,5");
  Leave();
  EXPECT_EQ(Box().Text(), u"1.234,50");
  EXPECT_THAT(Control().Value(), IsValue(u"1234,50"));  // the point is a literal of the mask
}

TEST_F(FocusTest, TypedKeysBecomeTheValue) {
  Control().Mascara(u"dd/mm/yyyy");
  Control().TipoDado(7);
  Show();
  Enter();
  form->Type(u"25122017");
  EXPECT_EQ(Box().Text(), u"25/12/2017");
  EXPECT_THAT(Control().Value(), IsNullVariant());
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(FromCivil({2017, 12, 25})));
  EXPECT_EQ(Box().Text(), u"25/12/2017");
}

// --- Exit: refused ------------------------------------------------------------------------------

TEST_F(FocusTest, AFailedValidationKeepsTheTextAndReportsNoChange) {
  Control().Mascara(u"dd/mm/yyyy");
  Show();
  Control().Value(u"25/12/2017");
  Enter();
  Box().Text(u"31/04/2017");
  Leave();
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_EQ(Box().Text(), u"31/04/2017");
  EXPECT_THAT(Control().Value(), IsValue(u"25/12/2017"));
  ASSERT_EQ(Returns().size(), 1u);
  EXPECT_FALSE(Returns()[0].HouveAlteracao);
  EXPECT_THAT(Returns()[0].LastValue, IsValue(u"25/12/2017"));
  EXPECT_EQ(ActiveName(), u"txtCampo");
}

TEST_F(FocusTest, TheZeroFillComesBeforeTheValidation) {
  Control().Mascara(u"000");
  Control().ObjetoCancelar(u"chkAtivo");
  Show();
  Enter();
  Box().Text(u"7__");
  Leave();
  EXPECT_EQ(Box().Text(), u"007");
  EXPECT_THAT(Control().Value(), IsNullVariant());
}

// --- Exit: the verdict --------------------------------------------------------------------------

TEST_F(FocusTest, ASettledASilencedAndADisabledFieldAreLeft) {
  Show();
  Enter();
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  Box().Text(u"novo");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  Box().Text(u"outro");
  Box().Tag = u"Nao Dispara Valida";
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  Box().Tag.clear();
  Box().Enabled(false);
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
}

TEST_F(FocusTest, AnInvalidTextIsRefused) {
  Control().Mascara(u"dd/mm/yyyy");
  Show();
  Enter();
  Box().Text(u"31/04/2017");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Refused);
}

TEST_F(FocusTest, AnInvalidTextIsLeftForTheControlThatCancels) {
  Control().Mascara(u"dd/mm/yyyy");
  Control().ObjetoCancelar(u"chkAtivo");
  Show();
  Enter();
  Box().Text(u"31/04/2017");
  form->Focus(u"chkAtivo");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
}

TEST_F(FocusTest, ATextThatCannotBeConvertedIsNotStored) {
  Control().TipoDado(5);
  Show();
  Enter();
  Box().Text(u"abc");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::NotStored);
}

TEST_F(FocusTest, AValueThatItsFieldRefusesIsNotStored) {
  AddData({{u"nome", host::type::VarWChar, 5}}, {{u"Ana"}});
  Bind(field, u"nome");
  Show();
  Enter();
  Box().Text(u"Guilhermina");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::NotStored);
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::NotStored);
  Box().Text(u"Bia");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
}

TEST_F(FocusTest, AnErrorBeforeTheAssignmentLeavesTheTypedTextUnstored) {
  Control().Mascara(u"00000");
  Show();
  Enter();
  Box().Text(u"1_2__");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::NotStored);
}

TEST_F(FocusTest, AnErrorAfterTheAssignmentIsNotARefusal) {
  Show();
  Enter();
  Box().Text(u"novo");
  field->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  field->OnBrowseReturn = nullptr;
}

}  // namespace
}  // namespace tessaria::test
