// Behaviour that a program may choose in place of the rules of the domain.
#pragma once

#include "tessaria/export.h"

namespace tessaria {

/// Each comfort bends one rule, which docs/fields.md names beside it. All are off by default.
struct TESSARIA_CORE_API Comforts {
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
TESSARIA_CORE_API void setComforts(const Comforts& comforts);

/// The comforts in force.
TESSARIA_CORE_API const Comforts& comforts();

}  // namespace tessaria
