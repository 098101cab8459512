// One half of a pair, tested alone: the sibling and the database are plain state.

#include "control/pair.h"

#include "tests/control/part_fakes.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct FakePairForm final : PairForm {
  std::shared_ptr<host::TsTextWidget> Sibling() const override { return sibling; }
  String Condition(const Browse& definition) const override { return definition.BrwWhere(); }

  std::shared_ptr<FakeControlWidget> sibling = std::make_shared<FakeControlWidget>();
};

struct FakeEvents final : tsTextEvents {
  void Show() override {}
  void Change() override {}
  void KeyDown(Integer&, Integer&) override {}
  void KeyPress(Integer&) override {}
  void KeyUp(Integer&, Integer&) override {}
  void BrowseReturn(bool&, Variant&) override { ++returns; }

  int returns = 0;
};

class PairPartTest : public PartTest {
 protected:
  PairPartTest() {
    members.TipoControle = TipoControle::Browse;
    members.TxtIrmao = u"txtIrmao";
    members.bIrmaoConectado = true;
    members.bCarregandoCampo = true;
    members.Value = u"7";
    lookup.BrowseTable(u"clientes");
    lookup.BrwCampo(u"codigo");
    lookup.BrwCampoIrmao(u"nome");
    Database().OnStatement = [this](const String& statement) {
      statements.push_back(statement);
      if (databaseFails) throw HostError(errors::TypeMismatch);
      return memory::Rows{{{u"nome"}}, {{u"Ana"}}};
    };
  }
  void MakeDescription() { members.TipoControle = TipoControle::Descricao; }
  FakeControl& Sibling() { return form.sibling->control; }

  FakePairForm form;
  FakeEvents events;
  Definitions lookup{members};
  Pair pair{site, box, members, members, members, lookup, form, events};
  std::vector<String> statements;
  bool databaseFails = false;
};

TEST_F(PairPartTest, AKeyPassesWhatItFindsToItsDescription) {
  pair.Follow(AssignMode::Write);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"Value"));
  EXPECT_SAME(Sibling().value, u"Ana");
}

TEST_F(PairPartTest, AShownRowIsAlsoShownToTheSibling) {
  pair.Follow(AssignMode::Show);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"ShowValue"));
}

TEST_F(PairPartTest, AProgramsAssignmentIsNotPassedOn) {
  members.bCarregandoCampo = false;
  pair.Follow(AssignMode::Write);
  EXPECT_THAT(Sibling().calls, IsEmpty());
  EXPECT_THAT(statements, IsEmpty());
}

TEST_F(PairPartTest, AnIncompleteLookupQueriesNothing) {
  lookup.BrwCampoIrmao(u"");
  pair.Follow(AssignMode::Write);
  EXPECT_THAT(statements, IsEmpty());
}

TEST_F(PairPartTest, ABlankEmptiesSiblingAndReturnFieldsWithoutASearch) {
  lookup.Browse()->Outros().Add(u"cidade");
  lookup.Browse()->Outros().Item(1)->Valor(u"Campinas");
  members.Value = Variant::Null();
  pair.Follow(AssignMode::Write);
  EXPECT_SAME(Sibling().value, Variant::Null());
  EXPECT_SAME(lookup.Browse()->Outros().Item(1)->Valor(), Variant());
  EXPECT_THAT(statements, IsEmpty());
}

TEST_F(PairPartTest, AFailedSearchDoesNotChangeTheSibling) {
  databaseFails = true;
  pair.Follow(AssignMode::Write);
  EXPECT_THAT(Sibling().calls, IsEmpty());
  EXPECT_EQ(Told().size(), 1u);
}

TEST_F(PairPartTest, ADescriptionLetsItsKeyRefreshTheReturnFields) {
  MakeDescription();
  pair.Follow(AssignMode::Write);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"Value", u"AtualizaIrmao keys", u"BrowseReturn"));
}

TEST_F(PairPartTest, AShownDescriptionShowsItsKeyAgain) {
  MakeDescription();
  pair.Follow(AssignMode::Show);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"ShowValue", u"ShowSibling keys", u"BrowseReturn"));
}

TEST_F(PairPartTest, ADescriptionSearchesOnlyUnderItsKey) {
  MakeDescription();
  lookup.BrwCampoIrmao(u"c.codigo");
  lookup.BrwWhere(u"ativo = 1");
  State().vntValorIrmao = Long{7};
  pair.Follow(AssignMode::Write);
  ASSERT_EQ(statements.size(), 1u);
  EXPECT_NE(statements[0].find(u"ativo = 1 And c.codigo = 7"), String::npos)
      << ToUtf8(statements[0]);
}

TEST_F(PairPartTest, ARefreshOfKeysOnlySearchesAndKeepsTheSibling) {
  pair.Refresh(true, true, AssignMode::Write);
  EXPECT_EQ(statements.size(), 1u);
  EXPECT_THAT(Sibling().calls, IsEmpty());
  EXPECT_EQ(events.returns, 1);
}

TEST_F(PairPartTest, ARefreshNeedsNoLoadedValueAndRaisesNothingForABlank) {
  members.bCarregandoCampo = false;
  members.Value = Variant::Null();
  pair.Refresh(false, true, AssignMode::Write);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"Value"));
  EXPECT_EQ(events.returns, 0);
}

TEST_F(PairPartTest, ARefreshOfADescriptionIsNotNarrowedToItsKey) {
  MakeDescription();
  State().vntValorIrmao = Long{7};
  pair.Refresh(false, false, AssignMode::Write);
  ASSERT_EQ(statements.size(), 1u);
  EXPECT_EQ(statements[0].find(u"nome = 7"), String::npos) << ToUtf8(statements[0]);
  EXPECT_THAT(Sibling().calls, ElementsAre(u"Value"));
}

TEST_F(PairPartTest, TheKeyOfATextIsFetchedBetweenApostrophes) {
  Sibling().value = u"d'Água";
  pair.FetchSiblingLiteral();
  EXPECT_SAME(State().vntValorIrmao, u"'d''Água'");
}

TEST_F(PairPartTest, TheKeyOfANumberIsFetchedAsItIs) {
  Sibling().value = Long{12};
  Sibling().tipoDado = 5;
  pair.FetchSiblingLiteral();
  EXPECT_SAME(State().vntValorIrmao, Long{12});
}

TEST_F(PairPartTest, AFieldWithoutASiblingHasNoKey) {
  members.bIrmaoConectado = false;
  State().vntValorIrmao = Long{12};
  pair.FetchSiblingLiteral();
  EXPECT_SAME(State().vntValorIrmao, Variant());
}

TEST_F(PairPartTest, ACompletionWithoutALookupIsReported) {
  MakeDescription();
  lookup.BrwCampo(u"");
  pair.Complete(u'A');
  EXPECT_EQ(Told().size(), 1u);
  EXPECT_THAT(statements, IsEmpty());
}

TEST_F(PairPartTest, AnAccentAloneCompletesNothing) {
  MakeDescription();
  txtEdit.Text(u"An");
  pair.Complete(219);
  pair.Complete(222);
  EXPECT_THAT(statements, IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
