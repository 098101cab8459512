// The condition of an answered prompt.
#include "tests/browse/search_prompt_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;

TEST_F(SearchPrompt, QualifiesTheFieldUnlessItIsReady) {
  Search s;
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"clientes.nome ilike '%Silva%'");
  s.Campo = u"upper(nome)";
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"upper(clientes.nome) ilike '%Silva%'");
  s.CampoPronto = true;
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"upper(nome) ilike '%Silva%'");
}

TEST_F(SearchPrompt, DoublesApostrophes) {
  Search s;
  s.Like = 0;
  EXPECT_EQ(ClauseOf(s, u"D'Avila"), u"clientes.nome = 'D''Avila'");
  s.Like = 5;
  EXPECT_EQ(ClauseOf(s, u"A"), u"Left(clientes.nome, 1) >= 'A'");
}

TEST_F(SearchPrompt, WritesADateInTheDialect) {
  Search s;
  s.Campo = u"data";
  s.Tipo = 7;
  s.Like = 6;
  s.Mascara = u"dd/mm/yyyy";
  const struct {
    StringView Dbms, Clause;
  } cases[] = {{kAccess, u"clientes.data < Cdate('31/12/2016')"},
               {kSqlServer, u"clientes.data < '12/31/2016'"},
               {kPostgres, u"clientes.data < '2016-12-31'::date"},
               {kUnknown, u"clientes.data < "}};
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    EXPECT_EQ(ClauseOf(s, u"31122016"), c.Clause);
  }
}

TEST_F(SearchPrompt, WritesAnAmountWithAPoint) {
  Search s;
  s.Campo = u"valor";
  s.Tipo = 2;
  s.Like = 4;
  s.Mascara = u"$$$$$$$.$$";
  s.MaxLength = 12;
  EXPECT_EQ(ClauseOf(s, u"1234,56"), u"clientes.valor > 1234.56");
  // The value of a number has no trailing zero.
  EXPECT_EQ(ClauseOf(s, u"1234,50"), u"clientes.valor > 1234.5");
}

TEST_F(SearchPrompt, AnAmountStoredAsTextKeepsItsZero) {
  Search s;
  s.Campo = u"valor";
  s.Tipo = 0;
  s.Like = 4;
  s.Mascara = u"$$$$$$$.$$";
  s.MaxLength = 12;
  EXPECT_EQ(ClauseOf(s, u"1234,50"), u"clientes.valor > 1234.50");
}

TEST_F(SearchPrompt, ANumberWithoutAnAmountMaskIsWrittenWithAPoint) {
  const struct {
    Long Tipo;
    StringView Typed, Written;
  } cases[] = {{2, u"15", u"15"},          {2, u"12,5", u"12.5"},    {2, u"-0,25", u"-0.25"},
               {2, u"1.234,5", u"1234.5"}, {2, u"007", u"7"},        {0, u"12,5", u"12.5"},
               {0, u" 15 ", u"15"},        {0, u"+1,5e3", u"+1.5e3"}};
  for (const auto& c : cases) {
    Search s;
    s.Campo = u"codigo";
    s.Tipo = c.Tipo;
    s.Like = 0;
    EXPECT_EQ(ClauseOf(s, c.Typed), u"clientes.codigo = " + String(c.Written));
  }
}

TEST_F(SearchPrompt, AnAmountThatIsSearchedAsATextIsBetweenApostrophes) {
  Search s;
  s.Like = 0;
  s.Mascara = u"$$$$$$$.$$";
  s.MaxLength = 12;
  EXPECT_EQ(ClauseOf(s, u"1234,50"), u"clientes.nome = '1234.50'");
}

TEST_F(SearchPrompt, AnUnknownComparisonOfATextIsReportedAndMakesNoCondition) {
  Search s;
  s.Like = 9;
  EXPECT_EQ(ClauseOf(s, u"x"), u"");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(
                  HostError(errors::InvalidArgument, u"A pesquisa \"Nome\" não diz como comparar."),
                  u"tsMostraFormPesquisa")));
}

TEST_F(SearchPrompt, AnErrorIsReportedAndCountsAsAnswered) {
  State().dbConexao = nullptr;  // without it there is no dialect
  EXPECT_TRUE(Ask({}, [](memory::Dialog& prompt) {
    prompt.Type(u"Silva");
    prompt.Click(u"btnOk");
  }));
  EXPECT_EQ(clause, u"antes");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectNotSet), u"tsMostraFormPesquisa")));
}

}  // namespace
}  // namespace tessaria::test
