#include "control/focus.h"

#include "mask/exit_flag.h"
#include "mask/form_helpers.h"
#include "mask/numbers.h"
#include "services/trap.h"
#include "tessaria/format.h"
#include "tessaria/masks.h"
#include "tessaria/scramble.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

void Focus::Enter() {
  Trap(u"tsText", u"UserControl_EnterFocus", [&] {
    Members& members = parts_.Remembered;
    host::TextBox& widget = parts_.Box.Widget();
    if (!Enabled() || !widget.Visible()) return;
    members.bCarregandoCampo = false;
    members.LastValue = members.Value;
    parts_.Box.Shown().ForgetTyping();
    mdlObjTxt::MostraAba(parts_.Site.Extender()->Container(), Trim(members.NumeroTab), widget);
    ShowEditable();
  });
}

void Focus::ShowEditable() {
  FieldBox& box = parts_.Box;
  if (parts_.Remembered.IsDescription()) {
    box.SelectWhole();
    parts_.Siblings.FetchSiblingLiteral();
  } else if (box.IsNumeric()) {
    box.Widget().Alignment(host::Alignment::Left);
    if (!box.ShowsStoredText()) box.WithoutTouching([&] { box.Write(box.WithoutPoints()); });
    box.SelectWhole();
  } else if (parts_.Remembered.TipoControle != TipoControle::Calendario) {
    box.SelectWhole();
  }
}

ExitVerdict Focus::Exit() {
  ExitVerdict verdict = ExitVerdict::Left;
  Trap(u"tsText", u"UserControl_ExitFocus", [&] {
    if (parts_.Box.Widget().Tag != exitIsSilenced && Enabled()) Settle(verdict);
  });
  lastExit_ = verdict;
  return verdict;
}

bool Focus::HasToSettle() const {
  return parts_.Box.IsTouched() || parts_.Remembered.HasChanged() ||
         lastExit_ != ExitVerdict::Left || !parts_.Remembered.LastValidaStatus ||
         parts_.Rules.IsForbiddenBlank();
}

/// Keeps `verdict` up to date at every step: an error may end the steps anywhere.
void Focus::Settle(ExitVerdict& verdict) {
  const bool touched = parts_.Box.IsTouched();
  if (touched) verdict = ExitVerdict::NotStored;
  // The key-up of a key that is still held would come too late.
  if (parts_.Box.Shown().IsTyped()) parts_.Remembered.bCarregandoCampo = true;
  if (parts_.Box.IsNumeric()) parts_.Box.Widget().Alignment(host::Alignment::Right);
  const auto check = CheckText();
  if (check != Validation::Verdict::Passed) {
    verdict = check == Validation::Verdict::Refused ? ExitVerdict::Refused : ExitVerdict::Left;
  } else if (!touched) {
    parts_.Value.AssignItself();
  } else if (AssignTyped()) {
    verdict = ExitVerdict::Left;
  }
  parts_.Remembered.bCarregandoCampo = false;
  ReportChange();
  State().vntValorIrmao = Variant();
}

Validation::Verdict Focus::CheckText() {
  Validation::Verdict verdict{};
  parts_.Box.WithoutTouching([&] {
    FillZeros();
    verdict = parts_.Rules.Check();
  });
  return verdict;
}

void Focus::FillZeros() {
  const FieldBox& box = parts_.Box;
  const MaskSettings& mask = box.Mask();
  if (InStr(mask.Mascara, u"0") == 0 || Trim(box.Stripped()).empty() || box.ShowsStoredText())
    return;
  mdlObjTxt::PreencheZeros(box.Widget(), mask.Mascara, mask.ItensMascara, mask.PromptChar,
                           mask.TipoStrZero);
}

/// Returns false if the value was refused.
bool Focus::AssignTyped() {
  FieldBox& box = parts_.Box;
  const MaskSettings& mask = box.Mask();
  const auto assign = [&](const String& text) {
    return parts_.Value.Assign(text, AssignMode::Write);
  };
  if (box.IsNumeric())
    box.Write(Format(box.Widget().Text(),
                     mdlObjTxt::FormatoNumero(mask.Mascara, InStr(mask.Mascara, u".") != 0)));
  if (box.IsScrambled()) {
    const String& typed = parts_.Remembered.Texto;
    return assign(mdlComum::CodificaTexto(mask.PromptInclude ? typed : box.Stripped(typed)));
  }
  if (!mask.PromptInclude) return assign(box.Stripped());
  if (!mask.Mascara.empty()) box.Write(box.LaidOut(box.Widget().Text()));
  return assign(box.Widget().Text());
}

void Focus::ReportChange() {
  Members& members = parts_.Remembered;
  const bool hasChanged = members.HasChanged();
  // A description whose value has changed stays silent: its sibling reports the change.
  if (!hasChanged || !members.IsDescription()) {
    bool told = hasChanged;  // the handler may change its argument
    parts_.Events.BrowseReturn(told, members.LastValue);
  }
  if (hasChanged) members.LastValue = members.Value;
}

}  // namespace tessaria
