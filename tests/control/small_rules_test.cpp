// Rules of the control that no other test covers, one by one.

#include <limits>

#include "tessaria/memory/command_button.h"
#include "tessaria/text.h"
#include "tests/control/button_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// --- Errors of the surroundings -----------------------------------------------------------------

/// Surroundings that fail on every call.
class FaultySite final : public host::ControlSite {
 public:
  bool UserMode() const override { Raise(); }
  String DisplayName() const override { return u"txtCampo"; }
  host::Font AmbientFont() const override { Raise(); }
  host::FormPtr Parent() const override { Raise(); }
  host::WidgetPtr Extender() const override { Raise(); }
  bool TabStop() const override { Raise(); }
  void TabStop(bool) override { Raise(); }
  Long hWnd() const override { Raise(); }
  Long Width() const override { Raise(); }
  Long Height() const override { Raise(); }
  void Height(Long) override { Raise(); }
  void BackColor(Colour) override { Raise(); }
  String ActiveControlName() const override { Raise(); }
  void PropertyChanged(const String&) override {}

 private:
  [[noreturn]] static void Raise() { throw HostError(errors::ObjectNotSet); }
};

/// Events that nobody handles.
class NoEvents final : public tsTextEvents {
 public:
  void Show() override {}
  void Change() override {}
  void KeyDown(Integer&, Integer&) override {}
  void KeyPress(Integer&) override {}
  void KeyUp(Integer&, Integer&) override {}
  void BrowseReturn(bool&, Variant&) override {}
};

TEST(FaultySurroundings, AreReportedUnderTheNameOfTheProcedure) {
  memory::Application app;
  FaultySite site;
  NoEvents events;
  memory::TextBox box;
  memory::CommandButton button;
  tsText control(site, box, button, events);
  const HostError fault(errors::ObjectNotSet);
  EXPECT_EQ(control.hWnd(), 0);
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(fault, u"hwnd")));
  control.UserControl_Resize();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(fault, u"UserControl_Resize")));
}

// --- Properties and the first show --------------------------------------------------------------

class SmallRules : public ButtonTest {
 protected:
  SmallRules() {
    connection->OnStatement = [this](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"clientes") == 0) return std::nullopt;
      return InStr(statement, u"Order by 1") != 0 ? list : description;
    };
  }
  void Enter() {
    form->Focus(u"chkAtivo");
    form->Focus(u"txtCampo");
    field->ForgetEvents();
    app.TakeBoxes();
  }
  void Leave() { form->Focus(u"chkAtivo"); }
};

TEST_F(SmallRules, AChangeOfKindIsNotifiedBeforeTheFieldIsDrawn) {
  const auto before = static_cast<std::ptrdiff_t>(field->ChangedProperties().size());
  Control().TipoControle(TipoControle::Browse);
  const auto& told = field->ChangedProperties();
  EXPECT_THAT(std::vector<String>(told.begin() + before, told.end()),
              ElementsAre(u"TipoControle", u"ForeColor", u"BackColor"));
}

TEST_F(SmallRules, AFieldWhoseSizeCannotBeReadEndsTheFirstShowBeforeTheEvent) {
  const auto rows = std::make_shared<RawRows>();
  rows->Field.SizeFault = HostError(errors::ProviderError, u"sem tamanho");
  const auto control = form->Add<memory::DataControl>(u"dtcDados");
  control->ConnectionString(u"DSN=teste");
  control->RecordSource(u"crua");
  control->RecordSet(rows);
  const auto letters = AddStored(u"txtLetras", {{u"Mascara", u"A"}});
  Bind(letters, u"campo");
  (*letters)->UserControl_Show();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(*rows->Field.SizeFault, u"UserControl_Show")));
  EXPECT_FALSE((*letters)->Carregou());
  EXPECT_THAT(letters->Events(Kind::Show), IsEmpty());
}

TEST_F(DesignTest, ASecondShowDrawsNothing) {
  const auto field = AddField(u"txtCampo");
  (*field)->UserControl_Show();
  const auto told = field->ChangedProperties().size();
  (*field)->UserControl_Show();
  EXPECT_EQ(field->ChangedProperties().size(), told);
}

TEST_F(SmallRules, DisablingAKeyRaisesAnErrorIfItsSiblingIsMissing) {
  Show(TipoControle::Browse);
  AddField(u"txtNome");
  Control().TxtIrmao(u"txtNome");
  Control().Refresh();
  form->Remove(u"txtNome");
  EXPECT_HOST_ERROR(Control().Enabled(false), errors::ControlNotFound);
  EXPECT_FALSE(Box().Enabled());
  EXPECT_THAT(field->ChangedProperties(), Not(Contains(u"Enabled")));
}

// --- Values -------------------------------------------------------------------------------------

TEST_F(SmallRules, AnUnboundNumberOfManyDigitsIsKeptExactlyOrRefused) {
  Show(TipoControle::Normal);
  Control().TipoDado(5);
  Control().Value(u"12345678901234567,89");
  EXPECT_SAME(Control().Value(), DecimalFromText(u"12345678901234567.89"));
  EXPECT_EQ(Box().Text(), u"12345678901234567,89");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  Control().Value(u"123456789012345678901234567890,5");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Control().Value(), IsEmptyVariant());
}

TEST_F(SmallRules, AValueThatIsNotANumberIsRefusedWithAMessage) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Show(TipoControle::Normal);
  for (const Long type : {1, 5}) {
    Control().TipoDado(type);
    Enter();
    Control().Value(nan);
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    EXPECT_THAT(Control().Value(), IsEmptyVariant());
  }
}

TEST_F(SmallRules, ARowWithoutANumberShowsAWordAndIsNotChanged) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto data = AddData({{u"campo", host::type::Double}}, {{nan}});
  Bind(field, u"campo");
  Show(TipoControle::Normal);
  Enter();
  EXPECT_EQ(Box().Text(), u"NaN");
  Leave();
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  EXPECT_EQ(data->RecordSet()->EditMode(), host::EditMode::None);
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_FALSE(Returns()[0].HouveAlteracao);
}

TEST_F(SmallRules, ARequiredBlankPassesToACheckBoxAndToAnOptionButton) {
  form->Add<memory::Generic>(u"optTipo", u"OptionButton", memory::Generic::Focus::Taken);
  Control().PodeSerBranco(false);
  Show(TipoControle::Normal);
  for (const char16_t* name : {u"chkAtivo", u"optTipo"}) {
    form->Focus(u"txtCampo");
    form->Focus(name);
    EXPECT_EQ(ActiveName(), name);
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  }
}

TEST_F(SmallRules, AHandlerOfChangeReadsThePathAlreadySplit) {
  Control().DirVerArquivos(true);
  Show(TipoControle::Diretorio);
  String folder, file;
  field->OnChange = [&] {
    folder = Control().DirFilePath();
    file = Control().DirFileName();
  };
  Box().Text(u"c:\\Dados\\Carta.txt");
  EXPECT_EQ(folder, u"c:\\Dados");
  EXPECT_EQ(file, u"Carta.txt");
}

// --- Leaving ------------------------------------------------------------------------------------

TEST_F(SmallRules, ASilencedAndADisabledExitKeepTheLastValue) {
  Show(TipoControle::Normal);
  Control().Value(u"antes");
  Enter();
  Control().Value(u"depois");
  Box().Tag = u"Nao Dispara Valida";
  Control().UserControl_ExitFocus();
  EXPECT_THAT(LastValue(), IsValue(u"antes"));
  Box().Tag.clear();
  Box().Enabled(false);
  Control().UserControl_ExitFocus();
  EXPECT_THAT(LastValue(), IsValue(u"antes"));
}

/// A key that fetches its description, on a database that counts the statements.
class FetchingKey : public SmallRules {
 protected:
  void ShowKey(TipoControle kind) {
    Show(kind);
    Control().BrowseTable(u"clientes");
    Control().BrwCampo(u"codigo");
    Control().BrwCampoIrmao(u"nome");
    AddField(u"txtNome");
    Control().TxtIrmao(u"txtNome");
    Control().Refresh();
    Enter();
    connection->TakeStatements();
  }
  bool Fetches(const Variant& value) {
    connection->TakeStatements();
    Control().Value(value);
    return !connection->TakeStatements().empty();
  }
};

TEST_F(FetchingKey, ARefusedExitEndsTheFetchingAndClearsTheKeyOfTheSibling) {
  ShowKey(TipoControle::Browse);
  Control().Mascara(u"dd/mm/yyyy");
  State().vntValorIrmao = u"'7'";
  form->Type(u"31042017");
  EXPECT_EQ(Control().UserControl_ExitFocus(), ExitVerdict::Refused);
  EXPECT_THAT(State().vntValorIrmao, IsEmptyVariant());
  EXPECT_FALSE(Fetches(u"15"));
}

TEST_F(FetchingKey, AfterAChoiceAProgramsValueIsLookedUpUntilTheNextExit) {
  ShowKey(TipoControle::Browse);
  Click(u"frmBrowse", Pick(1));
  EXPECT_TRUE(Fetches(u"15"));
  Leave();
  EXPECT_FALSE(Fetches(u"16"));
}

TEST_F(FetchingKey, TheOtherDialogsFetchNothing) {
  ShowKey(TipoControle::Normal);
  for (const TipoControle kind :
       {TipoControle::Calendario, TipoControle::Diretorio, TipoControle::Calculadora}) {
    SCOPED_TRACE(static_cast<int>(kind));
    Control().TipoControle(kind);
    Control().DirVerArquivos(false);
    Control().Value(Variant::Null());
    Enter();
    connection->TakeStatements();
    Click(WindowOf(kind), Close);
    EXPECT_THAT(connection->TakeStatements(), IsEmpty());
    EXPECT_FALSE(Fetches(u"15"));
  }
}

// --- Keys ---------------------------------------------------------------------------------------

TEST_F(FetchingKey, ACodeThatAHandlerChangesReachesTheSearchOfTheBox) {
  ShowKey(TipoControle::Descricao);
  const auto pressA = [&] {
    connection->TakeStatements();
    form->Type(u"a");
    return !connection->TakeStatements().empty();
  };
  EXPECT_TRUE(pressA());
  field->OnKeyUp = [](Integer& code, Integer&) {
    if (code == 65) code = 36;
  };
  EXPECT_FALSE(pressA());
}

// --- Discovery ----------------------------------------------------------------------------------

struct Asked {
  const char16_t* What;
  bool Sibling, Value, Field, Label, Loaded;
};

const Asked asks[] = {
    {u"Irmao", true, false, false, false, false},
    {u"DataSource", false, false, false, false, false},
    {u"Campo", false, false, false, false, false},  // only together with its data control
    {u"Label", false, false, false, true, false},
    {u"Todos", true, true, true, true, true},
    {u"todos", false, false, false, false, false},
    {u"", false, false, false, false, false},
};

class LookingAround : public SmallRules, public testing::WithParamInterface<Asked> {};

INSTANTIATE_TEST_SUITE_P(Words, LookingAround, testing::ValuesIn(asks));

TEST_P(LookingAround, EachWordResolvesItsOwnPart) {
  const Asked& asked = GetParam();
  for (const bool atEnd : {false, true}) {
    SCOPED_TRACE(ToUtf8(asked.What) + (atEnd ? " at the end" : ""));
    const String suffix = atEnd ? u"2" : u"1";
    connection->AddTable(u"t" + suffix, {{u"campo"}}, {{u"Ana"}});
    const auto data = form->Add<memory::DataControl>(u"dtc" + suffix);
    data->Connect(connection, u"t" + suffix);
    data->Refresh();
    if (atEnd) data->RecordSet()->MoveNext();
    const auto label = form->Add<memory::Label>(u"lbl" + suffix);
    label->ForeColor(0);
    const auto sibling = AddField(u"txtIrmao" + suffix);
    const auto looked = AddStored(u"txt" + suffix, {{u"TxtIrmao", u"txtIrmao" + suffix},
                                                    {u"DataSource", u"dtc" + suffix},
                                                    {u"DataField", u"campo"},
                                                    {u"LabelAssociado", u"lbl" + suffix},
                                                    {u"TipoDado", Long{1}}});
    (*looked)->Value(u"antes");
    EXPECT_EQ((*looked)->SetarVariaveis(asked.What), asked.Loaded);
    EXPECT_EQ((*looked)->CampoVinculado() != nullptr, asked.Field);
    const Variant shown = !asked.Value ? Variant(u"antes") : atEnd ? Variant::Null() : u"Ana";
    EXPECT_THAT((*looked)->Value(), IsValue(shown));
    looked->txtEdit().OnGotFocus();
    EXPECT_EQ(label->ForeColor() == host::colour::Blue, asked.Label);
    // A key passes its state to a sibling that it knows.
    (*sibling)->TxtIrmao(u"txt" + suffix);
    (*looked)->UsaChecaRelacao(false);
    (*looked)->BrowseTable(u"clientes");
    (*looked)->BrwCampo(u"codigo");
    (*looked)->BrwCampoIrmao(u"nome");
    State().dbConexao = connection;
    (*looked)->Value(u"15");
    (*looked)->AtualizaIrmao(false, false);
    EXPECT_EQ(sibling->txtEdit().Text() == u"Bruno", asked.Sibling);
    app.TakeBoxes();
  }
}

TEST_F(SmallRules, AMissingColumnIsReportedAndTheLabelIsStillFound) {
  AddData({{u"campo"}}, {{u"Ana"}});
  const auto label = form->Add<memory::Label>(u"lblCampo");
  const auto looked = AddStored(
      u"txtOutro",
      {{u"DataSource", u"dtcDados"}, {u"DataField", u"sumiu"}, {u"LabelAssociado", u"lblCampo"}});
  form->Show();
  const auto boxes = app.TakeBoxes();
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].Text, u"Não Foi Possível Conectar o Objeto 'txtOutro' ao Campo SUMIU.\r");
  looked->txtEdit().OnGotFocus();
  EXPECT_EQ(label->ForeColor(), host::colour::Blue);
}

}  // namespace
}  // namespace tessaria::test
