// The keys of the surface and of the box: the events that they raise and the state that they set.

#include "tests/control/keys_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

// --- The events ---------------------------------------------------------------------------------

TEST_F(KeysTest, AKeyRaisesItsThreeEventsAndChange) {
  Show();
  form->Type(u"a");
  const auto& events = field->Events();
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].What, Kind::KeyDown);
  EXPECT_EQ(events[0].Code, 65);
  EXPECT_EQ(events[1].What, Kind::KeyPress);
  EXPECT_EQ(events[1].Code, 97);
  EXPECT_EQ(events[2].What, Kind::Change);
  EXPECT_EQ(events[3].What, Kind::KeyUp);
  EXPECT_EQ(events[3].Code, 65);
}

TEST_F(KeysTest, TheApplicationMayDiscardAKey) {
  Show();
  field->OnKeyPress = [](Integer& code) {
    if (code == 'b') code = 0;
  };
  field->OnKeyDown = [](Integer& code, Integer&) {
    if (code == 'C') code = 0;
  };
  form->Type(u"abcd");
  EXPECT_EQ(field->txtEdit().Text(), u"ad");
}

TEST_F(KeysTest, TheApplicationMayTurnAKeyIntoAnother) {
  Show();
  field->OnKeyPress = [](Integer& code) { code = 'x'; };
  form->Type(u"a");
  EXPECT_EQ(field->txtEdit().Text(), u"x");
}

TEST_F(KeysTest, ErrorsOfTheApplicationsHandlersReachTheCaller) {
  field->OnKeyDown = [](Integer&, Integer&) { throw HostError(11); };
  field->OnKeyPress = [](Integer&) { throw HostError(9); };
  field->OnKeyUp = [](Integer&, Integer&) { throw HostError(6); };
  Integer code = 65, shift = 0;
  EXPECT_HOST_ERROR(Control().UserControl_KeyDown(code, shift), 11);
  EXPECT_HOST_ERROR(Control().UserControl_KeyPress(code), 9);
  EXPECT_HOST_ERROR(Control().UserControl_KeyUp(code, shift), 6);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Every key-up counts as typing --------------------------------------------------------------

// The key went down in another control, whose handler has moved the focus.
TEST_F(KeysTest, APageDownPressedInAnotherFieldOpensNothing) {
  Control().TipoControle(TipoControle::Browse);
  Show();
  Integer code = 34, shift = 0;
  Control().UserControl_KeyUp(code, shift);
  EXPECT_THAT(field->Events(Kind::BrowseReturn), IsEmpty());
  EXPECT_THAT(field->Events(Kind::KeyUp), testing::SizeIs(1));
  Control().UserControl_KeyDown(code, shift);
  Control().UserControl_KeyUp(code, shift);
  EXPECT_THAT(field->Events(Kind::BrowseReturn), testing::SizeIs(1));
}

TEST_F(KeysTest, EveryKeyUpLetsTheNextAssignmentFetchTheDescription) {
  State().dbConexao = connection;
  Control().BrowseTable(u"clientes");
  Control().BrwCampo(u"codigo");
  Control().BrwCampoIrmao(u"nome");
  for (const Integer code : {0, 8, 9, 16, 27, 36, 37, 65, 219, 222}) {
    SCOPED_TRACE(code);
    Control().UserControl_EnterFocus();  // clears the flag
    Control().Value(u"7");
    EXPECT_THAT(connection->TakeStatements(), IsEmpty());
    KeyUp(code);
    Control().Value(u"7");
    EXPECT_EQ(connection->TakeStatements().size(), 1u);
  }
}

}  // namespace
}  // namespace tessaria::test
