// Contract of the order of a surface's events, and of handlers that fail or destroy the surface.
// See dialog_contract.h.
#pragma once

#include <utility>

#include "tests/ports/dialog_driver.h"

namespace tessaria::contract {

// --- Lost focus before the click ----------------------------------------------------------------

/// A way to cause an event by taking the focus from another widget.
struct FocusTaker {
  StringView Name;
  std::function<void(Operator&)> Act;
};

TEST_P(SurfaceContract, TheFocusIsLostAndTakenBeforeTheClickThatTakesIt) {
  const auto record = [&](StringView name) {
    return [this, name] { Add("click " + ToUtf8(name)); };
  };
  Button(u"btnGravar").OnClick = record(u"btnGravar");
  The<host::DialogCheckBox>(u"chkAtivo").OnClick = record(u"chkAtivo");
  The<host::DialogOption>(u"optUm").OnClick = record(u"optUm");
  Combo(u"cboCidade").OnClick = record(u"cboCidade");
  Combo(u"lstCidade").OnClick = record(u"lstCidade");
  Tabs().OnClick = [this](Long) { Add("click tabDados"); };
  List().OnItemClick = [this](host::ListRow&) { Add("click lista"); };
  Marks().OnItemCheck = [this](host::ListRow&) { Add("click marcas"); };
  List().Add(u"codigo");
  Marks().Add(u"codigo");
  const FocusTaker takers[] = {
      {u"btnGravar", [](Operator& hands) { hands.Click(u"btnGravar"); }},
      {u"chkAtivo", [](Operator& hands) { hands.Click(u"chkAtivo"); }},
      {u"optUm", [](Operator& hands) { hands.Click(u"optUm"); }},
      {u"cboCidade", [](Operator& hands) { hands.Choose(u"cboCidade", 1); }},
      {u"lstCidade", [](Operator& hands) { hands.Choose(u"lstCidade", 1); }},
      {u"tabDados", [](Operator& hands) { hands.ClickTab(u"tabDados", 1); }},
      {u"lista", [](Operator& hands) { hands.ClickRow(u"lista", 1); }},
      {u"marcas", [](Operator& hands) { hands.CheckRow(u"marcas", 1); }},
  };
  Work([&] {
    for (const FocusTaker& taker : takers) {
      Hands().Click(u"txtNome");
      WatchFocus(u"txtNome");
      WatchFocus(taker.Name);
      TakeLog();
      taker.Act(Hands());
      const std::string name = ToUtf8(taker.Name);
      EXPECT_THAT(TakeLog(), testing::ElementsAre("lost txtNome", "got " + name, "click " + name));
    }
  });
}

TEST_P(SurfaceContract, AMnemonicTakesTheFocusBeforeItClicks) {
  Button(u"btnGravar").OnClick = [&] { Add("click"); };
  The<host::DialogCheckBox>(u"chkAtivo").OnClick = [&] { Add("check"); };
  The<host::DialogOption>(u"optDois").OnClick = [&] { Add("option"); };
  Work([&] {
    Hands().Click(u"txtNome");
    for (const StringView name : {u"txtNome", u"chkAtivo", u"optDois", u"btnGravar"})
      WatchFocus(name);
    Hands().Mnemonic(u'g');
    EXPECT_THAT(TakeLog(), testing::ElementsAre("lost txtNome", "got btnGravar", "click"));
    Hands().Mnemonic(u'a');
    EXPECT_THAT(TakeLog(), testing::ElementsAre("lost btnGravar", "got chkAtivo", "check"));
    Hands().Mnemonic(u'd');
    EXPECT_THAT(TakeLog(), testing::ElementsAre("lost chkAtivo", "got optDois", "option"));
    EXPECT_EQ(The<host::DialogCheckBox>(u"chkAtivo").Value(), 1);
    EXPECT_TRUE(The<host::DialogOption>(u"optDois").Value());
  });
}

TEST_P(SurfaceContract, AMnemonicDoesNotReachWhatCannotBeUsed) {
  Button(u"btnGravar").OnClick = [&] { Add("click"); };
  The<host::DialogOption>(u"optDois").OnClick = [&] { Add("option"); };
  The<host::DialogCheckBox>(u"chkPagina1").OnClick = [&] { Add("check"); };
  Work([&] {
    Hands().Click(u"txtNome");
    Button(u"btnGravar").Enabled(false);
    Widget(u"fraTipo").Enabled(false);
    for (const char16_t letter : {u'g', u'd', u'e'}) Hands().Mnemonic(letter);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    EXPECT_EQ(Hands().Focused(), u"txtNome");
    Tabs().Tab(1);
    Hands().Mnemonic(u'e');
    EXPECT_THAT(TakeLog(), testing::ElementsAre("check"));
  });
}

TEST_P(SurfaceContract, TheDefaultButtonTakesTheFocusBeforeItIsPressed) {
  Driver().MakeDefault(u"btnGravar");
  Button(u"btnGravar").OnClick = [&] { Add("click"); };
  Work([&] {
    for (const StringView name : {u"txtNome", u"campo"}) {
      Hands().Click(name);
      WatchFocus(name);
      WatchFocus(u"btnGravar");
      TakeLog();
      Hands().Press(SurfaceKey::Enter);
      EXPECT_THAT(TakeLog(),
                  testing::ElementsAre("lost " + ToUtf8(name), "got btnGravar", "click"));
    }
  });
}

TEST_P(SurfaceContract, EnterPressesTheButtonInFocusAndNotTheDefaultOne) {
  Driver().MakeDefault(u"btnGravar");
  Button(u"btnGravar").OnClick = [&] { Add("gravar"); };
  Button(u"btnSair").OnClick = [&] { Add("sair"); };
  Work([&] {
    Widget(u"btnSair").SetFocus();
    Hands().Press(SurfaceKey::Enter);
    Hands().Press(SurfaceKey::Space);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("sair", "sair"));
    Button(u"btnGravar").Enabled(false);
    Hands().Click(u"txtNome");
    Hands().Press(SurfaceKey::Enter);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
  });
}

// --- Handlers that fail, and handlers that destroy the surface ----------------------------------

TEST_P(SurfaceContract, AnErrorInAHandlerIsShownAndTheSurfaceGoesOn) {
  int clicks = 0;
  Button(u"btnGravar").OnClick = [&] {
    ++clicks;
    throw HostError(errors::TypeMismatch);
  };
  Work([&] {
    Hands().Click(u"btnGravar");
    Widget(u"txtNome").OnLostFocus = [] { throw HostError(errors::Overflow); };
    EXPECT_THAT(Driver().TakeBoxes(), testing::ElementsAre(ErrorDescription(errors::TypeMismatch)));
    Hands().Click(u"txtNome");
    Hands().Type(u"a");
    EXPECT_EQ(Box(u"txtNome").Text(), u"a");
    Hands().Click(u"txtNotas");
    EXPECT_THAT(Driver().TakeBoxes(), testing::ElementsAre(ErrorDescription(errors::Overflow)));
    EXPECT_EQ(Hands().Focused(), u"txtNotas");
  });
  EXPECT_EQ(clicks, 1);
}

TEST_P(SurfaceContract, AnErrorInEveryKindOfHandlerIsShown) {
  const auto fail = [](auto&&...) { throw HostError(errors::TypeMismatch); };
  Box(u"txtNome").OnChange = fail;
  Combo(u"lstCidade").OnClick = fail;
  The<host::DialogCheckBox>(u"chkAtivo").OnClick = fail;
  The<host::DialogOption>(u"optUm").OnClick = fail;
  Tabs().OnClick = fail;
  List().Add(u"codigo");
  List().OnItemClick = fail;
  Marks().Add(u"codigo");
  Marks().OnItemCheck = fail;
  Work([&] {
    Hands().Click(u"txtNome");
    const std::function<void()> acts[] = {
        [&] { Hands().Type(u"a"); },
        [&] { Hands().Choose(u"lstCidade", 1); },
        [&] { Hands().Click(u"chkAtivo"); },
        [&] { Hands().Click(u"optUm"); },
        [&] { Hands().ClickTab(u"tabDados", 1); },
        [&] { Hands().ClickRow(u"lista", 1); },
        [&] { Hands().CheckRow(u"marcas", 1); },
    };
    for (const auto& act : acts) {
      act();
      EXPECT_EQ(Driver().TakeBoxes().size(), 1u);
    }
  });
}

TEST_P(SurfaceContract, OneThatIsDestroyedInAHandlerRaisesNothingMore) {
  const std::pair<const char*, std::function<void(const std::function<void()>&)>> ways[] = {
      {"click",
       [&](const auto& destroy) {
         Button(u"btnGravar").OnClick = destroy;
         Work([&] { Hands().Click(u"btnGravar"); });
       }},
      {"lost focus",
       [&](const auto& destroy) {
         Widget(u"txtNome").OnLostFocus = destroy;
         Button(u"btnGravar").OnClick = [&] { Add("click"); };
         Widget(u"btnGravar").OnGotFocus = [&] { Add("got focus"); };
         Work([&] {
           Hands().Click(u"txtNome");
           Hands().Click(u"btnGravar");
         });
       }},
      {"change",
       [&](const auto& destroy) {
         Box(u"txtNome").OnChange = destroy;
         Box(u"txtNome").OnKeyUp = [&](Integer&, Integer&) { Add("key up"); };
         Widget(u"txtNome").OnLostFocus = [&] { Add("lost focus"); };
         Work([&] {
           Hands().Click(u"txtNome");
           Hands().Type(u"a");
         });
       }},
      {"key",
       [&](const auto& destroy) {
         Surface().OnKeyDown = [destroy](Integer&, Integer&) { destroy(); };
         Box(u"txtNome").OnKeyDown = [&](Integer&, Integer&) { Add("box down"); };
         Work([&] {
           Hands().Click(u"txtNome");
           Hands().Type(u"a");
         });
       }},
      {"tab",
       [&](const auto& destroy) {
         Tabs().OnClick = [destroy](Long) { destroy(); };
         Work([&] { Hands().ClickTab(u"tabDados", 1); });
       }},
      {"row",
       [&](const auto& destroy) {
         Marks().Add(u"codigo");
         Marks().OnItemCheck = [destroy](host::ListRow&) { destroy(); };
         Work([&] { Hands().CheckRow(u"marcas", 1); });
       }},
      {"choice",
       [&](const auto& destroy) {
         Combo(u"lstCidade").OnClick = destroy;
         Widget(u"lstCidade").OnLostFocus = [&] { Add("lost focus"); };
         Work([&] { Hands().Choose(u"lstCidade", 1); });
       }},
  };
  for (const auto& way : ways) {
    driver_ = nullptr;  // a host is destroyed before the next one is made
    driver_ = GetParam().make(kContractDialog);
    way.second([&] {
      Driver().Destroy();
      Add(way.first);
    });
    EXPECT_THAT(TakeLog(), testing::ElementsAre(way.first));
    EXPECT_FALSE(Driver().IsShown()) << way.first;
  }
}

}  // namespace tessaria::contract
