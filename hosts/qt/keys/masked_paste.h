// Pasting into a masked edit, through its key filter.
#pragma once

#include <QString>

namespace tessaria::qt {

class LineEdit;

/// Types the text into the edit one character after the other, so that nothing gets in that the
/// filter refuses. The mask's literals in the text are not typed: they place the caret, so that a
/// text with its punctuation lands as one without. A number goes in as a whole or, with a beep, not
/// at all; so does any text under `Comforts::PasteWholeOrNothing`, which tells the operator. Ends
/// with one key-up of code 0. The edit may be destroyed by a handler.
void pasteThroughMask(LineEdit& edit, const QString& text);

}  // namespace tessaria::qt
