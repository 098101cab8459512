// The names of fields in criteria and orders.
#include "runtime/field_names.h"

#include <gtest/gtest.h>

#include "tests/support/odd_names.h"
#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

TEST(FieldNames, EveryNameIsReadBackAsItWasWritten) {
  for (const char16_t* name : kOddNames) {
    SCOPED_TRACE(ToUtf8(name));
    const String criterion = FieldNameText(name) + u" = 1";
    StringView rest = criterion;
    EXPECT_EQ(TakeFieldName(rest), name);
    EXPECT_EQ(rest, u" = 1");
    const auto order = ReadOrder(FieldNameText(name) + u", " + FieldNameText(name) + u" DESC");
    ASSERT_TRUE(order && order->size() == 2);
    for (const auto& field : *order) EXPECT_EQ(field.Name, name);
    EXPECT_FALSE(order->front().Descending);
    EXPECT_TRUE(order->back().Descending);
  }
}

TEST(FieldNames, AUsualNameIsUnchanged) {
  for (const char16_t* name : {u"codigo", u"código", u"clientes.nome", u"max(limite)", u"a\"b"})
    EXPECT_EQ(FieldNameText(name), name);
  EXPECT_EQ(FieldNameText(u"a]b c"), u"[a]]b c]");
  EXPECT_EQ(FieldNameText(u""), u"[]");
}

TEST(FieldNames, TheNameOfACriterionEndsAtABlankOrAComparison) {
  const struct {
    StringView Text, Name, Rest;
  } cases[] = {{u"codigo = 1", u"codigo", u" = 1"}, {u"codigo=1", u"codigo", u"=1"},
               {u"codigo<>1", u"codigo", u"<>1"},   {u"codigo", u"codigo", u""},
               {u"[a b]='x'", u"a b", u"='x'"},     {u"[]=1", u"", u"=1"}};
  for (const auto& c : cases) {
    StringView rest = c.Text;
    EXPECT_EQ(TakeFieldName(rest), String(c.Name));
    EXPECT_EQ(rest, c.Rest);
  }
  for (const StringView text : {u"", u"= 1", u" codigo = 1", u"[codigo = 1", u"[codigo]] = 1"}) {
    StringView rest = text;
    EXPECT_EQ(TakeFieldName(rest), std::nullopt) << ToUtf8(text);
  }
}

TEST(FieldNames, AnOrderIsNamesWithDirections) {
  const auto order = ReadOrder(u" nome , Nome Completo desc,[a,b]ASC, [c] DESC ,");
  ASSERT_TRUE(order && order->size() == 4);
  EXPECT_EQ((*order)[0].Name, u"nome");
  EXPECT_EQ((*order)[1].Name, u"Nome Completo");
  EXPECT_TRUE((*order)[1].Descending);
  EXPECT_EQ((*order)[2].Name, u"a,b");
  EXPECT_FALSE((*order)[2].Descending);
  EXPECT_EQ((*order)[3].Name, u"c");
  EXPECT_TRUE((*order)[3].Descending);
  EXPECT_TRUE(ReadOrder(u"  ")->empty());
  for (const StringView text : {u"[nome", u", nome", u"nome,,codigo", u"[nome] upa", u"[a]b]"})
    EXPECT_EQ(ReadOrder(text).has_value(), false) << ToUtf8(text);
}

}  // namespace
}  // namespace tessaria::test
