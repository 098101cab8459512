// The property page over settings as files hold them: old ones, odd ones, and those that it leaves.
#include "tessaria/memory/property_bag.h"
#include "tessaria/tstext.h"
#include "tests/propertypage/page_fixture.h"

namespace tessaria::test {
namespace {

class StoredSettings : public PageTest {
 protected:
  static tsText& ControlOf(memory::TsText& field) { return dynamic_cast<tsText&>(field.Control()); }
  static void Load(memory::TsText& field, const memory::PropertyBag& bag) {
    ControlOf(field).UserControl_ReadProperties(bag);
  }
  static String SettingsOf(memory::TsText& field) {
    memory::PropertyBag bag;
    ControlOf(field).UserControl_WriteProperties(bag);
    return bag.Save();
  }
  static void LoadOldLookup(memory::TsText& field) {
    memory::PropertyBag bag;
    bag.WriteProperty(u"TipoControle", Long{1}, {});
    bag.WriteProperty(u"BrowseTable", String(u"cliente"), {});
    bag.WriteProperty(u"BrwCampo", String(u"codigo"), {});
    bag.WriteProperty(u"BrwWhere", String(u"ativo = 1"), {});
    Load(field, bag);
  }
};

TEST_F(StoredSettings, FlatTextsMoveIntoTheDefinitionForGood) {
  LoadOldLookup(*code);
  ASSERT_EQ(DefinitionOf(*code).BrowseTable(), u"");
  Open({code});
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente");
  EXPECT_EQ(DefinitionOf(*code).BrowseTable(), u"cliente");
  EXPECT_EQ(DefinitionOf(*code).BrwCampo(), u"codigo");
  EXPECT_EQ(DefinitionOf(*code).BrwWhere(), u"ativo = 1");
  EXPECT_FALSE(site.changed);
  Apply();
  memory::PropertyBag bag;
  ControlOf(*code).UserControl_WriteProperties(bag);
  for (const auto* flat : {u"BrowseTable", u"BrwCampo", u"BrwWhere"})
    EXPECT_FALSE(bag.Holds(flat)) << ToUtf8(flat);
  EXPECT_EQ(DefinitionOf(*code).BrowseTable(), u"cliente");
}

TEST_F(StoredSettings, ATextOfTheDefinitionWinsOverTheFlatOne) {
  LoadOldLookup(*code);
  DefinitionOf(*code).BrowseTable(u"pessoa");
  Open({code});
  EXPECT_EQ(DefinitionOf(*code).BrowseTable(), u"pessoa");
  EXPECT_EQ(DefinitionOf(*code).BrwCampo(), u"codigo");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"pessoa");
  Apply();
  EXPECT_EQ(DefinitionOf(*code).BrowseTable(), u"pessoa");
}

TEST_F(StoredSettings, APageThatChangesNothingLeavesWhatGoesWithATypeOrAMask) {
  memory::PropertyBag bag;
  bag.WriteProperty(u"TipoControle", Long{5}, {});
  bag.WriteProperty(u"Mascara", String(u"00/00"), {});
  bag.WriteProperty(u"ItensMascara", String(u"-"), {});
  Load(*value, bag);
  Open({value});
  Apply();
  EXPECT_EQ(ControlOf(*value).ItensMascara(), u"-");
  EXPECT_FALSE(ControlOf(*value).PromptInclude());
}

TEST_F(StoredSettings, ATypeThatIsNoRowIsShownAsNormal) {
  for (const Long type : {-2, -1, 6, 99}) {
    memory::PropertyBag bag;
    bag.WriteProperty(u"TipoControle", type, {});
    Load(*code, bag);
    Open({code});
    EXPECT_EQ(Combo(u"txtTipoControle").Text(), u"0 - Normal") << type;
    EXPECT_FALSE(Tabs().TabEnabled(1));
    Apply();
    EXPECT_EQ(CLng(code->Get(u"TipoControle")), 0);
  }
  EXPECT_TRUE(app.TakeBoxes().empty());
}

TEST_F(StoredSettings, AFormWithoutADataControlOffersNone) {
  const auto other = memory::Form::Create(u"frmOutro", memory::Form::Mode::Design);
  const auto field = other->Add<memory::TsText>(u"txtNome");
  Open({field});
  EXPECT_EQ(Rows(u"txtDataSource"), (std::vector<String>{u"<Nenhum>"}));
  EXPECT_EQ(Rows(u"txtTxtIrmao"), (std::vector<String>{u"<Nenhum>"}));
  Apply();
  EXPECT_EQ(TextOf(*field, u"DataSource"), u"");
  page.reset();
  other->Close();
}

TEST_F(StoredSettings, OpeningAndApplyingWithoutAnEditStoresTheSame) {
  memory::PropertyBag bag;
  Load(*code, bag);
  code->Let(u"Mascara", u"000");
  code->Let(u"TipoControle", Long{1});
  DefinitionOf(*code).BrowseTable(u"cliente");
  SearchesOf(*code).Add(1, u"Nome", u"nome", 8, 1, u"", 0, 0, false, false, 0, 0, u"");
  const String before = SettingsOf(*code);
  Open({code});
  Apply();
  EXPECT_EQ(ToUtf8(SettingsOf(*code)), ToUtf8(before));
}

}  // namespace
}  // namespace tessaria::test
