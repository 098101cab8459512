// Contract of the window of a dialog. See dialog_contract.h.
#pragma once

#include "tests/ports/dialog_driver.h"

namespace tessaria::contract {

// --- The window of a dialog ---------------------------------------------------------------------

class DialogContract : public SurfaceContract {
 protected:
  host::Dialog& Dialog() { return *Driver().Dialog(); }
};

TEST_P(DialogContract, ADialogKeepsItsCaptionAndItsPlace) {
  EXPECT_EQ(Dialog().Caption(), u"Contrato");
  Dialog().Caption(u"Outro");
  EXPECT_EQ(Dialog().Caption(), u"Outro");
  Dialog().Left(1500);
  Dialog().Top(750);
  EXPECT_EQ(Dialog().Left(), 1500);
  EXPECT_EQ(Dialog().Top(), 750);
  EXPECT_NE(Dialog().hWnd(), 0);
}

TEST_P(DialogContract, TheFirstShowRaisesResizeAndEachShowActivate) {
  Dialog().OnResize = [&] { Add("resize"); };
  Dialog().OnActivate = [&] { Add("activate"); };
  for (int shows = 0; shows < 2; ++shows) {
    Work([&] {
      Add("work");
      Dialog().Hide();
      EXPECT_FALSE(Driver().IsShown());
    });
  }
  EXPECT_THAT(TakeLog(), testing::ElementsAre("resize", "activate", "work", "activate", "work"));
}

TEST_P(DialogContract, ClosingByTheFrameHidesAndKeepsTheWidgets) {
  Work([&] {
    Hands().Click(u"txtNome");
    Hands().Type(u"abc");
    Hands().CloseByFrame();
    EXPECT_FALSE(Driver().IsShown());
  });
  EXPECT_EQ(Box(u"txtNome").Text(), u"abc");
  Work([&] {
    EXPECT_TRUE(Driver().IsShown());
    Hands().Click(u"txtNotas");
    Hands().Type(u"x");
  });
  EXPECT_EQ(Box(u"txtNotas").Text(), u"x");
}

TEST_P(DialogContract, AHandlerDecidesWhetherTheFrameCloses) {
  int requests = 0;
  Dialog().OnCloseRequest = [&] {
    if (++requests == 2) Dialog().Hide();
  };
  Work([&] {
    Hands().CloseByFrame();
    EXPECT_TRUE(Driver().IsShown());
    Hands().Click(u"txtNome");
    Hands().Type(u"a");
    Hands().CloseByFrame();
    EXPECT_FALSE(Driver().IsShown());
  });
  EXPECT_EQ(requests, 2);
  EXPECT_EQ(Box(u"txtNome").Text(), u"a");
}

TEST_P(DialogContract, AnErrorInTheHandlerOfTheFrameLeavesTheDialogOpen) {
  Dialog().OnCloseRequest = [] { throw HostError(errors::TypeMismatch); };
  Work([&] {
    Hands().CloseByFrame();
    EXPECT_EQ(Driver().TakeBoxes().size(), 1u);
    EXPECT_TRUE(Driver().IsShown());
    Dialog().Hide();
  });
}

TEST_P(DialogContract, ADialogMayBeDestroyedByTheHandlerOfItsFrame) {
  Dialog().OnCloseRequest = [&] {
    Driver().Destroy();
    Add("destroyed");
  };
  Work([&] { Hands().CloseByFrame(); });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("destroyed"));
  EXPECT_FALSE(Driver().IsShown());
}

TEST_P(DialogContract, AWindowThatIsLeftForABoxRaisesNoFocusEvents) {
  Button(u"btnGravar").OnClick = [] { throw HostError(errors::TypeMismatch); };
  Work([&] {
    Widget(u"btnGravar").SetFocus();
    for (const auto& widget : kContractWidgets) WatchFocus(widget.Name);
    Hands().Click(u"btnGravar");
    EXPECT_EQ(Driver().TakeBoxes().size(), 1u);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    EXPECT_EQ(Hands().Focused(), u"btnGravar");
  });
}

}  // namespace tessaria::contract
