#include "hosts/qt/keys/held_keys.h"

#include "hosts/qt/conversion/key_codes.h"

namespace tessaria::qt {
namespace {

/// Identifies a key, regardless of the modifiers. An event that does not come from a keyboard has
/// only its code.
quint64 keyOf(const QKeyEvent& event) {
  constexpr quint64 kByScanCode = quint64{1} << 32;
  const quint32 scanCode = event.nativeScanCode();
  return scanCode != 0 ? kByScanCode | scanCode : quint64{static_cast<quint16>(virtualKey(event))};
}

}  // namespace

bool HeldKeys::isRepetition(const QKeyEvent& press) const {
  return press.isAutoRepeat() && held_.contains(keyOf(press));
}

Integer HeldKeys::press(const QKeyEvent& press) {
  const Integer code = isRepetition(press) ? held_.value(keyOf(press)) : virtualKey(press);
  held_.insert(keyOf(press), code);
  return code;
}

/// The modifiers may have been released since the press.
HeldKeys::Release HeldKeys::release(const QKeyEvent& release) {
  const auto pressed = held_.constFind(keyOf(release));
  if (pressed == held_.cend()) return {virtualKey(release), PressedIn::Elsewhere};
  const Integer code = *pressed;
  held_.erase(pressed);
  return {code, PressedIn::Box};
}

}  // namespace tessaria::qt
