#include "control/field_box.h"

#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

bool FieldBox::IsNumeric() const { return mdlObjTxt::IsNumericMask(mask_.Mascara); }

bool FieldBox::IsScrambled() const { return UCase(Left(mask_.Mascara, 1)) == u"X"; }

String FieldBox::LaidOut(const Variant& v) const {
  return mdlObjTxt::AplicaMascara(v, mask_.Mascara, mask_.PromptChar, mask_.ItensMascara,
                                  txtEdit_.PasswordChar());
}

String FieldBox::Stripped(const String& text) const {
  return mdlObjTxt::LimpaMascara(text, mask_.Mascara, mask_.ItensMascara);
}

String FieldBox::WithoutPoints() const {
  return mdlObjTxt::LimpaMascara(txtEdit_.Text(), mask_.Mascara, mask_.ItensMascara + u".");
}

void FieldBox::Write(const String& text) {
  const ShownText::OwnWrite own(shown_);
  txtEdit_.Text(text);
}

void FieldBox::WriteSelection(const String& text) {
  const ShownText::OwnWrite own(shown_);
  txtEdit_.SelText(text);
}

String FieldBox::TextFor(const Variant& v, What what) const {
  if (what == What::StoredText)
    return mdlObjTxt::AplicaMascara(tessaria::TextOf(v), {}, {}, {}, txtEdit_.PasswordChar());
  return mask_.Mascara.empty() && v.IsNull() ? String() : LaidOut(v);
}

void FieldBox::Display(const Variant& v, What what) {
  // Otherwise the typed text has written it.
  if (what == What::StoredText || !mask_.Mascara.empty() || !v.IsNull()) Write(TextFor(v, what));
  shown_.Remember(txtEdit_.Text(), contents_.Texto, what);
}

void FieldBox::Texto(const String& v) {
  contents_.Texto = v;
  const String password = txtEdit_.PasswordChar();
  Write(password.empty() ? v : StringOf(Len(v), password));
  site_.PropertyChanged(u"Texto");
}

void FieldBox::SelectWhole() {
  txtEdit_.SelStart(0);
  txtEdit_.SelLength(Len(Trim(txtEdit_.Text())));
}

void FieldBox::AlignByMask() {
  txtEdit_.Alignment(IsNumeric() ? host::Alignment::Right : host::Alignment::Left);
}

bool FieldBox::HidesTexto() const { return IsScrambled() || !txtEdit_.PasswordChar().empty(); }

bool FieldBox::IsTouched() const {
  return shown_.IsTouched(txtEdit_.Text(), contents_.Texto, HidesTexto());
}

bool FieldBox::ShowsStoredText() const {
  return shown_.Shows() == What::StoredText && !IsTouched();
}

}  // namespace tessaria
