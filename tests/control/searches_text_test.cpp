// Conversion of the older text form of the searches at the designer's first show.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SearchesTest : public DesignTest {
 protected:
  SearchesTest() : field(AddField(u"txtCodigo")) {
    (*field)->TipoControle(TipoControle::Browse);
    // Two searches of equal width; each field ends in character 3.
    (*field)->PesqCaption(
        u"Nome   \x0003"
        u"Data   \x0003");
    (*field)->PesqCampo(
        u"nome   \x0003"
        u"nasc   \x0003");
    (*field)->PesqMascara(
        u"       \x0003"
        u"dd/mm/y\x0003");
    (*field)->PesqWidth(
        u"2500   \x0003"
        u"1200   \x0003");
    (*field)->PesqTipo(
        u"S      \x0003"
        u"D      \x0003");
    (*field)->PesqLike(
        u"A      \x0003"
        u"N      \x0003");
    (*field)->PesqMaxLength(
        u"40     \x0003"
        u"       \x0003");
    (*field)->PesqCompletaDescr(
        u"-1     \x0003"
        u"0      \x0003");
    (*field)->PesqPromptInclude(
        u"0      \x0003"
        u"1      \x0003");
  }
  tsText& Control() { return **field; }
  void Convert() { Control().UserControl_Show(); }
  ItemPesquisa& Item(Long number) { return *Control().Pesquisa()->Item(number); }

  FieldPtr field;
};

TEST_F(SearchesTest, EachFieldBecomesAnEntry) {
  Convert();
  ASSERT_EQ(Control().Pesquisa()->Count(), 2);
  EXPECT_EQ(Item(1).Caption(), u"Nome");
  EXPECT_EQ(Item(1).Campo(), u"nome");
  EXPECT_EQ(Item(1).Mascara(), u"");
  EXPECT_EQ(Item(1).Width(), 2500);
  EXPECT_EQ(Item(1).Tipo(), 8);
  EXPECT_EQ(Item(1).Like(), 3);
  EXPECT_EQ(Item(1).MaxLength(), 40);
  EXPECT_TRUE(Item(1).CompletaDescr());
  EXPECT_FALSE(Item(1).PromptInclude());
  EXPECT_EQ(Item(2).Caption(), u"Data");
  EXPECT_EQ(Item(2).Campo(), u"nasc");
  EXPECT_EQ(Item(2).Mascara(), u"dd/mm/y");
  EXPECT_EQ(Item(2).Width(), 1200);
  EXPECT_EQ(Item(2).Tipo(), 7);
  EXPECT_EQ(Item(2).Like(), 0);
  EXPECT_EQ(Item(2).MaxLength(), 0);
  EXPECT_FALSE(Item(2).CompletaDescr());
  EXPECT_TRUE(Item(2).PromptInclude());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// Not the number of the search, but the place where its caption ends.
TEST_F(SearchesTest, TheNumberOfAnEntryIsACharacterPosition) {
  Convert();
  EXPECT_EQ(Item(1).Indice(), 8);
  EXPECT_EQ(Item(2).Indice(), 16);
}

TEST_F(SearchesTest, SevenOfTheNineTextsAreClearedAndKindAndComparisonStay) {
  Convert();
  for (const char16_t* name : {u"PesqCaption", u"PesqCampo", u"PesqMascara", u"PesqWidth",
                               u"PesqMaxLength", u"PesqCompletaDescr", u"PesqPromptInclude"})
    EXPECT_SAME(GetProperty(Control(), name), u"");
  EXPECT_NE(Control().PesqTipo(), u"");
  EXPECT_NE(Control().PesqLike(), u"");
}

TEST_F(SearchesTest, AnUnknownLetterKeepsTheFormerOne) {
  Control().PesqTipo(
      u"D      \x0003"
      u"d      \x0003");  // letters are case-sensitive
  Control().PesqLike(
      u"F      \x0003"
      u"?      \x0003");
  Convert();
  EXPECT_EQ(Item(2).Tipo(), 7);
  EXPECT_EQ(Item(2).Like(), 1);
}

TEST_F(SearchesTest, AnUnknownLetterInTheFirstFieldIsNeitherAKindNorAWildcard) {
  Control().PesqTipo(
      u"?      \x0003"
      u"D      \x0003");
  Control().PesqLike(
      u"?      \x0003"
      u"A      \x0003");
  Convert();
  EXPECT_EQ(Item(1).Tipo(), 0);
  EXPECT_EQ(Item(1).Like(), 0);
  EXPECT_EQ(Item(2).Tipo(), 7);
  EXPECT_EQ(Item(2).Like(), 3);
}

TEST_F(SearchesTest, TheLetters) {
  for (const auto& [letter, kind] : {std::pair{u"N", Long{2}}, {u"S", Long{8}}, {u"D", Long{7}}}) {
    const auto fresh = AddField(String(u"txtTipo") + letter);
    (*fresh)->TipoControle(TipoControle::Descricao);
    (*fresh)->PesqCaption(u"a\x0003");
    (*fresh)->PesqTipo(letter + String(u"\x0003"));
    (*fresh)->UserControl_Show();
    EXPECT_EQ((*fresh)->Pesquisa()->Item(1)->Tipo(), kind);
  }
  for (const auto& [letter, like] :
       {std::pair{u"N", Long{0}}, {u"F", Long{1}}, {u"C", Long{2}}, {u"A", Long{3}}}) {
    const auto fresh = AddField(String(u"txtLike") + letter);
    (*fresh)->TipoControle(TipoControle::Browse);
    (*fresh)->PesqCaption(u"a\x0003");
    (*fresh)->PesqLike(letter + String(u"\x0003"));
    (*fresh)->UserControl_Show();
    EXPECT_EQ((*fresh)->Pesquisa()->Item(1)->Like(), like);
  }
}

TEST_F(SearchesTest, AllTextsAreCutWhereTheCaptionsEnd) {
  Control().PesqCaption(u"Nome\x0003");
  Control().PesqCampo(u"nome_completo\x0003");
  Convert();
  ASSERT_EQ(Control().Pesquisa()->Count(), 1);
  EXPECT_EQ(Item(1).Campo(), u"nome");
}

TEST_F(SearchesTest, ATextWithoutItsEndAddsNothingAndIsStillCleared) {
  Control().PesqCaption(u"Nome");
  Convert();
  EXPECT_EQ(Control().Pesquisa()->Count(), 0);
  EXPECT_EQ(Control().PesqCaption(), u"");
  EXPECT_EQ(Control().PesqCampo(), u"");
}

TEST_F(SearchesTest, OnlyKindsThatQueryTheDatabaseConvert) {
  for (const Long kind : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(kind);
    const auto fresh = AddField(u"txtTipo" + CStr(Variant(kind)));
    (*fresh)->TipoControle(static_cast<TipoControle>(kind));
    (*fresh)->PesqCaption(u"a\x0003");
    (*fresh)->UserControl_Show();
    EXPECT_EQ((*fresh)->Pesquisa()->Count(), kind == 1 || kind == 3 ? 1 : 0);
  }
}

TEST_F(SearchesTest, WithoutCaptionsTheTextsStay) {
  Control().PesqCaption(u"");
  Convert();
  EXPECT_EQ(Control().Pesquisa()->Count(), 0);
  EXPECT_NE(Control().PesqCampo(), u"");
}

TEST_F(SearchesTest, AWidthOutOfRangeIsReportedAndTheTextsStay) {
  Control().PesqWidth(
      u"99999  \x0003"
      u"1200   \x0003");
  Convert();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(6), u"AtualizaPesquisa")));
  EXPECT_NE(Control().PesqCaption(), u"");
  EXPECT_TRUE(Control().Carregou());
}

class RunningSearchesTest : public ControlTest {};

TEST_F(RunningSearchesTest, AtRunTimeNothingIsConverted) {
  const auto field = AddField(u"txtCodigo");
  (*field)->TipoControle(TipoControle::Browse);
  (*field)->PesqCaption(u"Nome\x0003");
  (*field)->UserControl_Show();
  EXPECT_EQ((*field)->Pesquisa()->Count(), 0);
  EXPECT_EQ((*field)->PesqCaption(), u"Nome\x0003");
}

}  // namespace
}  // namespace tessaria::test
