// A key and its description when handlers interfere, and when one of the two is removed.

#include "tests/control/sibling_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- Handlers that assign -----------------------------------------------------------------------

TEST_F(SiblingTest, AKeyAssignedWhileTheFormerOneIsPassedOnIsAlsoLookedUp) {
  connection->OnStatement = [](const String& statement) -> memory::Rows {
    return {{{u"nome"}}, {{EndsWith(statement, u"'8'") ? u"Bruno" : u"Ana"}}};
  };
  description->OnChange = [&] {
    description->OnChange = nullptr;
    (*key)->Value(u"8");
  };
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7'",
                          u"Select Top 1 nome From clientes Where codigo = '8'"));
  EXPECT_THAT((*key)->Value(), IsValue(u"8"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Bruno"));
  EXPECT_EQ(description->txtEdit().Text(), u"Bruno");
}

TEST_F(SiblingTest, AKeyAssignedByItsOwnBrowseReturnIsAlsoLookedUp) {
  connection->OnStatement = [](const String& statement) -> memory::Rows {
    const bool isBruno = EndsWith(statement, u"'8'") || EndsWith(statement, u"'Bruno'");
    if (StartsWith(statement, u"Select Top 1 nome"))
      return {{{u"nome"}}, {{isBruno ? u"Bruno" : u"Ana Maria"}}};
    return {{{u"codigo"}}, {{isBruno ? u"8" : u"7"}}};
  };
  key->OnBrowseReturn = [&](bool&, Variant&) {
    key->OnBrowseReturn = nullptr;
    Integer code = 16, shift = 0;
    key->txtEdit().OnKeyUp(code, shift);
    (*key)->Value(u"8");
  };
  AssignTyped(description, u"Ana Maria");
  EXPECT_THAT((*key)->Value(), IsValue(u"8"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Bruno"));
  EXPECT_LT(connection->TakeStatements().size(), 6u);
}

TEST_F(SiblingTest, HandlersThatAssignWithoutEndRaiseAnError) {
  Long next = 1;
  connection->OnStatement = [&](const String&) -> memory::Rows {
    return {{{u"nome"}}, {{u"Nome " + CStr(Variant(next))}}};
  };
  description->OnChange = [&] { (*key)->Value(CStr(Variant(++next))); };
  AssignTyped(key, u"1");
  const auto boxes = app.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes.front().Text, ErrorDescription(28));
  EXPECT_LT(connection->TakeStatements().size(), 100u);
}

// --- A removed sibling --------------------------------------------------------------------------

enum class Loss { Removed, Replaced };

class LostSibling : public SiblingTest, public testing::WithParamInterface<Loss> {
 protected:
  void Lose() {
    form->Remove(u"txtNome");
    if (GetParam() == Loss::Replaced) form->Add<memory::Generic>(u"txtNome", u"TextBox");
  }
  static HostError Error() {
    return GetParam() == Loss::Removed ? MissingControl(u"txtNome", u"TxtIrmao", u"txtCodigo")
                                       : HostError(errors::NoSuchMember);
  }
};

INSTANTIATE_TEST_SUITE_P(Sibling, LostSibling, testing::Values(Loss::Removed, Loss::Replaced));

TEST_P(LostSibling, IsReportedAndTheAssignmentIsKept) {
  Lose();
  for (const Variant& value : {Variant(u"7"), Variant::Null()}) {
    AssignTyped(key, value);
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(StopBox((*key)->hWnd(), Error().Description(),
                                                     u"Erro ao Atualizar o Campo")));
    EXPECT_SAME((*key)->Value(), value);
  }
}

TEST_P(LostSibling, IsReportedByAtualizaIrmao) {
  (*key)->Value(u"7");
  Lose();
  (*key)->AtualizaIrmao(false, true);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(Error(),
                                   u"Erro ao efetuar a ataulização do campo IrmãoMódulo tsText - "
                                   u"Procedimento AtualizaIrmao")));
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
