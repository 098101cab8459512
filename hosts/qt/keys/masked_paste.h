// Pasting into a masked edit, through its key filter.
#pragma once

#include <QString>

namespace tessaria::qt {

class LineEdit;

/// Types the text into the edit character by character, so that nothing is inserted that the filter
/// refuses. The mask's literals in the text are not typed: they move the caret, so that a text with
/// its punctuation gives the same result as one without. A number is inserted as a whole or, with a
/// beep, not at all; so is any text under `Comforts::PasteWholeOrNothing`, which tells the
/// operator. Ends with one key-up of code 0. A handler may destroy the edit.
void pasteThroughMask(LineEdit& edit, const QString& text);

}  // namespace tessaria::qt
