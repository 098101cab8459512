// The keys for the clipboard and for undo in a masked edit.
#pragma once

#include <QKeyEvent>

namespace tessaria::qt {

enum class EditCommand { None, Copy, Cut, Paste, SelectAll, Undo, Redo };

/// The command of a key; None for any other, and while `Comforts::ClipboardKeys` is off.
EditCommand commandOf(const QKeyEvent& event);

}  // namespace tessaria::qt
