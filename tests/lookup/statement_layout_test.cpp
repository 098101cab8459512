#include "lookup/statement_layout.h"

#include "lookup/dialect.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

using mdlObjTxt::ListRows;
using mdlObjTxt::MontaSqlPronta;
using mdlObjTxt::SearchTerm;

struct LayoutCase {
  const char16_t* given;
  const char16_t* expected;
};

const LayoutCase kLayouts[] = {
    {u"", u""},
    {u"Select a", u"SELECT\r\n      a"},
    {u"Select a From t", u"SELECT\r\n      a \r\nFROM\r\n      t"},
    {u"Select a, b From t", u"SELECT\r\n      a,\r\n       b \r\nFROM\r\n      t"},
    {u"Select a From t Left Join u on (t.x=u.x)",
     u"SELECT\r\n      a \r\nFROM\r\n      t \r\n      Left Join u on (t.x=u.x)"},
    // The template condition is removed, wherever and however often it appears.
    {u"Select a From t Where 1 = Null", u"SELECT\r\n      a \r\nFROM\r\n      t "},
    {u"Where 1 = Nullx Where 1 = Null", u"x "},
    {u"Select a From t Where 1 = 1", u"SELECT\r\n      a \r\nFROM\r\n      t Where 1 = 1"},
    // Keywords are found only in their exact case.
    {u"select a from t left join u", u"select a from t left join u"},
    {u"SELECT a FROM t", u"SELECT a FROM t"},
    // They are also found inside names, and the character after them is dropped.
    {u"FromData", u"\r\nFROM\r\n      ata"},
    {u"Select FromData", u"SELECT\r\n      \r\nFROM\r\n      ata"},
    {u"PreSelect x", u"PreSELECT\r\n      x"},
    // One after another: the dropped character is the blank between them.
    {u"Select From t", u"SELECT\r\n      \r\nFROM\r\n      t"},
    {u"SelectFrom", u"SELECT\r\n      rom"},
    {u"Select", u"SELECT\r\n      "},
    // Commas.
    {u"a,b", u"a,\r\n      b"},
    {u"a ,  b", u"a ,\r\n        b"},
    {u"Mid(a,1,9)", u"Mid(a,1,9)"},
    {u"Mid(a,  1,  5)", u"Mid(a,  1,  5)"},
    {u"f(a, 0)", u"f(a,\r\n       0)"},
    {u"f(a, -1)", u"f(a,\r\n       -1)"},
    {u"In ('a', 'b')", u"In ('a', 'b')"},
    {u"In ('a' ,'b')", u"In ('a' ,'b')"},
    {u"f(a, 'b')", u"f(a,\r\n       'b')"},
    {u"f('a', b)", u"f('a',\r\n       b)"},
    {u"'x, y'", u"'x,\r\n       y'"},
    {u"a,", u"a,\r\n      "},
    {u"a,  ", u"a,\r\n        "},
    {u",a", u",\r\n      a"},
    {u"a,,b", u"a,\r\n      ,\r\n      b"},
    {u",'a'", u",\r\n      'a'"},
    // A comma after a keyword is dropped and still breaks the line.
    {u"Select,a", u"SELECT\r\n      \r\n      a"},
    {u"Select,1", u"SELECT\r\n      1"},
};

TEST(StatementLayout, BreaksAtKeywordsAndCommas) {
  for (const auto& row : kLayouts) {
    SCOPED_TRACE(ToUtf8(row.given));
    EXPECT_EQ(MontaSqlPronta(row.given), row.expected);
  }
}

const ListRows kSearch = {
    {u"Cliente.Codigo", {u"=", u"txtCodigo", u"Numerico"}},
    {u"Cliente.Nome", {u">=", u"txtNome", u"String"}},
};
const ListRows kOrder = {{u"Cliente.Nome", {}}};

struct TermCase {
  mdlObjTxt::ListRow row;
  const char16_t* term;
};

const TermCase kTerms[] = {
    {{u"a", {u"=", u"txtA", u"Numerico"}}, u"a=@txtA@"},
    {{u"a", {u"=", u"txtA", u"String"}}, u"a='@txtA@'"},
    {{u"a", {u"=", u"txtA", u"Data"}}, u"a=cDate('@txtA@')"},
    {{u"a", {u"=", u"txtA", u""}}, u"a=@txtA@"},
    {{u"a", {u"=", u"txtA", u"STRING"}}, u"a=@txtA@"},
    {{u" a ", {u" > ", u" txtA ", u"String"}}, u"a>'@txtA@'"},
    {{u"a", {}}, u""},
    {{u"a", {u"=", u"txtA"}}, u""},
    {{u"a", {u"=", u"txtA", u"String", u"x"}}, u""},
};

TEST(StatementLayout, WritesTheConditionOfASearchRow) {
  for (const auto& row : kTerms) EXPECT_EQ(SearchTerm(row.row), row.term);
}

TEST(StatementLayout, AnEmptyListWritesNoKeyword) {
  const ListRows none;
  EXPECT_EQ(MontaSqlPronta(u"x", &none, &none), u"x");
}

TEST(StatementLayout, EitherListMayBeMissing) {
  EXPECT_EQ(MontaSqlPronta(u"x", &kSearch),
            u"x\r\nWHERE\r\n      Cliente.Codigo=@txtCodigo@ and \r\n      "
            u"Cliente.Nome>='@txtNome@'");
  EXPECT_EQ(MontaSqlPronta(u"x", nullptr, &kOrder), u"x\r\nORDER BY\r\n      Cliente.Nome");
}

TEST(StatementLayout, RowsWithoutThreeSubItemsAreSkipped) {
  const ListRows rows = {{u"a", {}}, {u"b", {u"=", u"c", u"String"}}, {u"d", {u"="}}};
  EXPECT_EQ(MontaSqlPronta(u"", &rows), u"\r\nWHERE\r\n      b='@c@'");
}

TEST(StatementLayout, TheKeywordIsWrittenAloneWhenNoRowCounts) {
  const ListRows rows = {{u"a", {}}};
  EXPECT_EQ(MontaSqlPronta(u"x", &rows), u"x\r\nWHERE");
}

TEST(StatementLayout, OrderRowsAreTrimmedAndDividedByCommas) {
  const ListRows rows = {{u" a ", {}}, {u"b", {u"x"}}, {u"c", {}}};
  EXPECT_EQ(MontaSqlPronta(u"", nullptr, &rows),
            u"\r\nORDER BY\r\n      a,\r\n      b,\r\n      c");
}

TEST(StatementLayout, TheDateIsWrittenTheSameInEveryDialect) {
  const ListRows rows = {{u"d", {u"=", u"txtD", u"Data"}}};
  EXPECT_EQ(MontaSqlPronta(u"", &rows), u"\r\nWHERE\r\n      d=cDate('@txtD@')");
}

// The formatted column of the example: parts of the field, as the dialect writes them.
String FormattedColumn(const String& dbms) {
  const String piece = mdlObjTxt::sqlFuncao(dbms, u"sqlSubstring");
  const String join = u" " + mdlObjTxt::sqlFuncao(dbms, u"sqlConcat") + u" ";
  return piece + u"(Cliente.Cep,  1,  5)" + join + u"'-'" + join + piece +
         u"(Cliente.Cep,  6,  3)" + join + u"'' as CepFmt";
}

const LayoutCase kLayoutColumns[] = {
    {u"ACCESS", u"Mid(Cliente.Cep,  1,  5) & '-' & Mid(Cliente.Cep,  6,  3) & '' as CepFmt"},
    {u"Microsoft SQL Server",
     u"Substring(Cliente.Cep,  1,  5) & '-' & Substring(Cliente.Cep,  6,  3) & '' as CepFmt"},
    {u"POSTGRESQL",
     u"Substring(Cliente.Cep,  1,  5) || '-' || Substring(Cliente.Cep,  6,  3) || '' as CepFmt"},
};

TEST(StatementLayout, LaysOutAWholeStatementInEachDialect) {
  for (const auto& [dbms, column] : kLayoutColumns) {
    SCOPED_TRACE(ToUtf8(dbms));
    ASSERT_EQ(FormattedColumn(dbms), column);
    const String fields = u"Cliente.Codigo, Cliente.Nome, Cidade.Descricao, " + String(column);
    const String tables = u"Cliente Left Join Cidade on (Cidade.Codigo=Cliente.CodCidade)";
    const String statement = u"Select " + fields + u" From " + tables;
    const String expected =
        u"SELECT\r\n"
        u"      Cliente.Codigo,\r\n"
        u"       Cliente.Nome,\r\n"
        u"       Cidade.Descricao,\r\n"
        u"       " +
        String(column) +
        u" \r\n"
        u"FROM\r\n"
        u"      Cliente \r\n"
        u"      Left Join Cidade on (Cidade.Codigo=Cliente.CodCidade)";
    const String terms =
        u"\r\nWHERE\r\n"
        u"      Cliente.Codigo=@txtCodigo@ and \r\n"
        u"      Cliente.Nome>='@txtNome@'\r\n"
        u"ORDER BY\r\n"
        u"      Cliente.Nome";
    EXPECT_EQ(MontaSqlPronta(statement + u" Where 1 = Null", &kSearch, &kOrder),
              expected + u" " + terms);
    // A failed statement has no such condition, and so no blank before it.
    EXPECT_EQ(MontaSqlPronta(statement, &kSearch, &kOrder), expected + terms);
  }
}

}  // namespace
}  // namespace tessaria::test
