#include "lookup/query_text.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using mdlObjTxt::ColumnName;
using mdlObjTxt::TiraAlias;

struct AliasCase {
  const char16_t* given;
  const char16_t* expected;
};

const AliasCase kAliases[] = {
    {u"upper(nome) as n", u"upper(nome) "},
    {u"codigo", u"codigo"},
    {u"", u""},
    {u"a as b as c", u"a "},
    {u"nome AS n", u"nome AS n"},
    {u"nome As n", u"nome As n"},
    {u"nome as", u"nome as"},
    {u" as n", u" "},
    {u"nome  as n", u"nome  "},
};

TEST(TiraAlias, CutsAfterTheBlankBeforeTheFirstAs) {
  for (const auto& row : kAliases) EXPECT_EQ(TiraAlias(row.given), row.expected);
}

const AliasCase kColumns[] = {
    {u"nome", u"nome"},
    {u" nome ", u"nome"},
    {u"c.nome", u"nome"},
    {u"loja.dbo.c.nome", u"nome"},
    {u"\"nome\"", u"nome"},
    {u"c.\"Nome Completo\"", u"Nome Completo"},
    {u"[c].[Nome]", u"Nome"},
    {u"`c`.`nome`", u"nome"},
    {u"\"a.b\"", u"a.b"},
    {u"\"a\"\"b\"", u"a\"b"},
    {u"[a]]b]", u"a]b"},
    {u"c.nome as n", u"n"},
    {u"c.nome AS \"N\"", u"N"},
    {u"upper(c.nome) as c.n", u"n"},
    {u"", u""},
};

TEST(ColumnName, IsTheAliasOrTheNameWithoutQualifiersAndQuotes) {
  for (const auto& row : kColumns) EXPECT_EQ(ColumnName(row.given), row.expected);
}

}  // namespace
}  // namespace tessaria::test
