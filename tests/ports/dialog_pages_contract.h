// Contract of the frames and the tabs of surfaces. See dialog_contract.h.
#pragma once

#include "tests/ports/dialog_kinds_contract.h"

namespace tessaria::contract {

// --- Frames -------------------------------------------------------------------------------------

TEST_P(SurfaceKindContract, WhatStandsInADisabledFrameCannotBeUsed) {
  Option(u"optUm").OnClick = [&] { Add("um"); };
  Option(u"optIgual").OnClick = [&] { Add("igual"); };
  Work([&] {
    Hands().Click(u"txtNome");
    Widget(u"fraTipo").Enabled(false);
    for (const StringView name : {u"optUm", u"optIgual", u"txtBusca"}) {
      Hands().Click(name);
      EXPECT_EQ(Hands().Focused(), u"txtNome") << ToUtf8(name);
    }
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Widget(u"fraTipo").Enabled(true);
    Hands().Click(u"optIgual");
    Hands().Click(u"txtBusca");
    Hands().Type(u"a");
    EXPECT_EQ(Box(u"txtBusca").Text(), u"a");
    EXPECT_THAT(TakeLog(), testing::ElementsAre("igual"));
  });
}

TEST_P(SurfaceKindContract, AFrameInAFrameIsDisabledAlone) {
  Work([&] {
    Widget(u"fraBusca").Enabled(false);
    Hands().Click(u"optIgual");
    Hands().Click(u"optUm");
    EXPECT_FALSE(Option(u"optIgual").Value());
    EXPECT_TRUE(Option(u"optUm").Value());
  });
}

TEST_P(SurfaceKindContract, WidgetsOfADisabledFrameTakeAssignments) {
  Box(u"txtBusca").OnChange = [&] { Add("change"); };
  Work([&] {
    Widget(u"fraTipo").Enabled(false);
    Box(u"txtBusca").Text(u"abc");
    Option(u"optDois").Value(true);
  });
  EXPECT_EQ(Box(u"txtBusca").Text(), u"abc");
  EXPECT_TRUE(Option(u"optDois").Value());
  EXPECT_THAT(TakeLog(), testing::ElementsAre("change"));
}

// --- Tabs ---------------------------------------------------------------------------------------

TEST_P(SurfaceKindContract, PagesAreNumberedFrom0) {
  auto& tabs = Tabs();
  ASSERT_EQ(tabs.Tabs(), 3);
  EXPECT_EQ(tabs.TabCaption(0), u"Principal");
  EXPECT_EQ(tabs.TabCaption(2), u"Grade");
  EXPECT_EQ(tabs.Tab(), 0);
  EXPECT_TRUE(tabs.TabEnabled(2));
  tabs.Tab(2);
  EXPECT_EQ(tabs.Tab(), 2);
  for (const Long page : {-1, 3}) {
    EXPECT_EQ(ErrorOf([&] { tabs.Tab(page); }), errors::InvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { tabs.TabCaption(page); }), errors::InvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { tabs.TabEnabled(page); }), errors::InvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { tabs.TabEnabled(page, false); }), errors::InvalidPropertyValue);
  }
  EXPECT_EQ(tabs.Tab(), 2);
}

TEST_P(SurfaceKindContract, AClickOnATabTellsThePageThatWasInFront) {
  auto& tabs = Tabs();
  tabs.OnClick = [&](Long previous) {
    Add(std::to_string(previous) + " to " + std::to_string(tabs.Tab()));
  };
  Work([&] {
    tabs.Tab(1);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Hands().ClickTab(u"tabDados", 2);
    Hands().ClickTab(u"tabDados", 2);
    Hands().Press(SurfaceKey::Left);
  });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("1 to 2", "2 to 2", "2 to 1"));
}

TEST_P(SurfaceKindContract, TheOperatorReachesThePageInFrontOnly) {
  Work([&] {
    Hands().Click(u"txtNome");
    Hands().Click(u"txtPagina1");
    EXPECT_EQ(Hands().Focused(), u"txtNome");
    Hands().ClickTab(u"tabDados", 1);
    Hands().Click(u"txtPagina1");
    Hands().Type(u"a");
    Hands().Click(u"chkPagina1");
    EXPECT_EQ(Box(u"txtPagina1").Text(), u"a");
    EXPECT_EQ(The<host::DialogCheckBox>(u"chkPagina1").Value(), 1);
    Hands().Click(u"txtPagina0");
    EXPECT_EQ(Hands().Focused(), u"chkPagina1");
  });
}

TEST_P(SurfaceKindContract, ADisabledPageIsNotChosenByTheOperator) {
  auto& tabs = Tabs();
  tabs.OnClick = [&](Long) { Add("click"); };
  Work([&] {
    tabs.TabEnabled(1, false);
    EXPECT_FALSE(tabs.TabEnabled(1));
    EXPECT_EQ(tabs.Tab(), 0);
    Hands().ClickTab(u"tabDados", 1);
    EXPECT_EQ(tabs.Tab(), 0);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    tabs.SetFocus();
    Hands().Press(SurfaceKey::Right);
    EXPECT_EQ(tabs.Tab(), 2);
    tabs.TabEnabled(1, true);
    Hands().ClickTab(u"tabDados", 1);
    EXPECT_EQ(tabs.Tab(), 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("click", "click"));
  });
}

TEST_P(SurfaceKindContract, APageThatIsDisabledInFrontStaysThereAndCanBeUsed) {
  auto& tabs = Tabs();
  tabs.Tab(1);
  tabs.OnClick = [&](Long) { Add("click"); };
  Work([&] {
    tabs.TabEnabled(1, false);
    EXPECT_EQ(tabs.Tab(), 1);
    EXPECT_TRUE(Widget(u"txtPagina1").Enabled());
    Hands().Click(u"txtPagina1");
    Hands().Type(u"a");
    Hands().Click(u"chkPagina1");
    EXPECT_EQ(Box(u"txtPagina1").Text(), u"a");
    EXPECT_EQ(The<host::DialogCheckBox>(u"chkPagina1").Value(), 1);
    tabs.Tab(0);
    EXPECT_EQ(tabs.Tab(), 0);
    tabs.Tab(1);
    EXPECT_EQ(tabs.Tab(), 1);
  });
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
}

}  // namespace tessaria::contract
