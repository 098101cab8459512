#include "control/validation.h"

#include "control/surface.h"
#include "lookup/relation_check.h"
#include "mask/dates.h"
#include "services/trap.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

Validation::Validation(host::ControlSite& site, FieldBox& box, const FieldKind& kind,
                       const FormTies& ties, FieldContents& contents,
                       const Definitions& definitions, const LeavingForm& form)
    : site_(site),
      box_(box),
      kind_(kind),
      ties_(ties),
      contents_(contents),
      definitions_(definitions),
      form_(form) {}

Validation::Verdict Validation::Check() {
  Verdict result{};
  box_.WithoutTouching([&] { result = CheckText(); });
  return result;
}

Validation::Verdict Validation::CheckText() {
  Verdict result = Verdict::Escaped;
  // The trap already covers the query for the active inner widget and stays set: the first error
  // anywhere starts the rules again, and a second one is raised to the caller.
  Catch(
      [&] {
        if (form_.OwnButtonIsActive())
          contents_.LastValidaStatus = false;
        else
          result = CheckRules();
      },
      [&] {
        Err().Clear();  // only starts the rules again; it is not reported
        result = CheckRules();
      });
  return result;
}

Validation::Verdict Validation::CheckRules() {
  if (Cancels()) return Verdict::Escaped;
  const String label = LabelPrefix();

  if (CommandButtonIsActive() && IsForbiddenBlank()) return RefuseBlank(label);
  const bool isDate = mdlObjTxt::IsDateMask(box_.Mask().Mascara);
  if ((isDate && !CheckDate(label)) || !CheckByProgram(label)) {
    ReturnFocus();
    return Verdict::Refused;
  }
  // A required field may be left blank when the focus moves to anything but a command button, which
  // is handled above; the status does not change.
  if (IsForbiddenBlank()) return Verdict::Passed;
  // A stored text that the operator did not write does not keep the focus either.
  contents_.LastValidaStatus =
      !kind_.UsaChecaRelacao || box_.ShowsStoredText() || CheckRelation(label);
  if (contents_.LastValidaStatus) return Verdict::Passed;
  ReturnFocus();
  return Verdict::Refused;
}

Validation::Verdict Validation::RefuseBlank(const String& label) {
  contents_.LastValidaStatus = false;
  TellStop(site_, label + u"Não Pode Ser Branco, Verifique Por Favor");
  if (box_.Widget().Visible()) box_.Widget().SetFocus();
  return Verdict::Refused;
}

bool Validation::Cancels() const {
  if (ties_.ObjetoCancelar.empty()) return false;
  const auto active = form_.ActiveControl();
  return active && EqualNoCase(active->Name(), ties_.ObjetoCancelar);
}

bool Validation::CommandButtonIsActive() const {
  const auto active = form_.ActiveControl();
  return active && active->TypeName() == u"CommandButton";
}

String Validation::LabelPrefix() const {
  const auto caption = form_.Caption();
  return caption ? *caption + u" " : String();
}

bool Validation::IsForbiddenBlank() const {
  if (kind_.PodeSerBranco) return false;
  const String text = box_.Stripped();
  if (Trim(text).empty()) return true;
  return box_.IsNumeric() && Trim(Replace(Replace(text, u"0", u""), u",", u"")).empty();
}

bool Validation::CheckDate(const String& label) {
  const bool typed = !box_.ShowsStoredText();
  bool valid = true;
  if (typed && !box_.Stripped().empty()) {
    valid = mdlObjTxt::ChecaData(box_.Widget(), box_.Mask().Mascara, box_.Mask().ItensMascara);
    if (!valid) TellStop(site_, label + u"Invalido(a), Corrija Por Favor");
  } else if (typed && CommandButtonIsActive()) {
    valid = kind_.PodeSerBranco;
    if (!valid) TellStop(site_, label + u"Não Pode Ser Branco(a), Verifique Por Favor");
  }
  contents_.LastValidaStatus = valid;
  return valid;
}

bool Validation::CheckByProgram(const String& label) {
  const String text = box_.Stripped();
  if (!kind_.Validator || box_.ShowsStoredText() || Trim(text).empty()) return true;
  const String refusal = kind_.Validator(text);
  contents_.LastValidaStatus = refusal.empty();
  if (!refusal.empty()) TellStop(site_, label + refusal);
  return refusal.empty();
}

bool Validation::CheckRelation(const String& label) {
  Variant found;
  const String condition = form_.Condition(*definitions_.Browse());
  const bool exists = Holds({condition, label, true, CommandButtonIsActive()}, &found);
  if (exists && !found.IsEmpty()) box_.Write(box_.LaidOut(found));
  return exists;
}

bool Validation::RelationHolds() {
  bool exists = false;
  Trap(u"tsText", u"AcionaChecaRelacao", [&] {
    exists = Holds({String(), form_.Caption().value_or(String()), false, false}, nullptr);
  });
  return exists;
}

bool Validation::Holds(Relation relation, Variant* found) const {
  return mdlObjTxt::ChecaRelacao(
      definitions_.Browse()->From(), definitions_.BrwCampo(), SearchedText(), kind_.TipoControle,
      form_.Column().get(), ties_.bCampoConectado, kind_.PodeSerBranco, relation.TellsMissing,
      relation.Condition, relation.Label, found, WindowOf(site_), relation.ButtonIsActive);
}

String Validation::SearchedText() const {
  const MaskSettings& mask = box_.Mask();
  return mdlObjTxt::LimpaMascara(box_.Widget().Text(), mask.Mascara,
                                 mask.PromptInclude ? mask.PromptChar : mask.ItensMascara);
}

void Validation::ReturnFocus() {
  const auto active = form_.ActiveControl();
  // A control whose own validation has failed keeps the focus, so that two failing fields do not
  // take it from each other.
  const auto other = std::dynamic_pointer_cast<host::TsTextWidget>(active);
  const bool mayTake = !other || other->Control().LastValidaStatus();
  host::TextBox& widget = box_.Widget();
  if (mayTake && widget.Visible()) widget.SetFocus();
  widget.SelStart(0);
  widget.SelLength(Len(widget.Text()));
}

}  // namespace tessaria
