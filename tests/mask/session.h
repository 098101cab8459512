// Transcripts of an operator's session in one field: keys in, state out.
//
//   mask 00/00/0000          the mask; "prompt", "max", "negative", "type", "password" alike
//   show |__/__/____         the box: "|" is the caret, "[1/2]" a selection
//   value 2512               the box laid out from a value, caret at the start
//   1 2 -> 12/|__/____       keys, then the box
//   9   -> 12/|__/____ ; beep ; texto 12/__/____ ; key 0 ; error 6
//   F9  -> 12/|__/____ ; calculator
//
// A key is a character or one of Back, Del, F9, Enter, Esc, Tab, Space, Paste. A beep, error box or
// calculator that a line does not name is a failure.
#pragma once

#include <string>

namespace tessaria {

/// Plays a transcript; each failure names the line.
void Session(const std::string& transcript);

}  // namespace tessaria
