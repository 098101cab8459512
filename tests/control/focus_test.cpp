// What entering and leaving a field do.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FocusTest : public ControlTest {
 protected:
  FocusTest() {
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
    field = AddField(u"txtCampo");
    (*field)->UsaChecaRelacao(false);
  }

  tsText& Control() { return **field; }
  memory::TextBox& Box() { return field->txtEdit(); }
  void Show() {
    form->Show();
    field->ForgetEvents();
  }
  void Enter() { form->Focus(u"txtCampo"); }
  void Leave() { form->Focus(u"chkAtivo"); }
  /// One key-up that changes nothing.
  void TouchAKey() {
    Integer code = 65, shift = 0;
    Box().OnKeyUp(code, shift);
  }
  Variant LastValue() {
    Control().DisparaEventos(u"BrowseReturn");
    return field->Events(Kind::BrowseReturn).back().LastValue;
  }
  std::vector<memory::ControlEvent> Returns() { return field->Events(Kind::BrowseReturn); }
  void ExpectSelection(Long start, Long length) {
    EXPECT_EQ(Box().SelStart(), start);
    EXPECT_EQ(Box().SelLength(), length);
  }

  FieldPtr field;
};

// --- Enter --------------------------------------------------------------------------------------

TEST_F(FocusTest, EnteringTakesTheValueToMeasureAgainst) {
  Show();
  Control().Value(u"antes");
  Enter();
  EXPECT_THAT(LastValue(), IsValue(u"antes"));
}

TEST_F(FocusTest, ADisabledFieldIsNotEntered) {
  Show();
  Control().Value(u"antes");
  Control().Enabled(false);
  Control().UserControl_EnterFocus();
  EXPECT_THAT(LastValue(), IsEmptyVariant());
  ExpectSelection(0, 0);
}

TEST_F(FocusTest, AHiddenFieldIsNotEntered) {
  Show();
  Control().Value(u"antes");
  Box().Visible(false);
  Control().UserControl_EnterFocus();
  EXPECT_THAT(LastValue(), IsEmptyVariant());
}

TEST_F(FocusTest, EnteringBringsTheFieldsTabToTheFront) {
  const auto strip = form->Add<memory::TabStrip>(u"tabDados", Integer{3});
  field->Settings().Container = strip;
  Control().NumeroTab(u" 2 ");
  Show();
  Enter();
  EXPECT_EQ(strip->Tab(), 2);
  EXPECT_EQ(ActiveName(), u"txtCampo");
}

TEST_F(FocusTest, ATabThatIsNoNumberIsReportedAndEndsTheEntering) {
  field->Settings().Container = form->Add<memory::TabStrip>(u"tabDados", Integer{3});
  Control().NumeroTab(u"dois");
  Show();
  Box().Text(u"abc");
  Enter();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(13), u"UserControl_EnterFocus")));
  ExpectSelection(0, 0);
}

struct Selected {
  Long Kind;
  const char16_t* Mask;
  const char16_t* Text;
  const char16_t* TextInside;
  Long Length;
};

const Selected selections[] = {
    {0, u"", u"abc", u"abc", 3},
    {1, u"", u"abc", u"abc", 3},
    {2, u"dd/mm/yyyy", u"25/12/2017", u"25/12/2017", 0},  // a calendar selects nothing
    {3, u"", u"abc", u"abc", 3},
    {4, u"", u"C:\\a", u"C:\\a", 4},
    {5, u"", u"12", u"12", 2},
    {0, u"", u" ab ", u" ab ", 2},  // the length is that of the trimmed text
    {0, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},
    {5, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},
    {2, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},  // an amount selects, whatever its kind
    {0, u"$$$$$", u"1.234", u"1234", 4},           // the point goes though the mask has none
    {0, u"$$$.$$%", u"12,50%", u"12,50", 5},
    {3, u"$$$$$.$$", u"1.234,50", u"1.234,50", 8},  // a description is left as it stands
};

TEST_F(FocusTest, WhatTheBoxShowsAndSelectsInside) {
  Show();
  for (const Selected& row : selections) {
    SCOPED_TRACE(testing::Message() << "kind " << row.Kind << ", " << ToUtf8(row.Text));
    Control().TipoControle(static_cast<TipoControle>(row.Kind));
    Control().Mascara(row.Mask);
    Box().Text(row.Text);
    Control().UserControl_EnterFocus();
    EXPECT_EQ(Box().Text(), row.TextInside);
    ExpectSelection(0, row.Length);
  }
}

TEST_F(FocusTest, AnAmountIsEditedAtTheLeftAndShownAtTheRight) {
  Control().Mascara(u"$$$$$.$$");
  Control().TipoDado(5);
  Show();
  Control().Value(1234.5);
  EXPECT_EQ(Box().Alignment(), host::Alignment::Right);
  Enter();
  EXPECT_EQ(Box().Alignment(), host::Alignment::Left);
  EXPECT_EQ(Box().Text(), u"1234,50");
  Leave();
  EXPECT_EQ(Box().Alignment(), host::Alignment::Right);
  EXPECT_EQ(Box().Text(), u"1.234,50");
  EXPECT_THAT(Control().Value(), IsValue(1234.5));
}

// --- The sibling's literal ----------------------------------------------------------------------

class SiblingLiteralTest : public FocusTest {
 protected:
  SiblingLiteralTest() {
    sibling = AddField(u"txtChave");
    Control().TipoControle(TipoControle::Descricao);
    Control().TxtIrmao(u"txtChave");
    Show();
  }
  Variant LiteralInside() {
    State().vntValorIrmao = u"de antes";
    Control().UserControl_EnterFocus();
    return State().vntValorIrmao;
  }

  FieldPtr sibling;
};

TEST_F(SiblingLiteralTest, ANumericSiblingGivesItsValue) {
  for (const Long TipoDado : {20, 128, 6, 14, 5, 3, 131, 4, 2, 16, 21, 19, 18, 17, 139}) {
    SCOPED_TRACE(TipoDado);
    (*sibling)->TipoDado(TipoDado);
    (*sibling)->Value(u"15");
    EXPECT_THAT(LiteralInside(), IsValue((*sibling)->Value()));
  }
}

TEST_F(SiblingLiteralTest, AnyOtherSiblingGivesItsValueBetweenApostrophes) {
  for (const Long TipoDado : {0, 1, 8, 129, 130, 200, 202}) {
    SCOPED_TRACE(TipoDado);
    (*sibling)->TipoDado(TipoDado);
    (*sibling)->Value(u"15");
    EXPECT_THAT(LiteralInside(), IsValue(u"'15'"));
  }
  (*sibling)->TipoDado(7);
  (*sibling)->Value(u"25122017");
  EXPECT_THAT(LiteralInside(), IsValue(u"'25/12/2017'"));
}

TEST_F(SiblingLiteralTest, ApostrophesInsideAreDoubled) {
  (*sibling)->Value(u"D'Ávila' Or '1");
  EXPECT_THAT(LiteralInside(), IsValue(u"'D''Ávila'' Or ''1'"));
}

TEST_F(SiblingLiteralTest, ANullSiblingGivesNullOrAnEmptyText) {
  (*sibling)->Value(Variant::Null());
  EXPECT_THAT(LiteralInside(), IsValue(u"''"));
  (*sibling)->TipoDado(5);
  EXPECT_THAT(LiteralInside(), IsNullVariant());
}

TEST_F(SiblingLiteralTest, WithoutAConnectedSiblingItIsEmpty) {
  const auto alone = AddField(u"txtSozinho");
  (*alone)->TipoControle(TipoControle::Descricao);
  State().vntValorIrmao = u"de antes";
  (*alone)->UserControl_EnterFocus();
  EXPECT_THAT(State().vntValorIrmao, IsEmptyVariant());
  // Named, and not looked for since.
  (*alone)->TxtIrmao(u"txtChave");
  State().vntValorIrmao = u"de antes";
  (*alone)->UserControl_EnterFocus();
  EXPECT_THAT(State().vntValorIrmao, IsEmptyVariant());
}

TEST_F(SiblingLiteralTest, OtherKindsLeaveItAlone) {
  Control().TipoControle(TipoControle::Browse);
  EXPECT_THAT(LiteralInside(), IsValue(u"de antes"));
}

TEST_F(SiblingLiteralTest, LeavingEmptiesIt) {
  Control().UserControl_EnterFocus();
  EXPECT_FALSE(State().vntValorIrmao.IsEmpty());
  Control().UserControl_ExitFocus();
  EXPECT_THAT(State().vntValorIrmao, IsEmptyVariant());
}

TEST_F(SiblingLiteralTest, AnErrorWhileLeavingKeepsIt) {
  field->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  Control().UserControl_EnterFocus();
  const Variant literal = State().vntValorIrmao;
  Control().UserControl_ExitFocus();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(11), u"UserControl_ExitFocus")));
  EXPECT_THAT(State().vntValorIrmao, IsValue(literal));
}

// --- Exit: when nothing happens -----------------------------------------------------------------

TEST_F(FocusTest, TheFlagInTheTagSilencesTheLeaving) {
  Show();
  Enter();
  Box().Text(u"novo");
  Box().Tag = u"Nao Dispara Valida";
  Leave();
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_THAT(Returns(), IsEmpty());
}

TEST_F(FocusTest, AnyOtherTagDoesNot) {
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

// --- Exit: what becomes the value ---------------------------------------------------------------

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
    // The box plays no part in a hidden text.
    {false, u"XXXX", u"abcd", u"****", scrambled},
    // A small "x" is a literal in the mask, and hides the text all the same.
    {false, u"xAAAA", u"abcd", u"xABCD", scrambled},
};

TEST_F(FocusTest, WhatBecomesTheValue) {
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

TEST_F(FocusTest, TypedKeysEndInTheValue) {
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

TEST_F(FocusTest, AFailedValidationKeepsTheTextAndRaisesFalse) {
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

TEST_F(FocusTest, ASettledFieldIsLeftAndSoIsOneThatIsSilencedOrDisabled) {
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

TEST_F(FocusTest, AnErrorAheadOfTheAssignmentLeavesTheTypedTextNotStored) {
  Control().Mascara(u"00000");
  Show();
  Enter();
  Box().Text(u"1_2__");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::NotStored);
}

TEST_F(FocusTest, AnErrorBehindTheAssignmentIsNoRefusal) {
  Show();
  Enter();
  Box().Text(u"novo");
  field->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  field->OnBrowseReturn = nullptr;
}

// --- Exit: the change ---------------------------------------------------------------------------

struct Change {
  Variant Before;
  const char16_t* Text;
  bool Changed;
};

const Change changes[] = {
    {Variant::Null(), u"", false}, {Variant::Null(), u"abc", true}, {u"abc", u"", true},
    {u"abc", u"abc", false},       {u"abc", u"ABC", true},          {u"abc", u"abd", true},
};

TEST_F(FocusTest, BrowseReturnTellsWhetherTheValueChangedAndTheValueBefore) {
  Show();
  for (const Change& row : changes) {
    SCOPED_TRACE(testing::PrintToString(row.Before) + " to " + ToUtf8(row.Text));
    Control().Value(row.Before);
    Enter();
    Box().Text(row.Text);
    field->ForgetEvents();
    Leave();
    ASSERT_EQ(Returns().size(), 1u);
    EXPECT_EQ(Returns()[0].HouveAlteracao, row.Changed);
    EXPECT_THAT(Returns()[0].LastValue, IsValue(row.Before));
    EXPECT_THAT(LastValue(), IsValue(Control().Value()));
  }
}

// The property takes a text, and a text never equals a number.
TEST_F(FocusTest, ALastValueSetByAProgramIsATextAndDiffersFromANumber) {
  Control().TipoDado(5);
  Show();
  Control().Value(5.0);
  Enter();
  Control().LastValue(u"5");
  Leave();
  ASSERT_EQ(Returns().size(), 1u);
  EXPECT_TRUE(Returns()[0].HouveAlteracao);
}

TEST_F(FocusTest, AClearedLastValueEqualsNothingButABlank) {
  Show();
  Enter();
  Control().ClearLastValue();
  Leave();
  ASSERT_EQ(Returns().size(), 1u);
  EXPECT_TRUE(Returns()[0].HouveAlteracao);  // Null against Empty: exactly one is Null
}

TEST_F(FocusTest, ADescriptionIsSilentAboutAChangeAndTellsThatThereWasNone) {
  Control().TipoControle(TipoControle::Descricao);
  Show();
  Enter();
  Box().Text(u"novo");
  Leave();
  EXPECT_THAT(Returns(), IsEmpty());
  EXPECT_THAT(LastValue(), IsValue(u"novo"));
  field->ForgetEvents();
  Enter();
  Leave();
  ASSERT_EQ(Returns().size(), 1u);
  EXPECT_FALSE(Returns()[0].HouveAlteracao);
}

TEST_F(FocusTest, TheEventsLastValueIsTheMemberItself) {
  Show();
  field->OnBrowseReturn = [](bool&, Variant& last) { last = u"do programa"; };
  Enter();
  Leave();  // no change: what the handler left stays
  field->OnBrowseReturn = nullptr;
  EXPECT_THAT(LastValue(), IsValue(u"do programa"));
  field->OnBrowseReturn = [](bool&, Variant& last) { last = u"do programa"; };
  Enter();
  Box().Text(u"novo");
  Leave();  // a change: the value follows the handler
  field->OnBrowseReturn = nullptr;
  EXPECT_THAT(LastValue(), IsValue(u"novo"));
}

// --- Exit: the description ----------------------------------------------------------------------

class DescriptionOnLeavingTest : public FocusTest {
 protected:
  DescriptionOnLeavingTest() {
    State().dbConexao = connection;
    connection->OnStatement = [](const String&) -> memory::Rows {
      return {{{u"nome"}}, {{u"Ana"}}};
    };
    Control().BrowseTable(u"clientes");
    Control().BrwCampo(u"codigo");
    Control().BrwCampoIrmao(u"nome");
    Show();
    connection->TakeStatements();
  }
};

TEST_F(DescriptionOnLeavingTest, ATypedKeyFetchesItOnLeaving) {
  Enter();
  form->Type(u"7");
  EXPECT_THAT(connection->Statements(), IsEmpty());
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(u"7"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_EQ(connection->TakeStatements().size(), 1u);
}

TEST_F(DescriptionOnLeavingTest, WithNoKeyItIsNotFetched) {
  Enter();
  Control().Text(u"7");  // the program's
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(u"7"));
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// The key is down when the focus goes, and comes up elsewhere.
TEST_F(DescriptionOnLeavingTest, AKeyThatIsStillHeldCountsWhenItChangedTheText) {
  Enter();
  Box().Hold({55, 0, u'7'});
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(u"7"));
  EXPECT_THAT(connection->TakeStatements(), testing::SizeIs(1));
}

TEST_F(DescriptionOnLeavingTest, AHeldKeyThatChangedNothingDoesNotCount) {
  Control().Value(u"7");
  Enter();
  Box().Hold(memory::StrokeOf(memory::Key::Left));
  Leave();
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(DescriptionOnLeavingTest, AKeyFromBeforeTheEnteringDoesNotCount) {
  TouchAKey();
  Enter();
  Control().Value(u"7");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(DescriptionOnLeavingTest, AKeyDoesNotCountBehindTheLeaving) {
  Enter();
  TouchAKey();
  Leave();
  connection->TakeStatements();
  Control().Value(u"7");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
