#include "hosts/qt/conversion/key_codes.h"

#include <algorithm>
#include <iterator>

namespace tessaria::qt {
namespace {

struct KeyCode {
  int key;
  Integer code;
};

constexpr KeyCode kKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},
    {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    // Punctuation of the Brazilian layout.
    {Qt::Key_Ccedilla, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Semicolon, 191},
    {Qt::Key_Colon, 191},
    {Qt::Key_Apostrophe, 192},
    {Qt::Key_QuoteDbl, 192},
    {Qt::Key_Slash, 193},
    {Qt::Key_Question, 193},
    {Qt::Key_Dead_Acute, 219},
    {Qt::Key_Dead_Grave, 219},
    {Qt::Key_acute, 219},
    {Qt::Key_QuoteLeft, 219},
    {Qt::Key_BracketRight, 220},
    {Qt::Key_BraceRight, 220},
    {Qt::Key_BracketLeft, 221},
    {Qt::Key_BraceLeft, 221},
    {Qt::Key_Dead_Tilde, 222},
    {Qt::Key_Dead_Circumflex, 222},
    {Qt::Key_AsciiTilde, 222},
    {Qt::Key_AsciiCircum, 222},
    {Qt::Key_Backslash, 226},
    {Qt::Key_Bar, 226},
    {Qt::Key_Exclam, '1'},
    {Qt::Key_At, '2'},
    {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},
    {Qt::Key_Dead_Diaeresis, '6'},
    {Qt::Key_diaeresis, '6'},
    {Qt::Key_Ampersand, '7'},
    {Qt::Key_Asterisk, '8'},
    {Qt::Key_ParenLeft, '9'},
    {Qt::Key_ParenRight, '0'},
};

constexpr KeyCode kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},   {Qt::Key_Minus, 109},
    {Qt::Key_Comma, 110},    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

template <std::size_t N>
Integer find(const KeyCode (&table)[N], int key) {
  const auto* found = std::find_if(std::begin(table), std::end(table),
                                   [key](const KeyCode& entry) { return entry.key == key; });
  return found == std::end(table) ? Integer{0} : found->code;
}

Integer keypadKey(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return static_cast<Integer>(96 + key - Qt::Key_0);
  return find(kKeypad, key);
}

/// Whether Control is held without Alt: with Alt it selects the third level of the keyboard, which
/// types characters.
bool isControl(const QKeyEvent& event) {
  return event.modifiers().testFlag(Qt::ControlModifier) &&
         !event.modifiers().testFlag(Qt::AltModifier);
}

QString controlCharacter(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Backspace:
      return QChar(isControl(event) ? 127 : 8);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return QChar(isControl(event) ? 10 : 13);
    case Qt::Key_Escape:
      return QChar(27);
    default:
      break;
  }
  const bool letter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
  return letter && isControl(event) ? QString(QChar(event.key() - Qt::Key_A + 1)) : QString();
}

bool isPrintable(const QString& unit) {
  const char16_t c = unit.front().unicode();
  return unit.size() > 1 || (c >= u' ' && c != 127);
}

}  // namespace

Integer virtualKey(const QKeyEvent& event) {
#ifdef Q_OS_WIN
  if (event.nativeVirtualKey() != 0) return static_cast<Integer>(event.nativeVirtualKey());
#endif
  const int key = event.key();
  if (event.modifiers().testFlag(Qt::KeypadModifier))
    if (const Integer code = keypadKey(key); code != 0) return code;
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
    return static_cast<Integer>(key);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return static_cast<Integer>(112 + key - Qt::Key_F1);
  return find(kKeys, key);
}

Integer shiftState(Qt::KeyboardModifiers modifiers) {
  return static_cast<Integer>((modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                              (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
                              (modifiers.testFlag(Qt::AltModifier) ? 4 : 0));
}

bool isPlainCharacter(const QKeyEvent& event) {
  const auto modifiers = event.modifiers();
  return event.key() < Qt::Key_Escape &&
         (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier ||
          modifiers == Qt::KeypadModifier);
}

QStringList charactersOf(const QKeyEvent& event) {
  if (const QString control = controlCharacter(event); !control.isEmpty()) return {control};
  if (isControl(event)) return {};
  const auto alt = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (alt == Qt::AltModifier) return {};
  QStringList units = charactersOf(event.text());
  units.removeIf([](const QString& unit) { return !isPrintable(unit); });
  return units;
}

QStringList charactersOf(const QString& text) {
  QStringList units;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool pair = text[i].isHighSurrogate() && i + 1 < text.size();
    units << text.mid(i, pair ? 2 : 1);
    if (pair) ++i;
  }
  return units;
}

}  // namespace tessaria::qt
