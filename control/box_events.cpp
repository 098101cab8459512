#include "control/box_events.h"

#include <utility>

#include "mask/editing_keys.h"
#include "mask/key_filter.h"
#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Virtual-key codes.
constexpr Integer kKeyPageDown = 34;
// These keys start no search in a description.
constexpr Integer kKeyShift = 16;
constexpr Integer kKeyHome = 36;

}  // namespace

BoxEvents::BoxEvents(FieldBox& box, Members& members, Pair& pair, Looks& looks, Dialogs& dialogs,
                     tsTextEvents& events)
    : box_(box), members_(members), pair_(pair), dialogs_(dialogs), events_(events) {
  host::TextBox& widget = box_.Widget();
  widget.OnChange = [this] { OnChange(); };
  widget.OnSameText = [this] { box_.Shown().NoteTyping(); };
  widget.OnKeyDown = [this](Integer& code, Integer& shift) { txtEdit_KeyDown(*this, code, shift); };
  widget.OnKeyPress = [this](Integer& code) { txtEdit_KeyPress(*this, code); };
  widget.OnKeyUp = [this](Integer& code, Integer&) { OnKeyUp(code); };
  widget.OnGotFocus = [&looks] { looks.ColourFocused(); };
  widget.OnLostFocus = [&looks] { looks.ColourUnfocused(); };
}

BoxEvents::~BoxEvents() {
  host::TextBox& widget = box_.Widget();
  widget.OnChange = nullptr;
  widget.OnSameText = nullptr;
  widget.OnKeyDown = nullptr;
  widget.OnKeyPress = nullptr;
  widget.OnKeyUp = nullptr;
  widget.OnGotFocus = nullptr;
  widget.OnLostFocus = nullptr;
}

void BoxEvents::KeyDown(Integer& KeyCode, Integer& Shift) {
  if (KeyCode == kKeyPageDown) pageDownIsHeld_ = true;
  events_.KeyDown(KeyCode, Shift);
}

void BoxEvents::KeyUp(Integer& KeyCode, Integer& Shift) {
  const bool isOwnPageDown = KeyCode == kKeyPageDown && std::exchange(pageDownIsHeld_, false);
  if (isOwnPageDown && members_.TipoControle != tessaria::TipoControle::Normal) dialogs_.Open();
  events_.KeyUp(KeyCode, Shift);
}

/// What the key filter puts into the box counts as typed, even if the text stays the same.
void BoxEvents::Texto(const String& text) {
  box_.Shown().NoteTyping();
  box_.Texto(text);
}

void BoxEvents::OnChange() {
  if (isSilent_) return;
  box_.Shown().NoteChange();
  if (members_.TipoControle == tessaria::TipoControle::Diretorio) SplitPath();
  events_.Change();
}

void BoxEvents::SplitPath() {
  const String text = box_.Widget().Text();
  if (members_.DirVerArquivos && !text.empty()) {
    const Long p = InStrRev(text, String(1, App().PathSeparator()));
    members_.DirFilePath = Left(text, p - 1);  // a text without a separator is an invalid argument
    members_.DirFileName = Mid(text, p + 1);
  } else {
    members_.DirFilePath = text;
    members_.DirFileName.clear();
  }
}

void BoxEvents::OnKeyUp(Integer KeyCode) {
  Trap(u"tsText", u"txtEdit_KeyUp", [&] {
    members_.bCarregandoCampo = true;
    if (members_.IsDescription() && KeyCode != kKeyHome && KeyCode != kKeyShift)
      pair_.Complete(KeyCode);
  });
}

}  // namespace tessaria
