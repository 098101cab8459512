#include "mask/slot_keys.h"

#include "mask/key_class.h"
#include "tessaria/error.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

using namespace mdlObjTxt;

namespace {

/// The slots of the selection, the first one with a character; literals stay.
String SlotRange(const Keystroke& k, const String& first) {
  const String prompt = k.field.PromptChar();
  String range;
  for (Long i = 1; i <= k.cnt; ++i) {
    const Long position = k.pos + i - 1;
    if (k.IsLiteral(position)) {
      range += k.MaskAt(position);
    } else {
      range += i == 1 ? first : prompt;
    }
  }
  return range;
}

/// Replaces a selection of one character with a caret after it.
void DropShortSelection(Keystroke& k) {
  if (k.box.SelLength() != 1) return;
  k.box.SelStart(k.box.SelStart() + 1);
  k.pos = k.box.SelStart() + 1;
}

/// Moves left over literals, except at the end of the text. With a selection only the first mask
/// position is tested, so the search would end only when its counter overflows.
void WalkLeft(Keystroke& k) {
  if (k.box.SelStart() == Len(k.box.Text())) return;
  if (k.box.SelLength() == 0) {
    while (k.IsLiteral(k.pos - 1)) --k.pos;
  } else if (k.IsLiteral(1)) {
    k.Swallow();
    throw HostError(errors::Overflow);
  }
}

/// The erased slots. Without a selection the slot to the left of the caret is examined, but a
/// literal is taken from the caret's own position.
String ErasedRange(const Keystroke& k) {
  const Long offset = k.box.SelLength() == 0 ? 2 : 1;
  String range;
  for (Long i = 1; i <= k.cnt; ++i) {
    const bool literal = k.IsLiteral(k.pos + i - offset);
    range += literal ? k.MaskAt(k.pos + i - 1) : k.field.PromptChar();
  }
  return range;
}

/// Replaces the covered slots with `range`, from a position on, and puts the caret before it.
void ReplaceSlots(Keystroke& k, Long position, const String& range) {
  const String text = TypedText(k.field);
  const String composed = Left(text, position - 1) + range + Mid(text, position + k.cnt);
  if (!k.HasRoomFor(composed)) return k.SwallowWithBeep();
  k.field.Texto(composed);
  k.box.SelStart(position - 1);
  k.Swallow();
}

String WithCharacter(const Keystroke& k, const String& range) {
  const String text = TypedText(k.field);
  if (k.pos == 1) return range + Mid(text, k.cnt + 1);
  // A text shorter than its mask grows, and loses its literals until it is laid out again.
  if (k.box.SelStart() == Len(k.box.Text())) return LimpaMascara(text, k.mask, k.items) + range;
  return Left(text, k.pos - 1) + range + Mid(text, k.pos + k.cnt);
}

/// Also ends when the caret no longer moves, at the end of a text shorter than its mask.
void WalkOverLiterals(const Keystroke& k) {
  for (Long caret = k.box.SelStart(); k.IsLiteral(caret + 1); caret = k.box.SelStart()) {
    k.box.SelStart(caret + 1);
    if (k.box.SelStart() <= caret) return;
  }
}

}  // namespace

void DeleteSlots(Keystroke& k) { ReplaceSlots(k, k.pos, SlotRange(k, k.field.PromptChar())); }

void BackspaceSlots(Keystroke& k) {
  if (k.box.SelLength() == 0 && k.box.SelStart() == 0) return;
  DropShortSelection(k);
  WalkLeft(k);
  const String range = ErasedRange(k);
  // Only the length distinguishes a single slot, left of the caret, from a selection.
  ReplaceSlots(k, Len(range) == 1 ? k.pos - 1 : k.pos, range);
}

void TakeCharacter(Keystroke& k) {
  const String composed = WithCharacter(k, SlotRange(k, FoldForSlot(k.slot, k.key)));
  if (!k.HasRoomFor(composed)) return k.SwallowWithBeep();
  k.field.Texto(composed);
  k.box.SelStart(k.pos);
  WalkOverLiterals(k);
  k.Swallow();
}

}  // namespace tessaria
