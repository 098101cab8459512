// One key on its way through the filter of a masked field.
#pragma once

#include "mask/masked_field.h"
#include "tessaria/string.h"

namespace tessaria {

/// The working values of one call. Positions count from 1. A step of the filter beyond 16 bits is
/// error 6; a caret that stands there is only behind the mask.
struct Keystroke {
  /// Reads the field as it stands.
  Keystroke(MaskedField& maskedField, Integer& keyCode);

  MaskedField& field;
  host::TextBox& box;
  Integer& key;  ///< set to 0 the key goes no further
  const String mask, items;
  Long pos;     ///< the slot under examination
  Long cnt;     ///< the slots that the selection covers, 1 without one
  String slot;  ///< the mask character of the slot, "" behind the mask

  /// Whether the mask has a literal at that position. Error 5 for position 0.
  bool IsLiteral(Long position) const;
  String MaskAt(Long position) const;
  Integer Capacity() const;
  /// Whether the operator may have that text in the box: it keeps to `MaxLength`, or is no longer
  /// than the text that stands there.
  bool HasRoomFor(const String& text) const;
  void Swallow();
  void SwallowWithBeep();
};

/// What the operator has typed so far: the box's text, or what stands behind its password
/// characters. A value that came from outside is kept without its literals, so it is laid out
/// again. A character that reached such a box past the filter counts in a number only; a box
/// without any password character stands for itself.
String TypedText(MaskedField& field);

/// A key that the box acts on by itself.
enum class BoxKey { Character, Backspace, Delete };

/// Takes from the typed text what the box is about to erase for a key, where password characters
/// stand for it. Nothing for a field without a mask.
void ForgetErased(MaskedField& field, BoxKey key);

}  // namespace tessaria
