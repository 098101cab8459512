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

KeyRelay::KeyRelay(QWidget& face, const DialogGate& gate, const host::Surface& surface,
                   FindItem find)
    : face_(face), gate_(gate), surface_(surface), find_(std::move(find)) {
  face.installEventFilter(this);
}

/// All widgets that the surface has when it shows.
void KeyRelay::watchAll() {
  for (QWidget* widget : face_.findChildren<QWidget*>()) widget->installEventFilter(this);
}

/// A key that its widget ignores comes here again when Qt propagates it.
bool KeyRelay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && watched == &face_) watchAll();
  if (event->type() != QEvent::KeyPress) return false;
  QWidget* focus = face_.window()->focusWidget();
  if (watched != (focus ? focus : &face_)) return false;
  auto& key = *static_cast<QKeyEvent*>(event);
  if (isNavigation(key)) return false;
  DialogItem* item = focus ? find_(focus) : nullptr;
  if (item && item->previewsKeys()) return false;
  if (!takes(key, item && !item->keepsKeysOf(*focus) ? &item->port() : nullptr)) return false;
  key.accept();
  return true;
}

bool KeyRelay::takes(QKeyEvent& event, const host::DialogWidget* widget) {
  Integer code = virtualKey(event);
  Integer shift = shiftState(event.modifiers());
  if (asks(surface_.OnKeyDown, code, shift)) return true;
  if (widget && asks(widget->OnKeyDown, code, shift)) return true;
  for (const QString& unit : charactersOf(event)) {
    Integer character = unit.size() == 1 ? AnsiCode(unit.front().unicode()) : kUnknownCharacter;
    if (asks(surface_.OnKeyPress, character)) return true;
    if (widget && asks(widget->OnKeyPress, character)) return true;
  }
  return false;
}

/// A key that has no code is 0 from the start.
template <class Slot, class... Arguments>
bool KeyRelay::asks(const Slot& slot, Integer& code, Arguments&... arguments) {
  const Integer original = code;
  gate_.raise(slot, code, arguments...);
  return !gate_.isOpen() || !face_.isVisible() || (code == 0 && original != 0);
}

}  // namespace tessaria::qt
