// What counts as touching a field, and what it shows if its mask or type cannot take the value.

#include "tests/control/untouched_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- Masks that show less than the value ---------------------------------------------------------

TEST_F(UntouchedTest, TheFirstRowFillsTheMaskAfterItWasFittedToItsField) {
  AddRow({u"campo", host::type::VarWChar, 8}, u"MARIA");
  Control().Mascara(u"A");
  form->Show();
  EXPECT_EQ(Box().Text(), u"MARIA___");
  Enter();
  Box().SelStart(5);
  form->Type(u"n");
  Leave();
  EXPECT_THAT(Stored(), IsValue(u"MARIAN"));
}

struct CutDate {
  const char16_t* Mask;
  const char16_t* Shown;
};

class CutDateTest : public UntouchedTest, public testing::WithParamInterface<CutDate> {};

INSTANTIATE_TEST_SUITE_P(Masks, CutDateTest,
                         testing::Values(CutDate{u"mm/yyyy", u"25/1220"},
                                         CutDate{u"mm/yy", u"25/12"},
                                         CutDate{u"dd/mm/yy", u"25/12/20"}));

// The digits of a whole date fill the slots of the mask from the left, whatever their meaning.
TEST_P(CutDateTest, AMaskTooShortForADateShowsItsFirstDigitsAndKeepsTheDate) {
  AddRow(host::type::Date, FromCivil({2017, 12, 25}));
  Control().Mascara(GetParam().Mask);
  form->Show();
  EXPECT_EQ(Box().Text(), GetParam().Shown);
  TabThrough();
  app.TakeBoxes();  // such digits may not be a date
  EXPECT_SAME(Control().Value(), FromCivil({2017, 12, 25}));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedTest, RemovingTheMaskOfABlankBoxWritesNothing) {
  AddRow({u"campo", host::type::VarWChar, 8}, u"__/__");
  Control().Mascara(u"##/##");
  form->Show();
  EXPECT_EQ(Box().Text(), u"__/__");
  Control().Mascara(u"");
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_THAT(Stored(), IsValue(u"__/__"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedTest, RemovingTheMaskOfABoxThatTheOperatorEmptiedWritesNull) {
  AddRow({u"campo", host::type::VarWChar, 8}, u"1234");
  Control().Mascara(u"##/##");
  form->Show();
  Enter();
  Box().SelStart(0);
  Box().SelLength(5);
  form->Press(memory::Key::Backspace);
  EXPECT_EQ(Box().Text(), u"__/__");
  Control().Mascara(u"");
  EXPECT_THAT(Stored(), IsNullVariant());
}

// --- What touches -------------------------------------------------------------------------------

class TouchedTest : public UntouchedTest {
 protected:
  TouchedTest() {
    AddRow(host::type::Numeric, DecimalFromText(u"1.239"));
    Control().Mascara(u"$$$$$.$$");
    form->Show();
    Enter();
  }
};

TEST_F(TouchedTest, ATypedKeyTouchesTheField) {
  form->Type(u"1,24");
  Leave();
  EXPECT_TRUE(IsEdited());
  EXPECT_SAME(Control().Value(), DecimalFromText(u"1.24"));
}

TEST_F(TouchedTest, ADifferentTextOfTheProgramTouchesTheField) {
  Control().Text(u"1,24");
  Leave();
  EXPECT_SAME(Stored(), DecimalFromText(u"1.239"));
  Enter();
  Control().Text(u"1,25");
  Leave();
  EXPECT_SAME(Control().Value(), DecimalFromText(u"1.25"));
}

TEST_F(TouchedTest, AKeyThatChangesNothingDoesNotTouchTheField) {
  form->Press(memory::Key::End);
  form->Press(memory::Key::Left);
  form->Type(u"z");
  Leave();
  EXPECT_FALSE(IsEdited());
}

TEST_F(TouchedTest, AValueAssignedByAProgramMakesTheFieldUntouched) {
  form->Type(u"5");
  Control().Value(7.777);
  Leave();
  EXPECT_SAME(Control().Value(), DecimalFromText(u"7.777"));
}

// The stored text is longer than typed text may be, so that the box refuses the key.
TEST_F(UntouchedTest, AKeyThatHasNoRoomOverASelectionDoesNotTouchTheField) {
  AddRow({u"campo", host::type::VarWChar, 20}, u"Maria Antonieta");
  Control().MaxLength(5);
  form->Show();
  Enter();
  Box().SelStart(0);
  Box().SelLength(2);
  form->Type(u"x");
  EXPECT_EQ(Box().Text(), u"Maria Antonieta");
  Leave();
  EXPECT_FALSE(IsEdited());
}

class Retyped : public UntouchedTest, public testing::WithParamInterface<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(Masks, Retyped, testing::Values(u"", u"#", u"$"));

TEST_P(Retyped, TheSameTextIsWritten) {
  AddRawRow(host::type::Numeric, Long{5});
  Control().Mascara(GetParam());
  form->Show();
  Enter();
  form->Type(u"5");
  EXPECT_EQ(Box().Text(), u"5");
  EXPECT_THAT(rows->Written, IsEmpty());
  Leave();
  EXPECT_THAT(rows->Written, ElementsAre(IsValue(5.0)));
}

TEST_P(Retyped, TheSameTextWithoutAKeyIsWritten) {
  AddRawRow(host::type::Numeric, Long{5});
  Control().Mascara(GetParam());
  form->Show();
  Enter();
  Box().Insert(u"5");
  Leave();
  EXPECT_THAT(rows->Written, ElementsAre(IsValue(5.0)));
}

TEST_F(UntouchedTest, TheSameTextAssignedByTheProgramIsNotWritten) {
  AddRawRow(host::type::Numeric, Long{5});
  form->Show();
  Enter();
  Control().SelText(u"5");
  Leave();
  EXPECT_THAT(rows->Written, IsEmpty());
}

TEST_F(UntouchedTest, ARefusedValueIsTouchedUntilAWriteSucceedsOrTheRowIsLoadedAgain) {
  AddRow({u"campo", host::type::VarWChar, 5}, u"Ana");
  form->Show();
  Enter();
  form->Type(u"Guilhermina");
  for (int i = 0; i < 2; ++i) {
    Leave();
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    EXPECT_EQ(Box().Text(), u"Guilhermina");
    EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
    Enter();
  }
  Control().Refresh();
  EXPECT_EQ(Box().Text(), u"Ana");
  Leave();
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(UntouchedTest, AValidValueAfterARefusedOneMakesTheFieldUntouched) {
  AddRawRow(host::type::Numeric, DecimalFromText(u"1.25"));
  Control().Mascara(u"$$$.$");
  form->Show();
  Enter();
  rows->Field.Refusal = HostError(errors::ProviderError, u"recusado");
  form->Type(u"8");
  Leave();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  rows->Field.Refusal.reset();
  Enter();
  form->Type(u"9");
  Leave();
  ASSERT_THAT(rows->Written, SizeIs(1));
  EXPECT_EQ(CDbl(rows->Written[0]), 9);
  for (int i = 0; i < 2; ++i) TabThrough();
  EXPECT_THAT(rows->Written, SizeIs(1));
  EXPECT_EQ(Box().Text(), u"9,0");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// A text that could not be converted has left nothing in the box that could be stored.
TEST_F(UntouchedTest, ATextThatCouldNotBeConvertedIsReplacedByTheFormerValueAtTheNextExit) {
  AddRow(host::type::Integer, Long{7});
  form->Show();
  Enter();
  form->Type(u"abc");
  Leave();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_TRUE(Control().HasToSettle());
  TabThrough();
  EXPECT_FALSE(Control().HasToSettle());
  EXPECT_EQ(Box().Text(), u"7");
  EXPECT_THAT(Stored(), IsValue(Long{7}));
}

// --- A stored value that the type cannot take ---------------------------------------------------

struct NoValue {
  Long Type;
  const char16_t* Text;
  const char16_t* Mask;
};

const NoValue noValues[] = {
    {host::type::DBTimeStamp, u"infinity", u"dd/mm/yyyy"},
    {host::type::DBTimeStamp, u"-infinity", u""},
    {host::type::DBDate, u"25/12/12017", u"dd/mm/yyyy"},
    {host::type::DBDate, u"15/03/0044 BC", u"mm/yyyy"},
    {host::type::Double, u"NaN", u"$$$$$.$$"},
    {host::type::Numeric, u"NaN", u"00000"},
    {host::type::Numeric, u"NaN", u"$$$.$$%"},
};

class StoredTextTest : public UntouchedTest, public testing::WithParamInterface<NoValue> {};

INSTANTIATE_TEST_SUITE_P(Values, StoredTextTest, testing::ValuesIn(noValues));

TEST_P(StoredTextTest, IsShownUnchangedAndIsNotWritten) {
  AddRawRow(GetParam().Type, GetParam().Text);
  Control().Mascara(GetParam().Mask);
  form->Show();
  EXPECT_EQ(Box().Text(), GetParam().Text);
  EXPECT_THAT(Control().Value(), IsValue(GetParam().Text));
  Enter();
  EXPECT_EQ(Box().Text(), GetParam().Text);
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  EXPECT_EQ(Box().Text(), GetParam().Text);
  EXPECT_THAT(rows->Written, IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(UntouchedTest, AStoredTextPassesTheRelationCheckUntilTheOperatorWritesAnother) {
  State().dbConexao = connection;
  connection->OnStatement = [](const String&) -> memory::Rows { return {{{u"codigo"}}, {}}; };
  AddRawRow(host::type::Double, u"NaN");
  Control().UsaChecaRelacao(true);
  Control().BrowseTable(u"taxas");
  Control().BrwCampo(u"taxa");
  form->Show();
  Enter();
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Left);
  EXPECT_TRUE(Control().LastValidaStatus());
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  Enter();
  form->Type(u"5");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Refused);
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
}

TEST_F(UntouchedTest, AStoredTextIsHiddenByAPasswordCharacter) {
  AddRawRow(host::type::Numeric, u"NaN");
  Control().PasswordChar(u"*");
  form->Show();
  EXPECT_EQ(Box().Text(), u"***");
}

}  // namespace
}  // namespace tessaria::test
