// A failed lookup changes nothing: neither that of a description nor that of a bound sibling.
#include "tests/control/sibling_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FailedLookupTest : public SiblingTest {
 protected:
  FailedLookupTest() { (*key)->Value(u"7"); }

  void LoseTheServer() {
    Forget();
    connection->OnStatement = [](const String&) -> memory::Rows {
      throw HostError(errors::ProviderError, u"sem servidor");
    };
  }
};

TEST_F(FailedLookupTest, OfADescriptionKeepsItsKeyAndDoesNotNotifyTheKey) {
  const auto city = AddReturnField(description, u"cidade");
  city->Valor(u"Campinas");
  LoseTheServer();
  AssignTyped(description, u"Ana Maria");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 codigo From clientes Where nome = 'Ana Maria'"));
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_EQ(key->txtEdit().Text(), u"7");
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana Maria"));
}

TEST_F(FailedLookupTest, OfAKeyKeepsTheRowOfABoundDescription) {
  connection->OnStatement = nullptr;
  AddData({{u"nome", host::type::VarWChar}}, {{u"Ana"}})->Refresh();
  Bind(description, u"nome");
  (*description)->Refresh();
  LoseTheServer();
  AssignTyped(key, u"8");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_EQ(description->txtEdit().Text(), u"Ana");
  EXPECT_THAT((*description)->CampoVinculado()->Value(), IsValue(u"Ana"));
}

}  // namespace
}  // namespace tessaria::test
