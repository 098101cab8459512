// Every property: what assigning it stores, notifies and shows.

#include "tests/control/control_fixture.h"
#include "tests/control/shared_values.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// One property of the interface, in its order.
struct InterfaceRow {
  const char16_t* Name;
  PropertyType Type;
  bool Readable;
  bool Writable;
};

using T = PropertyType;

const InterfaceRow interfaceRows[] = {
    {u"hWnd", T::Long, true, false},
    {u"DataSource", T::String, true, true},
    {u"DataField", T::String, true, true},
    {u"PosDataField", T::String, true, true},
    {u"Browse", T::Object, true, true},
    {u"BrwTitulo", T::String, true, true},
    {u"BrowseTable", T::String, true, true},
    {u"BrwCampo", T::String, true, true},
    {u"BrwCampoIrmao", T::String, true, true},
    {u"BrwCampoOutros", T::String, true, true},
    {u"BrwGroupBy", T::String, true, true},
    {u"BrwLeftJoin", T::String, true, true},
    {u"BrwWhere", T::String, true, true},
    {u"Pesquisa", T::Object, true, true},
    {u"PesqCaption", T::String, true, true},
    {u"PesqCampo", T::String, true, true},
    {u"PesqMascara", T::String, true, true},
    {u"PesqWidth", T::String, true, true},
    {u"PesqTipo", T::String, true, true},
    {u"PesqLike", T::String, true, true},
    {u"PesqMaxLength", T::String, true, true},
    {u"PesqCompletaDescr", T::String, true, true},
    {u"PesqPromptInclude", T::String, true, true},
    {u"Mascara", T::String, true, true},
    {u"TipoStrZero", T::Long, true, true},
    {u"PromptInclude", T::Boolean, true, true},
    {u"ValorNegativo", T::Boolean, true, true},
    {u"MultiLine", T::Boolean, true, true},
    {u"PodeSerBranco", T::Boolean, true, true},
    {u"eSocial", T::Boolean, true, true},
    {u"ObjetoCancelar", T::String, true, true},
    {u"UsaChecaRelacao", T::Boolean, true, true},
    {u"DirVerArquivos", T::Boolean, true, true},
    {u"DirPattern", T::String, true, true},
    {u"DirFilePath", T::String, true, true},
    {u"DirFileName", T::String, true, true},
    {u"TipoDado", T::Long, true, true},
    {u"LastValidaStatus", T::Boolean, true, true},
    {u"MsgBrowse", T::String, true, true},
    {u"PromptChar", T::String, true, true},
    {u"PasswordChar", T::String, true, true},
    {u"Text", T::String, true, true},
    {u"Texto", T::String, true, true},
    {u"MaxLength", T::Long, true, true},
    {u"SelLength", T::Long, true, true},
    {u"SelStart", T::Long, true, true},
    {u"SelText", T::String, true, true},
    {u"Value", T::Variant, true, true},
    {u"OriginalValue", T::Variant, true, true},
    {u"TipoControle", T::Long, true, true},
    {u"TxtIrmao", T::String, true, true},
    {u"LabelAssociado", T::String, true, true},
    {u"Enabled", T::Boolean, true, true},
    {u"Nome", T::String, true, true},
    {u"NumeroTab", T::String, true, true},
    {u"Forecolor", T::Colour, true, true},
    {u"BackColor", T::Colour, true, true},
    {u"Font", T::Font, true, true},
    {u"Carregou", T::Boolean, true, false},
    {u"LastValue", T::String, false, true},
};

TEST(PropertyTable, ListsTheInterfaceInItsOrder) {
  int number = 0;
  for (const InterfaceRow& row : interfaceRows) {
    SCOPED_TRACE(ToUtf8(row.Name));
    const Property& property = Properties()[static_cast<std::size_t>(number)];
    EXPECT_EQ(property.Name, row.Name);
    EXPECT_EQ(property.Type, row.Type);
    EXPECT_EQ(property.DispatchId, ++number);
    EXPECT_EQ(property.Get != nullptr, row.Readable);
    EXPECT_EQ(property.Let != nullptr, row.Writable);
  }
}

// Items behind the interface are stored, but programs cannot reach them.
TEST(PropertyTable, HoldsNothingElseExceptTheDerivedItems) {
  const std::size_t listed = std::size(interfaceRows);
  ASSERT_EQ(Properties().size(), listed + 1);
  const Property& items = Properties()[listed];
  EXPECT_EQ(items.Name, u"ItensMascara");
  EXPECT_EQ(items.DispatchId, 0);
}

TEST(PropertyTable, FindsWithoutRegardToCase) {
  EXPECT_EQ(FindProperty(u"PODESERBRANCO"), FindProperty(u"PodeSerBranco"));
  EXPECT_EQ(FindProperty(u"podeserbranco")->Name, u"PodeSerBranco");
  EXPECT_EQ(FindProperty(u"NaoExiste"), nullptr);
}

class PropertiesTest : public DesignTest {
 protected:
  PropertiesTest() : field(AddField(u"txtCampo")) {}

  tsText& Control() { return **field; }
  /// The names that one assignment notifies.
  std::vector<String> Told(const String& name, const Variant& value) {
    const std::size_t before = field->ChangedProperties().size();
    LetProperty(Control(), name, value);
    const auto& all = field->ChangedProperties();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }

  FieldPtr field;
};

// --- Plain pairs --------------------------------------------------------------------------------

struct PlainPair {
  const char16_t* Name;
  Variant Value;
};

const PlainPair plainPairs[] = {
    {u"DataSource", u"dtcDados"},
    {u"DataField", u"codigo"},
    {u"PosDataField", u"3"},
    {u"PesqCaption", u"a"},
    {u"PesqCampo", u"b"},
    {u"PesqMascara", u"c"},
    {u"PesqWidth", u"d"},
    {u"PesqTipo", u"e"},
    {u"PesqLike", u"f"},
    {u"PesqMaxLength", u"g"},
    {u"PesqCompletaDescr", u"h"},
    {u"PesqPromptInclude", u"i"},
    {u"TipoStrZero", Long{1}},
    {u"PromptInclude", yes},
    {u"ValorNegativo", yes},
    {u"MultiLine", yes},
    {u"PodeSerBranco", false},
    {u"eSocial", yes},
    {u"ObjetoCancelar", u"btnCancelar"},
    {u"UsaChecaRelacao", false},
    {u"DirVerArquivos", false},
    {u"DirPattern", u"*.txt"},
    {u"DirFilePath", u"C:\\Dados"},
    {u"DirFileName", u"a.txt"},
    {u"TipoDado", Long{7}},
    {u"LastValidaStatus", yes},
    {u"MsgBrowse", u"Nada"},
};

TEST_F(PropertiesTest, APlainPropertyStoresItsValueAndNotifiesItsName) {
  for (const PlainPair& pair : plainPairs) {
    SCOPED_TRACE(ToUtf8(pair.Name));
    const String before = field->txtEdit().Text();
    EXPECT_THAT(Told(pair.Name, pair.Value), ElementsAre(pair.Name));
    EXPECT_SAME(GetProperty(Control(), pair.Name), pair.Value);
    EXPECT_EQ(field->txtEdit().Text(), before);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_THAT(field->Events(), IsEmpty());
}

TEST_F(PropertiesTest, APropertyOfTheBoxReadsAndWritesTheBox) {
  auto& box = field->txtEdit();
  EXPECT_THAT(Told(u"Text", u"abcdef"), ElementsAre(u"Text"));
  EXPECT_EQ(box.Text(), u"abcdef");
  EXPECT_THAT(Told(u"SelStart", Long{2}), ElementsAre(u"SelStart"));
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_THAT(Told(u"SelLength", Long{3}), ElementsAre(u"SelLength"));
  EXPECT_EQ(box.SelText(), u"cde");
  EXPECT_THAT(Told(u"SelText", u"X"), ElementsAre(u"SelText"));
  EXPECT_EQ(box.Text(), u"abXf");
  EXPECT_THAT(Told(u"MaxLength", Long{9}), ElementsAre(u"MaxLength"));
  EXPECT_EQ(box.MaxLength(), 9);
  EXPECT_THAT(Told(u"PasswordChar", u"*"), ElementsAre(u"PasswordChar"));
  EXPECT_EQ(box.PasswordChar(), u"*");

  box.Text(u"direto");
  box.SelStart(1);
  box.SelLength(2);
  EXPECT_EQ(Control().Text(), u"direto");
  EXPECT_EQ(Control().SelStart(), 1);
  EXPECT_EQ(Control().SelLength(), 2);
  EXPECT_EQ(Control().SelText(), u"ir");
}

TEST_F(PropertiesTest, TheTextOfTheBoxHasNoEffectOnTheValue) {
  Control().Value(u"valor");
  Control().Text(u"outro");
  EXPECT_THAT(Control().Value(), IsValue(u"valor"));
  EXPECT_EQ(Control().Texto(), u"valor");
}

TEST_F(PropertiesTest, TheTypedTextIsStoredAndShown) {
  EXPECT_THAT(Told(u"Texto", u"abc"), ElementsAre(u"Texto"));
  EXPECT_EQ(Control().Texto(), u"abc");
  EXPECT_EQ(field->txtEdit().Text(), u"abc");
}

TEST_F(PropertiesTest, TheTypedTextIsShownAsPasswordCharacters) {
  Control().PasswordChar(u"*");
  Control().Texto(u"segredo");
  EXPECT_EQ(Control().Texto(), u"segredo");
  EXPECT_EQ(field->txtEdit().Text(), u"*******");
}

TEST_F(PropertiesTest, ColoursAndFontReachTheBox) {
  EXPECT_THAT(Told(u"BackColor", Long{0x00C0FFFF}), ElementsAre(u"BackColor"));
  EXPECT_EQ(field->txtEdit().BackColor(), 0x00C0FFFFu);
  EXPECT_EQ(field->SurfaceColour(), 0x00C0FFFFu);
  EXPECT_EQ(Control().BackColor(), 0x00C0FFFFu);

  const auto font = std::make_shared<host::Font>();
  font->Name = u"Arial";
  EXPECT_THAT(Told(u"Font", font), ElementsAre(u"Font"));
  EXPECT_EQ(field->txtEdit().Font(), *font);
}

TEST_F(PropertiesTest, ASystemColourIsANegativeNumber) {
  const auto face = static_cast<Long>(0x8000000F);
  LetProperty(Control(), u"BackColor", face);
  EXPECT_EQ(Control().BackColor(), 0x8000000Fu);
  EXPECT_SAME(GetProperty(Control(), u"BackColor"), face);
}

// --- The odd ones -------------------------------------------------------------------------------

TEST_F(PropertiesTest, ForecolorNotifiesForeColor) {
  EXPECT_THAT(Told(u"Forecolor", Long{255}), ElementsAre(u"ForeColor"));
  EXPECT_EQ(field->txtEdit().ForeColor(), 255u);
  EXPECT_EQ(Control().Forecolor(), 255u);
}

TEST_F(PropertiesTest, LabelAssociadoNotifiesANameThatNoPropertyHas) {
  EXPECT_THAT(Told(u"LabelAssociado", u"lblCampo"), ElementsAre(u"TxtLabelAssociado"));
  EXPECT_EQ(Control().LabelAssociado(), u"lblCampo");
  EXPECT_EQ(FindProperty(u"TxtLabelAssociado"), nullptr);
}

TEST_F(PropertiesTest, PromptCharKeepsTheFirstCharacterAndUpdatesTheItems) {
  Control().Mascara(u"00/00-00/0");
  EXPECT_THAT(Told(u"PromptChar", u"*#"), ElementsAre(u"PromptChar", u"ItensMascara"));
  EXPECT_EQ(Control().PromptChar(), u"*");
  EXPECT_EQ(Control().ItensMascara(), u"*/-");
  Control().PromptChar(u"");
  EXPECT_EQ(Control().PromptChar(), u"");
  EXPECT_EQ(Control().ItensMascara(), u"/-");
}

TEST_F(PropertiesTest, NumeroTabIsReadTrimmedAndStoredUnchanged) {
  EXPECT_THAT(Told(u"NumeroTab", u"  2 "), ElementsAre(u"NumeroTab"));
  EXPECT_EQ(Control().NumeroTab(), u"2");
  memory::PropertyBag bag;
  Control().UserControl_WriteProperties(bag);
  EXPECT_SAME(bag.ReadProperty(u"NumeroTab", {}), u"  2 ");
}

TEST_F(PropertiesTest, CalendarAndCalculatorTurnPromptIncludeOn) {
  for (const Long kind : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(kind);
    const auto fresh = AddField(u"txtTipo" + CStr(Variant(kind)));
    LetProperty(**fresh, u"TipoControle", kind);
    EXPECT_SAME(GetProperty(**fresh, u"TipoControle"), kind);
    EXPECT_EQ((*fresh)->PromptInclude(), kind == 2 || kind == 5);
    EXPECT_THAT(fresh->ChangedProperties(), Contains(u"TipoControle"));
  }
}

TEST_F(PropertiesTest, PromptIncludeStaysOnWhenTheKindGoesBackToNormal) {
  Control().TipoControle(TipoControle::Calculadora);
  Control().TipoControle(TipoControle::Normal);
  EXPECT_TRUE(Control().PromptInclude());
}

TEST_F(PropertiesTest, ClearLastValueAndLastValueSetTheValueThatChangesAreComparedWith) {
  Control().LastValue(u"7");
  Control().DisparaEventos(u"BrowseReturn");
  Control().ClearLastValue();
  Control().DisparaEventos(u"BrowseReturn");
  const auto returns = field->Events(Kind::BrowseReturn);
  ASSERT_EQ(returns.size(), 2u);
  EXPECT_THAT(returns[0].LastValue, IsValue(u"7"));
  EXPECT_THAT(returns[1].LastValue, IsEmptyVariant());
}

TEST_F(PropertiesTest, RefreshReturnsEmpty) { EXPECT_THAT(Control().Refresh(), IsEmptyVariant()); }

// --- Refusals -----------------------------------------------------------------------------------

TEST_F(PropertiesTest, NomeIsTheNameOnTheFormAndCannotBeAssigned) {
  for (int times = 0; times < 2; ++times) {
    Control().Nome(u"txtOutro");
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(memory::MessageBoxRecord{0, u"Propriedade Apenas Para Leitura",
                                                     host::box::Ok, u"Alerta!"}));
    EXPECT_EQ(Control().Nome(), u"txtCampo");
  }
  EXPECT_THAT(field->ChangedProperties(), Not(Contains(u"Nome")));
}

TEST_F(PropertiesTest, OriginalValueCannotBeAssigned) {
  for (int times = 0; times < 2; ++times) {
    Control().OriginalValue(u"outro");
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(StopBox(0, u"Propriedade Somente Para Leitura", u"Atenção !!!")));
    EXPECT_THAT(Control().OriginalValue(), IsEmptyVariant());
  }
  EXPECT_THAT(field->ChangedProperties(), Not(Contains(u"OriginalValue")));
}

// --- The window ---------------------------------------------------------------------------------

TEST_F(PropertiesTest, ThereIsNoWindowAtDesignTime) { EXPECT_EQ(Control().hWnd(), 0); }

class RunningPropertiesTest : public ControlTest {};

TEST_F(RunningPropertiesTest, TheWindowIsTheSurfacesOwnAtRunTime) {
  const auto first = AddField(u"txtUm");
  const auto second = AddField(u"txtDois");
  EXPECT_NE((*first)->hWnd(), 0);
  EXPECT_NE((*first)->hWnd(), (*second)->hWnd());
}

TEST_F(RunningPropertiesTest, RefusalsBelongToTheWindowAtRunTime) {
  const auto field = AddField(u"txtCampo");
  (*field)->OriginalValue(u"x");
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes()[0].Owner, (*field)->hWnd());
}

// --- For the library's own modules ------------------------------------------------------------

TEST_F(RunningPropertiesTest, OnlyAVisibleFormShowsAMessage) {
  const auto field = AddField(u"txtCampo");
  (*field)->MsgSeVisivel(u"texto", 64, u"título");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  form->Show();
  (*field)->MsgSeVisivel(u"texto", 64, u"título");
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(memory::MessageBoxRecord{
                                   (*field)->hWnd(), u"texto", host::box::Exclamation, u"título"}));
}

TEST_F(RunningPropertiesTest, TheBoundFieldIsFoundByNameAtEachCall) {
  const auto data = AddData({{u"nome"}}, {{u"Ana"}});
  const auto field = AddField(u"txtCampo");
  EXPECT_EQ((*field)->CampoVinculado(), nullptr);
  Bind(field, u"nome");
  form->Show();
  EXPECT_THAT((*field)->CampoVinculado()->Value(), IsValue(u"Ana"));
  (*field)->GravaValorCampo(u"Bia");
  EXPECT_THAT((*field)->CampoVinculado()->Value(), IsValue(u"Bia"));
  data->RecordSet()->CancelUpdate();
  data->Refresh();
  EXPECT_THAT((*field)->CampoVinculado()->Value(), IsValue(u"Ana"));
}

TEST_F(RunningPropertiesTest, FormAndContainerAreTheSurfacesOwn) {
  const auto field = AddField(u"txtCampo");
  EXPECT_EQ((*field)->FormDoControle(), form);
  EXPECT_EQ((*field)->ContainerDoControle(), form);
  const auto frame = form->Add<memory::Generic>(u"fraDados", u"Frame");
  field->Settings().Container = frame;
  EXPECT_EQ((*field)->ContainerDoControle(), frame);
}

// --- Definitions --------------------------------------------------------------------------------

const char16_t* const lookupTexts[] = {u"BrwTitulo",     u"BrowseTable",    u"BrwCampo",
                                       u"BrwCampoIrmao", u"BrwCampoOutros", u"BrwGroupBy",
                                       u"BrwLeftJoin",   u"BrwWhere"};

String OfDefinition(const Browse& browse, StringView name) {
  if (name == u"BrwTitulo") return browse.BrwTitulo();
  if (name == u"BrowseTable") return browse.BrowseTable();
  if (name == u"BrwCampo") return browse.BrwCampo();
  if (name == u"BrwCampoIrmao") return browse.BrwCampoIrmao();
  if (name == u"BrwCampoOutros") return browse.BrwCampoOutros();
  if (name == u"BrwGroupBy") return browse.BrwGroupBy();
  if (name == u"BrwLeftJoin") return browse.BrwLeftJoin();
  return browse.BrwWhere();
}

TEST_F(PropertiesTest, ALookupTextIsStoredInTheControlAndInItsDefinition) {
  for (const char16_t* name : lookupTexts) {
    SCOPED_TRACE(ToUtf8(name));
    EXPECT_THAT(Told(name, u"texto"), ElementsAre(name));
    EXPECT_SAME(GetProperty(Control(), name), u"texto");
    EXPECT_EQ(OfDefinition(*Control().Browse(), name), u"texto");
  }
}

TEST_F(PropertiesTest, AnEmptyLookupTextIsReadFromTheDefinition) {
  const auto definition = std::make_shared<Browse>();
  definition->BrwTitulo(u"BrwTitulo");
  definition->BrowseTable(u"BrowseTable");
  definition->BrwCampo(u"BrwCampo");
  definition->BrwCampoIrmao(u"BrwCampoIrmao");
  definition->BrwCampoOutros(u"BrwCampoOutros");
  definition->BrwGroupBy(u"BrwGroupBy");
  definition->BrwLeftJoin(u"BrwLeftJoin");
  definition->BrwWhere(u"BrwWhere");
  Control().Browse(definition);
  for (const char16_t* name : lookupTexts) EXPECT_SAME(GetProperty(Control(), name), name);
}

TEST_F(PropertiesTest, TheControlsOwnLookupTextOverridesTheDefinitions) {
  Control().BrwCampo(u"da propriedade");
  Control().Browse()->BrwCampo(u"da definição");
  EXPECT_EQ(Control().BrwCampo(), u"da propriedade");
  Control().BrwCampo(u"");
  EXPECT_EQ(Control().Browse()->BrwCampo(), u"");
}

TEST_F(PropertiesTest, TheDefinitionsAreCreatedOnFirstUseAndStay) {
  const auto browse = Control().Browse();
  const auto pesquisa = Control().Pesquisa();
  ASSERT_NE(browse, nullptr);
  ASSERT_NE(pesquisa, nullptr);
  EXPECT_EQ(Control().Browse(), browse);
  EXPECT_EQ(Control().Pesquisa(), pesquisa);
}

TEST_F(PropertiesTest, ADefinitionCanBeAssignedAndRemoved) {
  const auto browse = std::make_shared<Browse>();
  EXPECT_THAT(Told(u"Browse", browse), ElementsAre(u"Browse"));
  EXPECT_EQ(Control().Browse(), browse);
  EXPECT_THAT(Told(u"Browse", ObjectPtr()), ElementsAre(u"Browse"));
  EXPECT_NE(Control().Browse(), browse);

  const auto pesquisa = std::make_shared<Pesquisa>();
  EXPECT_THAT(Told(u"Pesquisa", pesquisa), ElementsAre(u"Pesquisa"));
  EXPECT_EQ(Control().Pesquisa(), pesquisa);
}

// --- By name ------------------------------------------------------------------------------------

TEST_F(PropertiesTest, ByNameInAnyCase) {
  LetProperty(Control(), u"pODEsERbRANCO", false);
  EXPECT_SAME(GetProperty(Control(), u"PODESERBRANCO"), false);
}

TEST_F(PropertiesTest, AValueOfAnotherTypeIsConverted) {
  LetProperty(Control(), u"TipoDado", u"7");
  EXPECT_EQ(Control().TipoDado(), 7);
  LetProperty(Control(), u"MultiLine", Long{1});
  EXPECT_TRUE(Control().MultiLine());
  LetProperty(Control(), u"MsgBrowse", 2.5);
  EXPECT_EQ(Control().MsgBrowse(), u"2,5");
}

TEST_F(PropertiesTest, ByNameErrors) {
  EXPECT_HOST_ERROR(GetProperty(Control(), u"NaoExiste"), 438);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"NaoExiste", u"x"), 438);
  EXPECT_HOST_ERROR(GetProperty(Control(), u"ItensMascara"), 438);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"ItensMascara", u"x"), 438);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"hWnd", Long{1}), 383);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"Carregou", true), 383);
  EXPECT_HOST_ERROR(GetProperty(Control(), u"LastValue"), 394);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"TipoDado", u"abc"), 13);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"PodeSerBranco", u"talvez"), 13);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"TipoDado", 3e9), 6);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"DataField", Variant::Null()), 94);
  EXPECT_HOST_ERROR(LetProperty(Control(), u"Browse", std::make_shared<Pesquisa>()), 13);
}

// An invalid assignment raises an error to the caller and changes nothing; no box is shown.
TEST_F(PropertiesTest, AFailedAssignmentStoresAndNotifiesNothing) {
  EXPECT_HOST_ERROR(LetProperty(Control(), u"TipoStrZero", u"abc"), 13);
  EXPECT_EQ(Control().TipoStrZero(), 2);
  EXPECT_THAT(field->ChangedProperties(), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
