#include "mask/number_keys.h"

#include <algorithm>

#include "mask/key_class.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

using namespace mdlObjTxt;

namespace {

constexpr StringView kDecimalComma = u",";
constexpr StringView kSign = u"-";

/// Handles both "," and ".": inserts the comma, or moves the caret after the one to its right.
void TypeComma(Keystroke& k) {
  const String text = TypedText(k.field);
  const Long caret = k.box.SelStart();
  const Long comma = InStr(text, kDecimalComma);
  if (comma > 0 && comma < caret + 1) return k.SwallowWithBeep();
  if (comma > 0) {
    k.box.SelStart(comma);
  } else {
    const String composed = Left(text, caret).append(kDecimalComma) + Mid(text, caret + 1);
    if (!k.HasRoomFor(composed)) return k.SwallowWithBeep();
    k.box.Text(composed);
    k.box.SelStart(InStr(k.box.Text(), kDecimalComma));
  }
  k.Swallow();
}

/// Applies to numeric masks only: in all others the slots take the key first.
void BackspaceNumber(Keystroke& k) {
  const String text = TypedText(k.field);
  if (Mid(text, k.box.SelStart(), 1) != kDecimalComma) return;
  if (CommaRemovalOverflows(text, k.mask, k.box.MaxLength())) k.SwallowWithBeep();
}

/// The text without the selection, but with the selection's first character.
String TextForSign(const Keystroke& k) {
  const String text = TypedText(k.field);
  return Left(text, k.pos) + Mid(text, k.pos + k.cnt);
}

/// Puts the sign before the number, wherever the caret is. The typed text is replaced even when the
/// key is refused afterwards, as for the plus key, except when there is no room.
void TypeMinus(Keystroke& k) {
  const bool allSelected = Len(k.box.Text()) == k.box.SelLength();
  const String typed = allSelected ? String() : TextForSign(k);
  const String before = k.field.Texto();
  k.field.StoreText(typed);
  const Long comma = InStr(typed, kDecimalComma);
  const Long integers = comma > 0 ? comma - 1 : Len(typed);
  if (!k.field.ValorNegativo() || integers >= k.Capacity()) return k.SwallowWithBeep();
  if (StartsWith(typed, kSign)) return k.SwallowWithBeep();
  const String composed = String(kSign) + typed;
  if (!k.HasRoomFor(composed)) {
    k.field.StoreText(before);
    return k.SwallowWithBeep();
  }
  k.box.Text(composed);
  k.box.SelStart(k.pos);
  k.Swallow();
}

void TypePlus(Keystroke& k) {
  const String typed = TextForSign(k);
  k.field.StoreText(typed);
  if (!k.field.ValorNegativo()) return k.SwallowWithBeep();
  if (StartsWith(typed, kSign)) {
    k.box.Text(Mid(typed, 2));
    k.box.SelStart(std::max<Long>(0, k.pos - 2));
  }
  k.Swallow();
}

/// The text without the selection. The comma stays when the selection contains it.
String TextWithoutSelection(const Keystroke& k) {
  const String text = TypedText(k.field);
  const String selected = Mid(text, k.box.SelStart() + 1, k.box.SelLength());
  if (selected.empty()) return text;
  const String before = Left(text, k.box.SelStart());
  const bool keepsComma = InStr(selected, kDecimalComma) > 0 && selected != text;
  return before + String(keepsComma ? kDecimalComma : StringView()) +
         Right(text, Len(text) - Len(before) - Len(selected));
}

/// Digits: the integer part has a limit; the decimals have only that of the box.
void TypeDigit(Keystroke& k) {
  if (k.box.MaxLength() == 0) return;
  const String text = TextWithoutSelection(k);
  const Long comma = InStr(text, kDecimalComma);
  const Long integerEnd = comma > 0 ? comma : Len(text) + 1;
  if (integerEnd > k.Capacity() && integerEnd >= k.box.SelStart() + 1) k.SwallowWithBeep();
}

}  // namespace

void EditNumber(Keystroke& k) {
  switch (k.key) {
    case key::Comma:
    case key::Point:
      return TypeComma(k);
    case key::Minus:
      return TypeMinus(k);
    case key::Plus:
      return TypePlus(k);
    case key::Backspace:
      // At the start of the field it counts as a digit.
      return k.box.SelStart() > 0 ? BackspaceNumber(k) : TypeDigit(k);
    default:
      return TypeDigit(k);
  }
}

}  // namespace tessaria
