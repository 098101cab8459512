// What surfaces of the memory host do beyond the contract: scripts, focus, lines of text,
// scrolling.
#include "tessaria/memory/dialogs/surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/controls.h"
#include "tests/support/printers.h"
#include "tests/support/test_desktop.h"

namespace tessaria::memory {
namespace {

using host::WidgetKind;

constexpr StringView kTabs[] = {u"Um", u"Dois"};
constexpr host::WidgetDescription kSurfaceWidgets[] = {
    {u"txtNotas", WidgetKind::MultiLineText},
    {u"fraCampo", WidgetKind::Frame, u"Campo"},
    {u"txtCampo", WidgetKind::TsText, {}, {}, -1, u"fraCampo"},
    {u"tab", WidgetKind::TabStrip, {}, {}, -1, {}, -1, kTabs},
    {u"txtUm", WidgetKind::TextBox, {}, {}, -1, u"tab", 0},
    {u"txtDois", WidgetKind::TextBox, {}, {}, -1, u"tab", 1},
    {u"lista", WidgetKind::ListView},
    {u"btnOk", WidgetKind::CommandButton, u"O&K && sair"},
    {u"lblFim", WidgetKind::Label, u"&Fim"},
};
constexpr host::DialogDescription kSurfaceDescription{u"pagPropriedade", u"Página",
                                                      kSurfaceWidgets};

class MemorySurfaceTest : public testing::Test {
 protected:
  MemorySurfaceTest() { surface->Show(); }
  DialogButton& Ok() { return surface->Find<DialogButton>(u"btnOk"); }
  TextBox& Box(StringView name) {
    return dynamic_cast<TextBox&>(surface->Find<host::DialogTextBox>(name).Box());
  }

  std::vector<std::string> faults;
  Application app;
  Desktop desktop{[this](const String& message) { faults.push_back(ToUtf8(message)); }};
  std::shared_ptr<Surface> surface = desktop.MakeSurface(kSurfaceDescription);
};

// --- Where the operator can work ----------------------------------------------------------------

TEST_F(MemorySurfaceTest, IsWorkedWhileItIsShownAndNoWindowIsInFront) {
  int clicks = 0;
  Ok().OnClick = [&] { ++clicks; };
  surface->Hide();
  surface->Click(u"btnOk");
  surface->Show();
  surface->Click(u"btnOk");
  desktop.WillShow(u"pagPropriedade", [&](Dialog& shown) {
    surface->Click(u"btnOk");
    shown.CloseWindow();
  });
  desktop.MakeDialog(kSurfaceDescription)->ShowModal();
  surface->Click(u"btnOk");
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(faults, std::vector<std::string>(2, "The window pagPropriedade is not in front"));
}

TEST_F(MemorySurfaceTest, EachHasATokenOfItsOwn) {
  EXPECT_NE(surface->hWnd(), desktop.MakeSurface(kSurfaceDescription)->hWnd());
}

TEST_F(MemorySurfaceTest, ItsFormContainsTheWidgets) {
  auto& form = surface->TheForm();
  EXPECT_EQ(form.Name(), u"pagPropriedade");
  EXPECT_EQ(form.Controls(u"txtCampo")->Container()->Name(), u"fraCampo");
  EXPECT_EQ(form.Controls(u"tab")->TypeName(), u"SSTab");
}

TEST_F(MemorySurfaceTest, AContainerComesBeforeWhatStandsInIt) {
  static constexpr host::WidgetDescription widgets[] = {
      {u"txtUm", WidgetKind::TextBox, {}, {}, -1, u"fra"}, {u"fra", WidgetKind::Frame}};
  static constexpr host::DialogDescription description{u"pag", u"", widgets};
  EXPECT_THROW(desktop.MakeSurface(description), HostError);
}

// --- The focus ----------------------------------------------------------------------------------

TEST_F(MemorySurfaceTest, AWidgetThatCanNoLongerBeUsedGivesTheFocusToTheNext) {
  int lost = 0;
  surface->Find<host::DialogField>(u"txtCampo").OnLostFocus = [&] { ++lost; };
  surface->FocusOn(u"txtCampo");
  surface->Find<DialogFrame>(u"fraCampo").Enabled(false);
  EXPECT_EQ(surface->Focused(), u"tab");
  EXPECT_EQ(lost, 1);
  surface->FocusOn(u"txtUm");
  surface->Find<DialogTabs>(u"tab").Tab(1);
  EXPECT_EQ(surface->Focused(), u"txtDois");
  for (const StringView name : {u"txtNotas", u"tab", u"btnOk", u"lista"})
    surface->Find<host::DialogWidget>(name).Enabled(false);
  EXPECT_EQ(surface->Focused(), u"");
}

TEST_F(MemorySurfaceTest, AWidgetThatTakesTheFocusBackIsNotClickedAway) {
  int clicks = 0;
  Ok().OnClick = [&] { ++clicks; };
  Ok().Default = true;
  surface->Find<host::DialogTextBox>(u"txtUm").OnLostFocus = [&] { Box(u"txtUm").SetFocus(); };
  surface->FocusOn(u"txtUm");
  surface->Click(u"btnOk");
  surface->Mnemonic(u'K');
  surface->Press(Key::Enter);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(surface->Focused(), u"txtUm");
}

TEST_F(MemorySurfaceTest, AMaskedFieldLeavesEnterToTheDefaultButton) {
  int clicks = 0;
  Ok().OnClick = [&] { ++clicks; };
  Ok().Default = true;
  surface->Find<host::DialogField>(u"txtCampo").Control().Let(u"Mascara", u"dd/mm/yyyy");
  surface->FocusOn(u"txtCampo");
  surface->Press(Key::Enter);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MemorySurfaceTest, TheMnemonicIsTheLetterAfterASingleSign) {
  int clicks = 0;
  Ok().OnClick = [&] { ++clicks; };
  for (const char16_t letter : {u'k', u' ', u'&', u's', u'f'}) surface->Mnemonic(letter);
  EXPECT_EQ(clicks, 1);
}

// --- Lines of text ------------------------------------------------------------------------------

TEST_F(MemorySurfaceTest, TheCaretPassesTheEndOfALineInOneStep) {
  auto& box = Box(u"txtNotas");
  surface->FocusOn(u"txtNotas");
  box.Text(u"um\r\ndois");
  surface->Press(Key::End);
  EXPECT_EQ(box.SelStart(), 2);
  surface->Press(Key::Right);
  EXPECT_EQ(box.SelStart(), 4);
  surface->Press(Key::End);
  EXPECT_EQ(box.SelStart(), 8);
  surface->Press(Key::Home);
  EXPECT_EQ(box.SelStart(), 4);
  surface->Press(Key::Left);
  EXPECT_EQ(box.SelStart(), 2);
  surface->Press(Key::Delete);
  EXPECT_EQ(box.Text(), u"umdois");
}

// --- Lists --------------------------------------------------------------------------------------

TEST_F(MemorySurfaceTest, AListIsAsHighAsItsLines) {
  auto& list = surface->Find<DialogListView>(u"lista");
  for (int i = 0; i < 20; ++i) list.Add(u"x");
  list.Height(5 * 255);
  list.Item(8).EnsureVisible();
  EXPECT_EQ(list.FirstVisible()->Index(), 4);
  list.Item(6).EnsureVisible();
  EXPECT_EQ(list.FirstVisible()->Index(), 4);
  list.Item(2).EnsureVisible();
  EXPECT_EQ(list.FirstVisible()->Index(), 2);
}

TEST_F(MemorySurfaceTest, RowsOfAPlainListHaveNoCheckBoxToClick) {
  auto& list = surface->Find<DialogListView>(u"lista");
  list.Add(u"x");
  surface->CheckRow(u"lista", 1);
  EXPECT_FALSE(list.Item(1).Checked());
}

// --- Frames of forms ----------------------------------------------------------------------------

TEST(MemoryFrame, WhatStandsInADisabledFrameOfAFormTakesNoFocus) {
  const auto form = Form::Create(u"frmTeste");
  const auto frame = form->Add<Generic>(u"fra", u"Frame");
  const auto inner = form->Add<Generic>(u"fraDentro", u"Frame");
  const auto button = form->Add<Button>(u"btn");
  inner->Settings().Container = frame->AsWidget();
  button->Settings().Container = inner->AsWidget();
  EXPECT_TRUE(button->TakesFocus());
  frame->Settings().Enabled = false;
  EXPECT_FALSE(button->TakesFocus());
  frame->Settings().Enabled = true;
  inner->Settings().Visible = false;
  EXPECT_FALSE(button->TakesFocus());
}

// --- What the program offers --------------------------------------------------------------------

TEST(MemoryApplication, TextsThatAreAskedForComeFromTheScript) {
  Application app;
  app.WillEnter(u"Produção");
  EXPECT_EQ(app.ShowInputBox(u"Nome?", u"Conexão", u"Teste"), u"Produção");
  EXPECT_EQ(app.ShowInputBox(u"Senha?", u"", u"x"), u"");
  EXPECT_THAT(app.InputBoxes(), testing::ElementsAre(InputBoxRecord{u"Nome?", u"Conexão", u"Teste"},
                                                     InputBoxRecord{u"Senha?", u"", u"x"}));
}

TEST(MemoryApplication, DataSourcesAreNamedInAlphabeticalOrder) {
  Application app;
  EXPECT_THAT(app.DataSourceNames(), testing::IsEmpty());
  for (const char16_t* name : {u"vendas", u"Compras", u"estoque"}) app.AddDataSource(name);
  EXPECT_THAT(app.DataSourceNames(), testing::ElementsAre(u"Compras", u"estoque", u"vendas"));
}

TEST(MemoryApplication, NewConnectionsAreThoseOfItsDataLayer) {
  Application app;
  EXPECT_EQ(app.NewConnection(), nullptr);
  app.OnNewConnection = [] { return Connection::Create(); };
  const auto connection = app.NewConnection();
  ASSERT_NE(connection, nullptr);
  EXPECT_NE(connection, app.NewConnection());
}

}  // namespace
}  // namespace tessaria::memory
