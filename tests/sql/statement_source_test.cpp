// The table and columns of a query, read from its text.
#include "hosts/sql/statements/statement_source.h"

#include <gtest/gtest.h>

#include "hosts/sql/statements/statement_guard.h"
#include "tests/support/printers.h"

namespace tessaria::sql {
namespace {

// The table's parts with "/" between, then " *" or the items; "-" is an expression, "" no source.
String Told(StringView text) {
  const auto source = SourceOf(text, Dialect::SqlServer);
  if (!source) return {};
  String told = source->catalogue + u"/" + source->schema + u"/" + source->table;
  if (source->isWhole) told += u" *";
  for (const auto& item : source->items) told += u" " + item.value_or(u"-");
  return told;
}

struct SourceCase {
  StringView text, told;
};

constexpr SourceCase kSources[] = {
    {u"Select * From t", u"//t *"},
    {u"select t.* from dbo.t as t where a = 1", u"/dbo/t *"},
    {u"Select * From outro.dbo.t", u"outro/dbo/t *"},
    {u"Select * From outro..t", u"outro//t *"},
    {u"Select * From [Meu Banco].[dbo].[T]]1] x", u"Meu Banco/dbo/T]1 *"},
    {u"Select * From srv.outro.dbo.t", u""},
    {u"Select * From #t", u""},
    {u"Select * From t.", u""},
    {u"Select codigo, [Nome], t.\"Valor\" From t", u"//t codigo Nome Valor"},
    {u"Select codigo as k, nome apelido, dbo.t.valor As [v] From t", u"//t codigo nome valor"},
    {u"Select Top 1 codigo, nome From t", u"//t codigo nome"},
    {u"Select Top (10) Percent codigo From t", u"//t codigo"},
    {u"Select All codigo From t", u"//t codigo"},
    {u"Select upper(nome) nome, codigo + 1, 'x', 7, -a, b = c From t", u"//t - - - - - -"},
    {u"Select (Select Max(a) From u) m, codigo From t", u"//t - codigo"},
    {u"Select Case When a = 1 Then 2 End, Null, Current_Timestamp, [Null] From t",
     u"//t - - - Null"},
    {u"Select *, 1 From t", u""},
    {u"Update t set a = 1", u""},
    {u"Select 1", u""},
};

TEST(StatementSource, IsReadFromTheText) {
  for (const SourceCase& c : kSources) EXPECT_EQ(Told(c.text), c.told) << ToUtf8(c.text);
}

Columns Named(const std::vector<String>& names) {
  Columns columns;
  for (const String& name : names) {
    columns.emplace_back();
    columns.back().name = name;
  }
  return columns;
}

TEST(StatementSource, IsFilledInWhenTheDriverReportsNothing) {
  Columns columns = Named({u"k", u"n", u"m"});
  FillSource(columns, *SourceOf(u"Select codigo k, nome n, 1 m From dbo.t", Dialect::SqlServer));
  EXPECT_EQ(columns[0].baseColumn, u"codigo");
  EXPECT_EQ(columns[0].table, u"t");
  EXPECT_EQ(columns[0].schema, u"dbo");
  EXPECT_EQ(columns[1].baseColumn, u"nome");
  EXPECT_EQ(columns[2].baseColumn, u"");
  EXPECT_EQ(columns[2].table, u"");
}

TEST(StatementSource, StarGivesEachColumnItsOwnName) {
  Columns columns = Named({u"Codigo", u"Nome"});
  FillSource(columns, *SourceOf(u"Select * From t", Dialect::Access));
  EXPECT_EQ(columns[0].baseColumn, u"Codigo");
  EXPECT_EQ(columns[1].baseColumn, u"Nome");
}

TEST(StatementSource, IsLeftAloneWhenTheDriverReportsOneOrTheNumberDiffers) {
  const auto source = *SourceOf(u"Select a, b From t", Dialect::SqlServer);
  Columns told = Named({u"a", u"b"});
  told[1].table = u"outra";
  FillSource(told, source);
  EXPECT_EQ(told[0].baseColumn, u"");
  Columns fewer = Named({u"a"});
  FillSource(fewer, source);
  EXPECT_EQ(fewer[0].baseColumn, u"");
}

}  // namespace
}  // namespace tessaria::sql
