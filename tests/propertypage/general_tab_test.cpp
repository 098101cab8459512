// The tab "Principal" of the property page, and the life of a page.
#include "tests/propertypage/page_fixture.h"

namespace tessaria::test {
namespace {

using Texts = std::vector<String>;

class GeneralTab : public PageTest {};

TEST_F(GeneralTab, ThePageShowsWhatTheControlHolds) {
  description->Let(u"TipoControle", Long{3});
  description->Let(u"Mascara", u"aaaa");
  description->Let(u"PodeSerBranco", true);
  description->Let(u"eSocial", true);
  description->Let(u"TxtIrmao", u"codCliente");
  description->Let(u"LabelAssociado", u"lblCliente");
  description->Let(u"ObjetoCancelar", u"cmdCancelar");
  description->Let(u"DataSource", u"dcPedido");
  description->Let(u"DataField", u"nome");
  Open({description});
  EXPECT_EQ(surface->Find<host::DialogDisplay>(u"txtNome").Text(), u"desCliente");
  EXPECT_EQ(Combo(u"txtTipoControle").Text(), u"3 - Descrição");
  EXPECT_EQ(Text(u"txtMascara"), u"aaaa");
  EXPECT_EQ(Checked(u"chkPodeSerBranco"), 1);
  EXPECT_EQ(Checked(u"chkeSocial"), 1);
  EXPECT_EQ(Combo(u"txtTxtIrmao").Text(), u"codCliente");
  EXPECT_EQ(Combo(u"txtLabel").Text(), u"lblCliente");
  EXPECT_EQ(Combo(u"txtObjetoCancelar").Text(), u"cmdCancelar");
  EXPECT_EQ(Combo(u"txtDataSource").Text(), u"dcPedido");
  EXPECT_EQ(Text(u"txtDataField"), u"nome");
  EXPECT_FALSE(site.changed);
}

TEST_F(GeneralTab, ANewControlShowsNothing) {
  Open({value});
  EXPECT_EQ(Combo(u"txtTipoControle").ListIndex(), 0);
  EXPECT_EQ(Text(u"txtMascara"), u"");
  for (const auto* list : {u"txtTxtIrmao", u"txtLabel", u"txtObjetoCancelar", u"txtDataSource"}) {
    EXPECT_EQ(Combo(list).ListIndex(), 0);
    EXPECT_EQ(Combo(list).Text(), u"<Nenhum>");
  }
  EXPECT_FALSE(site.changed);
}

TEST_F(GeneralTab, TheListsOfferTheControlsOfTheForm) {
  Open({description});
  EXPECT_EQ(Rows(u"txtTxtIrmao"), (Texts{u"<Nenhum>", u"codCliente", u"txtValor"}));
  EXPECT_EQ(Rows(u"txtLabel"), (Texts{u"<Nenhum>", u"lblCliente", u"lblValor"}));
  EXPECT_EQ(Rows(u"txtObjetoCancelar"), (Texts{u"<Nenhum>", u"cmdGravar", u"cmdCancelar"}));
  EXPECT_EQ(Rows(u"txtDataSource"), (Texts{u"<Nenhum>", u"dcPedido", u"dcItens"}));
}

TEST_F(GeneralTab, AnotherSelectionKeepsTheRowsOfTheLists) {
  Open({description});
  form->Add<memory::Label>(u"lblNova");
  page->PropertyPage_SelectionChanged();
  EXPECT_EQ(Rows(u"txtLabel"), (Texts{u"<Nenhum>", u"lblCliente", u"lblValor"}));
}

TEST_F(GeneralTab, OfSeveralControlsTheLastIsShownAndWritten) {
  code->Let(u"Mascara", u"000");
  value->Let(u"Mascara", u"111");
  Open({code, value});
  EXPECT_EQ(surface->Find<host::DialogDisplay>(u"txtNome").Text(), u"txtValor");
  EXPECT_EQ(Text(u"txtMascara"), u"111");
  Type(u"txtMascara", u"999");
  Apply();
  EXPECT_EQ(TextOf(*value, u"Mascara"), u"999");
  EXPECT_EQ(TextOf(*code, u"Mascara"), u"000");
}

TEST_F(GeneralTab, ApplyingWritesEveryWidget) {
  Open({description});
  Choose(u"txtTipoControle", u"3 - Descrição");
  Type(u"txtMascara", u"aaa");
  surface->Click(u"chkPodeSerBranco");
  surface->Click(u"chkeSocial");
  Choose(u"txtTxtIrmao", u"codCliente");
  Choose(u"txtLabel", u"lblCliente");
  Choose(u"txtObjetoCancelar", u"cmdCancelar");
  Choose(u"txtDataSource", u"dcItens");
  Type(u"txtDataField", u"nome");
  const bool couldBeBlank = CBool(code->Get(u"PodeSerBranco"));
  Apply();
  EXPECT_EQ(CLng(description->Get(u"TipoControle")), 3);
  EXPECT_EQ(TextOf(*description, u"Mascara"), u"aaa");
  EXPECT_NE(CBool(description->Get(u"PodeSerBranco")), couldBeBlank);
  EXPECT_TRUE(CBool(description->Get(u"eSocial")));
  EXPECT_EQ(TextOf(*description, u"TxtIrmao"), u"codCliente");
  EXPECT_EQ(TextOf(*description, u"LabelAssociado"), u"lblCliente");
  EXPECT_EQ(TextOf(*description, u"ObjetoCancelar"), u"cmdCancelar");
  EXPECT_EQ(TextOf(*description, u"DataSource"), u"dcItens");
  EXPECT_EQ(TextOf(*description, u"DataField"), u"nome");
}

TEST_F(GeneralTab, NobodyIsWrittenAsAnEmptyName) {
  description->Let(u"TxtIrmao", u"codCliente");
  description->Let(u"DataSource", u"dcPedido");
  Open({description});
  Choose(u"txtTxtIrmao", u"<Nenhum>");
  Choose(u"txtDataSource", u"<Nenhum>");
  Apply();
  EXPECT_EQ(TextOf(*description, u"TxtIrmao"), u"");
  EXPECT_EQ(TextOf(*description, u"DataSource"), u"");
}

TEST_F(GeneralTab, TheNameOfAControlThatIsGoneLeavesNobody) {
  description->Let(u"TxtIrmao", u"codAntigo");
  description->Let(u"LabelAssociado", u"lblAntigo");
  description->Let(u"DataSource", u"dcAntigo");
  description->Let(u"DataField", u"nome");
  Open({description});
  EXPECT_EQ(Combo(u"txtTxtIrmao").Text(), u"<Nenhum>");
  EXPECT_EQ(Combo(u"txtLabel").Text(), u"<Nenhum>");
  EXPECT_EQ(Combo(u"txtDataSource").Text(), u"<Nenhum>");
  EXPECT_EQ(Text(u"txtDataField"), u"nome") << "what follows is shown all the same";
  Apply();
  EXPECT_EQ(TextOf(*description, u"TxtIrmao"), u"");
}

TEST_F(GeneralTab, OnlyAFieldWithALookupHasItsTabs) {
  Open({value});
  const std::pair<Long, bool> types[] = {{0, false}, {1, true},  {2, false},
                                         {3, true},  {4, false}, {5, false}};
  for (const auto& [type, looksUp] : types) {
    surface->Choose(u"txtTipoControle", type);
    EXPECT_EQ(Combo(u"txtTipoControle").ListIndex(), type);
    EXPECT_EQ(Tabs().TabEnabled(1), looksUp) << type;
    EXPECT_EQ(Tabs().TabEnabled(2), looksUp) << type;
    EXPECT_TRUE(Tabs().TabEnabled(0));
  }
}

TEST_F(GeneralTab, AnotherTypeBringsTheFirstTabToTheFront) {
  description->Let(u"TipoControle", Long{3});
  Open({description});
  surface->ClickTab(u"tabPropriedade", 2);
  ASSERT_EQ(Tabs().Tab(), 2);
  description->Let(u"TipoControle", Long{0});
  page->PropertyPage_SelectionChanged();
  EXPECT_EQ(Tabs().Tab(), 0);
  EXPECT_FALSE(Tabs().TabEnabled(2));
}

TEST_F(GeneralTab, EachWidgetTellsTheFrameThatItHasChanged) {
  Open({description});
  const std::function<void()> changes[] = {
      [&] { surface->Choose(u"txtTipoControle", 1); },
      [&] { Type(u"txtMascara", u"0"); },
      [&] { surface->Click(u"chkPodeSerBranco"); },
      [&] { surface->Click(u"chkeSocial"); },
      [&] { Choose(u"txtTxtIrmao", u"codCliente"); },
      [&] { Choose(u"txtLabel", u"lblValor"); },
      [&] { Choose(u"txtObjetoCancelar", u"cmdGravar"); },
      [&] { Choose(u"txtDataSource", u"dcItens"); },
      [&] { Type(u"txtDataField", u"x"); },
  };
  for (const auto& change : changes) {
    surface->FocusOn(u"txtTipoControle");
    site.changed = false;
    change();
    EXPECT_TRUE(site.changed);
  }
}

TEST_F(GeneralTab, TheNameIsNeverWritten) {
  Open({description});
  Apply();
  EXPECT_EQ(description->Name(), u"desCliente");
}

}  // namespace
}  // namespace tessaria::test
