// Behaviour that a program may choose in place of the rules of the domain.
#pragma once

namespace tessaria {

/// Each comfort bends one rule, which docs/fields.md names beside it. All are off by default.
struct Comforts {
  /// Masked fields take the keys of the clipboard and of undo. A pasted text passes the key filter;
  /// one undo takes one edit back.
  bool ClipboardKeys = false;
  /// A text that does not fit its field is not pasted at all, and the operator is told.
  bool PasteWholeOrNothing = false;
  /// A calendar that is closed without a choice leaves the field as it was.
  bool CalendarCancels = false;
  /// A description that is typed anew is searched without the key that it had before.
  bool SearchWithoutFormerKey = false;
  /// The colours and icons of fields follow a dark palette.
  bool DarkPalette = false;

  /// Every comfort switched on.
  static constexpr Comforts All() { return {true, true, true, true, true}; }
};

/// Sets the comforts of the whole process. To be called before the first form is made, on the
/// thread that starts the program.
void setComforts(const Comforts& comforts);

/// The comforts in force.
const Comforts& comforts();

}  // namespace tessaria
