// Contract of every host's surfaces, in a frame and in a dialog: names, places, focus and keys.
// Order of events, windows and the kinds of widgets have headers of their own, which this one
// includes. A host instantiates the suites with its drivers:
//
//   INSTANTIATE_TEST_SUITE_P(Memory, SurfaceContract, testing::Values(kSurface, kDialog));
//   INSTANTIATE_TEST_SUITE_P(Memory, SurfaceKindContract, testing::Values(kSurface, kDialog));
//   INSTANTIATE_TEST_SUITE_P(Memory, SurfaceListContract, testing::Values(kSurface, kDialog));
//   INSTANTIATE_TEST_SUITE_P(Memory, DialogContract, testing::Values(kDialog));
#pragma once

#include "tests/ports/dialog_driver.h"
#include "tests/ports/dialog_events_contract.h"
#include "tests/ports/dialog_kinds_contract.h"
#include "tests/ports/dialog_lists_contract.h"
#include "tests/ports/dialog_pages_contract.h"
#include "tests/ports/dialog_window_contract.h"

namespace tessaria::contract {

// --- Widgets by name ----------------------------------------------------------------------------

TEST_P(SurfaceContract, WidgetsAreFoundWithoutRegardToCase) {
  EXPECT_EQ(The<host::DialogLabel>(u"LBLNOME").Caption(), u"Nome");
  EXPECT_EQ(&Button(u"btngravar"), &Button(u"btnGravar"));
}

TEST_P(SurfaceContract, UnknownNamesAndOtherKindsAreRefused) {
  EXPECT_EQ(ErrorOf([&] { Widget(u"nada"); }), errors::ControlNotFound);
  EXPECT_EQ(ErrorOf([&] { Surface().Find<host::DialogWidget>(u"btnGravar", 0); }),
            errors::ControlNotFound);
  EXPECT_EQ(ErrorOf([&] { The<host::DialogLabel>(u"txtNome"); }), errors::TypeMismatch);
  EXPECT_EQ(ErrorOf([&] { The<host::DialogCombo>(u"lista"); }), errors::TypeMismatch);
}

TEST_P(SurfaceContract, EachWidgetKnowsItsContainerAndItsPage) {
  for (const auto& widget : kContractWidgets) {
    const auto& made = Widget(widget.Name);
    EXPECT_EQ(made.Container(), String(widget.Container)) << ToUtf8(widget.Name);
    EXPECT_EQ(made.Page(), widget.Page) << ToUtf8(widget.Name);
  }
}

TEST_P(SurfaceContract, EachWidgetStartsVisibleAndEnabled) {
  for (const auto& widget : kContractWidgets) {
    EXPECT_TRUE(Widget(widget.Name).Visible()) << ToUtf8(widget.Name);
    EXPECT_TRUE(Widget(widget.Name).Enabled()) << ToUtf8(widget.Name);
  }
}

TEST_P(SurfaceContract, EachWidgetKeepsItsTagAndItsFlags) {
  for (const auto& description : kContractWidgets) {
    auto& widget = Widget(description.Name);
    widget.Tag = u"marca";
    widget.Visible(false);
    widget.Enabled(false);
    EXPECT_EQ(widget.Tag, u"marca");
    EXPECT_FALSE(widget.Visible()) << ToUtf8(description.Name);
    EXPECT_FALSE(widget.Enabled()) << ToUtf8(description.Name);
    widget.Visible(true);
    widget.Enabled(true);
    EXPECT_TRUE(widget.Visible()) << ToUtf8(description.Name);
    EXPECT_TRUE(widget.Enabled()) << ToUtf8(description.Name);
  }
}

TEST_P(SurfaceContract, FlagsAreTheWidgetsOwnWhateverIsAroundThem) {
  Work([&] {
    EXPECT_TRUE(Widget(u"txtPagina1").Visible());
    EXPECT_TRUE(Widget(u"chkPagina1").Visible());
    Widget(u"fraTipo").Enabled(false);
    EXPECT_TRUE(Widget(u"txtBusca").Enabled());
    EXPECT_TRUE(Widget(u"fraBusca").Enabled());
    EXPECT_TRUE(Box(u"txtBusca").Enabled());
    Widget(u"fraTipo").Visible(false);
    EXPECT_TRUE(Widget(u"optUm").Visible());
  });
}

TEST_P(SurfaceContract, AFlagInsideADisabledFrameIsKept) {
  Work([&] {
    Widget(u"fraTipo").Enabled(false);
    Widget(u"optUm").Enabled(false);
    Widget(u"optDois").Enabled(false);
    Widget(u"optDois").Enabled(true);
    Widget(u"fraTipo").Enabled(true);
    EXPECT_FALSE(Widget(u"optUm").Enabled());
    EXPECT_TRUE(Widget(u"optDois").Enabled());
    Hands().Click(u"optUm");
    EXPECT_FALSE(The<host::DialogOption>(u"optUm").Value());
    Hands().Click(u"optDois");
    EXPECT_TRUE(The<host::DialogOption>(u"optDois").Value());
  });
}

// --- The focus ----------------------------------------------------------------------------------

TEST_P(SurfaceContract, FocusEventsComeOnceEachInTheirOrder) {
  Work([&] {
    Hands().Click(u"txtNome");
    for (const auto& widget : kContractWidgets) WatchFocus(widget.Name);
    Hands().Click(u"txtNotas");
    EXPECT_EQ(Hands().Focused(), u"txtNotas");
    EXPECT_THAT(TakeLog(), testing::ElementsAre("lost txtNome", "got txtNotas"));
    Hands().Click(u"txtNotas");
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Hands().Press(SurfaceKey::BackTab);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("lost txtNotas", "got txtNome"));
  });
}

TEST_P(SurfaceContract, EveryKindThatTakesTheFocusRaisesItsEvents) {
  Tabs().Tab(0);
  Work([&] {
    for (const StringView name : {u"txtNotas", u"cboCidade", u"lstCidade", u"chkAtivo", u"optUm",
                                  u"txtBusca", u"tabDados", u"txtPagina0", u"lista", u"marcas",
                                  u"grade", u"previa", u"campo", u"dia", u"btnGravar"}) {
      Hands().Click(u"txtNome");
      ASSERT_EQ(Hands().Focused(), u"txtNome");
      WatchFocus(name);
      WatchFocus(u"txtNome");
      Widget(name).SetFocus();
      EXPECT_EQ(Hands().Focused(), String(name));
      EXPECT_THAT(TakeLog(), testing::ElementsAre("lost txtNome", "got " + ToUtf8(name)));
      Hands().Click(u"txtNome");
      EXPECT_THAT(TakeLog(), testing::ElementsAre("lost " + ToUtf8(name), "got txtNome"));
    }
  });
}

TEST_P(SurfaceContract, TheTabKeyFollowsTheDescription) {
  Work([&] {
    Hands().Click(u"txtNome");
    for (const StringView name : {u"txtNotas", u"cboCidade", u"lstCidade", u"chkAtivo"}) {
      Hands().Press(SurfaceKey::Tab);
      EXPECT_EQ(Hands().Focused(), String(name));
    }
    for (const StringView name : {u"lstCidade", u"cboCidade", u"txtNotas", u"txtNome"}) {
      Hands().Press(SurfaceKey::BackTab);
      EXPECT_EQ(Hands().Focused(), String(name));
    }
  });
}

TEST_P(SurfaceContract, TheTabKeyPassesOverWhatIsNoTabStopAndWhatCannotBeUsed) {
  Widget(u"txtNotas").TabStop(false);
  Widget(u"cboCidade").Enabled(false);
  Widget(u"lstCidade").Visible(false);
  EXPECT_FALSE(Widget(u"txtNotas").TabStop());
  Work([&] {
    Hands().Click(u"txtNome");
    Hands().Press(SurfaceKey::Tab);
    EXPECT_EQ(Hands().Focused(), u"chkAtivo");
    Widget(u"fraTipo").Enabled(false);
    Hands().Press(SurfaceKey::Tab);
    EXPECT_EQ(Hands().Focused(), u"tabDados");
    Hands().Press(SurfaceKey::Tab);
    EXPECT_EQ(Hands().Focused(), u"txtPagina0");
    Hands().Press(SurfaceKey::Tab);
    EXPECT_EQ(Hands().Focused(), u"lista");
  });
}

TEST_P(SurfaceContract, SetFocusDoesNothingWhereTheOperatorCouldNotBringTheFocus) {
  Widget(u"btnGravar").Enabled(false);
  Widget(u"btnSair").Visible(false);
  Widget(u"fraTipo").Enabled(false);
  Work([&] {
    Hands().Click(u"txtNome");
    for (const StringView name : {u"btnGravar", u"btnSair", u"optUm", u"txtBusca", u"txtPagina1",
                                  u"chkPagina1", u"lblNome"}) {
      Widget(name).SetFocus();
      EXPECT_EQ(Hands().Focused(), u"txtNome") << ToUtf8(name);
    }
    Box(u"txtBusca").SetFocus();
    EXPECT_EQ(Hands().Focused(), u"txtNome");
    Box(u"txtNotas").SetFocus();
    EXPECT_EQ(Hands().Focused(), u"txtNotas");
  });
}

TEST_P(SurfaceContract, AWidgetThatCanNoLongerBeUsedGetsNoKeys) {
  Work([&] {
    Hands().Click(u"txtBusca");
    Widget(u"fraTipo").Enabled(false);
    Hands().Type(u"a");
    EXPECT_EQ(Box(u"txtBusca").Text(), u"");
    Hands().Click(u"txtPagina0");
    Tabs().Tab(1);
    Hands().Type(u"a");
    EXPECT_EQ(Box(u"txtPagina0").Text(), u"");
  });
}

// --- Keys ---------------------------------------------------------------------------------------

TEST_P(SurfaceContract, KeysReachTheSurfaceBeforeTheWidgetInFocus) {
  Surface().OnKeyDown = [&](Integer& code, Integer&) { Add("down " + std::to_string(code)); };
  Surface().OnKeyPress = [&](Integer& code) { Add("press " + std::to_string(code)); };
  Box(u"txtNome").OnKeyDown = [&](Integer& code, Integer&) {
    Add("box down " + std::to_string(code));
  };
  Box(u"txtNome").OnKeyPress = [&](Integer& code) { Add("box press " + std::to_string(code)); };
  Widget(u"lista").OnKeyDown = [&](Integer& code, Integer&) {
    Add("list down " + std::to_string(code));
  };
  Work([&] {
    Hands().Click(u"txtNome");
    Hands().Type(u"a");
    EXPECT_THAT(TakeLog(),
                testing::ElementsAre("down 65", "box down 65", "press 97", "box press 97"));
    Widget(u"lista").SetFocus();
    Hands().Press(SurfaceKey::Down);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("down 40", "list down 40"));
  });
}

TEST_P(SurfaceContract, AKeyThatTheSurfaceTakesGoesNoFurther) {
  Box(u"txtNome").OnKeyDown = [&](Integer&, Integer&) { Add("box down"); };
  Button(u"btnGravar").OnClick = [&] { Add("click"); };
  Work([&] {
    Hands().Click(u"txtNome");
    Surface().OnKeyDown = [](Integer& code, Integer&) { code = 0; };
    Hands().Type(u"a");
    Widget(u"btnGravar").SetFocus();
    Hands().Press(SurfaceKey::Enter);
    EXPECT_EQ(Box(u"txtNome").Text(), u"");
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Surface().OnKeyDown = nullptr;
    Surface().OnKeyPress = [](Integer& code) { code = code == u'b' ? 0 : code; };
    Widget(u"txtNome").SetFocus();
    Hands().Type(u"abc");
    EXPECT_EQ(Box(u"txtNome").Text(), u"ac");
  });
}

}  // namespace tessaria::contract
