// The focus comes and goes: the box shows an editable text inside, the finished one outside.

#include "control/tstext.h"
#include "mask/exit_flag.h"
#include "mask/form_helpers.h"
#include "mask/masks.h"
#include "mask/numbers.h"
#include "runtime/format.h"
#include "runtime/text.h"
#include "services/scramble.h"
#include "services/trap.h"
#include "tessaria/thread_state.h"

namespace tessaria {

void tsText::UserControl_EnterFocus() {
  Trap(u"tsText", u"UserControl_EnterFocus", [&] {
    if (!Enabled() || !txtEdit_.Visible()) return;
    m_.bCarregandoCampo = false;
    m_.LastValue = m_.Value;
    mdlObjTxt::MostraAba(ContainerDoControle(), NumeroTab(), txtEdit_);

    if (m_.TipoControle == tessaria::TipoControle::Descricao) {
      SelectWhole();
      FetchSiblingLiteral();
    } else if (EhNumerica()) {
      txtEdit_.Alignment(host::Alignment::Left);
      String items = m_.ItensMascara;
      if (InStr(items, u".") == 0) items += u".";
      txtEdit_.Text(mdlObjTxt::LimpaMascara(txtEdit_.Text(), m_.Mascara, items));
      SelectWhole();
    } else if (m_.TipoControle != tessaria::TipoControle::Calendario) {
      SelectWhole();
    }
  });
}

void tsText::SelectWhole() {
  txtEdit_.SelStart(0);
  txtEdit_.SelLength(Len(Trim(txtEdit_.Text())));
}

ExitVerdict tsText::UserControl_ExitFocus() {
  ExitVerdict verdict = ExitVerdict::Left;
  Trap(u"tsText", u"UserControl_ExitFocus", [&] {
    if (txtEdit_.Tag == exitIsSilenced || !Enabled()) return;
    if (EhNumerica()) txtEdit_.Alignment(host::Alignment::Right);
    if (InStr(m_.Mascara, u"0") != 0 && !Trim(Stripped()).empty())
      mdlObjTxt::PreencheZeros(txtEdit_, m_.Mascara, m_.ItensMascara, m_.PromptChar,
                               m_.TipoStrZero);
    if (Valida()) {
      if (EhNumerica())
        txtEdit_.Text(Format(txtEdit_.Text(),
                             mdlObjTxt::FormatoNumero(m_.Mascara, InStr(m_.Mascara, u".") != 0)));
      AssignTyped();
    } else if (RefusesFocus()) {
      verdict = ExitVerdict::Refused;
    }
    m_.bCarregandoCampo = false;
    ReportChange();
    State().vntValorIrmao = Variant();
  });
  return verdict;
}

/// A field that failed its validation lets go of the focus only for its own button and for the
/// control that cancels.
bool tsText::RefusesFocus() const {
  return site_.ActiveControlName() != u"btnBrowse" && !Cancels();
}

void tsText::AssignTyped() {
  const bool scrambled = UCase(Left(m_.Mascara, 1)) == u"X";
  if (scrambled) {
    Value(mdlComum::CodificaTexto(
        m_.PromptInclude ? m_.Texto
                         : mdlObjTxt::LimpaMascara(m_.Texto, m_.Mascara, m_.ItensMascara)));
  } else if (m_.PromptInclude) {
    if (!m_.Mascara.empty()) txtEdit_.Text(LaidOut(txtEdit_.Text()));
    Value(txtEdit_.Text());
  } else {
    Value(Stripped());
  }
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
