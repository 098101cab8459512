// The looks of a field, tested alone: form, label and sibling are plain state.

#include "control/looks.h"

#include "tessaria/memory/command_button.h"
#include "tests/control/part_fakes.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::IsEmpty;

struct FakeLooksForm final : LooksForm {
  String FormName() const override { return name; }
  std::shared_ptr<host::Label> CaptionLabel() const override { return label; }
  std::shared_ptr<host::TsTextWidget> Sibling() const override { return sibling; }

  String name = u"frmCadastro";
  std::shared_ptr<FakeLabel> label = std::make_shared<FakeLabel>();
  std::shared_ptr<FakeControlWidget> sibling = std::make_shared<FakeControlWidget>();
};

class LooksPartTest : public PartTest {
 protected:
  /// Twips that the box leaves free at its right.
  Long RoomBeside() const { return site.width - txtEdit.Width(); }

  FakeLooksForm form;
  memory::CommandButton button;
  Looks looks{site, txtEdit, button, members, members, members, form};
};

TEST_F(LooksPartTest, TheKindsWithADialogHaveAButton) {
  const struct {
    TipoControle kind;
    bool hasButton;
  } rows[] = {{TipoControle::Normal, false},    {TipoControle::Browse, true},
              {TipoControle::Calendario, true}, {TipoControle::Descricao, false},
              {TipoControle::Diretorio, true},  {TipoControle::Calculadora, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(static_cast<int>(row.kind));
    members.TipoControle = row.kind;
    looks.Draw();
    EXPECT_EQ(button.Visible(), row.hasButton);
    EXPECT_EQ(RoomBeside(), row.kind == TipoControle::Normal ? 70 : 360);
  }
}

TEST_F(LooksPartTest, ADescriptionHasItsButtonOnlyInSearchPrompts) {
  members.TipoControle = TipoControle::Descricao;
  for (const char16_t* name : {u"frmTsPesquisa", u"frmPesquisa"}) {
    form.name = name;
    looks.Draw();
    EXPECT_TRUE(button.Visible());
  }
}

TEST_F(LooksPartTest, ThePictureIsTakenFromTheProgramsFolderIfItExists) {
  members.TipoControle = TipoControle::Calendario;
  looks.Draw();
  EXPECT_EQ(button.Picture(), nullptr);
  app.AddFile(u"C:\\Programa\\Calendario.ico", memory::Application::FileKind::Picture);
  looks.Draw();
  EXPECT_NE(button.Picture(), nullptr);
}

TEST_F(LooksPartTest, AResizedSurfaceIsNeverLowerThanALine) {
  site.height = 100;
  looks.Resize();
  EXPECT_EQ(site.height, 315);
  EXPECT_EQ(txtEdit.Height(), 315);
  EXPECT_EQ(button.Height(), 255);
}

TEST_F(LooksPartTest, AResizedBoxLeavesRoomForAVisibleButton) {
  button.Visible(false);
  looks.Resize();
  EXPECT_EQ(RoomBeside(), 70);
  button.Visible(true);
  looks.Resize();
  EXPECT_EQ(RoomBeside(), 360);
  EXPECT_EQ(button.Left(), site.width - 350);
}

TEST_F(LooksPartTest, AnEnabledFieldIsWhiteAndADisabledOneIsNot) {
  looks.Enabled(true);
  EXPECT_EQ(txtEdit.BackColor(), host::colour::White);
  EXPECT_EQ(site.backColor, host::colour::White);
  EXPECT_TRUE(site.tabStop);
  looks.Enabled(false);
  EXPECT_EQ(txtEdit.BackColor(), host::colour::ButtonFace);
  EXPECT_FALSE(site.tabStop);
  EXPECT_FALSE(button.Enabled());
}

TEST_F(LooksPartTest, ADrawnColourDoesNotReplaceTheStoredOne) {
  txtEdit.ForeColor(0x112233);
  members.lngForeColorOriginal = 0x112233;
  members.TipoControle = TipoControle::Descricao;
  looks.Draw();
  EXPECT_EQ(txtEdit.ForeColor(), host::colour::Blue);
  EXPECT_EQ(members.StoredForeColor, std::optional<Colour>(0x112233));
}

TEST_F(LooksPartTest, AnAssignedColourIsStored) {
  looks.Draw();
  looks.Forecolor(0x010203);
  looks.BackColor(0x040506);
  EXPECT_EQ(members.StoredForeColor, std::nullopt);
  EXPECT_EQ(members.StoredBackColor, std::nullopt);
  EXPECT_EQ(txtEdit.ForeColor(), 0x010203u);
  EXPECT_EQ(site.backColor, 0x040506u);
}

TEST_F(LooksPartTest, AnAssignedFontIsNoLongerTheAmbientOne) {
  members.FontIsAmbient = true;
  looks.Font(host::Font{});
  EXPECT_FALSE(members.FontIsAmbient);
  EXPECT_THAT(site.changed, Contains(u"Font"));
}

TEST_F(LooksPartTest, TheCaptionShowsTheFocusAndTheKindOfField) {
  members.bLabelConectado = true;
  looks.ColourFocused();
  EXPECT_EQ(form.label->colour, host::colour::Blue);
  looks.ColourUnfocused();
  EXPECT_EQ(form.label->colour, host::colour::WindowText);
  looks.Enabled(false);
  EXPECT_EQ(form.label->colour, host::colour::GrayText);
  EXPECT_FALSE(form.label->bold);
}

TEST_F(LooksPartTest, AMarkedFieldHasAGreenBoldCaption) {
  members.bLabelConectado = true;
  members.eSocial = true;
  looks.Draw();
  EXPECT_EQ(form.label->colour, host::colour::Green);
  EXPECT_TRUE(form.label->bold);
}

TEST_F(LooksPartTest, ACaptionThatWasNotFoundIsNotChanged) {
  looks.Draw();
  looks.ColourFocused();
  looks.ColourUnfocused();
  EXPECT_EQ(form.label->colour, 0u);
}

TEST_F(LooksPartTest, AKeyPassesEnabledToADescriptionThatNamesItBack) {
  members.TipoControle = TipoControle::Browse;
  members.bIrmaoConectado = true;
  looks.Enabled(false);
  EXPECT_FALSE(form.sibling->control.enabled);
  form.sibling->control.calls.clear();
  looks.Enabled(false);
  EXPECT_THAT(form.sibling->control.calls, IsEmpty());  // it no longer differs
}

TEST_F(LooksPartTest, ADescriptionThatNamesAnotherKeyIsNotChanged) {
  members.TipoControle = TipoControle::Browse;
  members.bIrmaoConectado = true;
  form.sibling->control.txtIrmao = u"txtOutro";
  looks.Enabled(false);
  EXPECT_TRUE(form.sibling->control.enabled);
}

}  // namespace
}  // namespace tessaria::test
