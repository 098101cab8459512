// A check of the program's, made when a field is left.
#include "tessaria/validators.h"

#include <stdexcept>

#include "tessaria/field_settings.h"
#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FieldValidator : public ControlTest {
 protected:
  FieldValidator() {
    form->Add<memory::Label>(u"lblDocumento", u"CPF:");
    field = form->Add<memory::TsText>(FieldSettings{.name = u"documento",
                                                    .mask = u"###.###.###-##",
                                                    .validator = CpfValidator(),
                                                    .label = u"lblDocumento"});
    other = AddField(u"txtOutro");
    button = form->Add<memory::Button>(u"btnCancelar");
    form->Show();
    app.TakeBoxes();
  }
  /// Types into the field, and leaves it for the other one.
  void Enter(const String& text) {
    field->txtEdit().SetFocus();
    field->txtEdit().SelStart(0);
    field->txtEdit().SelLength(Len(field->txtEdit().Text()));
    form->Type(text);
    other->txtEdit().SetFocus();
  }

  FieldPtr field, other;
  std::shared_ptr<memory::Button> button;
};

TEST_F(FieldValidator, ARefusedTextIsToldAndKeepsTheFocus) {
  Enter(u"52998224724");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(StopBox((*field)->hWnd(), u"CPF: não confere, Verifique Por Favor")));
  EXPECT_EQ(ActiveName(), u"documento");
  EXPECT_EQ((*field)->Text(), u"529.982.247-24") << "what was typed stays";
  EXPECT_FALSE((*field)->LastValidaStatus());
}

TEST_F(FieldValidator, AnAcceptedTextIsLeft) {
  Enter(u"52998224725");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  EXPECT_EQ(ActiveName(), u"txtOutro");
  EXPECT_THAT((*field)->Value(), IsValue(u"52998224725"));
}

TEST_F(FieldValidator, ABlankFieldIsNotChecked) {
  Enter(u"");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  EXPECT_EQ(ActiveName(), u"txtOutro");
}

TEST_F(FieldValidator, ItGetsTheTypedCharacters) {
  String typed;
  (*field)->Validator([&](const String& text) {
    typed = text;
    return String();
  });
  Enter(u"52998224725");
  EXPECT_EQ(typed, u"52998224725");
}

TEST_F(FieldValidator, TheCancellingControlIsReachedWithoutIt) {
  (*field)->ObjetoCancelar(u"btnCancelar");
  field->txtEdit().SetFocus();
  form->Type(u"529");
  form->Focus(u"btnCancelar");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(FieldValidator, OneThatFailsIsAnErrorBoxAndLosesNothing) {
  (*field)->Validator([](const String&) -> String { throw HostError(errors::TypeMismatch); });
  Enter(u"52998224725");
  EXPECT_FALSE(app.TakeBoxes().empty());
  EXPECT_EQ((*field)->Text(), u"529.982.247-25");
}

}  // namespace
}  // namespace tessaria::test
