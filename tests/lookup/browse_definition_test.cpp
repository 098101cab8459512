#include "tessaria/browse_definition.h"

#include "tessaria/text_property_bag.h"
#include "tests/lookup/faulty_bag.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

struct TextCase {
  const char16_t* name;
  String (Browse::*get)() const;
  void (Browse::*let)(const String&);
};

const TextCase kTexts[] = {
    {u"BrwTitulo", &Browse::BrwTitulo, &Browse::BrwTitulo},
    {u"BrowseTable", &Browse::BrowseTable, &Browse::BrowseTable},
    {u"BrwCampo", &Browse::BrwCampo, &Browse::BrwCampo},
    {u"BrwCampoIrmao", &Browse::BrwCampoIrmao, &Browse::BrwCampoIrmao},
    {u"BrwCampoOutros", &Browse::BrwCampoOutros, &Browse::BrwCampoOutros},
    {u"BrwGroupBy", &Browse::BrwGroupBy, &Browse::BrwGroupBy},
    {u"BrwLeftJoin", &Browse::BrwLeftJoin, &Browse::BrwLeftJoin},
    {u"BrwWhere", &Browse::BrwWhere, &Browse::BrwWhere},
};

void ExpectColumn(const ColunaGrid& column, const String& field, const String& caption,
                  const String& mask, float width, bool visible) {
  EXPECT_EQ(column.Campo(), field);
  EXPECT_EQ(column.Caption(), caption);
  EXPECT_EQ(column.Mascara(), mask);
  EXPECT_EQ(column.Width(), width);
  EXPECT_EQ(column.Visible(), visible);
}

void Fill(Browse& browse) {
  for (const auto& text : kTexts) (browse.*text.let)(u"de " + String(text.name));
  browse.Outros().Add(u"cidade");
  browse.Outros().Add(u"");
  browse.cgrColGrid().Add(u"codigo", u"Código", u"00000", 1200.5F, true);
  browse.cgrColGrid().Add(u"", u"", u"", 0, true);
  browse.cgrColGrid().Add(u"nome", u"Nome", u"", 3000, false);
}

void ExpectFilled(const Browse& browse) {
  for (const auto& text : kTexts) EXPECT_EQ((browse.*text.get)(), u"de " + String(text.name));
  ASSERT_EQ(browse.Outros().Count(), 2);
  EXPECT_EQ(browse.Outros().Item(1)->Nome(), u"cidade");
  EXPECT_EQ(browse.Outros().Item(2)->Nome(), u"");
  ASSERT_EQ(browse.cgrColGrid().Count(), 3);
  ExpectColumn(*browse.cgrColGrid().Item(1), u"codigo", u"Código", u"00000", 1200.5F, true);
  ExpectColumn(*browse.cgrColGrid().Item(2), u"", u"", u"", 0, true);
  ExpectColumn(*browse.cgrColGrid().Item(3), u"nome", u"Nome", u"", 3000, false);
}

TEST(BrowseDefinition, TextsStartEmptyAndAreIndependent) {
  Browse browse;
  for (const auto& text : kTexts) EXPECT_EQ((browse.*text.get)(), u"");
  Fill(browse);
  ExpectFilled(browse);
}

TEST(BrowseDefinition, ReturnFieldsCountFromOne) {
  ListaOutros fields;
  EXPECT_EQ(fields.Count(), 0);
  fields.Add(u"cidade");
  fields.Add(u"uf");
  EXPECT_EQ(fields.Count(), 2);
  EXPECT_EQ(fields.Item(1)->Nome(), u"cidade");
  EXPECT_EQ(fields.Item(2)->Nome(), u"uf");
  EXPECT_SAME(fields.Item(2)->Valor(), Variant());
  fields.Item(2)->Valor(u"SP");
  EXPECT_SAME(fields.Item(2)->Valor(), u"SP");
  fields.Clear();
  EXPECT_EQ(fields.Count(), 0);
}

TEST(BrowseDefinition, AnItemOutsideAListIsAnError) {
  Browse browse;
  Fill(browse);
  for (const Long index : {-1, 0, 4}) {
    EXPECT_HOST_ERROR(browse.Outros().Item(index), errors::SubscriptOutOfRange);
    EXPECT_HOST_ERROR(browse.cgrColGrid().Item(index), errors::SubscriptOutOfRange);
  }
}

TEST(BrowseDefinition, AnItemOutlivesItsList) {
  Browse browse;
  Fill(browse);
  const auto column = browse.cgrColGrid().Item(1);
  const auto field = browse.Outros().Item(1);
  browse.cgrColGrid().Clear();
  browse.Outros().Clear();
  EXPECT_EQ(column->Campo(), u"codigo");
  EXPECT_EQ(field->Nome(), u"cidade");
}

TEST(BrowseDefinition, AColumnsSettingsCanBeChanged) {
  Browse browse;
  Fill(browse);
  const auto column = browse.cgrColGrid().Item(2);
  column->Caption(u"b");
  column->Campo(u"a");
  column->Mascara(u"c");
  column->Width(7.5F);
  column->Visible(false);
  ExpectColumn(*browse.cgrColGrid().Item(2), u"a", u"b", u"c", 7.5F, false);
}

TEST(CopiaColunas, ReplacesTheTargetsColumnsByCopies) {
  Browse source;
  Browse target;
  Fill(source);
  target.cgrColGrid().Add(u"velha", u"", u"", 1, true);
  mdlObjTxt::CopiaColunas(source.cgrColGrid(), target.cgrColGrid(), false);
  ASSERT_EQ(target.cgrColGrid().Count(), 3);
  ExpectColumn(*target.cgrColGrid().Item(1), u"codigo", u"Código", u"00000", 1200.5F, true);
  ExpectColumn(*target.cgrColGrid().Item(3), u"nome", u"Nome", u"", 3000, false);
  target.cgrColGrid().Item(1)->Caption(u"outra");
  ExpectFilled(source);
}

TEST(CopiaColunas, EmptiesTheSourceWhenAsked) {
  Browse source;
  Browse target;
  Fill(source);
  mdlObjTxt::CopiaColunas(source.cgrColGrid(), target.cgrColGrid(), true);
  EXPECT_EQ(source.cgrColGrid().Count(), 0);
  EXPECT_EQ(target.cgrColGrid().Count(), 3);
  EXPECT_EQ(source.Outros().Count(), 2);
}

TEST(CopiaColunas, AcceptsDefinitionsAndCopiesOnlyTheirColumns) {
  Browse source;
  Browse target;
  Fill(source);
  mdlObjTxt::CopiaColunas(source, target, false);
  EXPECT_EQ(target.cgrColGrid().Count(), 3);
  EXPECT_EQ(target.BrowseTable(), u"");
  EXPECT_EQ(target.Outros().Count(), 0);
  ExpectFilled(source);
  mdlObjTxt::CopiaColunas(source, target, true);
  EXPECT_EQ(source.cgrColGrid().Count(), 0);
  EXPECT_EQ(target.cgrColGrid().Count(), 3);
}

TEST(CopiaColunas, AnEmptySourceEmptiesTheTarget) {
  ListaColunas source;
  Browse target;
  Fill(target);
  mdlObjTxt::CopiaColunas(source, target.cgrColGrid(), false);
  EXPECT_EQ(target.cgrColGrid().Count(), 0);
}

TEST(CopiaColunas, AListCopiedOntoItselfIsEmptied) {
  Browse browse;
  Fill(browse);
  mdlObjTxt::CopiaColunas(browse.cgrColGrid(), browse.cgrColGrid(), false);
  EXPECT_EQ(browse.cgrColGrid().Count(), 0);
}

TEST(BrowseStorage, ADefinitionIsReadBackCompletely) {
  Browse stored;
  Fill(stored);
  TextPropertyBag bag;
  stored.WriteProperties(bag);
  TextPropertyBag again;
  again.Load(bag.Save());
  Browse loaded;
  loaded.ReadProperties(again);
  ExpectFilled(loaded);
}

TEST(BrowseStorage, AnEmptyDefinitionStoresNothing) {
  TextPropertyBag bag;
  const String before = bag.Save();
  Browse().WriteProperties(bag);
  EXPECT_EQ(bag.Save(), before);
}

TEST(BrowseStorage, ReadingReplacesTheFormerContents) {
  Browse browse;
  Fill(browse);
  browse.ReadProperties(TextPropertyBag());
  for (const auto& text : kTexts) EXPECT_EQ((browse.*text.get)(), u"");
  EXPECT_EQ(browse.Outros().Count(), 0);
  EXPECT_EQ(browse.cgrColGrid().Count(), 0);
}

TEST(BrowseStorage, ResultsOfLookupsAreNotStored) {
  Browse stored;
  stored.Outros().Add(u"cidade");
  stored.Outros().Item(1)->Valor(u"Campinas");
  TextPropertyBag bag;
  stored.WriteProperties(bag);
  Browse loaded;
  loaded.ReadProperties(bag);
  EXPECT_SAME(loaded.Outros().Item(1)->Valor(), Variant());
}

TEST(BrowseStorage, MissingValuesTakeTheirDefaults) {
  TextPropertyBag bag;
  bag.WriteProperty(u"BrwCampo", u"codigo", u"");
  bag.WriteProperty(u"Coluna1Caption", u"Código", u"");
  bag.WriteProperty(u"Coluna2Width", 500.0F, 0.0F);
  bag.WriteProperty(u"Coluna4Campo", u"behind a gap", u"");
  Browse browse;
  browse.ReadProperties(bag);
  EXPECT_EQ(browse.BrwCampo(), u"codigo");
  ASSERT_EQ(browse.cgrColGrid().Count(), 2);
  ExpectColumn(*browse.cgrColGrid().Item(1), u"", u"Código", u"", 0, true);
  ExpectColumn(*browse.cgrColGrid().Item(2), u"", u"", u"", 500, true);
}

TEST(BrowseStorage, ABrokenValueIsReportedAfterAllOthersAreLoaded) {
  Browse stored;
  Fill(stored);
  TextPropertyBag bag;
  stored.WriteProperties(bag);
  bag.WriteProperty(u"Coluna1Width", u"larga", 0.0F);
  bag.WriteProperty(u"Coluna3Visible", u"talvez", true);
  bag.WriteProperty(u"BrwTitulo", Variant::Null(), u"");
  Browse loaded;
  EXPECT_HOST_ERROR(loaded.ReadProperties(bag), errors::TypeMismatch);
  EXPECT_EQ(loaded.BrwTitulo(), u"");
  EXPECT_EQ(loaded.BrwWhere(), u"de BrwWhere");
  ASSERT_EQ(loaded.Outros().Count(), 2);
  ASSERT_EQ(loaded.cgrColGrid().Count(), 3);
  ExpectColumn(*loaded.cgrColGrid().Item(1), u"codigo", u"Código", u"00000", 0, true);
  ExpectColumn(*loaded.cgrColGrid().Item(3), u"nome", u"Nome", u"", 3000, true);
}

TEST(BrowseStorage, AWidthBeyondSinglePrecisionIsBroken) {
  TextPropertyBag bag;
  bag.WriteProperty(u"Coluna1Width", 1e300, 0.0);
  Browse browse;
  EXPECT_HOST_ERROR(browse.ReadProperties(bag), errors::TypeMismatch);
  EXPECT_EQ(browse.cgrColGrid().Item(1)->Width(), 0);
}

TEST(BrowseStorage, AValueThatTheBagCannotReadIsBroken) {
  Browse stored;
  Fill(stored);
  TextPropertyBag inner;
  stored.WriteProperties(inner);
  const FaultyBag bag(inner, {u"Outros1Nome", u"Coluna2Campo", u"BrowseTable"});
  Browse loaded;
  EXPECT_HOST_ERROR(loaded.ReadProperties(bag), errors::TypeMismatch);
  EXPECT_EQ(loaded.BrowseTable(), u"");
  EXPECT_EQ(loaded.BrwCampo(), u"de BrwCampo");
  ASSERT_EQ(loaded.Outros().Count(), 2);
  EXPECT_EQ(loaded.Outros().Item(1)->Nome(), u"");
  EXPECT_EQ(loaded.cgrColGrid().Count(), 3);
}

TEST(BrowseStorage, TheClassHasAName) { EXPECT_EQ(Browse().ClassName(), u"Browse"); }

}  // namespace
}  // namespace tessaria::test
