// Contract of the boxes, buttons and choices of surfaces. See dialog_contract.h.
#pragma once

#include "tessaria/calendar.h"
#include "tessaria/conversion.h"
#include "tests/ports/dialog_driver.h"

namespace tessaria::contract {

class SurfaceKindContract : public SurfaceContract {
 protected:
  host::DialogCheckBox& Check() { return The<host::DialogCheckBox>(u"chkAtivo"); }
  host::DialogOption& Option(StringView name) { return The<host::DialogOption>(name); }
};

// --- Labels, buttons, boxes that only show ------------------------------------------------------

TEST_P(SurfaceKindContract, CaptionsAreThoseOfTheDescription) {
  EXPECT_EQ(The<host::DialogLabel>(u"lblNome").Caption(), u"Nome");
  EXPECT_EQ(Button(u"btnGravar").Caption(), u"&Gravar");
  EXPECT_EQ(Check().Caption(), u"&Ativo");
  EXPECT_EQ(Option(u"optUm").Caption(), u"&Um");
  EXPECT_EQ(The<host::DialogFrame>(u"fraTipo").Caption(), u"Tipo");
  The<host::DialogFrame>(u"fraTipo").Caption(u"R&&D");
  EXPECT_EQ(The<host::DialogFrame>(u"fraTipo").Caption(), u"R&&D");
}

TEST_P(SurfaceKindContract, ADisplayShowsTextAndAcceptsNone) {
  auto& display = The<host::DialogDisplay>(u"visor");
  display.Text(u"12,50");
  Work([&] {
    display.SetFocus();
    Hands().Click(u"visor");
    Hands().Type(u"9");
    Hands().Press(SurfaceKey::Backspace);
  });
  EXPECT_EQ(display.Text(), u"12,50");
}

TEST_P(SurfaceKindContract, ADisabledOrHiddenButtonIsNotPressed) {
  auto& button = Button(u"btnGravar");
  button.OnClick = [&] { Add("click"); };
  Work([&] {
    button.Enabled(false);
    Hands().Click(u"btnGravar");
    button.Enabled(true);
    button.Visible(false);
    Hands().Click(u"btnGravar");
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    button.Visible(true);
    Hands().Click(u"btnGravar");
    EXPECT_THAT(TakeLog(), testing::ElementsAre("click"));
  });
}

TEST_P(SurfaceKindContract, AToolBarHasAButtonWithAMenu) {
  auto& bar = The<host::ToolBar>(u"barra");
  bar.OnButtonClick = [&] { Add("button"); };
  bar.OnMenuClick = [&](Long position) { Add("menu " + std::to_string(position)); };
  bar.AddMenu({u"Nome", u"1"});
  bar.AddMenu({u"-", u""});
  bar.AddMenu({u"Cidade", u"3"});
  bar.Menu(1, {u"Nome inteiro", u"1"});
  ASSERT_EQ(bar.MenuCount(), 3);
  EXPECT_EQ(bar.Menu(1).Text, u"Nome inteiro");
  EXPECT_EQ(bar.Menu(3).Tag, u"3");
  EXPECT_EQ(ErrorOf([&] { bar.Menu(0); }), errors::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { bar.Menu(4, {}); }), errors::SubscriptOutOfRange);
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] {
    Hands().Click(u"barra");
    Hands().ClickMenu(u"barra", 3);
    bar.ButtonEnabled(false);
    Hands().Click(u"barra");
  });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("button", "menu 3"));
}

TEST_P(SurfaceKindContract, ACalendarIsClickedByTheOperatorOnly) {
  auto& calendar = The<host::Calendar>(u"dia");
  calendar.OnClick = [&] { Add("click"); };
  calendar.Value(FromCivil({2017, 12, 25}));
  EXPECT_EQ(calendar.Value(), FromCivil({2017, 12, 25}));
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] { Hands().PickDay(u"dia", FromCivil({2017, 12, 6})); });
  EXPECT_EQ(calendar.Value(), FromCivil({2017, 12, 6}));
  EXPECT_THAT(TakeLog(), testing::ElementsAre("click"));
}

TEST_P(SurfaceKindContract, AFieldIsAControlThatReportsTheChangesOfItsBox) {
  auto& field = The<host::DialogField>(u"campo");
  field.OnChange = [&] { Add("change"); };
  Work([&] {
    Hands().Click(u"campo");
    Hands().Type(u"ab");
    EXPECT_THAT(TakeLog(), testing::ElementsAre("change", "change"));
    Hands().Click(u"txtNome");
  });
  EXPECT_EQ(CStr(field.Control().Get(u"Value")), u"ab");
}

// --- Boxes with text ----------------------------------------------------------------------------

TEST_P(SurfaceKindContract, ABoxRaisesChangeForKeysAndForAssignments) {
  Work([&] {
    for (const StringView name : {u"txtNome", u"txtNotas"}) {
      Box(name).OnChange = [&] { Add(ToUtf8(Box(name).Text())); };
      Hands().Click(name);
      Hands().Type(u"ab");
      EXPECT_THAT(TakeLog(), testing::ElementsAre("a", "ab")) << ToUtf8(name);
      Box(name).Text(u"xyz");
      Box(name).Text(u"xyz");
      EXPECT_THAT(TakeLog(), testing::ElementsAre("xyz")) << ToUtf8(name);
      EXPECT_EQ(Box(name).SelStart(), 0);
      Box(name).SelStart(3);
      Hands().Press(SurfaceKey::Backspace);
      EXPECT_THAT(TakeLog(), testing::ElementsAre("xy")) << ToUtf8(name);
    }
  });
}

TEST_P(SurfaceKindContract, AHiddenSurfacesBoxRaisesChangeForAssignmentsToo) {
  Box(u"txtPagina1").OnChange = [&] { Add("change"); };
  Box(u"txtPagina1").Text(u"abc");
  Box(u"txtPagina1").SelText(u"x");
  EXPECT_THAT(TakeLog(), testing::ElementsAre("change", "change"));
  EXPECT_EQ(Box(u"txtPagina1").Text(), u"xabc");
}

TEST_P(SurfaceKindContract, ABoxAndItsWidgetAreEnabledTogether) {
  Widget(u"txtNome").Enabled(false);
  EXPECT_FALSE(Box(u"txtNome").Enabled());
  Box(u"txtNome").Enabled(true);
  EXPECT_TRUE(Widget(u"txtNome").Enabled());
  Box(u"txtNome").Enabled(false);
  EXPECT_FALSE(Widget(u"txtNome").Enabled());
  Work([&] {
    Hands().Click(u"txtNotas");
    Hands().Click(u"txtNome");
    Hands().Type(u"a");
  });
  EXPECT_EQ(Box(u"txtNome").Text(), u"");
}

TEST_P(SurfaceKindContract, ABoxKeepsItsMaxLength) {
  Box(u"txtNome").MaxLength(3);
  Work([&] {
    Hands().Click(u"txtNome");
    Hands().Type(u"abcdef");
    EXPECT_EQ(Box(u"txtNome").Text(), u"abc");
    Box(u"txtNome").Text(u"abcdef");
    EXPECT_EQ(Box(u"txtNome").Text(), u"abcdef");
  });
}

TEST_P(SurfaceKindContract, AMultiLineTextHasLinesThatReturnAndLineFeedSeparate) {
  auto& box = Box(u"txtNotas");
  box.Text(u"um\r\ndois");
  EXPECT_EQ(box.Text(), u"um\r\ndois");
  box.Text(u"");
  Work([&] {
    Hands().Click(u"txtNotas");
    Hands().Type(u"a");
    Hands().Press(SurfaceKey::Enter);
    Hands().Type(u"b");
    EXPECT_EQ(box.Text(), u"a\r\nb");
    EXPECT_EQ(box.SelStart(), 4);
    Hands().Press(SurfaceKey::Backspace);
    Hands().Press(SurfaceKey::Backspace);
    EXPECT_EQ(box.Text(), u"a");
  });
}

TEST_P(SurfaceKindContract, AMultiLineTextKeepsEnterAndLeavesTab) {
  Driver().MakeDefault(u"btnGravar");
  Button(u"btnGravar").OnClick = [&] { Add("click"); };
  Work([&] {
    Hands().Click(u"txtNotas");
    Hands().Press(SurfaceKey::Enter);
    EXPECT_EQ(Hands().Focused(), u"txtNotas");
    Hands().Press(SurfaceKey::Tab);
    EXPECT_EQ(Hands().Focused(), u"cboCidade");
  });
  EXPECT_EQ(Box(u"txtNotas").Text(), u"\r\n");
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
}

TEST_P(SurfaceKindContract, PositionsInAMultiLineTextCountBothCharactersOfALinesEnd) {
  auto& box = Box(u"txtNotas");
  box.Text(u"um\r\ndois");
  box.SelStart(4);
  box.SelLength(4);
  EXPECT_EQ(box.SelText(), u"dois");
  box.SelStart(1);
  box.SelLength(4);
  EXPECT_EQ(box.SelText(), u"m\r\nd");
  box.SelText(u"-");
  EXPECT_EQ(box.Text(), u"u-ois");
  EXPECT_EQ(box.SelStart(), 2);
}

// --- Combo boxes and drop-down lists ------------------------------------------------------------

TEST_P(SurfaceKindContract, RowsAreThoseOfTheDescriptionAndThoseAdded) {
  for (const StringView name : {u"cboCidade", u"lstCidade"}) {
    auto& combo = Combo(name);
    ASSERT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.List(1), u"Bauru");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), u"");
    combo.AddItem(u"Dourados");
    EXPECT_EQ(combo.ListCount(), 4);
    EXPECT_EQ(combo.List(3), u"Dourados");
    EXPECT_EQ(combo.List(4), u"");
    EXPECT_EQ(combo.List(-1), u"");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.ListIndex(3);
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), u"");
    combo.AddItem(u"Assis");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), u"");
  }
}

TEST_P(SurfaceKindContract, TheChosenRowIsTheText) {
  for (const StringView name : {u"cboCidade", u"lstCidade"}) {
    auto& combo = Combo(name);
    combo.ListIndex(1);
    EXPECT_EQ(combo.Text(), u"Bauru");
    combo.Text(u"Campinas");
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.ListIndex(-1);
    EXPECT_EQ(combo.Text(), u"");
    EXPECT_EQ(ErrorOf([&] { combo.ListIndex(3); }), errors::InvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { combo.ListIndex(-2); }), errors::InvalidPropertyValue);
    combo.AddItem(u"Bauru");
    combo.ListIndex(3);
    EXPECT_EQ(combo.ListIndex(), 3);
    combo.Text(u"Bauru");
    EXPECT_EQ(combo.ListIndex(), 1);
  }
}

TEST_P(SurfaceKindContract, OnlyAComboBoxTakesATextThatIsNoRow) {
  Combo(u"cboCidade").ListIndex(1);
  Combo(u"cboCidade").Text(u"bauru");
  EXPECT_EQ(Combo(u"cboCidade").Text(), u"bauru");
  EXPECT_EQ(Combo(u"cboCidade").ListIndex(), -1);
  Combo(u"lstCidade").ListIndex(1);
  EXPECT_EQ(ErrorOf([&] { Combo(u"lstCidade").Text(u"bauru"); }), errors::PropertyIsReadOnly);
  EXPECT_EQ(Combo(u"lstCidade").Text(), u"Bauru");
  EXPECT_EQ(Combo(u"lstCidade").ListIndex(), 1);
}

TEST_P(SurfaceKindContract, AChoiceOfTheOperatorIsAClickAndAnAssignmentIsNone) {
  Work([&] {
    for (const StringView name : {u"cboCidade", u"lstCidade"}) {
      auto& combo = Combo(name);
      combo.OnClick = [&] { Add("click " + ToUtf8(combo.Text())); };
      combo.OnChange = [&] { Add("change"); };
      combo.ListIndex(0);
      combo.Text(u"Bauru");
      combo.AddItem(u"Dourados");
      EXPECT_THAT(TakeLog(), testing::IsEmpty());
      Hands().Choose(name, 2);
      EXPECT_EQ(combo.ListIndex(), 2);
      Hands().Choose(name, 2);
      EXPECT_THAT(TakeLog(), testing::ElementsAre("click Campinas", "click Campinas"));
      Hands().Press(SurfaceKey::Up);
      EXPECT_THAT(TakeLog(), testing::ElementsAre("click Bauru"));
      combo.Enabled(false);
      Hands().Choose(name, 0);
      EXPECT_EQ(combo.ListIndex(), 1);
      combo.Clear();
      EXPECT_THAT(TakeLog(), testing::IsEmpty());
    }
  });
}

TEST_P(SurfaceKindContract, AComboBoxIsEdited) {
  auto& combo = Combo(u"cboCidade");
  combo.OnChange = [&] { Add("change " + ToUtf8(combo.Text())); };
  combo.OnClick = [&] { Add("click"); };
  Work([&] {
    Hands().Click(u"cboCidade");
    Hands().Type(u"xy");
    Hands().Press(SurfaceKey::Backspace);
  });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("change x", "change xy", "change x"));
  EXPECT_EQ(combo.Text(), u"x");
  EXPECT_EQ(combo.ListIndex(), -1);
}

// --- Check boxes and options --------------------------------------------------------------------

TEST_P(SurfaceKindContract, ACheckBoxIsClickedByTheOperatorOnly) {
  auto& check = Check();
  check.OnClick = [&] { Add("click " + std::to_string(check.Value())); };
  EXPECT_EQ(check.Value(), 0);
  check.Value(1);
  EXPECT_EQ(check.Value(), 1);
  EXPECT_EQ(ErrorOf([&] { check.Value(2); }), errors::InvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { check.Value(-1); }), errors::InvalidPropertyValue);
  EXPECT_EQ(check.Value(), 1);
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] {
    Hands().Click(u"chkAtivo");
    Hands().Press(SurfaceKey::Space);
    Hands().Mnemonic(u'a');
    check.Enabled(false);
    Hands().Click(u"chkAtivo");
  });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("click 0", "click 1", "click 0"));
}

TEST_P(SurfaceKindContract, AtMostOneOptionOfAContainerIsSet) {
  EXPECT_FALSE(Option(u"optUm").Value());
  Option(u"optUm").Value(true);
  Option(u"optIgual").Value(true);
  Option(u"optDois").Value(true);
  EXPECT_FALSE(Option(u"optUm").Value());
  EXPECT_TRUE(Option(u"optDois").Value());
  EXPECT_TRUE(Option(u"optIgual").Value());
  Option(u"optUm").Value(false);
  EXPECT_TRUE(Option(u"optDois").Value());
  Option(u"optDois").Value(false);
  EXPECT_FALSE(Option(u"optUm").Value());
  EXPECT_FALSE(Option(u"optDois").Value());
  EXPECT_TRUE(Option(u"optIgual").Value());
}

TEST_P(SurfaceKindContract, AnOptionIsClickedByTheOperatorOnly) {
  for (const StringView name : {u"optUm", u"optDois"})
    Option(name).OnClick = [&, name] { Add("click " + ToUtf8(name)); };
  Option(u"optDois").Value(true);
  Option(u"optUm").Value(true);
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] {
    Hands().Click(u"optDois");
    EXPECT_FALSE(Option(u"optUm").Value());
    EXPECT_TRUE(Option(u"optDois").Value());
    Hands().Mnemonic(u'u');
  });
  EXPECT_TRUE(Option(u"optUm").Value());
  EXPECT_THAT(TakeLog(), testing::ElementsAre("click optDois", "click optUm"));
}

TEST_P(SurfaceKindContract, AnOptionThatIsSetIsNotClickedAgain) {
  Option(u"optUm").OnClick = [&] { Add("click"); };
  Work([&] {
    Hands().Click(u"optUm");
    Hands().Click(u"optUm");
  });
  EXPECT_TRUE(Option(u"optUm").Value());
  EXPECT_THAT(TakeLog(), testing::ElementsAre("click"));
}

}  // namespace tessaria::contract
