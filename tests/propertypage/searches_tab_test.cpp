// The tab "Pesquisa" of the property page: the searches of a list, one at a time.
#include "tests/propertypage/page_fixture.h"

namespace tessaria::test {
namespace {

constexpr const char16_t* kWidgets[] = {
    u"txtPesqCaption",       u"txtPesqCampo",     u"txtPesqMascara",
    u"txtPesqWidth",         u"txtPesqMaxLength", u"chkPesqCompletaTexto",
    u"chkPesqPromptInclude", u"fraPesqTipoDado",  u"fraPesqTipoBusca"};

class SearchesTab : public PageTest {
 protected:
  SearchesTab() { code->Let(u"TipoControle", Long{1}); }
  void OpenWith(Long count) {
    for (Long i = 1; i <= count; ++i) {
      const String number = CStr(i);
      Searches().Add(0, u"Busca " + number, u"campo" + number, 8, 1, u"aaa", 1500, 30, true, false,
                     0, 0, u"Pesquisa" + number);
    }
    Open({code});
    surface->ClickTab(u"tabPropriedade", 2);
    site.changed = false;
  }
  Pesquisa& Searches() { return SearchesOf(*code); }
  std::vector<String> Captions() {
    std::vector<String> captions;
    for (Long i = 1; i <= Searches().Count(); ++i)
      captions.push_back(Searches().Item(i)->Caption());
    return captions;
  }
  void ExpectButtons(bool previous, bool next, bool remove) {
    EXPECT_EQ(IsEnabled(u"btnAnterior"), previous);
    EXPECT_EQ(IsEnabled(u"btnProximo"), next);
    EXPECT_EQ(IsEnabled(u"btnExcluir"), remove);
    EXPECT_TRUE(IsEnabled(u"btnIncluir"));
  }
};

TEST_F(SearchesTab, AnEmptyListHasNothingToEdit) {
  OpenWith(0);
  for (const auto* widget : kWidgets) EXPECT_FALSE(IsEnabled(widget)) << ToUtf8(widget);
  ExpectButtons(false, false, false);
  EXPECT_EQ(Text(u"txtPesqWidth"), u"");
}

TEST_F(SearchesTab, TheFirstOfManyIsShown) {
  OpenWith(3);
  for (const auto* widget : kWidgets) EXPECT_TRUE(IsEnabled(widget)) << ToUtf8(widget);
  ExpectButtons(false, true, true);
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 1");
  EXPECT_EQ(Text(u"txtPesqCampo"), u"campo1");
  EXPECT_EQ(Text(u"txtPesqMascara"), u"aaa");
  EXPECT_EQ(Text(u"txtPesqWidth"), u"1500");
  EXPECT_EQ(Text(u"txtPesqMaxLength"), u"30");
  EXPECT_EQ(Checked(u"chkPesqCompletaTexto"), 1);
  EXPECT_EQ(Checked(u"chkPesqPromptInclude"), 0);
  EXPECT_TRUE(IsSet(u"optPesqString"));
  EXPECT_TRUE(IsSet(u"optPesqInicioCampo"));
}

TEST_F(SearchesTab, AnUnknownTypeSetsNoOption) {
  Searches().Add(0, u"", u"", 3, 0, u"", 0, 0, false, false, 0, 0, u"");
  Open({code});
  for (const auto* option : {u"optPesqNumerico", u"optPesqString", u"optPesqData"})
    EXPECT_FALSE(IsSet(option));
  surface->ClickTab(u"tabPropriedade", 2);
  Type(u"txtPesqCaption", u"x");
  surface->FocusOn(u"txtPesqCampo");
  EXPECT_EQ(Searches().Item(1)->Tipo(), 3) << "stays as it was";
}

TEST_F(SearchesTab, AStepSavesAndShowsTheNextOne) {
  OpenWith(3);
  Type(u"txtPesqCaption", u"Nome");
  surface->Click(u"btnProximo");
  EXPECT_EQ(Searches().Item(1)->Caption(), u"Nome");
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2");
  ExpectButtons(true, true, true);
  surface->Click(u"btnProximo");
  ExpectButtons(true, false, true);
  surface->Click(u"btnProximo");
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 3");
  surface->Click(u"btnAnterior");
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2");
}

TEST_F(SearchesTab, EachOptionHasItsValue) {
  OpenWith(1);
  const std::pair<const char16_t*, Long> types[] = {
      {u"optPesqNumerico", 2}, {u"optPesqString", 8}, {u"optPesqData", 7}};
  for (const auto& [option, value] : types) {
    site.changed = false;
    surface->Click(option);
    EXPECT_EQ(Searches().Item(1)->Tipo(), value);
    EXPECT_TRUE(site.changed);
  }
  const std::pair<const char16_t*, Long> likes[] = {{u"optPesqIgualCampo", 0},
                                                    {u"optPesqInicioCampo", 1},
                                                    {u"optPesqFinalCampo", 2},
                                                    {u"optPesqEntreCampo", 3}};
  for (const auto& [option, value] : likes) {
    surface->Click(option);
    EXPECT_EQ(Searches().Item(1)->Like(), value);
  }
}

TEST_F(SearchesTab, LeavingABoxOrClickingStoresAtOnce) {
  OpenWith(1);
  Type(u"txtPesqWidth", u"2400 twips");
  EXPECT_FALSE(site.changed);
  surface->FocusOn(u"txtPesqMaxLength");
  EXPECT_TRUE(site.changed);
  EXPECT_EQ(Searches().Item(1)->Width(), 2400);
  Type(u"txtPesqMaxLength", u"muitos");
  surface->Click(u"chkPesqPromptInclude");
  EXPECT_EQ(Searches().Item(1)->MaxLength(), 0);
  EXPECT_TRUE(Searches().Item(1)->PromptInclude());
  surface->Click(u"chkPesqCompletaTexto");
  EXPECT_FALSE(Searches().Item(1)->CompletaDescr());
}

TEST_F(SearchesTab, TheFirstSearchOfAnEmptyList) {
  OpenWith(0);
  surface->Click(u"btnIncluir");
  ASSERT_EQ(Searches().Count(), 1);
  EXPECT_TRUE(Searches().Contains(u"Pesquisa1"));
  EXPECT_EQ(surface->Focused(), u"txtPesqCaption");
  EXPECT_EQ(Searches().Item(1)->Tipo(), 0);
  ExpectButtons(false, false, true);
  EXPECT_FALSE(site.changed) << "the list is the control's own";
}

TEST_F(SearchesTab, ASearchIsInsertedBehindTheOneShown) {
  OpenWith(2);
  surface->Click(u"btnIncluir");
  Type(u"txtPesqCaption", u"Nova");
  surface->FocusOn(u"txtPesqCampo");
  EXPECT_EQ(Captions(), (std::vector<String>{u"Busca 1", u"Nova", u"Busca 2"}));
}

TEST_F(SearchesTab, KeysStayUniqueAfterADeletion) {
  OpenWith(2);
  surface->Click(u"btnProximo");
  surface->Click(u"btnIncluir");
  EXPECT_TRUE(Searches().Contains(u"Pesquisa3"));
  surface->Click(u"btnAnterior");
  surface->Click(u"btnAnterior");
  surface->Click(u"btnExcluir");
  surface->Click(u"btnIncluir");
  EXPECT_TRUE(Searches().Contains(u"Pesquisa2_1"));
  EXPECT_EQ(Searches().Count(), 3);
}

TEST_F(SearchesTab, DeletingShowsTheNextOrTheOneBefore) {
  OpenWith(3);
  surface->Click(u"btnExcluir");
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2");
  surface->Click(u"btnProximo");
  surface->Click(u"btnExcluir");
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2");
  surface->Click(u"btnExcluir");
  EXPECT_EQ(Searches().Count(), 0);
  ExpectButtons(false, false, false);
  EXPECT_EQ(Text(u"txtPesqCaption"), u"");
  EXPECT_EQ(Checked(u"chkPesqCompletaTexto"), 0);
  EXPECT_FALSE(site.changed);
}

TEST_F(SearchesTab, AfterTheListIsClearedItStartsAnew) {
  OpenWith(3);
  surface->Click(u"btnProximo");
  Searches().Clear();
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2") << "the display is not touched";
  surface->Click(u"btnExcluir");
  Type(u"txtPesqCaption", u"perdida");
  surface->FocusOn(u"txtPesqCampo");
  EXPECT_EQ(Searches().Count(), 0);
  surface->Click(u"btnIncluir");
  EXPECT_TRUE(Searches().Contains(u"Pesquisa1"));
  EXPECT_EQ(Searches().Count(), 1);
}

TEST_F(SearchesTab, StepsBeyondAListThatWasClearedStoreNothing) {
  OpenWith(3);
  surface->Click(u"btnProximo");
  surface->ClickTab(u"tabPropriedade", 1);
  app.WillAnswer(host::answer::Yes);
  surface->Click(u"btnLimpar");
  app.TakeBoxes();
  surface->ClickTab(u"tabPropriedade", 2);
  surface->Click(u"btnAnterior");
  EXPECT_EQ(Searches().Count(), 0);
  ExpectButtons(false, false, false);
  surface->Click(u"btnIncluir");
  EXPECT_EQ(Searches().Count(), 1);
  EXPECT_EQ(Searches().Item(1)->Tipo(), 0);
}

TEST_F(SearchesTab, WithoutAnOptionTheWayOfSearchingStays) {
  OpenWith(1);
  Searches().Item(1)->Like(7);
  Open({code});
  surface->ClickTab(u"tabPropriedade", 2);
  Type(u"txtPesqCaption", u"Nome");
  surface->FocusOn(u"txtPesqCampo");
  EXPECT_EQ(Searches().Item(1)->Like(), 7);
}

TEST_F(SearchesTab, NumbersAreTheLeadingDigits) {
  struct Row {
    const char16_t* typed;
    Integer stored;
  };
  for (const Row& row : {Row{u"1200", 1200}, Row{u"12.7", 12}, Row{u"2 4", 2}, Row{u"1e3", 1},
                         Row{u"&H10", 0}, Row{u"abc", 0}, Row{u"", 0}, Row{u"-5", 0}}) {
    OpenWith(1);
    Type(u"txtPesqWidth", row.typed);
    Type(u"txtPesqMaxLength", row.typed);
    surface->FocusOn(u"txtPesqCaption");
    EXPECT_EQ(Searches().Item(1)->Width(), row.stored) << ToUtf8(row.typed);
    EXPECT_EQ(Searches().Item(1)->MaxLength(), row.stored) << ToUtf8(row.typed);
    Searches().Clear();
  }
}

TEST_F(SearchesTab, ANumberThatIsTooLargeIsToldAndStoresNothingOfTheRow) {
  OpenWith(2);
  Type(u"txtPesqWidth", u"99999");
  surface->FocusOn(u"txtPesqCaption");
  ASSERT_EQ(app.TakeBoxes().size(), 1U);
  EXPECT_EQ(Searches().Item(1)->Width(), 1500);
  Type(u"txtPesqWidth", u"900");
  EXPECT_EQ(app.TakeBoxes().size(), 1U) << "the caption was left";
  surface->Click(u"btnProximo");
  EXPECT_TRUE(app.TakeBoxes().empty());
  EXPECT_EQ(Searches().Item(1)->Width(), 900);
  EXPECT_EQ(Text(u"txtPesqCaption"), u"Busca 2");
}

TEST_F(SearchesTab, TheSearchesOfTheControlAreTheOnesEdited) {
  OpenWith(1);
  Type(u"txtPesqCaption", u"Nome");
  surface->FocusOn(u"txtPesqCampo");
  EXPECT_EQ(Searches().Item(1)->Caption(), u"Nome") << "before the page is applied";
  Apply();
  EXPECT_EQ(Searches().Item(1)->Caption(), u"Nome");
}

}  // namespace
}  // namespace tessaria::test
