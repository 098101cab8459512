// The first show, the layout of box and button, icons and colours.

#include <algorithm>

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr Colour ownColour = 0x112233;
constexpr Colour labelsOwn = 0x445566;

// --- The first show -----------------------------------------------------------------------------

class FirstShowTest : public ControlTest {
 protected:
  FirstShowTest() : field(AddField(u"txtCampo")) {}
  tsText& Control() { return **field; }

  FieldPtr field;
};

TEST_F(FirstShowTest, TheEventIsRaisedOnceAndAfterEverythingElse) {
  bool loadedInside = true;
  bool validInside = false;
  field->OnShow = [&] {
    loadedInside = Control().Carregou();
    validInside = Control().LastValidaStatus();
  };
  Control().UserControl_Show();
  Control().UserControl_Show();
  EXPECT_EQ(field->Events(Kind::Show).size(), 1u);
  EXPECT_FALSE(loadedInside);
  EXPECT_TRUE(validInside);
  EXPECT_TRUE(Control().Carregou());
}

TEST_F(FirstShowTest, LaterShowsDoNothing) {
  Control().UserControl_Show();
  Control().LastValidaStatus(false);
  Control().UserControl_Show();
  EXPECT_FALSE(Control().LastValidaStatus());
}

TEST_F(FirstShowTest, AnErrorLeavesTheControlNotLoaded) {
  field->OnShow = [] { throw HostError(11); };
  Control().UserControl_Show();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(11), u"UserControl_Show")));
  EXPECT_FALSE(Control().Carregou());
  Control().UserControl_Show();
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// While the host reports that an object is not set, the run-time part is left out.
TEST_F(FirstShowTest, APendingError91SkipsTheRunTimePart) {
  Err().Set(HostError(91));
  Control().UserControl_Show();
  Err().Clear();
  EXPECT_THAT(field->Events(), IsEmpty());
  EXPECT_FALSE(Control().LastValidaStatus());
  EXPECT_TRUE(Control().Carregou());
}

TEST_F(FirstShowTest, AnyOtherPendingErrorDoesNotSkipIt) {
  Err().Set(HostError(13));
  Control().UserControl_Show();
  Err().Clear();
  EXPECT_EQ(field->Events(Kind::Show).size(), 1u);
}

TEST_F(FirstShowTest, AnAmountIsAlignedRight) {
  const auto amount = AddStored(u"txtValor", {{u"Mascara", u"$$$.$$"}});
  EXPECT_EQ(amount->txtEdit().Alignment(), host::Alignment::Left);
  (*amount)->UserControl_Show();
  EXPECT_EQ(amount->txtEdit().Alignment(), host::Alignment::Right);
}

struct LetterMask {
  const char16_t* Mask;
  Long DefinedSize;  ///< -1 for a control that is not bound
  Long MaxLength;
  const char16_t* After;
};

const LetterMask letterMasks[] = {
    {u"A", 10, 3, u"AAAAAAAAAA"}, {u"AAAAAAAA", 2, 0, u"AA"},
    {u"A-00", 4, 0, u"AAAA"},                             // the rest of the mask is dropped
    {u"A", -1, 3, u"AAA"},        {u"AA", -1, 0, u"AA"},  // without a size the mask stays
    {u"AA", 0, 9, u"AA"},         {u"a", 10, 3, u"a"},
    {u"00", 10, 3, u"00"},        {u"", 10, 3, u""},
    {u"A", -1, 2147483647, u"A"},  // no mask is as long as that
};

TEST_F(FirstShowTest, AMaskOfLettersTakesTheFieldsSize) {
  int number = 0;
  for (const LetterMask& row : letterMasks) {
    SCOPED_TRACE(testing::Message() << ToUtf8(row.Mask) << " of " << row.DefinedSize);
    const String name = u"campo" + CStr(Variant(Long{++number}));
    connection->AddTable(name, {{name, host::type::VarWChar, row.DefinedSize}},
                         {{Variant::Null()}});
    const auto data = form->Add<memory::DataControl>(u"dtc" + name);
    data->Connect(connection, name);
    data->Refresh();
    const auto letters = AddStored(u"txt" + name, {{u"Mascara", row.Mask},
                                                   {u"MaxLength", row.MaxLength},
                                                   {u"DataSource", u"dtc" + name},
                                                   {u"PromptChar", u"_"}});
    if (row.DefinedSize >= 0) (*letters)->DataField(name);
    (*letters)->UserControl_Show();
    EXPECT_EQ((*letters)->Mascara(), row.After);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

class DesignShowTest : public DesignTest {};

TEST_F(DesignShowTest, TheDesignersShowRaisesNothing) {
  const auto field = AddField(u"txtCampo");
  (*field)->TipoControle(TipoControle::Browse);
  (*field)->UserControl_Show();
  EXPECT_THAT(field->Events(), IsEmpty());
  EXPECT_EQ(State().dbConexao, nullptr);
  EXPECT_FALSE((*field)->LastValidaStatus());
  EXPECT_TRUE((*field)->Carregou());
  EXPECT_TRUE(field->btnBrowse().Visible());  // but it is drawn
}

TEST_F(DesignShowTest, AnotherKindShowsItsButtonAndNarrowsTheBoxAtOnce) {
  const auto field = AddField(u"txtCampo");
  (*field)->UserControl_Show();
  const Long width = field->Settings().Width;
  EXPECT_FALSE(field->btnBrowse().Visible());
  EXPECT_EQ(field->txtEdit().Width(), width - 70);
  (*field)->TipoControle(TipoControle::Browse);
  EXPECT_TRUE(field->btnBrowse().Visible());
  EXPECT_EQ(field->txtEdit().Width(), width - 360);
}

// --- The button ---------------------------------------------------------------------------------

struct ButtonRow {
  Long Kind;
  const char16_t* Form;
  bool Visible;
  const char16_t* Icon;  ///< "" for none
};

const ButtonRow buttons[] = {
    {0, u"frmCadastro", false, u""},
    {1, u"frmCadastro", true, u"TresPontos.ico"},
    {2, u"frmCadastro", true, u"Calendario.ico"},
    {3, u"frmCadastro", false, u""},
    {3, u"frmTsPesquisa", true, u"TresPontos.ico"},
    {3, u"frmPesquisa", true, u"TresPontos.ico"},
    {4, u"frmCadastro", true, u"Diretorio.ico"},
    {5, u"frmCadastro", true, u"Calculadora.ico"},
    {9, u"frmCadastro", false, u""},
};

TEST_F(FirstShowTest, TheButtonAndItsIconByKind) {
  for (const ButtonRow& row : buttons) {
    SCOPED_TRACE(testing::Message() << "kind " << row.Kind << " on " << ToUtf8(row.Form));
    for (const char16_t* icon :
         {u"TresPontos.ico", u"Calendario.ico", u"Diretorio.ico", u"Calculadora.ico"})
      app.AddFile(app.Path() + u"\\" + icon, memory::Application::FileKind::Picture);
    const auto place = memory::Form::Create(row.Form);
    const auto field = place->Add<memory::TsText>(u"txtCampo");
    (*field)->TipoControle(static_cast<TipoControle>(row.Kind));
    EXPECT_EQ(field->btnBrowse().Visible(), row.Visible);
    const auto picture = std::dynamic_pointer_cast<memory::Picture>(field->btnBrowse().Picture());
    const String path = StringView(row.Icon).empty() ? String() : app.Path() + u"\\" + row.Icon;
    EXPECT_EQ(picture ? picture->Path() : String(), path);
  }
}

TEST_F(FirstShowTest, AMissingIconIsNotAnError) {
  app.AddFile(app.Path() + u"\\Calendario.ico", memory::Application::FileKind::Picture);
  Control().TipoControle(TipoControle::Browse);
  EXPECT_TRUE(field->btnBrowse().Visible());
  EXPECT_EQ(field->btnBrowse().Picture(), nullptr);
  Control().TipoControle(TipoControle::Calendario);
  const auto calendar = field->btnBrowse().Picture();
  EXPECT_NE(calendar, nullptr);
  Control().TipoControle(TipoControle::Browse);  // the button does not change
  EXPECT_EQ(field->btnBrowse().Picture(), calendar);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(FirstShowTest, AFileThatIsNotAPictureIsReported) {
  app.AddFile(app.Path() + u"\\TresPontos.ico");
  Control().TipoControle(TipoControle::Browse);
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes()[0].Title, u"Erro: 481 - Função: tsText.AtualizaExibicao");
}

// --- The layout ---------------------------------------------------------------------------------

TEST_F(FirstShowTest, ASurfaceIsAtLeast315High) {
  for (const auto& [asked, height] :
       {std::pair<Long, Long>{200, 315}, {314, 315}, {315, 315}, {316, 316}, {600, 600}}) {
    field->Resize(2000, asked);
    EXPECT_EQ(field->Settings().Height, height);
    EXPECT_EQ(field->txtEdit().Height(), height);
  }
}

TEST_F(FirstShowTest, BoxAndButtonFollowTheSurface) {
  field->Resize(2000, 600);
  EXPECT_EQ(field->txtEdit().Height(), 600);
  EXPECT_EQ(field->btnBrowse().Height(), 540);
  EXPECT_EQ(field->btnBrowse().Left(), 1650);
  EXPECT_EQ(field->txtEdit().Width(), 1640);  // a new button is visible
  field->btnBrowse().Visible(false);
  field->Resize(2000, 600);
  EXPECT_EQ(field->txtEdit().Width(), 1930);
}

TEST_F(FirstShowTest, TheButtonsHeightFollowsTheBoxOnlyIfTheyDiffer) {
  field->Resize(2000, 600);
  field->btnBrowse().Height(1);
  field->Resize(2100, 600);
  EXPECT_EQ(field->btnBrowse().Height(), 1);
}

// Drawing checks the kind, resizing the button: a description without one keeps the room until it
// is resized.
TEST_F(FirstShowTest, ADescriptionKeepsTheRoomForAButtonThatItDoesNotHave) {
  Control().TipoControle(TipoControle::Descricao);
  const Long width = field->Settings().Width;
  EXPECT_FALSE(field->btnBrowse().Visible());
  EXPECT_EQ(field->txtEdit().Width(), width - 360);
  field->Resize(width, field->Settings().Height);
  EXPECT_EQ(field->txtEdit().Width(), width - 70);
}

// --- The colours --------------------------------------------------------------------------------

class ColourTest : public ControlTest {
 protected:
  ColourTest() {
    label = form->Add<memory::Label>(u"lblCampo");
    label->ForeColor(labelsOwn);
  }
  /// A shown field, with the label's looks reset.
  FieldPtr Add(Long kind, bool eSocial, bool enabled = true) {
    const auto field = AddStored(u"txt" + CStr(Variant(++fields_)),
                                 {{u"TipoControle", kind},
                                  {u"eSocial", eSocial},
                                  {u"LabelAssociado", u"lblCampo"},
                                  {u"ForeColor", static_cast<Long>(ownColour)}});
    (*field)->UserControl_Show();
    label->ForeColor(labelsOwn);
    label->FontBold(false);
    field->txtEdit().ForeColor(0x99);
    (*field)->Enabled(enabled);
    return field;
  }

  std::shared_ptr<memory::Label> label;

 private:
  Long fields_ = 0;
};

struct ColourRow {
  bool Enabled;
  Long Kind;
  bool eSocial;
  Colour Box;
  Colour Back;
  Colour Label;
  bool Bold;
};

const ColourRow colourRows[] = {
    {true, 0, false, ownColour, 0xFFFFFF, 0x80000007, false},
    {true, 1, false, ownColour, 0xFFFFFF, 0x80000007, false},
    {true, 3, false, 0xFF0000, 0xFFFFFF, 0x80000007, false},
    {true, 0, true, ownColour, 0xFFFFFF, 32768, true},
    {true, 3, true, 0xFF0000, 0xFFFFFF, 32768, true},
    {false, 0, false, 0x99, 0x8000000F, 0x80000011, false},
    {false, 3, false, 0x99, 0x8000000F, 0x80000011, false},
    {false, 0, true, 0x99, 0x8000000F, 0x80000011, true},
};

TEST_F(ColourTest, BoxAndCaptionByState) {
  for (const ColourRow& row : colourRows) {
    SCOPED_TRACE(testing::Message() << "enabled " << row.Enabled << ", kind " << row.Kind
                                    << ", eSocial " << row.eSocial);
    const auto field = Add(row.Kind, row.eSocial, row.Enabled);
    EXPECT_EQ(field->txtEdit().ForeColor(), row.Box);
    EXPECT_EQ(field->txtEdit().BackColor(), row.Back);
    EXPECT_EQ(field->SurfaceColour(), row.Back);
    EXPECT_EQ(label->ForeColor(), row.Label);
    EXPECT_EQ(label->FontBold(), row.Bold);
  }
}

TEST_F(ColourTest, ABoldCaptionStaysBold) {
  const auto field = Add(0, false);
  label->FontBold(true);
  (*field)->Enabled(false);
  (*field)->Enabled(true);
  EXPECT_TRUE(label->FontBold());
}

TEST_F(ColourTest, DrawingNotifiesItsColours) {
  const auto field = Add(0, false);
  const auto& told = field->ChangedProperties();
  EXPECT_THAT(told, Contains(u"ForeColor"));
  EXPECT_THAT(told, Contains(u"BackColor"));
}

// The colours that a field is drawn in depend on its state.
TEST_F(ColourTest, AColourThatIsOnlyDrawnIsNotStored) {
  const Colour yellow = 0x00C0FFFF;
  const auto stored = [](const FieldPtr& field, const char16_t* key) {
    memory::PropertyBag bag;
    (*field)->UserControl_WriteProperties(bag);
    return bag.ReadProperty(key, Variant::Missing());
  };
  const auto fresh = AddField(u"txtNovo");
  (*fresh)->TipoControle(TipoControle::Descricao);
  (*fresh)->UserControl_Show();
  EXPECT_EQ((*fresh)->Forecolor(), host::colour::Blue);
  EXPECT_TRUE(stored(fresh, u"BackColor").IsMissing());
  EXPECT_TRUE(stored(fresh, u"ForeColor").IsMissing());

  const auto loaded = AddStored(u"txtLido", {{u"BackColor", static_cast<Long>(yellow)}});
  (*loaded)->UserControl_Show();
  EXPECT_EQ((*loaded)->BackColor(), host::colour::White);
  EXPECT_THAT(stored(loaded, u"BackColor"), IsValue(static_cast<Long>(yellow)));
  (*loaded)->BackColor(0x123456);
  EXPECT_THAT(stored(loaded, u"BackColor"), IsValue(Long{0x123456}));

  const auto description = AddStored(u"txtDescricao", {{u"TipoControle", 3}, {u"ForeColor", 0xFF}});
  (*description)->UserControl_Show();
  EXPECT_EQ((*description)->Forecolor(), host::colour::Blue);
  EXPECT_THAT(stored(description, u"ForeColor"), IsValue(Long{0xFF}));

  const auto disabled = AddStored(u"txtInativo", {{u"Enabled", false}, {u"ForeColor", 0xFF}});
  (*disabled)->UserControl_Show();
  EXPECT_THAT(stored(disabled, u"ForeColor"), IsValue(Long{0xFF}));
}

struct FocusRow {
  bool Enabled;
  bool eSocial;
  Colour Inside;
  Colour Outside;
};

const FocusRow focusRows[] = {
    {true, false, 0xFF0000, 0x80000008},
    {true, true, 0xFF0000, 32768},
    {false, false, 0x80000011, 0x80000011},
    // A disabled field with this mark also turns blue, and then stays blue.
    {false, true, 0xFF0000, 0xFF0000},
};

TEST_F(ColourTest, TheCaptionFollowsTheFocusOfTheBox) {
  for (const FocusRow& row : focusRows) {
    SCOPED_TRACE(testing::Message() << "enabled " << row.Enabled << ", eSocial " << row.eSocial);
    const auto field = Add(0, row.eSocial, row.Enabled);
    field->txtEdit().OnGotFocus();
    EXPECT_EQ(label->ForeColor(), row.Inside);
    field->txtEdit().OnLostFocus();
    EXPECT_EQ(label->ForeColor(), row.Outside);
    EXPECT_EQ(label->FontBold(), row.eSocial);
  }
}

TEST_F(ColourTest, WithoutACaptionNothingIsColoured) {
  for (const bool eSocial : {false, true}) {
    const auto field = AddField(u"txtSemLegenda");
    (*field)->eSocial(eSocial);
    (*field)->UserControl_Show();
    field->txtEdit().OnGotFocus();
    field->txtEdit().OnLostFocus();
    form->Remove(u"txtSemLegenda");
  }
  EXPECT_EQ(label->ForeColor(), labelsOwn);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(ColourTest, AnErrorWhileDrawingIsReported) {
  const auto field = Add(0, false);
  form->Remove(u"lblCampo");
  (*field)->Enabled(false);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"lblCampo", u"LabelAssociado", field->Name()),
                                   u"AtualizaExibicao")));
}

// --- Enabled ------------------------------------------------------------------------------------

class EnabledTest : public ControlTest {
 protected:
  EnabledTest() : key(AddField(u"txtCodigo")), description(AddField(u"txtNome")) {
    (*key)->TipoControle(TipoControle::Browse);
    (*key)->TxtIrmao(u"txtNome");
    (*description)->TipoControle(TipoControle::Descricao);
    (*description)->TxtIrmao(u"txtCodigo");
    form->Show();
  }

  FieldPtr key, description;
};

TEST_F(EnabledTest, ReachesBoxButtonAndTabStopAndIsNotified) {
  for (const bool enabled : {false, true}) {
    (*key)->Enabled(enabled);
    EXPECT_EQ((*key)->Enabled(), enabled);
    EXPECT_EQ(key->txtEdit().Enabled(), enabled);
    EXPECT_EQ(key->btnBrowse().Enabled(), enabled);
    EXPECT_EQ(key->Settings().TabStop, enabled);
  }
  EXPECT_THAT(key->ChangedProperties(), Contains(u"Enabled"));
}

TEST_F(EnabledTest, AKeyPassesItToADescriptionThatNamesItBack) {
  for (const bool enabled : {false, true}) {
    (*key)->Enabled(enabled);
    EXPECT_EQ((*description)->Enabled(), enabled);
  }
}

TEST_F(EnabledTest, AKeyDoesNotPassItToOneThatNamesAnother) {
  (*description)->TxtIrmao(u"txtOutro");
  (*key)->Enabled(false);
  EXPECT_TRUE((*description)->Enabled());
}

TEST_F(EnabledTest, ADescriptionDoesNotPassItOn) {
  (*description)->Enabled(false);
  EXPECT_TRUE((*key)->Enabled());
}

TEST_F(EnabledTest, OnlyASiblingThatDiffersIsAssigned) {
  (*description)->Enabled(false);
  const auto count = [&] {
    const auto& told = description->ChangedProperties();
    return std::count(told.begin(), told.end(), u"Enabled");
  };
  const auto before = count();
  (*key)->Enabled(false);
  EXPECT_EQ(count(), before);
}

TEST_F(EnabledTest, TwoKeysThatNameEachOtherDoNotLoop) {
  (*description)->TipoControle(TipoControle::Browse);
  (*key)->Enabled(false);
  EXPECT_FALSE((*description)->Enabled());
  (*description)->Enabled(true);
  EXPECT_TRUE((*key)->Enabled());
}

}  // namespace
}  // namespace tessaria::test
