// Whether the field may be left.

#include "control/tstext.h"
#include "lookup/relation_check.h"
#include "mask/dates.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

bool tsText::Valida() {
  Check check{};
  WithoutTouching([&] { check = CheckText(); });
  return check == Check::Passed;
}

tsText::Check tsText::CheckText() {
  Check result = Check::Escaped;
  // The trap is armed for asking which inner widget is active and stays so: the first error
  // anywhere starts the rules over, a second one is the caller's.
  Catch(
      [&] {
        if (site_.ActiveControlName() == u"btnBrowse")
          m_.LastValidaStatus = false;
        else
          result = CheckRules();
      },
      [&] {
        Err().Clear();  // steers, reports nothing
        result = CheckRules();
      });
  return result;
}

tsText::Check tsText::CheckRules() {
  if (Cancels()) return Check::Escaped;
  const String label = LabelPrefix();

  if (CommandButtonIsActive() && IsForbiddenBlank()) {
    m_.LastValidaStatus = false;
    Refuse(label + u"Não Pode Ser Branco, Verifique Por Favor");
    if (txtEdit_.Visible()) txtEdit_.SetFocus();
    return Check::Refused;
  }
  if (mdlObjTxt::EhMascaraDeData(m_.Mascara) && !CheckDate(label)) {
    ReturnFocus();
    return Check::Refused;
  }
  // A required blank lets the focus pass to anything but a command button, whose case is
  // settled above; the status stays as it was.
  if (IsForbiddenBlank()) return Check::Passed;
  // Nor is anybody held by a stored text that he did not write.
  m_.LastValidaStatus = !m_.UsaChecaRelacao || ShowsStoredText() || CheckRelation(label);
  if (m_.LastValidaStatus) return Check::Passed;
  ReturnFocus();
  return Check::Refused;
}

bool tsText::Cancels() const {
  if (m_.ObjetoCancelar.empty()) return false;
  const auto active = site_.Parent()->ActiveControl();
  return active && EqualNoCase(active->Name(), m_.ObjetoCancelar);
}

bool tsText::CommandButtonIsActive() const {
  const auto active = site_.Parent()->ActiveControl();
  return active && active->TypeName() == u"CommandButton";
}

String tsText::LabelPrefix() const {
  return m_.bLabelConectado ? LabelWidget()->Caption() + u" " : String();
}

bool tsText::IsForbiddenBlank() const {
  if (m_.PodeSerBranco) return false;
  const String text = Stripped();
  if (Trim(text).empty()) return true;
  return EhNumerica() && Trim(Replace(Replace(text, u"0", u""), u",", u"")).empty();
}

bool tsText::CheckDate(const String& label) {
  const bool typed = !ShowsStoredText();
  bool valid = true;
  if (typed && !Stripped().empty()) {
    valid = mdlObjTxt::ChecaData(txtEdit_, m_.Mascara, m_.ItensMascara);
    if (!valid) Refuse(label + u"Invalido(a), Corrija Por Favor");
  } else if (typed && CommandButtonIsActive()) {
    valid = m_.PodeSerBranco;
    if (!valid) Refuse(label + u"Não Pode Ser Branco(a), Verifique Por Favor");
  }
  m_.LastValidaStatus = valid;
  return valid;
}

bool tsText::CheckRelation(const String& label) {
  Variant found;
  const bool exists = RelationHolds(Condition(), label, true, &found, CommandButtonIsActive());
  if (exists && !found.IsEmpty()) WriteBox(LaidOut(found));
  return exists;
}

bool tsText::AcionaChecaRelacao() {
  bool exists = false;
  Trap(u"tsText", u"AcionaChecaRelacao", [&] {
    exists = RelationHolds(String(), m_.bLabelConectado ? LabelWidget()->Caption() : String(),
                           false, nullptr, false);
  });
  return exists;
}

bool tsText::RelationHolds(String condition, const String& label, bool tellsMissing, Variant* found,
                           bool buttonIsActive) {
  return mdlObjTxt::ChecaRelacao(Browse()->From(), BrwCampo(), SearchedText(), m_.TipoControle,
                                 CampoVinculado().get(), m_.bCampoConectado, m_.PodeSerBranco,
                                 tellsMissing, condition, label, found, hWnd(), buttonIsActive);
}

String tsText::SearchedText() const {
  return mdlObjTxt::LimpaMascara(txtEdit_.Text(), m_.Mascara,
                                 m_.PromptInclude ? m_.PromptChar : m_.ItensMascara);
}

void tsText::ReturnFocus() {
  const auto active = site_.Parent()->ActiveControl();
  // A sibling whose own validation has failed keeps the focus: two failing fields do not fight.
  const auto other = std::dynamic_pointer_cast<host::TsTextWidget>(active);
  const bool mayTake = !other || other->Control().LastValidaStatus();
  if (mayTake && txtEdit_.Visible()) txtEdit_.SetFocus();
  txtEdit_.SelStart(0);
  txtEdit_.SelLength(Len(txtEdit_.Text()));
}

void tsText::Refuse(const String& text) {
  mdlMsgBox::ExibeMensagem(hWnd(), text, mdlMsgBox::flag::Stop);
}

}  // namespace tessaria
