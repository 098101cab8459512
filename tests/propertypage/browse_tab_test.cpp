// The tab "Browse" of the property page: the definition of the lookup.
#include "tessaria/memory/property_bag.h"
#include "tessaria/tstext.h"
#include "tests/propertypage/page_fixture.h"

namespace tessaria::test {
namespace {

constexpr const char16_t* kFields[] = {u"BrwTitulo",     u"BrowseTable",    u"BrwCampo",
                                       u"BrwCampoIrmao", u"BrwCampoOutros", u"BrwGroupBy",
                                       u"BrwLeftJoin",   u"BrwWhere"};
constexpr Long kYes = host::answer::Yes;
constexpr Long kNo = host::answer::No;

class BrowseTab : public PageTest {
 protected:
  BrowseTab() {
    code->Let(u"TipoControle", Long{1});
    description->Let(u"TipoControle", Long{3});
  }
  void Enter() { surface->ClickTab(u"tabPropriedade", 1); }
  static String BoxOf(const String& field) { return u"txt" + field; }
  static void AddColumns(memory::TsText& field, Long count) {
    for (Long i = 1; i <= count; ++i) {
      const String number = CStr(i);
      DefinitionOf(field).cgrColGrid().Add(u"campo" + number, u"Título " + number, u"0",
                                           static_cast<float>(100 * i), i != 2);
    }
  }
  static std::vector<String> ColumnsOf(memory::TsText& field) {
    std::vector<String> columns;
    const ListaColunas& list = DefinitionOf(field).cgrColGrid();
    for (Long i = 1; i <= list.Count(); ++i) columns.push_back(list.Item(i)->Campo());
    return columns;
  }
};

TEST_F(BrowseTab, TheBoxesShowTheDefinition) {
  Browse& definition = DefinitionOf(*code);
  definition.BrwTitulo(u"Clientes");
  definition.BrowseTable(u"cliente");
  definition.BrwCampo(u"codigo");
  definition.BrwCampoIrmao(u"nome");
  definition.BrwCampoOutros(u"cidade");
  definition.BrwGroupBy(u"Group By codigo");
  definition.BrwLeftJoin(u"cliente Left Join x on y");
  definition.BrwWhere(u"ativo = 1");
  Open({code});
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Clientes");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"codigo");
  EXPECT_EQ(Text(u"txtBrwCampoIrmao"), u"nome");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"cidade");
  EXPECT_EQ(Text(u"txtBrwGroupBy"), u"Group By codigo");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), u"cliente Left Join x on y");
  EXPECT_EQ(Text(u"txtBrwWhere"), u"ativo = 1");
}

TEST_F(BrowseTab, EachTextIsInTheDefinitionAtOnce) {
  Open({code});
  Enter();
  for (const auto* field : kFields) {
    site.changed = false;
    Type(BoxOf(field), String(u"x") + field);
    EXPECT_TRUE(site.changed);
  }
  const Browse& definition = DefinitionOf(*code);
  EXPECT_EQ(definition.BrwTitulo(), u"xBrwTitulo");
  EXPECT_EQ(definition.BrowseTable(), u"xBrowseTable");
  EXPECT_EQ(definition.BrwCampo(), u"xBrwCampo");
  EXPECT_EQ(definition.BrwCampoIrmao(), u"xBrwCampoIrmao");
  EXPECT_EQ(definition.BrwCampoOutros(), u"xBrwCampoOutros");
  EXPECT_EQ(definition.BrwGroupBy(), u"xBrwGroupBy");
  EXPECT_EQ(definition.BrwLeftJoin(), u"xBrwLeftJoin");
  EXPECT_EQ(definition.BrwWhere(), u"xBrwWhere");
}

// --- Flat properties of an old control

TEST_F(BrowseTab, TextsThatAProgramHasAssignedAreShown) {
  for (const auto* field : kFields) code->Let(field, String(u"velho ") + field);
  Open({code});
  for (const auto* field : kFields) EXPECT_EQ(Text(BoxOf(field)), String(u"velho ") + field);
  Apply();
  EXPECT_EQ(DefinitionOf(*code).BrowseTable(), u"velho BrowseTable");
  EXPECT_EQ(DefinitionOf(*code).BrwWhere(), u"velho BrwWhere");
}

// --- Buttons

TEST_F(BrowseTab, EnteringTheTabDecidesWhichButtonsCanBePressed) {
  Open({code});
  Enter();
  EXPECT_TRUE(IsEnabled(u"btnSql"));
  EXPECT_FALSE(IsEnabled(u"btnGrid"));
  AddColumns(*code, 1);
  Type(u"txtBrowseTable", u"cliente");
  surface->ClickTab(u"tabPropriedade", 0);
  Enter();
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  EXPECT_TRUE(IsEnabled(u"btnGrid"));
}

TEST_F(BrowseTab, AClickOnTheTabInFrontDecidesNothing) {
  Open({code});
  Enter();
  AddColumns(*code, 1);
  Enter();
  EXPECT_FALSE(IsEnabled(u"btnGrid"));
}

TEST_F(BrowseTab, TheWizardIsForADefinitionWithoutTableAndKey) {
  Open({code});
  Enter();
  Type(u"txtBrowseTable", u"cliente");
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  Type(u"txtBrwCampo", u"codigo");
  Type(u"txtBrowseTable", u"");
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  Type(u"txtBrwCampo", u"");
  EXPECT_TRUE(IsEnabled(u"btnSql"));
}

TEST_F(BrowseTab, ClearingAsksAndEmptiesTheListsOnly) {
  AddColumns(*code, 3);
  DefinitionOf(*code).Outros().Add(u"cidade");
  DefinitionOf(*code).BrowseTable(u"cliente");
  SearchesOf(*code).Add(1, u"Nome", u"nome", 8, 1, u"", 0, 0, false, false, 0, 0, u"");
  Open({code});
  Enter();
  app.WillAnswer(kNo);
  surface->Click(u"btnLimpar");
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].Text, u"Confirma a Limpeza das Propriedades: 'Grid' e 'Pesquisa'");
  EXPECT_EQ(boxes[0].Title, u"Alerta!");
  EXPECT_EQ(boxes[0].Style & host::box::YesNo, host::box::YesNo);
  EXPECT_EQ(ColumnsOf(*code).size(), 3U);
  EXPECT_EQ(SearchesOf(*code).Count(), 1);
  EXPECT_FALSE(site.changed);

  app.WillAnswer(kYes);
  surface->Click(u"btnLimpar");
  app.TakeBoxes();
  EXPECT_EQ(ColumnsOf(*code).size(), 0U);
  EXPECT_EQ(SearchesOf(*code).Count(), 0);
  EXPECT_EQ(DefinitionOf(*code).Outros().Count(), 0);
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente") << "the boxes stay";
  EXPECT_TRUE(site.changed);
  surface->ClickTab(u"tabPropriedade", 0);
  Enter();
  EXPECT_FALSE(IsEnabled(u"btnGrid"));
}

// --- The sibling's definition

class CopiedDefinition : public BrowseTab {
 protected:
  CopiedDefinition() {
    Browse& its = DefinitionOf(*code);
    its.BrwTitulo(u"Clientes");
    its.BrowseTable(u"cliente");
    its.BrwCampo(u"codigo");
    its.BrwCampoIrmao(u"nome");
    its.BrwCampoOutros(u"cidade");
    its.BrwGroupBy(u"codigo, nome");
    its.BrwLeftJoin(u"cliente left join cidade on cidade.id = cliente.cidade");
    its.BrwWhere(u"ativo = 1");
  }
};

TEST_F(CopiedDefinition, ADescriptionLooksAtTheTableFromItsOtherEnd) {
  AddColumns(*code, 4);
  Open({description});
  Choose(u"txtTxtIrmao", u"codCliente");
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Clientes");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"nome");
  EXPECT_EQ(Text(u"txtBrwCampoIrmao"), u"codigo");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"cidade");
  EXPECT_EQ(Text(u"txtBrwGroupBy"), u"codigo, nome");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), u"cliente left join cidade on cidade.id = cliente.cidade");
  EXPECT_EQ(Text(u"txtBrwWhere"), u"ativo = 1");
  EXPECT_EQ(DefinitionOf(*description).BrwCampo(), u"nome");
  EXPECT_EQ(ColumnsOf(*description),
            (std::vector<String>{u"campo2", u"campo1", u"campo3", u"campo4"}));
  const auto second = DefinitionOf(*description).cgrColGrid().Item(1);
  EXPECT_EQ(second->Caption(), u"Título 2");
  EXPECT_EQ(second->Mascara(), u"0");
  EXPECT_EQ(second->Width(), 200);
  EXPECT_FALSE(second->Visible());
  EXPECT_TRUE(site.changed);
}

TEST_F(CopiedDefinition, ColumnsThatAreThereStayAndTheBoxesAreOverwritten) {
  AddColumns(*code, 3);
  AddColumns(*description, 1);
  Open({description});
  Choose(u"txtTxtIrmao", u"codCliente");
  EXPECT_EQ(ColumnsOf(*description), (std::vector<String>{u"campo1"}));
  surface->ClickTab(u"tabPropriedade", 1);
  Type(u"txtBrwTitulo", u"Outro");
  surface->ClickTab(u"tabPropriedade", 0);
  surface->FocusOn(u"txtTxtIrmao");
  surface->FocusOn(u"txtMascara");
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Clientes") << "leaving the list copies once more";
}

TEST_F(CopiedDefinition, ASingleColumnIsNotCopied) {
  AddColumns(*code, 1);
  Open({description});
  Choose(u"txtTxtIrmao", u"codCliente");
  EXPECT_TRUE(ColumnsOf(*description).empty());
}

TEST_F(CopiedDefinition, OnlyADescriptionCopies) {
  description->Let(u"TipoControle", Long{1});
  Open({description});
  Choose(u"txtTxtIrmao", u"codCliente");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
  EXPECT_TRUE(site.changed);
}

TEST_F(CopiedDefinition, WithoutASiblingTheBoxesStay) {
  description->Let(u"TxtIrmao", u"codCliente");
  Open({description});
  DefinitionOf(*description).BrowseTable(u"propria");
  Choose(u"txtTxtIrmao", u"<Nenhum>");
  EXPECT_EQ(DefinitionOf(*description).BrowseTable(), u"propria");
  EXPECT_TRUE(site.changed);
}

TEST_F(CopiedDefinition, TheSiblingThatWasChosenBeforeIsForgotten) {
  Open({description});
  Choose(u"txtTxtIrmao", u"codCliente");
  Choose(u"txtTxtIrmao", u"<Nenhum>");
  DefinitionOf(*code).BrowseTable(u"pessoa");
  surface->FocusOn(u"txtTxtIrmao");
  surface->FocusOn(u"txtMascara");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente");
}

TEST_F(CopiedDefinition, ASiblingWithoutADefinitionEmptiesTheBoxes) {
  DefinitionOf(*description).BrowseTable(u"propria");
  Open({description});
  Choose(u"txtTxtIrmao", u"txtValor");
  for (const auto* field : kFields) EXPECT_EQ(Text(BoxOf(field)), u"") << ToUtf8(field);
  EXPECT_EQ(DefinitionOf(*description).BrowseTable(), u"");
}

TEST_F(CopiedDefinition, FlatTextsOfASiblingAreNotItsDefinition) {
  memory::PropertyBag bag;
  bag.WriteProperty(u"BrowseTable", String(u"cliente"), {});
  dynamic_cast<tsText&>(value->Control()).UserControl_ReadProperties(bag);
  Open({description});
  Choose(u"txtTxtIrmao", u"txtValor");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
}

TEST_F(CopiedDefinition, OpeningThePageCopiesNothing) {
  description->Let(u"TxtIrmao", u"codCliente");
  Open({description});
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
}

}  // namespace
}  // namespace tessaria::test
