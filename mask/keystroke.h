// One key as the filter of a masked field processes it.
#pragma once

#include "mask/masked_field.h"
#include "tessaria/string.h"

namespace tessaria {

/// The working values of one call. Positions count from 1. A step of the filter beyond 16 bits
/// raises error 6; a caret beyond 16 bits only counts as after the mask.
struct Keystroke {
  /// Reads the current state of the field.
  Keystroke(MaskedField& maskedField, Integer& keyCode);

  MaskedField& field;
  host::TextBox& box;
  Integer& key;  ///< 0 when the key goes no further
  const String mask, items;
  Long pos;     ///< the slot under examination
  Long cnt;     ///< the slots that the selection covers, 1 without a selection
  String slot;  ///< the mask character of the slot, "" after the mask

  /// Whether the mask has a literal at that position. Error 5 for position 0.
  bool IsLiteral(Long position) const;
  String MaskAt(Long position) const;
  Integer Capacity() const;
  /// Whether the box accepts that text from the operator: it is within `MaxLength`, or not longer
  /// than the present text.
  bool HasRoomFor(const String& text) const;
  void Swallow();
  void SwallowWithBeep();
};

/// What the operator has typed so far: the box's text, or the text that its password characters
/// hide. A value that was assigned is stored without its literals, so it is laid out again. A
/// character that reached such a box without the filter counts only in a number; a box without any
/// password character is taken as it is.
String TypedText(MaskedField& field);

/// A key that the box handles by itself.
enum class BoxKey { Character, Backspace, Delete };

/// Removes from the typed text what the box is about to erase for a key, where password characters
/// hide it. Does nothing for a field without a mask.
void ForgetErased(MaskedField& field, BoxKey key);

}  // namespace tessaria
