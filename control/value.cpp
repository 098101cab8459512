// The road of a value: from an assignment to the field, the typed text, the box and the sibling.

#include <cmath>

#include "control/exact_number.h"
#include "control/tstext.h"
#include "control/type_codes.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

/// The number that a Double or a Single holds; 0 for all other values.
double FloatIn(const Variant& v) {
  const bool isFloat = v.Type() == Variant::Kind::Double || v.Type() == Variant::Kind::Single;
  return isFloat ? CDbl(v) : 0;
}

/// The text of a value, with Null as no text. What lies beyond all numbers is a word.
String TextOf(const Variant& v) {
  if (v.IsNull()) return {};
  const double number = FloatIn(v);
  if (std::isfinite(number)) return CStr(v);
  return std::isnan(number) ? u"NaN" : number > 0 ? u"Infinity" : u"-Infinity";
}

bool IsBlank(const Variant& v) { return v.IsNull() || EqualsEmpty(v); }

const Variant kZero{Integer{0}};

/// Whether two values differ in no more than their kind, or in what no text of them tells.
bool ReadsAlike(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() && b.IsNull();
  return Equal(a, b) || TextOf(a) == TextOf(b);
}

}  // namespace

void tsText::Value(const Variant& v) { Assign(v, Road::Write); }

bool tsText::TakeValue(const Variant& v) { return Assign(v, Road::Write); }

void tsText::ShowValue(const Variant& v) { Assign(v, Road::Show); }

/// False when the value was refused, which the operator has been told.
bool tsText::Assign(const Variant& argument, Road road) {
  // The argument may be a member that the steps change.
  const Variant v = argument;  // NOLINT(performance-unnecessary-copy-initialization)
  const Taken taken = m_.bCampoConectado ? AssignBound(v, road) : AssignUnbound(v, road);
  Present(taken, road);
  return taken.IsStored;
}

/// The value as it is, for a field that nobody has touched: all that an assignment does, except
/// that nothing is converted and nothing written.
void tsText::AssignItself() { ShowAgain(shown_.Shows(), Road::Show); }

/// `what` tells what the box showed when `Value` was assigned. The value comes in the place of
/// another that was refused.
void tsText::ShowAgain(ShownText::What what, Road road) {
  using What = ShownText::What;
  TextoFromValue();
  Present({m_.Value, true, what == What::Refused ? What::Value : what}, road);
}

void tsText::Present(const Taken& taken, Road road) {
  Catch(
      [&] {
        // A handler of the typed text's change has assigned anew: what that showed stands.
        if (!m_.bCampoConectado && !IsSame(m_.Value, taken.Shown)) return;
        Display(taken);
        // At the end of a record set nothing was written: the value stays in memory.
        if (m_.Value.IsNull()) m_.Value = taken.Shown;
        SiblingStep(road);
        site_.PropertyChanged(u"Value");
      },
      [&] {
        mdlMsgBox::ExibeMensagem(hWnd(), Err().Description, mdlMsgBox::flag::Stop,
                                 u"Erro ao Atualizar o Campo");
      });
  // The sibling step asks what was typed. A step that fails takes nothing of the value back.
  shown_.ForgetTyping();
}

tsText::Taken tsText::AssignUnbound(const Variant& v, Road road) {
  Taken taken;
  Catch(
      [&] {
        taken = Converted(v, road, [&] { return ConvertUnbound(v); });
        taken.IsStored = true;
        m_.Value = taken.Shown;
        TextoFromValue();
      },
      [&] {
        mdlMsgBox::ExibeMensagem(
            hWnd(), u"Error: " + CStr(Variant(Err().Number)) + u" - " + Err().Description,
            mdlMsgBox::flag::Stop, u"Erro ao Atualizar o Campo");
        m_.Value = taken.Shown;
        TextoFromValue();
      });
  return taken;
}

Variant tsText::ConvertUnbound(const Variant& v) const {
  if (EhTipoDadoNumerico(m_.TipoDado)) {
    if (IsBlank(v)) return EhNumerica() ? kZero : Variant::Null();
    return ExactNumber(v);
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

tsText::Taken tsText::AssignBound(const Variant& v, Road road) {
  Taken taken;
  Catch(
      [&] {
        const auto field = CampoVinculado();
        const FieldFamily family = FamilyOf(field->Type());
        const bool acceptsNull = (field->Attributes() & host::attribute::IsNullable) != 0;
        taken = Converted(v, road, [&] { return ConvertBound(v, family, acceptsNull); });
        const auto rows = BoundRecordset();
        if (rows->Eof() || rows->Bof()) {
          taken.IsStored = true;
          Texto(String());
          m_.Value = Variant::Null();
          return;
        }
        if (road == Road::Write)
          WriteField(taken);
        else
          m_.Value = ReadsAlike(v, taken.Shown) ? v : taken.Shown;
        TextoFromValue();
      },
      [&] {
        mdlMsgBox::ExibeMensagem(hWnd(), Err().Description, mdlMsgBox::flag::Stop,
                                 u"Erro ao Atualizar o Campo '" + site_.DisplayName() + u"'");
        m_.Value = CampoVinculado()->Value();
        if (taken.What == ShownText::What::Refused && m_.Value.IsNull())
          taken.What = ShownText::What::RefusedValue;
        TextoFromValue();
      });
  return taken;
}

/// A value that a row holds and the field's type cannot take is shown as its text.
template <class Convert>
tsText::Taken tsText::Converted(const Variant& v, Road road, Convert convert) {
  const auto readable = [&] {
    Variant shown = convert();
    if (!shown.IsNull()) CStr(shown);  // what has no text is refused before anything takes it
    return shown;
  };
  if (road == Road::Write) return {.Shown = readable()};
  Taken taken;
  Catch([&] { taken.Shown = readable(); },
        [&] {
          Err().Clear();  // steers, reports nothing
          taken.Shown = TextOf(v);
          taken.What = ShownText::What::StoredText;
        });
  // Empty is for a column to take in place of Null; a row that is only shown holds Null.
  if (taken.Shown.IsEmpty()) taken.Shown = Variant::Null();
  return taken;
}

void tsText::WriteField(Taken& taken) {
  taken.What = ShownText::What::Refused;  // until the field has taken it
  GravaValorCampo(taken.Shown);
  taken.What = ShownText::What::Value;
  taken.IsStored = true;
  m_.Value = CampoVinculado()->Value();
}

Variant tsText::ConvertBound(const Variant& v, FieldFamily family, bool acceptsNull) const {
  switch (family) {
    case FieldFamily::Text:
      if (IsBlank(v)) return acceptsNull ? Variant::Null() : Variant();
      return CStr(v);
    case FieldFamily::Number:
      if (IsBlank(v)) {
        if (EhNumerica()) return kZero;
        return acceptsNull ? Variant::Null() : kZero;
      }
      return ExactNumber(v);
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

void tsText::Display(const Taken& taken) {
  const bool asText = taken.What == ShownText::What::StoredText;
  if (asText)
    WriteBox(mdlObjTxt::AplicaMascara(TextOf(taken.Shown), {}, {}, {}, txtEdit_.PasswordChar()));
  else if (!m_.Mascara.empty() || !taken.Shown.IsNull())  // else it is as the typed text left it
    WriteBox(LaidOut(taken.Shown));
  shown_.Remember(txtEdit_.Text(), m_.Texto, taken.What);
}

// --- What the box was left showing

bool tsText::IsTouched() const { return shown_.IsTouched(txtEdit_.Text(), m_.Texto, HidesTexto()); }

bool tsText::HidesTexto() const { return EhEmbaralhada() || !txtEdit_.PasswordChar().empty(); }

bool tsText::ShowsStoredText() const {
  return shown_.Shows() == ShownText::What::StoredText && !IsTouched();
}

void tsText::WriteBox(const String& text) {
  const ShownText::OwnWrite own(shown_);
  txtEdit_.Text(text);
}

/// Null is the same as Null alone, and so is what is no number.
bool tsText::IsSame(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() == b.IsNull();
  return Equal(a, b) || (std::isnan(FloatIn(a)) && std::isnan(FloatIn(b)));
}

bool tsText::ValueChanged() const { return !IsSame(m_.Value, m_.LastValue); }

}  // namespace tessaria
