// Behaviour that a program may choose instead of the rules of the domain.
#pragma once

#include "tessaria/export.h"

namespace tessaria {

/// Each comfort overrides one rule, which docs/fields.md names beside it. All are off by default.
struct TESSARIA_CORE_API Comforts {
  /// Masked fields accept the clipboard and undo keys. Pasted text goes through the key filter; one
  /// undo reverts one edit.
  bool ClipboardKeys = false;
  /// A text that does not fit its field is not pasted at all, and the operator is told.
  bool PasteWholeOrNothing = false;
  /// A calendar that is closed without a choice leaves the field as it was.
  bool CalendarCancels = false;
  /// A description that is typed again is searched without its former key.
  bool SearchWithoutFormerKey = false;
  /// A description completes to the first name in their order, so that one which is the beginning
  /// of another can be entered.
  bool CompletesInOrder = false;
  /// Enter leaves a field for the next one, where the form has no default button. In a box of
  /// several lines it ends a line.
  bool EnterMovesOn = false;
  /// The boxes of fields follow a dark palette.
  bool DarkPalette = false;

  /// Every comfort switched on.
  static constexpr Comforts All() { return {true, true, true, true, true, true, true}; }
};

/// Sets the comforts of the whole process. Call it before the first form is created, on the thread
/// that starts the program.
TESSARIA_CORE_API void setComforts(const Comforts& comforts);

/// The comforts in force.
TESSARIA_CORE_API const Comforts& comforts();

}  // namespace tessaria
