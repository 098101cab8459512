// Where dialogs open, and the colour of their buttons.
#include "services/dialog_placement.h"

#include "pickers/calculator.h"
#include "services/coloured_button.h"
#include "tests/pickers/picker_fixture.h"

namespace tessaria::test {
namespace {

class DialogPlacement : public PickerTest {
 protected:
  host::DialogPtr Make() { return TheDesktop().MakeDialog(frmCalculadora::Description()); }
};

TEST_F(DialogPlacement, StaysInsideTheScreenInStepsOfTen) {
  desktop->ScreenSize(12000, 9000);
  desktop->DialogSize(6000, 4000);
  const auto dialog = Make();
  for (Long wanted = 4000; wanted < 6500; wanted += 7) {
    // The rule itself, step by step.
    Long top = wanted;
    while (top + 4000 + 450 > 9000) top -= 10;
    Long left = wanted;
    while (left + 6000 + 150 > 12000) left -= 10;
    PlaceOnScreen(*dialog, static_cast<float>(wanted), static_cast<float>(wanted));
    ASSERT_EQ(dialog->Top(), top) << wanted;
    ASSERT_EQ(dialog->Left(), left) << wanted;
  }
}

TEST_F(DialogPlacement, TouchingTheMarginsIsInside) {
  desktop->ScreenSize(12000, 9000);
  desktop->DialogSize(6000, 4000);
  const auto dialog = Make();
  PlaceOnScreen(*dialog, 4550, 5850);
  EXPECT_EQ(dialog->Top(), 4550);
  EXPECT_EQ(dialog->Left(), 5850);
  PlaceOnScreen(*dialog, 4551, 5851);
  EXPECT_EQ(dialog->Top(), 4541);
  EXPECT_EQ(dialog->Left(), 5841);
}

TEST_F(DialogPlacement, OnlyTheLowerAndTheRightEdgesCount) {
  desktop->ScreenSize(5000, 3000);
  desktop->DialogSize(6000, 4000);
  const auto dialog = Make();
  PlaceOnScreen(*dialog, 0, 0);
  EXPECT_EQ(dialog->Top(), -1450);
  EXPECT_EQ(dialog->Left(), -1150);
  PlaceOnScreen(*dialog, -2000, -3000);
  EXPECT_EQ(dialog->Top(), -2000);
  EXPECT_EQ(dialog->Left(), -3000);
}

TEST_F(DialogPlacement, AButtonTakesOneColourAndThenAnother) {
  const auto dialog = Make();
  auto& button = dialog->Find<host::DialogButton>(u"btnNumero", 3);
  auto& other = dialog->Find<host::DialogButton>(u"btnNumero", 4);
  const Colour before = other.TextColour();
  EXPECT_TRUE(mdlCorBtn::CorBotao(button, 0x00FF00));
  EXPECT_EQ(button.TextColour(), 0x00FF00u);
  EXPECT_TRUE(mdlCorBtn::CorBotao(button, 255));
  EXPECT_EQ(button.TextColour(), 255u);
  EXPECT_EQ(button.Caption(), u"3");
  EXPECT_EQ(other.TextColour(), before);
}

}  // namespace
}  // namespace tessaria::test
