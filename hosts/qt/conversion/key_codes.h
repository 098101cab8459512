// Conversion of Qt keys to the virtual-key codes that the core and applications use.
#pragma once

#include <QKeyEvent>
#include <QStringList>

#include "tessaria/string.h"

namespace tessaria::qt {

/// The virtual-key code of the key; 0 for a key without one. Punctuation has the codes of the
/// Brazilian layout.
Integer virtualKey(const QKeyEvent& event);

/// Added up: 1 Shift, 2 Control, 4 Alt.
Integer shiftState(Qt::KeyboardModifiers modifiers);

/// Whether the key is one of a printed character, alone or with Shift: an edit takes it before any
/// shortcut does.
bool isPlainCharacter(const QKeyEvent& event);
/// What the key types, one character per element (a surrogate pair is one): printable characters,
/// and the control characters of Backspace, Enter, Escape and of letters with Control.
QStringList charactersOf(const QKeyEvent& event);
/// The characters of a text, a surrogate pair as one.
QStringList charactersOf(const QString& text);

}  // namespace tessaria::qt
