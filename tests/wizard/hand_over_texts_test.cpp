// The texts that the wizard's selection becomes in the definition of a lookup.
#include "wizard/hand_over_texts.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using wizard::BrwCampoOutros;
using wizard::BrwWhere;

TEST(HandOverTexts, TheConditionJoinsTheSearchRows) {
  EXPECT_EQ(BrwWhere({{u"Cliente.Codigo", {u"=", u"txtCodigo", u"Numerico"}},
                      {u"Cliente.Nome", {u">=", u"txtNome", u"String"}}}),
            u"Cliente.Codigo=@txtCodigo@ and Cliente.Nome>='@txtNome@'");
}

TEST(HandOverTexts, TheQuotesGoByTheDataType) {
  EXPECT_EQ(BrwWhere({{u"a.x", {u"=", u"t", u"String"}}}), u"a.x='@t@'");
  EXPECT_EQ(BrwWhere({{u"a.x", {u"<=", u"t", u"Data"}}}), u"a.x<=cDate('@t@')");
  EXPECT_EQ(BrwWhere({{u"a.x", {u"<>", u"t", u"Numerico"}}}), u"a.x<>@t@");
  EXPECT_EQ(BrwWhere({{u"a.x", {u"=", u"t", u""}}}), u"a.x=@t@");
}

TEST(HandOverTexts, TextsAreTrimmed) {
  EXPECT_EQ(BrwWhere({{u" a.x ", {u" = ", u" t ", u"String"}}}), u"a.x='@t@'");
}

TEST(HandOverTexts, RowsWithoutThreeSubItemsAreSkipped) {
  EXPECT_EQ(BrwWhere({{u"a.x", {}}, {u"a.y", {u"=", u"t"}}, {u"a.z", {u"=", u"t", u"Numerico"}}}),
            u"a.z=@t@");
  EXPECT_EQ(BrwWhere({}), u"");
}

TEST(HandOverTexts, ARowThatWasNotFilledInGivesTwoSigns) {
  EXPECT_EQ(BrwWhere({{u"a.x", {u"", u"", u""}}}), u"a.x@@");
}

TEST(HandOverTexts, KeyAndSiblingAreNoOtherFields) {
  EXPECT_EQ(BrwCampoOutros(u"codigo, nome, cidade, uf", u"codigo", u"nome", u""), u"cidade, uf");
  EXPECT_EQ(BrwCampoOutros(u"cidade, codigo, uf", u"codigo", u"", u""), u"cidade,  uf");
  EXPECT_EQ(BrwCampoOutros(u"cidade, nome, codigo", u"codigo", u"nome", u""), u"cidade");
  EXPECT_EQ(BrwCampoOutros(u"codigo", u"codigo", u"", u""), u"");
  EXPECT_EQ(BrwCampoOutros(u"cidade", u"", u"", u""), u"cidade");
  EXPECT_EQ(BrwCampoOutros(u"", u"codigo", u"nome", u""), u"");
}

TEST(HandOverTexts, OfSeveralTablesTheNamesHaveTheMainOne) {
  EXPECT_EQ(BrwCampoOutros(u"Cliente.id, Cliente.nome, Cidade.id", u"id", u"nome", u"Cliente"),
            u"Cidade.id");
  EXPECT_EQ(BrwCampoOutros(u"Cidade.id, Cliente.id", u"id", u"", u"Cliente"), u"Cidade.id");
  EXPECT_EQ(BrwCampoOutros(u"id, nome", u"id", u"nome", u"Cliente"), u"id, nome");
}

TEST(HandOverTexts, AnEmptyKeyCutsNothing) {
  EXPECT_EQ(BrwCampoOutros(u"Cliente., Cliente.id", u"", u"", u"Cliente"), u"Cliente., Cliente.id");
}

TEST(HandOverTexts, QualifiedNamesAreCutAsTheyStand) {
  EXPECT_EQ(
      BrwCampoOutros(u"cliente.id, cliente.nome, cidade.id", u"cidade.id", u"cliente.nome", u""),
      u"cliente.id");
}

TEST(HandOverTexts, EachNameIsCutTwiceAtTheMost) {
  EXPECT_EQ(BrwCampoOutros(u"id, id, id, uf", u"id", u"", u""), u"id, uf");
}

TEST(HandOverTexts, ACutNeverStartsOrEndsInsideAName) {
  EXPECT_EQ(BrwCampoOutros(u"cidade, id", u"id", u"", u""), u"cidade");
  EXPECT_EQ(BrwCampoOutros(u"idade, valid, id", u"id", u"", u""), u"idade, valid");
  EXPECT_EQ(BrwCampoOutros(u"id_cidade, não_id, idé", u"id", u"", u""), u"id_cidade, não_id, idé");
  EXPECT_EQ(BrwCampoOutros(u"x.id, id", u"id", u"", u""), u"x.id");
  EXPECT_EQ(BrwCampoOutros(u"vendas.cliente.id, cliente.id", u"id", u"", u"cliente"),
            u"vendas.cliente.id");
}

TEST(HandOverTexts, ACutNeverStartsInsideQuotes) {
  EXPECT_EQ(BrwCampoOutros(u"\"nota id\", id", u"id", u"", u""), u"\"nota id\"");
  EXPECT_EQ(BrwCampoOutros(u"[nota id], id", u"id", u"", u""), u"[nota id]");
  EXPECT_EQ(BrwCampoOutros(u"nome || ' id ' as x, id", u"id", u"", u""), u"nome || ' id ' as x");
  EXPECT_EQ(BrwCampoOutros(u"\"Id\", nome", u"\"Id\"", u"", u""), u"nome");
}

TEST(HandOverTexts, ACutNeverStartsInsideAnExpression) {
  EXPECT_EQ(BrwCampoOutros(u"codigo, nome, Str(codigo) & ' - ' & nome as rotulo", u"codigo",
                           u"nome", u""),
            u"Str(codigo) & ' - ' & nome as rotulo");
  EXPECT_EQ(BrwCampoOutros(u"Mid(codigo,  1,  2) & '-' & '' as X, codigo", u"codigo", u"", u""),
            u"Mid(codigo,  1,  2) & '-' & '' as X");
  EXPECT_EQ(BrwCampoOutros(u"Cliente.nome, Str(Cliente.id) || Cliente.nome as r, Cliente.id", u"id",
                           u"nome", u"Cliente"),
            u"Str(Cliente.id) || Cliente.nome as r");
  EXPECT_EQ(BrwCampoOutros(u"f(a, codigo, b) as x, codigo, uf", u"codigo", u"", u""),
            u"f(a, codigo, b) as x,  uf");
  EXPECT_EQ(BrwCampoOutros(u"uf || codigo as x", u"codigo", u"", u""), u"uf || codigo as x");
}

TEST(HandOverTexts, AConcatenatedKeyLeavesItsExpression) {
  EXPECT_EQ(BrwCampoOutros(u"a || b as rotulo, uf", u"rotulo", u"", u""), u"a || b as  uf");
  EXPECT_EQ(BrwCampoOutros(u"nome, a || b as rotulo", u"rotulo", u"nome", u""), u"a || b as");
}

}  // namespace
}  // namespace tessaria::test
