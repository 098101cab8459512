// What happens to hidden texts when their field is left.

#include "tessaria/scramble.h"
#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using mdlComum::CodificaTexto;
using testing::ElementsAre;

class HiddenTextTest : public ControlTest {
 protected:
  HiddenTextTest() {
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
  }

  FieldPtr Add(const String& mask, const String& password) {
    const auto field = AddField(u"txtSenha" + CStr(Variant(++fields)));
    (*field)->UsaChecaRelacao(false);
    (*field)->Mascara(mask);
    (*field)->PasswordChar(password);
    return field;
  }
  void Enter(const FieldPtr& field) { form->Focus(field->Name()); }
  void Leave() { form->Focus(u"chkAtivo"); }
  /// The operator types into the field and leaves it.
  void Type(const FieldPtr& field, const String& text) {
    Enter(field);
    field->txtEdit().Type(text);
    Leave();
  }

  Long fields = 0;
};

TEST_F(HiddenTextTest, ATypedTextIsStoredScrambledOnce) {
  const auto field = Add(u"XXXX", u"*");
  form->Show();
  Type(field, u"ABCD");
  EXPECT_THAT((*field)->Value(), IsValue(CodificaTexto(u"ABCD")));
}

TEST_F(HiddenTextTest, AFieldOfXThatIsLeftUntouchedKeepsItsValue) {
  const auto field = Add(u"XXXX", u"*");
  form->Show();
  const String once = CodificaTexto(u"ABCD");
  (*field)->Value(once);
  Enter(field);
  Leave();
  EXPECT_THAT((*field)->Value(), IsValue(once));
  Type(field, u"ABCD");
  Enter(field);
  Leave();
  EXPECT_THAT((*field)->Value(), IsValue(once));
}

TEST_F(HiddenTextTest, ABoundFieldOfXThatIsLeftUntouchedKeepsItsRow) {
  const String once = CodificaTexto(u"ABCD");
  const auto data = AddData({{u"senha", host::type::VarWChar}}, {{once}});
  const auto field = Add(u"XXXX", u"*");
  Bind(field, u"senha");
  form->Show();
  Enter(field);
  Leave();
  EXPECT_THAT(data->RecordSet()->Fields().Item(u"senha")->Value(), IsValue(once));
}

// The box of the hidden text looks the same as before.
TEST_F(HiddenTextTest, ATypedTextThatAProgramReplacesIsTouched) {
  const auto field = Add(u"XXXX", u"*");
  form->Show();
  (*field)->Value(u"abcd");
  Enter(field);
  (*field)->Texto(u"efgh");
  Leave();
  EXPECT_THAT((*field)->Value(), IsValue(CodificaTexto(u"efgh")));
}

/// So a field for a new password is unbound, and is emptied after its value is read.
TEST_F(HiddenTextTest, AnEmptyFieldOfXStaysEmpty) {
  const auto field = Add(u"XXXX", u"*");
  form->Show();
  Type(field, u"ABCD");
  (*field)->Value(Variant::Null());
  Enter(field);
  Leave();
  EXPECT_THAT((*field)->Value(), IsNullVariant());
  EXPECT_EQ(field->txtEdit().Text(), u"");
}

struct Hidden {
  const char16_t* Mask;
  const char16_t* Typed;
  bool PromptInclude;
  const char16_t* Value;
};

const Hidden kHidden[] = {
    {u"####", u"1234", false, u"****"},
    {u"####", u"12", false, u"****"},  // the empty slots are also hidden
    {u"##-##", u"1234", false, u"*****"},
    {u"####", u"1234", true, u"****"},
    {u"AAAA", u"abcd", false, u"****"},
    {u"aX", u"ab", false, u"**"},
};

TEST_F(HiddenTextTest, AnyMaskButXStoresThePasswordCharactersThemselves) {
  for (const Hidden& row : kHidden) {
    SCOPED_TRACE(ToUtf8(row.Mask) + " of " + ToUtf8(row.Typed));
    const auto field = Add(row.Mask, u"*");
    (*field)->PromptInclude(row.PromptInclude);
    form->Show();
    Type(field, row.Typed);
    EXPECT_THAT((*field)->Value(), IsValue(row.Value));
  }
}

TEST_F(HiddenTextTest, WithoutAMaskTypingIntoAnAssignedValueLosesIt) {
  const auto field = Add(u"", u"*");
  form->Show();
  Type(field, u"abcd");
  EXPECT_THAT((*field)->Value(), IsValue(u"abcd"));
  // The assignment of the value has put password characters into the box.
  Enter(field);
  Leave();
  EXPECT_THAT((*field)->Value(), IsValue(u"abcd"));
  Enter(field);
  field->txtEdit().Press(memory::Key::End);
  field->txtEdit().Type(u"e");
  Leave();
  EXPECT_THAT((*field)->Value(), IsValue(u"****e"));
}

TEST_F(HiddenTextTest, TheZeroFillIgnoresPasswordCharacters) {
  const auto field = Add(u"0000", u"*");
  form->Show();
  Type(field, u"12");
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(13), u"UserControl_ExitFocus")));
  EXPECT_THAT((*field)->Value(), IsNullVariant());
}

}  // namespace
}  // namespace tessaria::test
