#include "mask/editing_keys.h"

#include "mask/key_class.h"
#include "mask/key_filter.h"
#include "mask/keystroke.h"
#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

using namespace mdlObjTxt;

namespace {

constexpr StringView kComma = u",";

/// Whether the selection contains the comma and ends before the end of the number.
bool SpansComma(const String& selected, const String& text, const String& tail) {
  return InStr(selected, kComma) > 0 && selected != text && !tail.empty();
}

void DeleteInNumber(MaskedField& field, Integer& KeyCode) {
  host::TextBox& box = field.Box();
  const String text = TypedText(field);
  const Long caret = box.SelStart();
  const String selected = Mid(text, caret + 1, box.SelLength());
  const String tail = Right(text, Len(text) - caret - Len(selected));
  if (SpansComma(selected, text, tail)) {
    box.Text(Left(text, caret).append(kComma) + tail);
    box.SelStart(InStr(box.Text(), kComma) - 1);
    KeyCode = key::None;
  } else if (Mid(text, caret + 1, 1) == kComma) {
    if (!CommaRemovalOverflows(text, field.Mascara(), box.MaxLength())) return;
    App().Beep();
    KeyCode = key::None;
  }
}

}  // namespace

void txtEdit_KeyDown(MaskedField& field, Integer& KeyCode, Integer&) {
  Trap(u"tsText", u"txtEdit_KeyDown", [&] {
    if (KeyCode == key::Delete && IsNumericMask(field.Mascara())) {
      DeleteInNumber(field, KeyCode);
    } else if (KeyCode == key::Delete || KeyCode == key::F9) {
      FilterCode(field, KeyCode);
    }
    if (KeyCode == key::Delete) ForgetErased(field, BoxKey::Delete);
  });
}

}  // namespace tessaria
