#include "browse/search_clause.h"

#include "tests/browse/browse_fixture.h"

namespace tessaria::test {
namespace {

using mdlObjTxt::QualifyField;
using mdlObjTxt::SearchCondition;

TEST(SearchField, IsQualifiedByItsTable) {
  const struct {
    StringView Campo, Qualified;
  } cases[] = {{u"nome", u"clientes.nome"},
               {u"upper(nome)", u"upper(clientes.nome)"},
               {u"substring(upper(nome), 1, 2)", u"substring(clientes.upper(nome), 1, 2)"},
               {u"cli.nome", u"cli.nome"},
               {u"upper(cli.nome)", u"upper(cli.nome)"},
               {u"", u"clientes."}};
  for (const auto& c : cases) EXPECT_EQ(QualifyField(String(c.Campo), u"clientes"), c.Qualified);
}

class SearchClause : public BrowseTest {};

TEST_F(SearchClause, RemovesTheAlias) {
  EXPECT_EQ(SearchCondition(u"upper(c.nome) as n", 8, 1, u"Ma"), u"upper(c.nome)  ilike 'Ma%'");
  EXPECT_EQ(SearchCondition(u"c.codigo as k", 2, 4, u"7"), u"c.codigo  > 7");
}

TEST_F(SearchClause, ComparesATextByItsCode) {
  const struct {
    Long Like;
    StringView Clause;
  } cases[] = {{0, u"c.nome = 'Ma'"},
               {1, u"c.nome ilike 'Ma%'"},
               {2, u"c.nome ilike '%Ma'"},
               {3, u"c.nome ilike '%Ma%'"},
               {4, u"Left(c.nome, 2) > 'Ma'"},
               {5, u"Left(c.nome, 2) >= 'Ma'"},
               {6, u"Left(c.nome, 2) < 'Ma'"},
               {7, u"Left(c.nome, 2) <= 'Ma'"},
               {8, u""},
               {-1, u""}};
  for (const auto& c : cases) EXPECT_EQ(SearchCondition(u"c.nome", 8, c.Like, u"Ma"), c.Clause);
}

TEST_F(SearchClause, ComparesNumbersDatesAndOthersByTheirCode) {
  const struct {
    Long Like;
    StringView Clause;
  } cases[] = {{0, u"c.x = 5"}, {1, u"c.x = 5"},  {2, u"c.x = 5"},
               {3, u"c.x = 5"}, {4, u"c.x > 5"},  {5, u"c.x >= 5"},
               {6, u"c.x < 5"}, {7, u"c.x <= 5"}, {8, u"c.x = 5"}};
  for (const Long kind : {2, 7, 0, 5}) {
    for (const auto& c : cases) EXPECT_EQ(SearchCondition(u"c.x", kind, c.Like, u"5"), c.Clause);
  }
}

TEST_F(SearchClause, TakesTheKeywordOfTheDialect) {
  const struct {
    StringView Dbms, Clause;
  } cases[] = {{kAccess, u"clientes.nome Like '%Silva%'"},
               {u"ms jet", u"clientes.nome Like '%Silva%'"},
               {kSqlServer, u"clientes.nome Like '%Silva%'"},
               {kPostgres, u"clientes.nome ilike '%Silva%'"},
               {kUnknown, u"clientes.nome  '%Silva%'"}};
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    EXPECT_EQ(SearchCondition(u"clientes.nome", 8, 3, u"Silva"), c.Clause);
  }
}

TEST_F(SearchClause, AnApostropheCountsTwiceInTheLength) {
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 5, u"D'A"), u"Left(c.nome, 4) >= 'D''A'");
}

TEST_F(SearchClause, ABackslashCountsOnceInTheLengthHoweverTheServerReadsIt) {
  for (const bool escapes : {false, true}) {
    connection->SetProperty(u"Backslash Escapes", escapes);
    EXPECT_EQ(SearchCondition(u"c.nome", 8, 5, u"A\\B"),
              escapes ? u"Left(c.nome, 3) >= 'A\\\\B'" : u"Left(c.nome, 3) >= 'A\\B'");
  }
}

TEST_F(SearchClause, EscapeCharactersOfAPatternAreEscapedInPatternsOnly) {
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 0, u"A\\B"), u"c.nome = 'A\\B'");
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 1, u"A\\B"), u"c.nome ilike 'A\\\\B%'");
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 2, u"A\\B"), u"c.nome ilike '%A\\\\B'");
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 3, u"A\\B"), u"c.nome ilike '%A\\\\B%'");
  for (const StringView dbms : {kAccess, kSqlServer}) {
    Dbms(dbms);
    EXPECT_EQ(SearchCondition(u"c.nome", 8, 0, u"[A]"), u"c.nome = '[A]'");
    EXPECT_EQ(SearchCondition(u"c.nome", 8, 3, u"[A]"), u"c.nome Like '%[[]A]%'");
    EXPECT_EQ(SearchCondition(u"c.nome", 8, 4, u"[A]"), u"Left(c.nome, 3) > '[A]'");
  }
}

TEST_F(SearchClause, APercentSignIsNotEscaped) {
  EXPECT_EQ(SearchCondition(u"c.nome", 8, 1, u"50%"), u"c.nome ilike '50%%'");
}

}  // namespace
}  // namespace tessaria::test
