#include "hosts/qt/dialogs/key_relay.h"

#include "hosts/qt/conversion/key_codes.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// The Western code of a character outside the Basic Multilingual Plane.
constexpr Integer kUnknownCharacter = u'?';

bool isNavigation(const QKeyEvent& event) {
  return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

}  // namespace

KeyRelay::KeyRelay(QWidget& window, const DialogGate& gate, const host::Dialog& dialog,
                   FindItem find)
    : window_(window), gate_(gate), dialog_(dialog), find_(std::move(find)) {}

void KeyRelay::watchAll() {
  window_.installEventFilter(this);
  for (QWidget* widget : window_.findChildren<QWidget*>()) widget->installEventFilter(this);
}

/// A key that its widget ignores comes here again when Qt propagates it to the window.
bool KeyRelay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  QWidget* focus = window_.focusWidget();
  if (watched != (focus ? focus : &window_)) return false;
  auto& key = *static_cast<QKeyEvent*>(event);
  if (isNavigation(key)) return false;
  DialogItem* item = focus ? find_(focus) : nullptr;
  if (!takes(key, item && !item->keepsKeysOf(*focus) ? &item->port() : nullptr)) return false;
  key.accept();
  return true;
}

bool KeyRelay::takes(QKeyEvent& event, const host::DialogWidget* widget) {
  Integer code = virtualKey(event);
  Integer shift = shiftState(event.modifiers());
  if (asks(dialog_.OnKeyDown, code, shift)) return true;
  if (widget && asks(widget->OnKeyDown, code, shift)) return true;
  for (const QString& unit : charactersOf(event)) {
    Integer character = unit.size() == 1 ? AnsiCode(unit.front().unicode()) : kUnknownCharacter;
    if (asks(dialog_.OnKeyPress, character)) return true;
    if (widget && asks(widget->OnKeyPress, character)) return true;
  }
  return false;
}

/// A key that has no code is 0 from the start.
template <class Slot, class... Arguments>
bool KeyRelay::asks(const Slot& slot, Integer& code, Arguments&... arguments) {
  const Integer original = code;
  gate_.raise(slot, code, arguments...);
  return !gate_.isOpen() || !window_.isVisible() || (code == 0 && original != 0);
}

}  // namespace tessaria::qt
