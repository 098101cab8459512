// The road of a value: from an assignment to the field, the typed text, the box and the sibling.

#include "control/tstext.h"
#include "control/type_codes.h"
#include "mask/masks.h"
#include "runtime/compare.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "services/message_box.h"
#include "services/trap.h"

namespace tessaria {

namespace {

/// The text of a value, with Null as no text.
String TextOf(const Variant& v) { return v.IsNull() ? String() : CStr(v); }

bool IsBlank(const Variant& v) { return v.IsNull() || EqualsEmpty(v); }

const Variant kZero{Integer{0}};

}  // namespace

void tsText::Value(const Variant& argument) {
  // The argument may be a member that the steps change.
  const Variant v = argument;  // NOLINT(performance-unnecessary-copy-initialization)
  Variant w;
  if (m_.bCampoConectado)
    AssignBound(v, w);
  else
    AssignUnbound(v, w);

  Catch(
      [&] {
        // A handler of the typed text's change has assigned anew: what that showed stands.
        if (!m_.bCampoConectado && !IsSame(m_.Value, w)) return;
        ShowValue(w);
        // At the end of a record set nothing was written: the value stays in memory.
        if (m_.Value.IsNull()) m_.Value = w;
        SiblingStep();
        site_.PropertyChanged(u"Value");
      },
      [&] {
        mdlMsgBox::ExibeMensagem(hWnd(), Err().Description, mdlMsgBox::flag::Stop,
                                 u"Erro ao Atualizar o Campo");
      });
}

void tsText::AssignUnbound(const Variant& v, Variant& w) {
  Catch(
      [&] {
        w = ConvertUnbound(v);
        m_.Value = w;
        TextoFromValue();
      },
      [&] {
        mdlMsgBox::ExibeMensagem(
            hWnd(), u"Error: " + CStr(Variant(Err().Number)) + u" - " + Err().Description,
            mdlMsgBox::flag::Stop, u"Erro ao Atualizar o Campo");
        m_.Value = w;
        TextoFromValue();
      });
}

Variant tsText::ConvertUnbound(const Variant& v) const {
  if (EhTipoDadoNumerico(m_.TipoDado)) {
    if (IsBlank(v)) return EhNumerica() ? kZero : Variant::Null();
    return CDbl(v);
  }
  if (m_.TipoDado == TipoDadoData) {
    if (v.IsNull()) return Variant::Null();
    const String text = CStr(v);
    if (Trim(mdlObjTxt::LimpaMascara(text, m_.Mascara, m_.ItensMascara)).empty())
      return Variant::Null();
    return CDate(v);
  }
  return IsBlank(v) ? Variant::Null() : v;
}

void tsText::AssignBound(const Variant& v, Variant& w) {
  Catch(
      [&] {
        w = ConvertBound(v);
        const auto rows = BoundRecordset();
        if (rows->Eof() || rows->Bof()) {
          Texto(String());
          m_.Value = Variant::Null();
          return;
        }
        GravaValorCampo(w);
        m_.Value = CampoVinculado()->Value();
        TextoFromValue();
      },
      [&] {
        mdlMsgBox::ExibeMensagem(hWnd(), Err().Description, mdlMsgBox::flag::Stop,
                                 u"Erro ao Atualizar o Campo '" + site_.DisplayName() + u"'");
        m_.Value = CampoVinculado()->Value();
        TextoFromValue();
      });
}

Variant tsText::ConvertBound(const Variant& v) const {
  const auto field = CampoVinculado();
  const bool acceptsNull = (field->Attributes() & host::attribute::IsNullable) != 0;
  switch (FamilyOf(field->Type())) {
    case FieldFamily::Text:
      if (IsBlank(v)) return acceptsNull ? Variant::Null() : Variant();
      return CStr(v);
    case FieldFamily::Number:
      if (IsBlank(v)) {
        if (EhNumerica()) return kZero;
        return acceptsNull ? Variant::Null() : kZero;
      }
      return CDbl(v);
    case FieldFamily::Date: {
      const Variant blank = acceptsNull ? Variant::Null() : Variant();
      if (v.IsNull()) return blank;
      const String text = CStr(v);
      if (Trim(mdlObjTxt::LimpaMascara(text, m_.Mascara, m_.ItensMascara)).empty()) return blank;
      return CDate(mdlObjTxt::LimpaMascara(text, m_.Mascara, m_.PromptChar));
    }
    case FieldFamily::Other:
      break;
  }
  return v;
}

void tsText::TextoFromValue() {
  Texto(mdlObjTxt::LimpaMascara(TextOf(m_.Value), m_.Mascara, m_.ItensMascara));
}

void tsText::ShowValue(const Variant& w) {
  if (m_.Mascara.empty() && w.IsNull()) return;  // the box stays as the typed text left it
  txtEdit_.Text(LaidOut(w));
}

/// Null is the same as Null alone.
bool tsText::IsSame(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() == b.IsNull();
  return Equal(a, b);
}

bool tsText::ValueChanged() const { return !IsSame(m_.Value, m_.LastValue); }

}  // namespace tessaria
