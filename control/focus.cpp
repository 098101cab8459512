// The focus comes and goes: the box shows an editable text inside, the finished one outside.

#include "control/tstext.h"
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

void tsText::UserControl_EnterFocus() {
  Trap(u"tsText", u"UserControl_EnterFocus", [&] {
    if (!Enabled() || !txtEdit_.Visible()) return;
    m_.bCarregandoCampo = false;
    m_.LastValue = m_.Value;
    shown_.ForgetTyping();
    mdlObjTxt::MostraAba(ContainerDoControle(), NumeroTab(), txtEdit_);

    if (m_.TipoControle == tessaria::TipoControle::Descricao) {
      SelectWhole();
      FetchSiblingLiteral();
    } else if (EhNumerica()) {
      txtEdit_.Alignment(host::Alignment::Left);
      if (!ShowsStoredText()) WithoutTouching([&] { WriteBox(WithoutPoints()); });
      SelectWhole();
    } else if (m_.TipoControle != tessaria::TipoControle::Calendario) {
      SelectWhole();
    }
  });
}

/// An amount is edited without its thousands points.
String tsText::WithoutPoints() const {
  return mdlObjTxt::LimpaMascara(txtEdit_.Text(), m_.Mascara, m_.ItensMascara + u".");
}

void tsText::SelectWhole() {
  txtEdit_.SelStart(0);
  txtEdit_.SelLength(Len(Trim(txtEdit_.Text())));
}

ExitVerdict tsText::UserControl_ExitFocus() {
  ExitVerdict verdict = ExitVerdict::Left;
  pageDownIsHeld_ = false;
  Trap(u"tsText", u"UserControl_ExitFocus", [&] {
    if (txtEdit_.Tag != exitIsSilenced && Enabled()) Settle(verdict);
  });
  lastExit_ = verdict;
  return verdict;
}

bool tsText::HasToSettle() const {
  return IsTouched() || ValueChanged() || lastExit_ != ExitVerdict::Left || !m_.LastValidaStatus ||
         IsForbiddenBlank();
}

/// `verdict` is right at every moment: an error may end the steps anywhere.
void tsText::Settle(ExitVerdict& verdict) {
  const bool touched = IsTouched();
  if (touched) verdict = ExitVerdict::NotStored;
  // The key-up of a key that is still held would have come too late.
  if (shown_.IsTyped()) m_.bCarregandoCampo = true;
  if (EhNumerica()) txtEdit_.Alignment(host::Alignment::Right);
  Check check{};
  WithoutTouching([&] {
    FillZeros();
    check = CheckText();
  });
  if (check != Check::Passed) {
    verdict = check == Check::Refused ? ExitVerdict::Refused : ExitVerdict::Left;
  } else if (!touched) {
    AssignItself();
  } else if (AssignTyped()) {
    verdict = ExitVerdict::Left;
  }
  m_.bCarregandoCampo = false;
  ReportChange();
  State().vntValorIrmao = Variant();
}

void tsText::FillZeros() {
  if (InStr(m_.Mascara, u"0") == 0 || Trim(Stripped()).empty() || ShowsStoredText()) return;
  mdlObjTxt::PreencheZeros(txtEdit_, m_.Mascara, m_.ItensMascara, m_.PromptChar, m_.TipoStrZero);
}

/// False when the value was refused.
bool tsText::AssignTyped() {
  if (EhNumerica())
    WriteBox(Format(txtEdit_.Text(),
                    mdlObjTxt::FormatoNumero(m_.Mascara, InStr(m_.Mascara, u".") != 0)));
  if (EhEmbaralhada())
    return Assign(
        mdlComum::CodificaTexto(
            m_.PromptInclude ? m_.Texto
                             : mdlObjTxt::LimpaMascara(m_.Texto, m_.Mascara, m_.ItensMascara)),
        Road::Write);
  if (!m_.PromptInclude) return Assign(Stripped(), Road::Write);
  if (!m_.Mascara.empty()) WriteBox(LaidOut(txtEdit_.Text()));
  return Assign(txtEdit_.Text(), Road::Write);
}

void tsText::ReportChange() {
  bool changed = ValueChanged();
  if (!changed) {
    events_.BrowseReturn(changed, m_.LastValue);
    return;
  }
  // A description stays silent: its sibling reports the change.
  if (m_.TipoControle != tessaria::TipoControle::Descricao)
    events_.BrowseReturn(changed, m_.LastValue);
  m_.LastValue = m_.Value;
}

}  // namespace tessaria
