#include "hosts/qt/keys/text_edit.h"

#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <utility>

#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// The code of a character that has none.
constexpr Integer kOutsideTheWesternCodes = u'?';

}  // namespace

void TextEdit::deliverGotFocus() {
  if (events_) events_->gotFocus();
}

void TextEdit::deliverLostFocus() {
  if (events_) events_->lostFocus();
}

// --- Descriptions

void TextEdit::describe(const QString& text) {
  if (lasting_)
    lasting_ = text;
  else if (text != widget().accessibleDescription())
    widget().setAccessibleDescription(text);
}

void TextEdit::describeUntilChange(const QString& text) {
  if (!lasting_) lasting_ = widget().accessibleDescription();
  widget().setAccessibleDescription(text);
}

void TextEdit::endDescription() {
  if (lasting_) widget().setAccessibleDescription(*std::exchange(lasting_, std::nullopt));
}

// --- Keys

bool TextEdit::isHeldFromElsewhere(const QKeyEvent& event) const {
  return event.isAutoRepeat() && isDialogKey(event) && !held_.isRepetition(event);
}

KeyFate TextEdit::askKeyDown(const QKeyEvent& event, KeyReach reach) {
  const Integer code = held_.press(event);
  return events_ ? events_->keyDown(code, shiftState(event.modifiers()), reach)
                 : KeyFate::LeftAlone;
}

KeyFate TextEdit::askKeyPress(const QString& unit, QString& typed) {
  typed = unit;
  if (!events_) return KeyFate::LeftAlone;
  const Integer original =
      unit.size() == 1 ? AnsiCode(unit.front().unicode()) : kOutsideTheWesternCodes;
  Integer code = original;
  const KeyFate fate = events_->keyPress(code);
  if (fate == KeyFate::LeftAlone && code != original) {
    const bool western = code > 0 && code <= 255;
    typed = western ? QString(QChar(AnsiCharacter(code))) : QString();
  }
  return fate;
}

void TextEdit::reportKeyRelease(QKeyEvent& event) {
  event.accept();
  if (event.isAutoRepeat()) return;
  const auto [code, where] = held_.release(event);
  if (events_) events_->keyUp(code, shiftState(event.modifiers()), where);
}

// --- Drops

bool TextEdit::takesFocusForDrop() {
  const QPointer<QWidget> self(&widget());
  self->setFocus(Qt::MouseFocusReason);
  FocusCycle* cycle = FocusCycle::of(self->window());
  cycle->focusMoved();
  if (!self) return false;
  cycle->settlePending();
  return self && self->window()->focusWidget() == self;
}

}  // namespace tessaria::qt
