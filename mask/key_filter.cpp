#include "mask/key_filter.h"

#include <algorithm>

#include "mask/key_class.h"
#include "mask/keystroke.h"
#include "mask/number_keys.h"
#include "mask/slot_keys.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

using namespace mdlObjTxt;

Keystroke::Keystroke(MaskedField& maskedField, Integer& keyCode)
    : field(maskedField),
      box(maskedField.Box()),
      key(keyCode),
      mask(maskedField.Mascara()),
      items(maskedField.ItensMascara()),
      pos(box.SelStart() + 1),
      cnt(std::max<Long>(1, box.SelLength())) {}

bool Keystroke::IsLiteral(Long position) const {
  return position <= Len(mask) && EhItemMascara(mask, CInt(position), items);
}

String Keystroke::MaskAt(Long position) const { return Mid(mask, position, 1); }

Integer Keystroke::Capacity() const { return CapacidadeInteira(mask, box.MaxLength()); }

bool Keystroke::HasRoomFor(const String& text) const {
  const Long limit = box.MaxLength();
  return limit == 0 || Len(text) <= std::max(limit, Len(box.Text()));
}

void Keystroke::Swallow() { key = key::None; }

void Keystroke::SwallowWithBeep() {
  Swallow();
  App().Beep();
}

namespace {

Long PasswordCharacters(MaskedField& field, StringView shown) {
  const String password = field.Box().PasswordChar();
  return password.empty() ? 0 : static_cast<Long>(std::ranges::count(shown, password.front()));
}

/// The typed text that is shown as that many password characters.
String HiddenText(MaskedField& field, Long count) {
  String typed = field.Texto();
  if (Len(typed) == count) return typed;
  String laidOut =
      AplicaMascara(typed, field.Mascara(), field.PromptChar(), field.ItensMascara(), u"");
  return Len(laidOut) == count ? laidOut : typed;
}

/// The box of a number inserts digits by itself, between hidden ones.
String WithHiddenDigits(const String& shown, const String& hidden, char16_t password) {
  String text;
  std::size_t next = 0;
  for (const char16_t character : shown) {
    if (character != password)
      text += character;
    else if (next < hidden.size())
      text += hidden[next++];
  }
  return text;
}

/// The part of its text that the box erases by itself for a key. Positions from 0.
struct Erased {
  Long start, length;
};

Erased ErasedByBox(const host::TextBox& box, BoxKey key) {
  const Long start = box.SelStart(), length = box.SelLength();
  if (length > 0) return {start, length};
  if (key == BoxKey::Backspace && start > 0) return {start - 1, 1};
  return {start, key == BoxKey::Delete ? 1 : 0};
}

}  // namespace

String TypedText(MaskedField& field) {
  String shown = field.Box().Text();
  const Long count = PasswordCharacters(field, shown);
  if (count == 0) return shown;
  String hidden = HiddenText(field, count);
  if (!IsNumericMask(field.Mascara())) return hidden;
  return WithHiddenDigits(shown, hidden, field.Box().PasswordChar().front());
}

void ForgetErased(MaskedField& field, BoxKey key) {
  const host::TextBox& box = field.Box();
  const String shown = box.Text();
  const Long count = PasswordCharacters(field, shown);
  if (count == 0 || field.Mascara().empty()) return;
  const Erased erased = ErasedByBox(box, key);
  const Long before = PasswordCharacters(field, Left(shown, erased.start));
  const Long gone = PasswordCharacters(field, Mid(shown, erased.start + 1, erased.length));
  if (gone == 0) return;
  const String hidden = HiddenText(field, count);
  field.StoreText(Left(hidden, before) + Mid(hidden, before + gone + 1));
}

namespace {

bool IsBehindMask(const Keystroke& k) { return k.pos > Len(k.mask); }

String FirstSlot(const Keystroke& k) {
  const bool everywhereTheSame = IsNumericMask(k.mask) || Len(k.mask) == 1;
  return k.MaskAt(everywhereTheSame ? 1 : k.pos);
}

/// Moves to the first position that is not a literal. False when the filter lets the key pass: the
/// position is compared with the length of the mask without its literals, so a mask with many
/// literals lets keys pass early.
bool SkipLiterals(Keystroke& k) {
  const Long slots = Len(LimpaMascara(k.mask, k.mask, k.items));
  while (k.IsLiteral(k.pos)) {
    if (k.pos + 1 > slots) return false;
    ++k.pos;
    k.slot = k.MaskAt(k.pos);
  }
  return true;
}

void EditSlots(Keystroke& k) {
  if (k.key == key::Delete && k.box.SelStart() < Len(k.box.Text())) {
    DeleteSlots(k);
  } else if (k.key == key::Backspace) {
    BackspaceSlots(k);
  }
}

/// Puts the key into the slot or into the number, or ignores it. There is no beep for a key of the
/// wrong class. An "x" that its slot refuses goes on to the box, in a calculator field after the
/// calculator has returned.
void ApplyKey(Keystroke& k) {
  if (SlotTakes(k.slot, k.key)) {
    TakeCharacter(k);
  } else if (k.slot == u"$" && IsNumberKey(k.key)) {
    EditNumber(k);
  } else if (k.key != key::F9) {
    k.Swallow();
  } else if (k.field.TipoControle() == TipoControle::Calculadora) {
    k.field.RunCalculator();
  }
}

void FilterKey(Keystroke& k) {
  const bool numeric = IsNumericMask(k.mask);
  if (!numeric && IsBehindMask(k) && k.key != key::Backspace) return k.SwallowWithBeep();
  k.slot = FirstSlot(k);
  if (!numeric) {
    if (!SkipLiterals(k)) return;
    EditSlots(k);
  }
  ApplyKey(k);
}

}  // namespace

void FilterCode(MaskedField& field, Integer& code) {
  Trap(u"tsText", u"txtEdit_Keypress", [&] {
    if (field.Mascara().empty()) return;
    Keystroke keystroke(field, code);
    FilterKey(keystroke);
  });
}

void txtEdit_KeyPress(MaskedField& field, Integer& KeyAscii) {
  Trap(u"tsText", u"txtEdit_Keypress", [&] {
    FilterCode(field, KeyAscii);
    if (KeyAscii == key::Backspace)
      ForgetErased(field, BoxKey::Backspace);
    else if (KeyAscii >= u' ')
      ForgetErased(field, BoxKey::Character);
  });
}

}  // namespace tessaria
