// Fields described by a value in code: each member's property, the defaults, pairs.
#include "tessaria/field_settings.h"

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using Fields = std::vector<String>;

String Stored(const memory::TsText& field) {
  memory::PropertyBag bag;
  field->UserControl_WriteProperties(bag);
  return bag.Save();
}

class FieldSettingsTest : public ControlTest {
 protected:
  FieldPtr Make(const FieldSettings& settings) { return form->Add<memory::TsText>(settings); }
  static LookupSettings Cities() {
    return {.title = u"Cidades",
            .table = u"cidades",
            .columns = {{.field = u"codigo", .caption = u"Código", .width = 900},
                        {.field = u"nome", .caption = u"Nome"},
                        {.field = u"area", .caption = u"Área", .format = u"#,##0.00"},
                        {.field = u"uf", .visible = false}},
            .from = u"cidades left join estados on estados.uf = cidades.uf",
            .where = u"uf = '@uf@'",
            .groupBy = u"group by codigo",
            .searches = {{.caption = u"Nome", .field = u"nome", .completes = true},
                         {.caption = u"Fundada a partir de",
                          .field = u"fundacao",
                          .type = DataType::Date,
                          .comparison = Comparison::AtLeast},
                         {.caption = u"DDD",
                          .field = u"cast(ddd as integer)",
                          .type = DataType::Number,
                          .comparison = Comparison::Equal,
                          .mask = u"##",
                          .width = 900,
                          .maxLength = 2,
                          .isExpression = true,
                          .orderBy = u"ddd",
                          .number = 7}},
            .returnFields = {u"uf", u"ddd"}};
  }
};

/// One member, and the property that it becomes.
struct Member {
  const char* Name;
  FieldSettings Settings;
  const char16_t* Property;
  Variant Value;
};

class FieldMember : public ControlTest, public testing::WithParamInterface<Member> {};

TEST_P(FieldMember, BecomesItsProperty) {
  const auto field = form->Add<memory::TsText>(GetParam().Settings);
  EXPECT_THAT(field->Get(GetParam().Property), IsValue(GetParam().Value));
}

host::Font Courier() {
  host::Font font;
  font.Name = u"Courier";
  font.Size = 11;
  return font;
}

const Member kMembers[] = {
    {"kind", {.kind = TipoControle::Diretorio}, u"TipoControle", Long{4}},
    {"mask", {.mask = u"00000"}, u"Mascara", u"00000"},
    {"maxLength", {.maxLength = 40}, u"MaxLength", Long{40}},
    {"mayBeBlank", {.mayBeBlank = false}, u"PodeSerBranco", false},
    {"acceptsNegative", {.acceptsNegative = true}, u"ValorNegativo", true},
    {"enabled", {.enabled = false}, u"Enabled", false},
    {"type", {.type = DataType::Number}, u"TipoDado", Long{5}},
    {"typeText", {.kind = TipoControle::Calendario, .type = DataType::Text}, u"TipoDado", Long{1}},
    {"typeOfDates", {.kind = TipoControle::Calendario}, u"TipoDado", Long{7}},
    {"typeOfSums", {.kind = TipoControle::Calculadora}, u"TipoDado", Long{5}},
    {"promptInclude", {.promptInclude = true}, u"PromptInclude", true},
    {"promptOfDates", {.kind = TipoControle::Calendario}, u"PromptInclude", true},
    {"promptOfSums", {.kind = TipoControle::Calculadora}, u"PromptInclude", true},
    {"promptOff",
     {.kind = TipoControle::Calculadora, .promptInclude = false},
     u"PromptInclude",
     false},
    {"promptChar", {.promptChar = u"*"}, u"PromptChar", u"*"},
    {"passwordChar", {.passwordChar = u"#"}, u"PasswordChar", u"#"},
    {"zeroFill", {.zeroFill = ZeroFill::WholeText}, u"TipoStrZero", Long{1}},
    {"dataSource", {.dataSource = u"dtcDados"}, u"DataSource", u"dtcDados"},
    {"dataField", {.dataField = u"nome"}, u"DataField", u"nome"},
    {"sibling", {.sibling = u"txtNome"}, u"TxtIrmao", u"txtNome"},
    {"label", {.label = u"lblNome"}, u"LabelAssociado", u"lblNome"},
    {"cancelButton", {.cancelButton = u"btnSair"}, u"ObjetoCancelar", u"btnSair"},
    {"tab", {.tab = u"2"}, u"NumeroTab", u"2"},
    {"highlightsLabel", {.highlightsLabel = true}, u"eSocial", true},
    {"checksKey", {.checksKey = false}, u"UsaChecaRelacao", false},
    {"notFoundText", {.notFoundText = u"Nada"}, u"MsgBrowse", u"Nada"},
    {"picksFiles", {.picksFiles = false}, u"DirVerArquivos", false},
    {"filePattern", {.filePattern = u"*.txt"}, u"DirPattern", u"*.txt"},
    {"foreColor", {.foreColor = Colour{0xFF}}, u"Forecolor", Long{0xFF}},
    {"backColor", {.backColor = Colour{0xC0C0C0}}, u"BackColor", Long{0xC0C0C0}},
};

INSTANTIATE_TEST_SUITE_P(All, FieldMember, testing::ValuesIn(kMembers),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_F(FieldSettingsTest, TheFontIsTheBoxs) {
  const auto field = Make({.name = u"txtNome", .font = Courier()});
  EXPECT_EQ((*field)->Font().Name, u"Courier");
  EXPECT_EQ((*field)->Font().Size, 11);
}

TEST_F(FieldSettingsTest, OfDefaultsMakeAFieldThatIsLoadedFromAnEmptyBag) {
  const auto described = Make({.name = u"txtA"});
  const auto loaded = form->Add<memory::TsText>(u"txtB", memory::PropertyBag());
  EXPECT_EQ(Stored(*described), Stored(*loaded));
  EXPECT_EQ((*described)->Nome(), u"txtA");
}

TEST_F(FieldSettingsTest, OfAMaskRemoveItsLiterals) {
  const auto field = Make({.name = u"txtCPF", .mask = u"###.###.###-##"});
  const auto next = Make({.name = u"txtNome"});
  form->Show();
  field->txtEdit().SetFocus();
  form->Type(u"12345678909");
  EXPECT_EQ((*field)->Text(), u"123.456.789-09");
  next->txtEdit().SetFocus();
  EXPECT_THAT((*field)->Value(), IsValue(u"12345678909"));
}

TEST_F(FieldSettingsTest, LoadWithoutSideEffectsOrBoxes) {
  const auto field = Make({.name = u"txtData",
                           .kind = TipoControle::Calendario,
                           .enabled = false,
                           .label = u"lblQueNaoHa"});
  EXPECT_TRUE(field->Events().empty());
  EXPECT_TRUE(field->ChangedProperties().empty());
  EXPECT_EQ((*field)->LabelAssociado(), u"lblQueNaoHa");
}

TEST_F(FieldSettingsTest, OfALookupAreItsDefinition) {
  const auto field = Make({.name = u"txtCidade", .lookup = Cities()});
  const auto definition = (*field)->Browse();
  EXPECT_EQ(definition->BrwTitulo(), u"Cidades");
  EXPECT_EQ(definition->BrowseTable(), u"cidades");
  EXPECT_EQ(definition->BrwCampo(), u"codigo");
  EXPECT_EQ(definition->BrwCampoIrmao(), u"nome");
  EXPECT_EQ(definition->BrwCampoOutros(), u"area, uf");
  EXPECT_EQ(definition->BrwGroupBy(), u"group by codigo");
  EXPECT_EQ(definition->BrwLeftJoin(), u"cidades left join estados on estados.uf = cidades.uf");
  EXPECT_EQ(definition->BrwWhere(), u"uf = '@uf@'");
  ASSERT_EQ(definition->Outros().Count(), 2);
  EXPECT_EQ(definition->Outros().Item(2)->Nome(), u"ddd");
}

TEST_F(FieldSettingsTest, OfColumnsAreThoseOfTheList) {
  const auto field = Make({.name = u"txtCidade", .lookup = Cities()});
  const auto& columns = (*field)->Browse()->cgrColGrid();
  ASSERT_EQ(columns.Count(), 4);
  EXPECT_EQ(columns.Item(1)->Caption(), u"Código");
  EXPECT_EQ(columns.Item(1)->Width(), 900);
  EXPECT_EQ(columns.Item(2)->Width(), 1440);
  EXPECT_EQ(columns.Item(3)->Mascara(), u"#,##0.00");
  EXPECT_EQ(columns.Item(4)->Caption(), u"uf") << "a column without a caption has its field's name";
  EXPECT_FALSE(columns.Item(4)->Visible());
}

TEST_F(FieldSettingsTest, OfSearchesAreThoseOfTheList) {
  const auto field = Make({.name = u"txtCidade", .lookup = Cities()});
  const auto searches = (*field)->Pesquisa();
  ASSERT_EQ(searches->Count(), 3);
  EXPECT_EQ(searches->Item(1)->Indice(), 1);
  EXPECT_EQ(searches->Item(1)->Tipo(), 8);
  EXPECT_EQ(searches->Item(1)->Like(), 3);
  EXPECT_TRUE(searches->Item(1)->CompletaDescr());
  EXPECT_EQ(searches->Item(2)->Tipo(), 7);
  EXPECT_EQ(searches->Item(2)->Mascara(), u"dd/mm/yyyy");
  EXPECT_TRUE(searches->Item(2)->PromptInclude());
  EXPECT_EQ(searches->Item(3)->Indice(), 7);
  EXPECT_EQ(searches->Item(3)->Tipo(), 2);
  EXPECT_EQ(searches->Item(3)->Mascara(), u"##");
  EXPECT_EQ(searches->Item(3)->MaxLength(), 2);
  EXPECT_TRUE(searches->Item(3)->CampoPronto());
  EXPECT_EQ(searches->Item(3)->OrderBy(), u"ddd");
}

TEST_F(FieldSettingsTest, OfAPairNameEachOther) {
  const FieldPair pair =
      MakePair(Cities(), {.name = u"txtCidade", .label = u"lblCidade"}, {.name = u"txtNome"});
  EXPECT_EQ(pair.code.kind, TipoControle::Browse);
  EXPECT_EQ(pair.code.sibling, u"txtNome");
  EXPECT_EQ(pair.code.label, u"lblCidade");
  EXPECT_EQ(pair.description.kind, TipoControle::Descricao);
  EXPECT_EQ(pair.description.sibling, u"txtCidade");
  const auto description = MakeBrowse(pair.description.lookup);
  EXPECT_EQ(description->BrwCampo(), u"nome");
  EXPECT_EQ(description->BrwCampoIrmao(), u"codigo");
  EXPECT_EQ(description->BrwCampoOutros(), u"area, uf");
  EXPECT_EQ(description->cgrColGrid().Item(1)->Caption(), u"Nome");
  EXPECT_EQ(description->Outros().Count(), 0);
  EXPECT_EQ(MakePesquisa(pair.description.lookup)->Count(), 0);
}

TEST_F(FieldSettingsTest, OfAPairNeedTwoColumnsAndTwoNames) {
  LookupSettings keyOnly = Cities();
  keyOnly.columns.resize(1);
  const auto numberOf = [](auto make) {
    try {
      make();
    } catch (const HostError& error) {
      return error.Number();
    }
    return Long{0};
  };
  EXPECT_EQ(numberOf([&] { MakePair(keyOnly, {.name = u"a"}, {.name = u"b"}); }),
            errors::InvalidArgument);
  EXPECT_EQ(numberOf([&] { MakePair(Cities(), {}, {.name = u"b"}); }), errors::InvalidArgument);
  EXPECT_EQ(numberOf([&] { MakePair(Cities(), {.name = u"a"}, {}); }), errors::InvalidArgument);
}

}  // namespace
}  // namespace tessaria::test
