#include "control/value.h"

#include "control/conversions.h"
#include "control/surface.h"
#include "services/trap.h"
#include "tessaria/conversion.h"

namespace tessaria {

ValueRoad::ValueRoad(host::ControlSite& site, FieldBox& box, const FieldKind& kind,
                     const FormTies& ties, FieldContents& contents, BoundField& bound,
                     ValueFollower& follower)
    : site_(site),
      box_(box),
      kind_(kind),
      ties_(ties),
      contents_(contents),
      bound_(bound),
      follower_(follower) {}

bool ValueRoad::Assign(const Variant& argument, Road road) {
  // The argument may be a member that the steps change.
  const Variant v = argument;  // NOLINT(performance-unnecessary-copy-initialization)
  const Taken taken = ties_.bCampoConectado ? AssignBound(v, road) : AssignUnbound(v, road);
  Present(taken, road);
  return taken.IsStored;
}

void ValueRoad::AssignItself() { ShowAgain(box_.Shown().Shows(), Road::Show); }

void ValueRoad::ShowAgain(FieldBox::What what, Road road) {
  TextoFromValue();
  Present({contents_.Value, true, what == What::Refused ? What::Value : what}, road);
}

void ValueRoad::Present(const Taken& taken, Road road) {
  Catch(
      [&] {
        // A handler of the typed text's change has assigned anew: what that showed stands.
        if (!ties_.bCampoConectado && !IsSame(contents_.Value, taken.Shown)) return;
        box_.Display(taken.Shown, taken.What);
        // At the end of a record set nothing was written: the value stays in memory.
        if (contents_.Value.IsNull()) contents_.Value = taken.Shown;
        follower_.Follow(road);
        site_.PropertyChanged(u"Value");
      },
      [&] { TellStop(site_, Err().Description, u"Erro ao Atualizar o Campo"); });
  // The sibling step asks what was typed. A step that fails takes nothing of the value back.
  box_.Shown().ForgetTyping();
}

ValueRoad::Taken ValueRoad::AssignUnbound(const Variant& v, Road road) {
  Taken taken;
  Catch(
      [&] {
        taken = Converted(v, road, [&] { return ConvertUnbound(v, kind_.TipoDado, box_.Mask()); });
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

ValueRoad::Taken ValueRoad::AssignBound(const Variant& v, Road road) {
  Taken taken;
  Catch([&] { TakeBound(v, road, taken); },
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

/// `taken` is right at every moment: an error may end the steps anywhere.
void ValueRoad::TakeBound(const Variant& v, Road road, Taken& taken) {
  const auto field = bound_.Field();
  const FieldFamily family = FamilyOf(field->Type());
  const bool acceptsNull = (field->Attributes() & host::attribute::IsNullable) != 0;
  taken = Converted(v, road, [&] { return ConvertBound(v, family, acceptsNull, box_.Mask()); });
  if (!bound_.HasRow()) {
    taken.IsStored = true;
    box_.Texto(String());
    contents_.Value = Variant::Null();
    return;
  }
  if (road == Road::Write)
    WriteField(taken);
  else
    contents_.Value = ReadsAlike(v, taken.Shown) ? v : taken.Shown;
  TextoFromValue();
}

/// A value that a row holds and the field's type cannot take is shown as its text.
template <class Convert>
ValueRoad::Taken ValueRoad::Converted(const Variant& v, Road road, Convert convert) {
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
          taken.What = What::StoredText;
        });
  // Empty is for a column to take in place of Null; a row that is only shown holds Null.
  if (taken.Shown.IsEmpty()) taken.Shown = Variant::Null();
  return taken;
}

void ValueRoad::WriteField(Taken& taken) {
  taken.What = What::Refused;  // until the field has taken it
  bound_.Write(taken.Shown);
  taken.What = What::Value;
  taken.IsStored = true;
  contents_.Value = bound_.Field()->Value();
}

void ValueRoad::TextoFromValue() { box_.Texto(box_.Stripped(TextOf(contents_.Value))); }

}  // namespace tessaria
