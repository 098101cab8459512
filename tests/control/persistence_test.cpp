// The two walks through the property bag, the start values and the end.

#include <functional>
#include <map>

#include "pickers/calculator.h"
#include "pickers/calendar.h"
#include "pickers/folder_picker.h"
#include "tessaria/text_property_bag.h"
#include "tests/control/control_fixture.h"
#include "tests/control/shared_values.h"
#include "tests/support/test_desktop.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Variant dash;                       // read: Empty is passed
const Variant none = Variant::Missing();  // write: no default is passed
const Variant nothing{ObjectPtr()};
const Variant ambientFont = u"the ambient font";

Variant Colour32(std::uint32_t colour) { return static_cast<Long>(colour); }

/// One stored key. The sample is a value that is neither a default nor a start value.
struct StoredKey {
  const char16_t* Name;  ///< as it is read
  int Read;
  int Write;
  Variant ReadDefault;
  Variant WriteDefault;
  Variant Sample;
};

const std::vector<StoredKey>& Keys() {
  static const Variant browse = std::make_shared<Browse>();
  static const Variant pesquisa = std::make_shared<Pesquisa>();
  static const std::vector<StoredKey> keys = {
      {u"TipoControle", 1, 1, Long{0}, Long{0}, Long{3}},
      {u"TxtIrmao", 2, 2, dash, none, u"txtNome"},
      {u"LabelAssociado", 3, 3, dash, none, u"lblCodigo"},
      {u"PodeSerBranco", 4, 4, yes, yes, no},
      {u"eSocial", 5, 5, no, no, yes},
      {u"ObjetoCancelar", 6, 6, dash, yes, u"btnCancelar"},
      {u"UsaChecaRelacao", 7, 7, yes, yes, no},
      {u"DirVerArquivos", 8, 8, yes, yes, no},
      {u"DirPattern", 9, 9, dash, none, u"*.txt"},
      {u"DirFilePath", 10, 10, dash, none, u"C:\\Dados"},
      {u"DirFileName", 11, 11, dash, none, u"lista.txt"},
      {u"NumeroTab", 12, 12, dash, none, u"2"},
      {u"TipoDado", 13, 13, Long{1}, Long{1}, Long{5}},
      {u"DataSource", 14, 15, dash, none, u"dtcDados"},
      {u"DataField", 15, 16, dash, none, u"codigo"},
      {u"PosDataField", 16, 17, dash, none, u"4"},
      {u"Browse", 17, 18, nothing, nothing, browse},
      {u"BrwTitulo", 18, 19, dash, none, u"Clientes"},
      {u"BrowseTable", 19, 20, dash, none, u"clientes"},
      {u"BrwCampo", 20, 21, dash, none, u"id"},
      {u"BrwCampoIrmao", 21, 22, dash, none, u"nome"},
      {u"BrwCampoOutros", 22, 23, dash, none, u"cidade, uf"},
      {u"BrwGroupBy", 23, 24, dash, none, u"Group By id"},
      {u"BrwLeftJoin", 24, 25, dash, none, u"clientes Left Join cidades"},
      {u"BrwWhere", 25, 26, dash, none, u"ativo = 1"},
      {u"Value", 26, 32, dash, none, 12.5},
      {u"Texto", 27, 33, dash, none, u"texto cru"},
      {u"MultiLine", 28, 34, no, no, yes},
      {u"Mascara", 29, 27, dash, none, u"00/00"},
      {u"TipoStrZero", 30, 28, Long{2}, Long{2}, Long{1}},
      {u"ItensMascara", 31, 29, dash, none, u"quaisquer"},
      {u"PromptInclude", 32, 30, no, no, yes},
      {u"PromptChar", 33, 31, u"_", u"_", u"*#"},
      {u"Pesquisa", 34, 35, nothing, nothing, pesquisa},
      {u"PesqCaption", 35, 36, dash, none, u"legenda"},
      {u"PesqCampo", 36, 37, dash, none, u"campo"},
      {u"PesqMascara", 37, 38, dash, none, u"mascara"},
      {u"PesqWidth", 38, 39, dash, none, u"1200"},
      {u"PesqTipo", 39, 40, dash, none, u"S"},
      {u"PesqLike", 40, 41, dash, none, u"F"},
      {u"PesqMaxLength", 41, 42, dash, none, u"30"},
      {u"PesqCompletaDescr", 42, 43, dash, none, u"-1"},
      {u"PesqPromptInclude", 43, 44, dash, none, u"0"},
      {u"valorNegativo", 44, 14, no, no, yes},
      {u"BackColor", 45, 45, Colour32(0x80000005), Colour32(0x80000005), Colour32(0x00C0FFFF)},
      {u"ForeColor", 46, 47, Colour32(0x80000008), Colour32(0x80000008), Colour32(0x000000FF)},
      {u"MaxLength", 47, 48, Integer{0}, Integer{0}, Integer{40}},
      {u"SelLength", 48, 49, Integer{0}, Integer{0}, Integer{2}},
      {u"SelStart", 49, 50, Integer{0}, Integer{0}, Integer{1}},
      {u"SelText", 50, 51, dash, none, u"el"},
      {u"Enabled", 51, 52, yes, yes, no},
      {u"Text", 52, 53, dash, none, u"na caixa"},
      {u"PasswordChar", 53, 54, dash, none, u"*"},
      {u"Font", 54, 46, ambientFont, ambientFont, ambientFont},
      {u"MsgBrowse", 55, 55, u"", u"", u"Nada encontrado"},
  };
  return keys;
}

bool IsSelection(const StoredKey& key) { return StartsWith(key.Name, u"Sel"); }
bool IsFont(const StoredKey& key) { return StringView(key.Name) == u"Font"; }
/// Reading one of the two definitions creates it.
bool IsMadeOnNeed(const StoredKey& key) {
  const StringView name = key.Name;
  return name == u"Browse" || name == u"Pesquisa";
}
String WriteName(const StoredKey& key) {
  return StringView(key.Name) == u"valorNegativo" ? u"ValorNegativo" : key.Name;
}

std::vector<StoredKey> InOrder(int StoredKey::*position) {
  std::vector<StoredKey> walk(Keys().size());
  for (const StoredKey& key : Keys()) walk.at(static_cast<std::size_t>(key.*position) - 1) = key;
  return walk;
}

/// What the key's target holds now.
Variant Target(const tsText& control, const StoredKey& key) {
  if (StringView(key.Name) == u"ItensMascara") return control.ItensMascara();
  const Variant held = GetProperty(control, key.Name);
  // A length is a Long for programs.
  const bool isShort = key.Sample.Type() == Variant::Kind::Integer;
  return isShort ? Variant(static_cast<Integer>(*held.TryGet<Long>())) : held;
}

/// A bag that compares keys exactly, notes every call and fails at a key on demand.
class RecordingBag final : public host::PropertyBag {
 public:
  struct Call {
    String Name;
    Variant Default;
  };

  Variant ReadProperty(const String& name, const Variant& byDefault) const override {
    reads_.push_back({name, byDefault});
    if (name == FailsAt) throw HostError(errors::TypeMismatch);
    const auto stored = values_.find(name);
    return stored == values_.end() ? byDefault : stored->second;
  }
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override {
    writes_.push_back({name, byDefault});
    if (name == FailsAt) throw HostError(errors::TypeMismatch);
    values_[name] = value;
  }

  void Put(const String& name, const Variant& value) { values_[name] = value; }
  Variant At(const String& name) const { return values_.at(name); }
  const std::vector<Call>& Reads() const { return reads_; }
  const std::vector<Call>& Writes() const { return writes_; }

  String FailsAt;

 private:
  std::map<String, Variant> values_;
  mutable std::vector<Call> reads_;
  std::vector<Call> writes_;
};

void ExpectDefault(const Variant& actual, const Variant& expected, const host::Font& ambient) {
  if (Same(expected, ambientFont))
    EXPECT_EQ(*actual.As<host::Font>(), ambient);
  else
    EXPECT_SAME(actual, expected);
}

class PersistenceTest : public ControlTest {
 protected:
  PersistenceTest() : field(AddField(u"txtCampo")) {}

  tsText& Control() { return **field; }
  void FillBag() {
    for (const StoredKey& key : Keys())
      if (!IsFont(key) && !IsSelection(key)) bag.Put(key.Name, key.Sample);
  }

  FieldPtr field;
  RecordingBag bag;
};

TEST_F(PersistenceTest, ReadsTheKeysInTheirOrderWithTheirDefaults) {
  const host::Font ambient = memory::TextBox().Font();
  Control().UserControl_ReadProperties(bag);
  const auto walk = InOrder(&StoredKey::Read);
  ASSERT_EQ(bag.Reads().size(), walk.size());
  for (std::size_t i = 0; i < walk.size(); ++i) {
    SCOPED_TRACE(ToUtf8(walk[i].Name));
    EXPECT_EQ(bag.Reads()[i].Name, walk[i].Name);
    ExpectDefault(bag.Reads()[i].Default, walk[i].ReadDefault, ambient);
  }
}

TEST_F(PersistenceTest, WritesTheKeysInTheirOrderWithTheirDefaults) {
  const host::Font ambient = memory::TextBox().Font();
  Control().UserControl_WriteProperties(bag);
  const auto walk = InOrder(&StoredKey::Write);
  ASSERT_EQ(bag.Writes().size(), walk.size());
  for (std::size_t i = 0; i < walk.size(); ++i) {
    SCOPED_TRACE(ToUtf8(walk[i].Name));
    EXPECT_EQ(bag.Writes()[i].Name, WriteName(walk[i]));
    ExpectDefault(bag.Writes()[i].Default, walk[i].WriteDefault, ambient);
  }
}

TEST_F(PersistenceTest, EachKeyFillsItsTarget) {
  for (const StoredKey& key : Keys()) {
    if (IsSelection(key) || IsFont(key)) continue;
    SCOPED_TRACE(ToUtf8(key.Name));
    RecordingBag one;
    one.Put(key.Name, key.Sample);
    Control().UserControl_ReadProperties(one);
    EXPECT_SAME(Target(Control(), key), key.Sample);
  }
}

TEST_F(PersistenceTest, AnEmptyBagPutsEveryTargetAtItsDefault) {
  FillBag();
  Control().UserControl_ReadProperties(bag);
  Control().UserControl_ReadProperties(RecordingBag());
  for (const StoredKey& key : Keys()) {
    SCOPED_TRACE(ToUtf8(key.Name));
    if (IsFont(key) || IsMadeOnNeed(key)) continue;
    const bool isText = key.Sample.IsString();
    const Variant expected = isText && key.ReadDefault.IsEmpty() ? u"" : key.ReadDefault;
    EXPECT_SAME(Target(Control(), key), expected);
  }
}

TEST_F(PersistenceTest, EachTargetIsWrittenUnderItsKey) {
  FillBag();
  Control().UserControl_ReadProperties(bag);
  RecordingBag written;
  Control().UserControl_WriteProperties(written);
  for (const StoredKey& key : Keys()) {
    if (IsSelection(key) || IsFont(key)) continue;
    SCOPED_TRACE(ToUtf8(key.Name));
    EXPECT_SAME(written.At(WriteName(key)), key.Sample);
  }
}

TEST_F(PersistenceTest, TheFontIsStoredAsAnObject) {
  const auto font = std::make_shared<host::Font>();
  font->Name = u"Arial";
  font->Size = 12;
  font->Italic = true;
  bag.Put(u"Font", font);
  Control().UserControl_ReadProperties(bag);
  EXPECT_EQ(field->txtEdit().Font(), *font);
  RecordingBag written;
  Control().UserControl_WriteProperties(written);
  EXPECT_EQ(*written.At(u"Font").As<host::Font>(), *font);
}

TEST_F(PersistenceTest, ALengthThatDoesNotFitIntoAnIntegerIsStoredAsALongAndBothAreRead) {
  for (const Long length : {32767, 32768, 2000000000}) {
    field->txtEdit().MaxLength(length);
    RecordingBag written;
    Control().UserControl_WriteProperties(written);
    const Variant stored = written.At(u"MaxLength");
    EXPECT_EQ(stored.Type(), length > 32767 ? Variant::Kind::Long : Variant::Kind::Integer);
    EXPECT_EQ((*AddStored(u"txtLido", {{u"MaxLength", stored}}))->MaxLength(), length);
    form->Remove(u"txtLido");
  }
  EXPECT_EQ((*AddStored(u"txtAntigo", {{u"MaxLength", Long{7}}}))->MaxLength(), 7);
}

// The selection is read before the text, whose assignment clears it.
TEST_F(PersistenceTest, TheSelectionIsStoredButLostOnReading) {
  field->txtEdit().Text(u"abcdef");
  field->txtEdit().SelStart(2);
  field->txtEdit().SelLength(3);
  Control().UserControl_WriteProperties(bag);
  EXPECT_SAME(bag.At(u"SelStart"), Integer{2});
  EXPECT_SAME(bag.At(u"SelLength"), Integer{3});
  EXPECT_SAME(bag.At(u"SelText"), u"cde");

  const auto loaded = form->Add<memory::TsText>(u"txtOutro", bag);
  EXPECT_EQ(loaded->txtEdit().Text(), u"abcdef");
  EXPECT_EQ(loaded->txtEdit().SelStart(), 0);
  EXPECT_EQ(loaded->txtEdit().SelLength(), 0);
}

TEST_F(PersistenceTest, StoringAgainWritesTheSameLines) {
  FillBag();
  bag.Put(u"Browse", nothing);
  bag.Put(u"Pesquisa", nothing);
  Control().UserControl_ReadProperties(bag);
  Control().Browse()->BrwTitulo(u"Da definição");
  Control().Pesquisa()->Add(0, u"Nome", u"nome", 8, 1, u"", 0, 0, true, false, 0, 0, u"");
  const TextPropertyBag::Factories factories = {
      {u"Browse", [] { return std::make_shared<Browse>(); }},
      {u"Pesquisa", [] { return std::make_shared<Pesquisa>(); }}};
  TextPropertyBag first(factories);
  Control().UserControl_WriteProperties(first);

  const auto loaded = form->Add<memory::TsText>(u"txtOutro", first);
  EXPECT_EQ((*loaded)->Browse()->BrwTitulo(), u"Da definição");
  ASSERT_EQ((*loaded)->Pesquisa()->Count(), 1);
  TextPropertyBag second(factories);
  (*loaded)->UserControl_WriteProperties(second);
  EXPECT_EQ(first.Save(), second.Save());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- The asymmetries ----------------------------------------------------------------------------

TEST_F(PersistenceTest, TheSignSurvivesOnlyInABagThatIgnoresCase) {
  Control().ValorNegativo(true);
  TextPropertyBag ignoresCase;
  Control().UserControl_WriteProperties(bag);
  EXPECT_SAME(bag.At(u"ValorNegativo"), true);
  ignoresCase.WriteProperty(u"ValorNegativo", true, false);

  const auto exact = form->Add<memory::TsText>(u"txtExato", bag);
  EXPECT_FALSE((*exact)->ValorNegativo());
  const auto loaded = form->Add<memory::TsText>(u"txtOutro", ignoresCase);
  EXPECT_TRUE((*loaded)->ValorNegativo());
}

TEST_F(PersistenceTest, AnEmptyObjetoCancelarIsAlsoStored) {
  TextPropertyBag stored({{u"Browse", [] { return std::make_shared<Browse>(); }}});
  Control().UserControl_WriteProperties(stored);
  const String lines = stored.Save();
  EXPECT_NE(lines.find(u"\nObjetoCancelar=String:\n"), String::npos) << ToUtf8(lines);
  for (const char16_t* blank : {u"TxtIrmao", u"LabelAssociado", u"DirPattern", u"Mascara", u"Text"})
    EXPECT_EQ(lines.find(String(u"\n") + blank + u"="), String::npos) << ToUtf8(blank);
}

TEST_F(PersistenceTest, ReadingHasNoSideEffectsOfAssignment) {
  FillBag();
  bag.Put(u"TipoControle", Long{4});  // a path whose text has no separator
  const auto loaded = form->Add<memory::TsText>(u"txtOutro", bag);
  EXPECT_THAT(loaded->ChangedProperties(), IsEmpty());
  EXPECT_THAT(loaded->Events(), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
  // The mask is not compiled again, and the fill character is not cut to one.
  EXPECT_EQ((*loaded)->ItensMascara(), u"quaisquer");
  EXPECT_EQ((*loaded)->PromptChar(), u"*#");
  // Value, typed text and box are read independently, as they were stored.
  EXPECT_THAT((*loaded)->Value(), IsValue(12.5));
  EXPECT_EQ((*loaded)->Texto(), u"texto cru");
  EXPECT_EQ(loaded->txtEdit().Text(), u"na caixa");
  EXPECT_EQ((*loaded)->DirFilePath(), u"C:\\Dados");
  EXPECT_EQ((*loaded)->DirFileName(), u"lista.txt");
}

TEST_F(PersistenceTest, ReadingAKindDoesNotTurnPromptIncludeOn) {
  bag.Put(u"TipoControle", Long{5});
  Control().UserControl_ReadProperties(bag);
  EXPECT_EQ(Control().TipoControle(), TipoControle::Calculadora);
  EXPECT_FALSE(Control().PromptInclude());
}

TEST_F(PersistenceTest, WritingReadsTheLooksFromTheBox) {
  auto& box = field->txtEdit();
  box.BackColor(0x010203);
  box.ForeColor(0x040506);
  box.MaxLength(7);
  box.Text(u"direto");
  box.PasswordChar(u"#");
  box.Enabled(false);
  Control().UserControl_WriteProperties(bag);
  EXPECT_SAME(bag.At(u"BackColor"), Long{0x010203});
  EXPECT_SAME(bag.At(u"ForeColor"), Long{0x040506});
  EXPECT_SAME(bag.At(u"MaxLength"), Integer{7});
  EXPECT_SAME(bag.At(u"Text"), u"direto");
  EXPECT_SAME(bag.At(u"PasswordChar"), u"#");
  EXPECT_SAME(bag.At(u"Enabled"), false);
}

TEST_F(PersistenceTest, WritingCreatesTheBrowseDefinitionButNotTheSearches) {
  Control().UserControl_WriteProperties(bag);
  const auto browse = bag.At(u"Browse").As<Browse>();
  EXPECT_EQ(browse, Control().Browse());
  EXPECT_SAME(bag.At(u"Pesquisa"), nothing);
}

TEST_F(PersistenceTest, SearchesAreStoredIfAssignedOrFilled) {
  Control().Pesquisa();  // reading the list does not change it
  Control().UserControl_WriteProperties(bag);
  EXPECT_SAME(bag.At(u"Pesquisa"), nothing);

  const auto given = std::make_shared<Pesquisa>();
  Control().Pesquisa(given);
  Control().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.At(u"Pesquisa").As<Pesquisa>(), given);

  Control().Pesquisa(nullptr);
  Control().Pesquisa()->Add(0, u"Nome", u"nome", 8, 1, u"", 0, 0, true, false, 0, 0, u"");
  Control().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.At(u"Pesquisa").As<Pesquisa>(), Control().Pesquisa());
}

TEST_F(PersistenceTest, StatusAndValuesForComparisonAreNotStored) {
  for (const char16_t* name : {u"LastValidaStatus", u"OriginalValue", u"LastValue"}) {
    SCOPED_TRACE(ToUtf8(name));
    const Property* property = FindProperty(name);
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property->Stored.ReadPosition, 0);
    EXPECT_EQ(property->Stored.WritePosition, 0);
  }
}

// --- Failures -----------------------------------------------------------------------------------

TEST_F(PersistenceTest, AfterAFailedReadTheLaterKeysKeepTheirStartValues) {
  FillBag();
  for (const StoredKey& failing : Keys()) {
    SCOPED_TRACE(ToUtf8(failing.Name));
    const auto fresh = AddField(String(u"txt") + failing.Name);
    std::map<int, Variant> before;
    for (const StoredKey& key : Keys())
      if (key.Read >= failing.Read && !IsMadeOnNeed(key)) before[key.Read] = Target(**fresh, key);
    bag.FailsAt = failing.Name;
    (*fresh)->UserControl_ReadProperties(bag);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(ErrorBox(HostError(13), u"UserControl_ReadProperties")));
    for (const StoredKey& key : Keys()) {
      if (IsSelection(key) || IsFont(key) || IsMadeOnNeed(key)) continue;
      SCOPED_TRACE(ToUtf8(key.Name));
      const bool wasRead = key.Read < failing.Read;
      EXPECT_SAME(Target(**fresh, key), wasRead ? key.Sample : before[key.Read]);
    }
  }
}

TEST_F(PersistenceTest, AValueOfTheWrongTypeFailsTheReadAtItsKey) {
  bag.Put(u"PodeSerBranco", u"talvez");
  bag.Put(u"TxtIrmao", u"txtNome");
  bag.Put(u"NumeroTab", u"3");
  Control().UserControl_ReadProperties(bag);
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(13), u"UserControl_ReadProperties")));
  EXPECT_EQ(Control().TxtIrmao(), u"txtNome");
  EXPECT_EQ(Control().NumeroTab(), u"");
}

TEST_F(PersistenceTest, AFailedWriteIsReportedAndEndsTheWalk) {
  bag.FailsAt = u"Mascara";
  Control().UserControl_WriteProperties(bag);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(13), u"UserControl_WriteProperties")));
  EXPECT_EQ(bag.Writes().size(), 27u);
}

// --- Beginning and end --------------------------------------------------------------------------

TEST_F(PersistenceTest, ANewControlStartsFromTheTable) {
  FillBag();
  Control().UserControl_ReadProperties(bag);
  Control().UserControl_InitProperties();
  EXPECT_EQ(Control().TipoControle(), TipoControle::Normal);
  EXPECT_TRUE(Control().PodeSerBranco());
  EXPECT_FALSE(Control().eSocial());
  EXPECT_TRUE(Control().UsaChecaRelacao());
  EXPECT_TRUE(Control().DirVerArquivos());
  EXPECT_EQ(Control().TipoDado(), 1);
  EXPECT_FALSE(Control().MultiLine());
  EXPECT_FALSE(Control().PromptInclude());
  EXPECT_EQ(Control().PromptChar(), u"_");
  EXPECT_EQ(Control().TipoStrZero(), 2);
  EXPECT_TRUE(Control().Font().Bold);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(PersistenceTest, OnlyANewControlIsBold) {
  EXPECT_TRUE((*AddField(u"txtNovo"))->Font().Bold);
  EXPECT_FALSE((*form->Add<memory::TsText>(u"txtLido", bag))->Font().Bold);
}

TEST_F(PersistenceTest, ANewControlStoresNoFontButBold) {
  TextPropertyBag stored({{u"Browse", [] { return std::make_shared<Browse>(); }}});
  Control().UserControl_WriteProperties(stored);
  const auto font = stored.ReadProperty(u"Font", Variant::Missing()).As<host::Font>();
  EXPECT_EQ(font->Name, u"");
  EXPECT_EQ(font->Size, 0);
  EXPECT_TRUE(font->Bold);

  const auto loaded = form->Add<memory::TsText>(u"txtOutro", stored);
  EXPECT_EQ((*loaded)->Font(), Control().Font());
  TextPropertyBag again({{u"Browse", [] { return std::make_shared<Browse>(); }}});
  (*loaded)->UserControl_WriteProperties(again);
  EXPECT_EQ(again.Save(), stored.Save());
}

TEST_F(PersistenceTest, AKindOutOfRangeIsKeptAndBehavesLikeAPlainField) {
  for (const Long kind : {-1, 6, 99, 2147483647}) {
    const auto odd = AddStored(u"txt" + CStr(Variant(kind)), {{u"TipoControle", kind}});
    (*odd)->UserControl_Show();
    EXPECT_FALSE(odd->btnBrowse().Visible());
    EXPECT_SAME(GetProperty(**odd, u"TipoControle"), kind);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(PersistenceTest, AControlCountsAsLoadedBeforeItsFirstShow) {
  EXPECT_TRUE(Control().Carregou());
}

TEST_F(PersistenceTest, TheEndReleasesBothDefinitions) {
  const std::weak_ptr<Browse> browse = Control().Browse();
  const std::weak_ptr<Pesquisa> pesquisa = Control().Pesquisa();
  Control().UserControl_Terminate();
  EXPECT_TRUE(browse.expired());
  EXPECT_TRUE(pesquisa.expired());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// All controls share the dialogs: destroying any control closes them.
TEST_F(PersistenceTest, TheEndReleasesTheSharedDialogs) {
  TestDesktop desktop;
  State().frmCalendario = std::make_shared<frmCalendario>();
  State().frmCalculadora = std::make_shared<frmCalculadora>();
  State().frmDiretorio = std::make_shared<frmDiretorio>();
  (*AddField(u"txtOutro"))->UserControl_Terminate();
  EXPECT_EQ(State().frmCalendario, nullptr);
  EXPECT_EQ(State().frmCalculadora, nullptr);
  EXPECT_EQ(State().frmDiretorio, nullptr);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
