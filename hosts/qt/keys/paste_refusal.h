// The message for a pasted text that does not fit and is refused as a whole.
#pragma once

#include <QString>

namespace tessaria::qt {

class TextEdit;

/// Tells the operator at the field, without taking the focus: a beep, and a text that is shown for
/// a while and read by screen readers.
void tellRefusedPaste(TextEdit& edit);

}  // namespace tessaria::qt
