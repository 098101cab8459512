#include "control/value.h"

#include "control/conversions.h"
#include "control/surface.h"
#include "services/trap.h"
#include "tessaria/conversion.h"

namespace tessaria {

ValueAssignment::ValueAssignment(host::ControlSite& site, FieldBox& box, const FieldKind& kind,
                                 const FormTies& ties, FieldContents& contents, BoundField& bound,
                                 ValueFollower& follower)
    : site_(site),
      box_(box),
      kind_(kind),
      ties_(ties),
      contents_(contents),
      bound_(bound),
      follower_(follower) {}

bool ValueAssignment::Assign(const Variant& argument, AssignMode mode) {
  // The argument may be a member that the steps change.
  const Variant v = argument;  // NOLINT(performance-unnecessary-copy-initialization)
  const Taken taken = ties_.bCampoConectado ? AssignBound(v, mode) : AssignUnbound(v, mode);
  Present(taken, mode);
  return taken.IsStored;
}

void ValueAssignment::AssignItself() { ShowAgain(box_.Shown().Shows(), AssignMode::Show); }

void ValueAssignment::ShowAgain(FieldBox::What what, AssignMode mode) {
  TextoFromValue();
  Present({contents_.Value, true, what == What::Refused ? What::Value : what}, mode);
}

String ValueAssignment::TextFor(const Variant& v) const {
  const Taken taken = Converted(v, AssignMode::Show, [&] {
    if (!ties_.bCampoConectado) return ConvertUnbound(v, kind_.TipoDado, box_.Mask());
    const auto field = bound_.Field();
    const bool acceptsNull = (field->Attributes() & host::attribute::IsNullable) != 0;
    return ConvertBound(v, FamilyOf(field->Type()), acceptsNull, box_.Mask());
  });
  return box_.TextFor(taken.Shown, taken.What);
}

void ValueAssignment::Present(const Taken& taken, AssignMode mode) {
  Catch(
      [&] {
        // A handler of the typed text's change has assigned another value: its display stays.
        if (!ties_.bCampoConectado && !IsSame(contents_.Value, taken.Shown)) return;
        box_.Display(taken.Shown, taken.What);
        // At the end of a record set nothing was written: the value is kept in memory.
        if (contents_.Value.IsNull()) contents_.Value = taken.Shown;
        follower_.Follow(mode);
        site_.PropertyChanged(u"Value");
      },
      [&] { TellStop(site_, Err().Description, u"Erro ao Atualizar o Campo"); });
  // The sibling step asks what was typed. A failing step does not undo the assignment.
  box_.Shown().ForgetTyping();
}

ValueAssignment::Taken ValueAssignment::AssignUnbound(const Variant& v, AssignMode mode) {
  Taken taken;
  Catch(
      [&] {
        taken = Converted(v, mode, [&] { return ConvertUnbound(v, kind_.TipoDado, box_.Mask()); });
        taken.IsStored = true;
        contents_.Value = taken.Shown;
        TextoFromValue();
      },
      [&] {
        TellStop(site_, u"Error: " + CStr(Variant(Err().Number)) + u" - " + Err().Description,
                 u"Erro ao Atualizar o Campo");
        contents_.Value = taken.Shown;
        TextoFromValue();
      });
  return taken;
}

ValueAssignment::Taken ValueAssignment::AssignBound(const Variant& v, AssignMode mode) {
  Taken taken;
  Catch([&] { TakeBound(v, mode, taken); },
        [&] {
          TellStop(site_, Err().Description,
                   u"Erro ao Atualizar o Campo '" + site_.DisplayName() + u"'");
          contents_.Value = bound_.Field()->Value();
          if (taken.What == What::Refused && contents_.Value.IsNull())
            taken.What = What::RefusedValue;
          TextoFromValue();
        });
  return taken;
}

/// Keeps `taken` up to date at every step: an error may end the steps anywhere.
void ValueAssignment::TakeBound(const Variant& v, AssignMode mode, Taken& taken) {
  const auto field = bound_.Field();
  const FieldFamily family = FamilyOf(field->Type());
  const bool acceptsNull = (field->Attributes() & host::attribute::IsNullable) != 0;
  taken = Converted(v, mode, [&] { return ConvertBound(v, family, acceptsNull, box_.Mask()); });
  if (!bound_.HasRow()) {
    taken.IsStored = true;
    box_.Texto(String());
    contents_.Value = Variant::Null();
    return;
  }
  if (mode == AssignMode::Write)
    WriteField(taken);
  else
    contents_.Value = ReadsAlike(v, taken.Shown) ? v : taken.Shown;
  TextoFromValue();
}

/// A value of a row that the field's type cannot take is shown as its text.
template <class Convert>
ValueAssignment::Taken ValueAssignment::Converted(const Variant& v, AssignMode mode,
                                                  Convert convert) {
  const auto readable = [&] {
    Variant shown = convert();
    if (!shown.IsNull()) CStr(shown);  // refuses a value without a text before it is stored
    return shown;
  };
  if (mode == AssignMode::Write) return {.Shown = readable()};
  Taken taken;
  Catch([&] { taken.Shown = readable(); },
        [&] {
          Err().Clear();  // only selects this branch; it is not reported
          taken.Shown = TextOf(v);
          taken.What = What::StoredText;
        });
  // Columns receive Empty instead of Null; a row that is only shown keeps Null.
  if (taken.Shown.IsEmpty()) taken.Shown = Variant::Null();
  return taken;
}

void ValueAssignment::WriteField(Taken& taken) {
  taken.What = What::Refused;  // until the field accepts it
  bound_.Write(taken.Shown);
  taken.What = What::Value;
  taken.IsStored = true;
  contents_.Value = bound_.Field()->Value();
}

void ValueAssignment::TextoFromValue() { box_.Texto(box_.Stripped(TextOf(contents_.Value))); }

}  // namespace tessaria
