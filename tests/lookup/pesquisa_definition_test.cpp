#include "tessaria/pesquisa_definition.h"

#include "tessaria/text_property_bag.h"
#include "tests/lookup/faulty_bag.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Adds an entry with that caption.
bool Add(Pesquisa& list, const String& caption, Long before = 0, Long after = 0,
         const String& key = u"", Long number = 0) {
  return list.Add(number, caption, u"", 0, 0, u"", 0, 0, false, false, before, after, key);
}

std::vector<String> Captions(const Pesquisa& list) {
  std::vector<String> captions;
  for (Long i = 1; i <= list.Count(); ++i) captions.push_back(list.Item(i)->Caption());
  return captions;
}

std::vector<Long> Numbers(const Pesquisa& list) {
  std::vector<Long> numbers;
  for (Long i = 1; i <= list.Count(); ++i) numbers.push_back(list.Item(i)->Indice());
  return numbers;
}

TEST(PesquisaDefinition, AnEntryHasTheSettingsItWasAddedWith) {
  Pesquisa list;
  EXPECT_TRUE(
      list.Add(4, u"Nome", u"upper(nome)", 8, 3, u"AAA", 1500, 30, true, true, 0, 0, u"Pesquisa1"));
  const auto item = list.Item(1);
  EXPECT_EQ(item->Indice(), 4);
  EXPECT_EQ(item->Caption(), u"Nome");
  EXPECT_EQ(item->Campo(), u"upper(nome)");
  EXPECT_EQ(item->Tipo(), 8);
  EXPECT_EQ(item->Like(), 3);
  EXPECT_EQ(item->Mascara(), u"AAA");
  EXPECT_EQ(item->Width(), 1500);
  EXPECT_EQ(item->MaxLength(), 30);
  EXPECT_TRUE(item->CompletaDescr());
  EXPECT_TRUE(item->PromptInclude());
  // The library never sets these.
  EXPECT_FALSE(item->CampoPronto());
  EXPECT_EQ(item->OrderBy(), u"");
}

TEST(PesquisaDefinition, EachSettingCanBeChanged) {
  Pesquisa list;
  Add(list, u"a");
  const auto item = list.Item(1);
  item->Indice(9);
  item->Caption(u"b");
  item->Campo(u"c");
  item->PromptInclude(true);
  item->CampoPronto(true);
  item->CompletaDescr(true);
  item->MaxLength(1);
  item->Width(2);
  item->Mascara(u"d");
  item->Like(3);
  item->Tipo(7);
  item->OrderBy(u"e");
  const auto same = list.Item(1);
  EXPECT_EQ(same->Indice(), 9);
  EXPECT_EQ(same->Caption(), u"b");
  EXPECT_EQ(same->Campo(), u"c");
  EXPECT_TRUE(same->PromptInclude());
  EXPECT_TRUE(same->CampoPronto());
  EXPECT_TRUE(same->CompletaDescr());
  EXPECT_EQ(same->MaxLength(), 1);
  EXPECT_EQ(same->Width(), 2);
  EXPECT_EQ(same->Mascara(), u"d");
  EXPECT_EQ(same->Like(), 3);
  EXPECT_EQ(same->Tipo(), 7);
  EXPECT_EQ(same->OrderBy(), u"e");
}

TEST(PesquisaDefinition, EntriesGoToTheEndOrBesideAPosition) {
  Pesquisa list;
  EXPECT_TRUE(Add(list, u"a"));
  EXPECT_TRUE(Add(list, u"b"));
  EXPECT_TRUE(Add(list, u"c", 1));
  EXPECT_TRUE(Add(list, u"d", 3));
  EXPECT_TRUE(Add(list, u"e", 0, 1));
  EXPECT_TRUE(Add(list, u"f", 0, 5));
  EXPECT_THAT(Captions(list), ElementsAre(u"c", u"e", u"a", u"d", u"b", u"f"));
}

struct PlaceCase {
  Long before;
  Long after;
};

const PlaceCase kImpossible[] = {{3, 0}, {0, 3}, {-1, 0}, {0, -1}, {1, 2}, {1, 1}};

TEST(PesquisaDefinition, AnImpossiblePlaceChangesNothing) {
  Pesquisa list;
  EXPECT_FALSE(Add(list, u"x", 1));
  EXPECT_FALSE(Add(list, u"x", 0, 1));
  EXPECT_EQ(list.Count(), 0);
  Add(list, u"a");
  Add(list, u"b");
  for (const auto& place : kImpossible) {
    EXPECT_FALSE(Add(list, u"x", place.before, place.after, u"chave"));
  }
  EXPECT_THAT(Captions(list), ElementsAre(u"a", u"b"));
  EXPECT_FALSE(list.Contains(u"chave"));
}

TEST(PesquisaDefinition, EntriesAreReachedByKeyWithoutRegardToCase) {
  Pesquisa list;
  Add(list, u"a", 0, 0, u"Pesquisa1");
  Add(list, u"b", 1, 0, u"Pesquisa2_1");
  EXPECT_EQ(list.Item(u"Pesquisa1")->Caption(), u"a");
  EXPECT_EQ(list.Item(u"PESQUISA2_1")->Caption(), u"b");
  EXPECT_TRUE(list.Contains(u"pesquisa1"));
  EXPECT_FALSE(list.Contains(u"Pesquisa3"));
}

TEST(PesquisaDefinition, AKeyIsUnique) {
  Pesquisa list;
  EXPECT_TRUE(Add(list, u"a", 0, 0, u"Pesquisa1"));
  EXPECT_FALSE(Add(list, u"b", 0, 0, u"Pesquisa1"));
  EXPECT_FALSE(Add(list, u"b", 0, 0, u"pesquisa1"));
  EXPECT_THAT(Captions(list), ElementsAre(u"a"));
  list.Remove(1);
  EXPECT_TRUE(Add(list, u"b", 0, 0, u"Pesquisa1"));
}

TEST(PesquisaDefinition, TheEmptyKeyIsNotAKey) {
  Pesquisa list;
  EXPECT_TRUE(Add(list, u"a"));
  EXPECT_TRUE(Add(list, u"b"));
  EXPECT_FALSE(list.Contains(u""));
  EXPECT_HOST_ERROR(list.Item(u""), errors::InvalidArgument);
}

TEST(PesquisaDefinition, AMissingEntryIsAnError) {
  Pesquisa list;
  Add(list, u"a");
  for (const Long index : {-1, 0, 2}) {
    EXPECT_HOST_ERROR(list.Item(index), errors::SubscriptOutOfRange);
    EXPECT_HOST_ERROR(list.Remove(index), errors::SubscriptOutOfRange);
  }
  EXPECT_HOST_ERROR(list.Item(u"Pesquisa1"), errors::InvalidArgument);
  EXPECT_EQ(list.Count(), 1);
}

TEST(PesquisaDefinition, EntriesWithoutANumberAreNumberedByTheirPosition) {
  Pesquisa list;
  Add(list, u"a");
  Add(list, u"b");
  EXPECT_THAT(Numbers(list), ElementsAre(1, 2));
  Add(list, u"c", 1);
  EXPECT_THAT(Numbers(list), ElementsAre(1, 2, 3));
  EXPECT_EQ(list.Item(2)->Caption(), u"a");
  list.Remove(1);
  EXPECT_THAT(Numbers(list), ElementsAre(1, 2));
  EXPECT_EQ(list.Item(1)->Caption(), u"a");
}

TEST(PesquisaDefinition, ANumberFromTheCallerIsKept) {
  Pesquisa list;
  Add(list, u"a");
  Add(list, u"b", 0, 0, u"", 7);
  Add(list, u"c");
  Add(list, u"d", 0, 0, u"", 7);
  EXPECT_THAT(Numbers(list), ElementsAre(1, 7, 3, 7));
  list.Remove(1);
  EXPECT_THAT(Numbers(list), ElementsAre(7, 2, 7));
  list.Item(1)->Indice(0);
  list.Item(2)->Indice(5);
  EXPECT_THAT(Numbers(list), ElementsAre(1, 5, 7));
}

TEST(PesquisaDefinition, ClearRemovesEntriesAndKeys) {
  Pesquisa list;
  Add(list, u"a", 0, 0, u"Pesquisa1");
  const auto kept = list.Item(1);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_FALSE(list.Contains(u"Pesquisa1"));
  EXPECT_EQ(kept->Caption(), u"a");
}

/// Two entries, the second of which has every setting.
void Fill(Pesquisa& list) {
  Add(list, u"");
  list.Add(7, u"Preço", u"preco", 2, 4, u"$#.##0,00", 1500, 12, true, true, 0, 0, u"Pesquisa2_1");
  list.Item(2)->CampoPronto(true);
  list.Item(2)->OrderBy(u"preco Desc");
}

void ExpectFilled(const Pesquisa& list) {
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Item(1)->Indice(), 1);
  EXPECT_EQ(list.Item(1)->Caption(), u"");
  EXPECT_FALSE(list.Item(1)->PromptInclude());
  const auto item = list.Item(u"Pesquisa2_1");
  EXPECT_EQ(item, list.Item(2));
  EXPECT_EQ(item->Indice(), 7);
  EXPECT_EQ(item->Caption(), u"Preço");
  EXPECT_EQ(item->Campo(), u"preco");
  EXPECT_TRUE(item->PromptInclude());
  EXPECT_TRUE(item->CampoPronto());
  EXPECT_TRUE(item->CompletaDescr());
  EXPECT_EQ(item->MaxLength(), 12);
  EXPECT_EQ(item->Width(), 1500);
  EXPECT_EQ(item->Mascara(), u"$#.##0,00");
  EXPECT_EQ(item->Like(), 4);
  EXPECT_EQ(item->Tipo(), 2);
  EXPECT_EQ(item->OrderBy(), u"preco Desc");
}

TEST(PesquisaStorage, AListIsReadBackCompletely) {
  Pesquisa stored;
  Fill(stored);
  TextPropertyBag bag;
  stored.WriteProperties(bag);
  TextPropertyBag again;
  again.Load(bag.Save());
  Pesquisa loaded;
  Add(loaded, u"velha");
  loaded.ReadProperties(again);
  ExpectFilled(loaded);
  Add(loaded, u"nova", 1);
  EXPECT_THAT(Numbers(loaded), ElementsAre(1, 2, 7));
}

TEST(PesquisaStorage, AnEmptyListStoresNothing) {
  TextPropertyBag bag;
  const String before = bag.Save();
  Pesquisa().WriteProperties(bag);
  EXPECT_EQ(bag.Save(), before);
  Pesquisa list;
  Add(list, u"velha");
  list.ReadProperties(bag);
  EXPECT_THAT(Captions(list), IsEmpty());
}

TEST(PesquisaStorage, BrokenValuesAreReportedAfterAllOthersAreLoaded) {
  Pesquisa stored;
  Fill(stored);
  TextPropertyBag inner;
  stored.WriteProperties(inner);
  inner.WriteProperty(u"Pesquisa2Width", Long{70000}, Long{0});
  inner.WriteProperty(u"Pesquisa2Tipo", u"texto", u"");
  inner.WriteProperty(u"Pesquisa3OrderBy", u"nome", u"");
  const FaultyBag bag(inner, {u"Pesquisa2Campo"});
  Pesquisa loaded;
  EXPECT_HOST_ERROR(loaded.ReadProperties(bag), errors::TypeMismatch);
  ASSERT_EQ(loaded.Count(), 3);
  EXPECT_EQ(loaded.Item(2)->Width(), 0);
  EXPECT_EQ(loaded.Item(2)->Tipo(), 0);
  EXPECT_EQ(loaded.Item(2)->Campo(), u"");
  EXPECT_EQ(loaded.Item(2)->Caption(), u"Preço");
  EXPECT_EQ(loaded.Item(3)->OrderBy(), u"nome");
  EXPECT_THAT(Numbers(loaded), ElementsAre(1, 7, 3));
}

TEST(PesquisaStorage, ARepeatedKeyIsBrokenAndBelongsToTheFirstEntry) {
  TextPropertyBag bag;
  for (const auto* number : {u"1", u"2"}) {
    bag.WriteProperty(u"Pesquisa" + String(number) + u"Chave", u"Pesquisa1", u"");
    bag.WriteProperty(u"Pesquisa" + String(number) + u"Caption", number, u"");
  }
  Pesquisa list;
  EXPECT_HOST_ERROR(list.ReadProperties(bag), errors::TypeMismatch);
  EXPECT_THAT(Captions(list), ElementsAre(u"1", u"2"));
  EXPECT_EQ(list.Item(u"Pesquisa1")->Caption(), u"1");
}

TEST(PesquisaStorage, TheClassHasAName) { EXPECT_EQ(Pesquisa().ClassName(), u"Pesquisa"); }

}  // namespace
}  // namespace tessaria::test
