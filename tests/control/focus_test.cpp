// What entering a field does, and the literal of its sibling.

#include "tests/control/focus_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- Enter --------------------------------------------------------------------------------------

TEST_F(FocusTest, EnteringStoresTheValueToCompareWith) {
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

TEST_F(FocusTest, ATabThatIsNotANumberIsReportedAndEndsTheEntering) {
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
    {0, u"", u" ab ", u" ab ", 2},  // the length of the trimmed text
    {0, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},
    {5, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},
    {2, u"$$$$$.$$", u"1.234,50", u"1234,50", 7},  // an amount is selected, whatever the kind
    {0, u"$$$$$", u"1.234", u"1234", 4},           // the point is removed though the mask has none
    {0, u"$$$.$$%", u"12,50%", u"12,50", 5},
    {3, u"$$$$$.$$", u"1.234,50", u"1.234,50", 8},  // a description is not changed
};

TEST_F(FocusTest, TextAndSelectionWhileTheFieldHasTheFocus) {
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
  // Named, but not searched since.
  (*alone)->TxtIrmao(u"txtChave");
  State().vntValorIrmao = u"de antes";
  (*alone)->UserControl_EnterFocus();
  EXPECT_THAT(State().vntValorIrmao, IsEmptyVariant());
}

TEST_F(SiblingLiteralTest, OtherKindsDoNotChangeIt) {
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

}  // namespace
}  // namespace tessaria::test
