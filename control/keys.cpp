// The events of the box and the keys of the surface.

#include <utility>

#include "control/scoped_flag.h"
#include "control/tstext.h"
#include "lookup/description_lookup.h"
#include "lookup/query_text.h"
#include "mask/editing_keys.h"
#include "mask/key_filter.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Virtual-key codes.
constexpr Integer kKeyPageDown = 34;
// These start no search of a description.
constexpr Integer kKeyShift = 16;
constexpr Integer kKeyHome = 36;
constexpr Integer kKeyAcute = 219;
constexpr Integer kKeyTilde = 222;

}  // namespace

void tsText::UserControl_KeyDown(Integer& KeyCode, Integer& Shift) {
  if (KeyCode == kKeyPageDown) pageDownIsHeld_ = true;
  events_.KeyDown(KeyCode, Shift);
}

void tsText::UserControl_KeyPress(Integer& KeyAscii) { events_.KeyPress(KeyAscii); }

void tsText::UserControl_KeyUp(Integer& KeyCode, Integer& Shift) {
  const bool isOwnPageDown = KeyCode == kKeyPageDown && std::exchange(pageDownIsHeld_, false);
  if (isOwnPageDown && m_.TipoControle != tessaria::TipoControle::Normal) btnBrowse_Click();
  events_.KeyUp(KeyCode, Shift);
}

void tsText::FilterKeyDown(Integer& KeyCode, Integer& Shift) {
  const ScopedFlag filtering(filtering_);
  txtEdit_KeyDown(*this, KeyCode, Shift);
}

void tsText::FilterKeyPress(Integer& KeyAscii) {
  const ScopedFlag filtering(filtering_);
  txtEdit_KeyPress(*this, KeyAscii);
}

void tsText::txtEdit_Change() {
  if (loading_) return;
  shown_.NoteChange();
  if (m_.TipoControle == tessaria::TipoControle::Diretorio) {
    const String text = txtEdit_.Text();
    if (m_.DirVerArquivos && !text.empty()) {
      const Long p = InStrRev(text, String(1, App().PathSeparator()));
      m_.DirFilePath = Left(text, p - 1);  // a text without a separator is an invalid argument
      m_.DirFileName = Mid(text, p + 1);
    } else {
      m_.DirFilePath = text;
      m_.DirFileName.clear();
    }
  }
  events_.Change();
}

void tsText::txtEdit_KeyUp(Integer KeyCode) {
  Trap(u"tsText", u"txtEdit_KeyUp", [&] {
    m_.bCarregandoCampo = true;
    if (m_.TipoControle != tessaria::TipoControle::Descricao || KeyCode == kKeyHome ||
        KeyCode == kKeyShift)
      return;
    CompleteDescription(KeyCode);
  });
}

void tsText::CompleteDescription(Integer KeyCode) {
  if (BrowseTable().empty() || BrwCampo().empty()) {
    mdlMsgBox::ExibeMensagem(hWnd(),
                             u"Propriedades da Browse Não Informadas Corretamente. Contate o "
                             u"Administrador de Sistema.",
                             mdlMsgBox::flag::Stop);
    return;
  }
  const auto sibling = m_.bIrmaoConectado ? Sibling() : nullptr;
  if (KeyCode == kKeyTilde || KeyCode == kKeyAcute) return;

  const auto definition = Browse();
  // The condition is the definition's own; the key's literal narrows it further.
  String condition = Condition();
  const String siblingField = BrwCampoIrmao();
  if (!siblingField.empty()) {
    const String literal = SiblingLiteral();
    if (!literal.empty())
      condition += (condition.empty() ? u"" : u" And ") + mdlObjTxt::TiraAlias(siblingField) +
                   u" = " + literal;
  }

  const bool typed = shown_.IsTyped();
  const String before = txtEdit_.Text();
  mdlObjTxt::CompletaDescr(txtEdit_, definition->From(), BrwCampo(), KeyCode, m_.bIrmaoConectado,
                           siblingField, sibling ? &sibling->Control() : nullptr, condition);
  // A search that failed has given the box back what it held.
  if (!typed && txtEdit_.Text() == before) shown_.ForgetTyping();
}

void tsText::txtEdit_GotFocus() {
  if (m_.bLabelConectado && (Enabled() || m_.eSocial)) ColourLabel(host::colour::Blue);
}

void tsText::txtEdit_LostFocus() {
  if (!Enabled() || !m_.bLabelConectado) return;
  ColourLabel(m_.eSocial ? host::colour::Green : host::colour::WindowText);
}

}  // namespace tessaria
