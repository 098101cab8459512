// How leaving a field reports a change, and fetches the description.

#include "tests/control/focus_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

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

TEST_F(FocusTest, BrowseReturnReportsWhetherTheValueChangedAndTheFormerValue) {
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

// The property holds a text, and a text never equals a number.
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

TEST_F(FocusTest, AClearedLastValueEqualsOnlyABlank) {
  Show();
  Enter();
  Control().ClearLastValue();
  Leave();
  ASSERT_EQ(Returns().size(), 1u);
  EXPECT_TRUE(Returns()[0].HouveAlteracao);  // Null against Empty: exactly one is Null
}

TEST_F(FocusTest, ADescriptionDoesNotReportAChangeButReportsThatThereWasNone) {
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
  Leave();  // no change: what the handler has set stays
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

TEST_F(DescriptionOnLeavingTest, WithoutAKeyItIsNotFetched) {
  Enter();
  Control().Text(u"7");  // the program's
  Leave();
  EXPECT_THAT(Control().Value(), IsValue(u"7"));
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// The key is down when the focus moves, and is released elsewhere.
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

TEST_F(DescriptionOnLeavingTest, AKeyFromBeforeEnteringDoesNotCount) {
  TouchAKey();
  Enter();
  Control().Value(u"7");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(DescriptionOnLeavingTest, AKeyDoesNotCountAfterLeaving) {
  Enter();
  TouchAKey();
  Leave();
  connection->TakeStatements();
  Control().Value(u"7");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
