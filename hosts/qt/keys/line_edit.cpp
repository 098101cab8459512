#include "hosts/qt/keys/line_edit.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <limits>
#include <utility>

#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/comforts.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

bool isNavigation(const QKeyEvent& event) {
  return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

bool isText(const QString& typed) {
  return !typed.isEmpty() && typed.front() >= QLatin1Char(' ') && typed.front() != QChar(127);
}

/// Keys that print nothing and would change the text past the mask.
bool bypassesMask(const QKeyEvent& event) {
  static constexpr QKeySequence::StandardKey kKeys[] = {QKeySequence::Paste,
                                                        QKeySequence::Cut,
                                                        QKeySequence::Undo,
                                                        QKeySequence::Redo,
                                                        QKeySequence::DeleteEndOfWord,
                                                        QKeySequence::DeleteStartOfWord,
                                                        QKeySequence::DeleteEndOfLine,
                                                        QKeySequence::DeleteCompleteLine};
  return std::any_of(std::begin(kKeys), std::end(kKeys), [&](auto key) {
    return const_cast<QKeyEvent&>(event).matches(key);  // not const in Qt, but changes nothing
  });
}

/// Of the many events that only draw, place and show a widget.
bool leavesTextAlone(QEvent::Type type) {
  switch (type) {
    case QEvent::Paint:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::ShowToParent:
    case QEvent::Polish:
    case QEvent::PolishRequest:
    case QEvent::LayoutRequest:
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::ParentChange:
      return true;
    default:
      return false;
  }
}

}  // namespace

LineEdit::LineEdit(QWidget* parent) : QLineEdit(parent) {
  setMaxLength(std::numeric_limits<int>::max());
  connect(this, &QLineEdit::textEdited, this, &LineEdit::edited);
  connect(this, &QLineEdit::textChanged, this, &LineEdit::flush);
}

MaskInUse LineEdit::maskInUse() const { return events_ ? events_->maskInUse() : MaskInUse{}; }

// --- Text and selection

void LineEdit::assignText(const QString& text) {
  const Work work(this, By::Handlers);
  if (text != this->text()) setText(text);
  setSelStart(0);
}

void LineEdit::replaceSelection(const QString& text) {
  const Work work(this, By::Handlers);
  showHiddenSelection();
  insert(text);
  edited_ = false;
}

int LineEdit::selStart() const {
  if (hidden_) return hidden_->start;
  return hasSelectedText() ? selectionStart() : cursorPosition();
}

int LineEdit::selLength() const {
  if (hidden_) return hidden_->length;
  return hasSelectedText() ? selectionLength() : 0;
}

void LineEdit::showHiddenSelection() {
  if (const auto hidden = std::exchange(hidden_, {})) setSelection(hidden->start, hidden->length);
}

void LineEdit::setSelStart(int position) {
  hidden_.reset();
  deselect();
  setCursorPosition(std::clamp(position, 0, int(text().size())));
}

void LineEdit::setSelLength(int length) {
  const int start = selStart();
  const int room = int(text().size()) - start;
  setSelStart(start);
  if (const int fitting = std::clamp(length, 0, room); fitting > 0) setSelection(start, fitting);
}

void LineEdit::alignRight(bool right) {
  setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// The part of the operator's text that has room in place of the selection. Qt's own limit is not
/// used: it would cut texts that a program assigns.
QString LineEdit::fitting(const QString& text) const {
  const auto room = std::max<qsizetype>(0, limit_ - (this->text().size() - selLength()));
  if (limit_ == 0 || text.size() <= room) return text;
  return toQt(LeftWhole(fromQt(text), Long(room)));
}

/// Keeps the selection if nothing fits in its place.
void LineEdit::insertFitting(const QString& text) {
  if (const QString part = fitting(text); !part.isEmpty()) insert(part);
}

// --- Changes

/// The operator changed the text by Qt's own means.
void LineEdit::edited() {
  edited_ = true;
  if (typing_ == 0 && maskInUse().isEmpty()) withoutKey_ = true;
  flush();
}

/// A masked text is changed only through the handlers: any other change is undone. What an
/// assistive technology writes into a plain text is text without a key, if there is room for it.
bool LineEdit::takesBackForeignText() {
  const bool trusted = std::exchange(trusted_, false);
  if (trusted || text() == known_) return false;
  const bool fits = limit_ == 0 || text().size() <= std::max<qsizetype>(limit_, known_.size() - 1);
  if (maskInUse().isEmpty() && fits) {
    withoutKey_ = true;
    return false;
  }
  const int caret = std::min(cursorPosition(), int(known_.size()));
  setText(known_);
  setCursorPosition(caret);
  return true;
}

void LineEdit::flush() {
  if (working_ > 0 || takesBackForeignText()) return;
  const QPointer<LineEdit> self(this);
  const bool byOperator = std::exchange(edited_, false);
  if (text() == known_) {
    if (byOperator && events_) events_->sameText();
  } else {
    known_ = text();
    hidden_.reset();
    if (steps_ == 0) history_.clear();
    endDescription();
    if (events_) events_->changed();
  }
  if (self && std::exchange(withoutKey_, false)) reportTextWithoutKey();
}

void LineEdit::reportTextWithoutKey() {
  if (events_ && !byKey_) events_->keyUp(0, 0, PressedIn::Box);
}

// --- Keys

bool LineEdit::event(QEvent* event) {
  if (leavesTextAlone(event->type())) return QLineEdit::event(event);
  const Step step(this);
  switch (event->type()) {
    // Qt decides the same, but first compares the key with each standard key.
    case QEvent::ShortcutOverride:
      if (isReadOnly() || !isPlainCharacter(*static_cast<QKeyEvent*>(event))) break;
      event->accept();
      return true;
    case QEvent::KeyPress: {
      auto* key = static_cast<QKeyEvent*>(event);
      if (isNavigation(*key) || !isEnabled()) break;
      handleKeyPress(key);
      return true;
    }
    case QEvent::KeyRelease:
      if (!isEnabled()) break;
      reportKeyRelease(*static_cast<QKeyEvent*>(event));
      return true;
    case QEvent::Drop:
      if (!takesFocusForDrop() || takesTextWithoutKey(event)) return true;
      break;
    case QEvent::MouseButtonRelease:
      return takesTextWithoutKey(event) || handleMouseRelease(event);
    case QEvent::InputMethod:
      if (!isEnabled()) break;
      handleInputMethod(static_cast<QInputMethodEvent*>(event));
      return true;
    default:
      break;
  }
  const Work work(this, By::Qt);
  return QLineEdit::event(event);
}

void LineEdit::handleKeyPress(QKeyEvent* event) {
  const QPointer<LineEdit> self(this);
  if (isHeldFromElsewhere(*event)) return event->accept();
  const EditCommand command = maskInUse().isEmpty() ? EditCommand::None : commandOf(*event);
  const KeyReach reach = command == EditCommand::None ? KeyReach::Box : KeyReach::SurfaceOnly;
  const KeyFate fate = askKeyDown(*event, reach);
  event->accept();
  if (!self || fate != KeyFate::LeftAlone) return;
  if (command != EditCommand::None) return run(command);

  const QStringList units = charactersOf(*event);
  if (!units.isEmpty()) return pressCharacters(event, units);
  editCommand(event);
}

void LineEdit::pressCharacters(QKeyEvent* event, const QStringList& units) {
  const QPointer<LineEdit> self(this);
  bool takenBySurface = false;
  for (const QString& unit : units) {
    if (!self) return event->accept();
    QString typed;
    const KeyFate fate = askKeyPress(unit, typed);
    if (!self) return event->accept();
    takenBySurface = fate == KeyFate::TakenBySurface;
    if (fate != KeyFate::LeftAlone) continue;
    const Work work(this, By::Handlers);  // reports at its end, which may destroy the edit
    if (typed == unit && units.size() == 1 && (!isText(typed) || hasRoomFor(typed)))
      act(event);
    else
      insertTyped(typed);
  }
  if (!self) return event->accept();
  // These keys press the form's default and cancel buttons whatever the filter does.
  if (isDialogKey(*event) && !takenBySurface)
    event->setAccepted(pressDialogButton(this, event->key()));
  else
    event->accept();
}

void LineEdit::editCommand(QKeyEvent* event) {
  if (!maskInUse().isEmpty() && bypassesMask(*event)) return event->accept();
  const Work work(this, By::Handlers);
  act(event);
}

/// Lets Qt handle the key, except for a paste, which Qt would not limit.
void LineEdit::act(QKeyEvent* event) {
  if (isPlainCharacter(*event) || !event->matches(QKeySequence::Paste))
    return QLineEdit::keyPressEvent(event);
  const bool selection = event->key() == Qt::Key_Insert &&
                         event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
  pasteFrom(selection ? QClipboard::Selection : QClipboard::Clipboard);
  event->accept();
}

void LineEdit::insertTyped(const QString& typed) {
  if (typed == QChar(8)) return backspace();
  if (isText(typed)) insertFitting(typed);
}

bool LineEdit::typeCharacter(const QString& unit) {
  const QPointer<LineEdit> self(this);
  QString typed;
  const KeyFate fate = askKeyPress(unit, typed);
  if (!self || fate != KeyFate::LeftAlone) return self;
  {
    const Work work(this, By::Handlers);
    showHiddenSelection();
    insertTyped(typed);
  }
  return self;
}

bool LineEdit::offerCharacter(const QString& unit) {
  const QPointer<LineEdit> self(this);
  QString typed;
  askKeyPress(unit, typed);
  return self;
}

bool LineEdit::typeDelete() {
  const QPointer<LineEdit> self(this);
  const Step step(this);
  const KeyFate fate = events_ ? events_->keyDown(46, 0, KeyReach::Box) : KeyFate::LeftAlone;
  if (!self || fate != KeyFate::LeftAlone) return self;
  {
    const Work work(this, By::Handlers);
    showHiddenSelection();
    del();
  }
  return self;
}

// --- Input methods

void LineEdit::handleInputMethod(QInputMethodEvent* event) {
  const QPointer<LineEdit> self(this);
  const bool masked = !maskInUse().isEmpty();
  const QString commit = event->commitString();
  event->accept();
  if (commit.isEmpty()) {
    // A pre-edit would remove the selection from a mask's slots.
    if (!masked) {
      const Work work(this, By::Handlers);
      QLineEdit::inputMethodEvent(event);
    }
    return;
  }
  QString left;
  for (const QString& unit : charactersOf(commit)) {
    if (masked) {
      if (!typeCharacter(unit)) return;
      continue;
    }
    QString typed;
    const KeyFate fate = askKeyPress(unit, typed);
    if (!self) return;
    if (fate == KeyFate::LeftAlone) left += typed;
  }
  if (!masked) {
    const Work work(this, By::Handlers);
    QInputMethodEvent passed(event->preeditString(), event->attributes());
    passed.setCommitString(fitting(left), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&passed);
  }
  if (self) reportTextWithoutKey();
}

// --- Focus

void LineEdit::focusInEvent(QFocusEvent* event) {
  // Qt selects the whole text for these reasons; here only the control selects.
  const auto reason = event->reason();
  const bool selects = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                       reason == Qt::ShortcutFocusReason;
  QFocusEvent quiet(QEvent::FocusIn, selects ? Qt::OtherFocusReason : reason);
  QLineEdit::focusInEvent(&quiet);
  if (reason == Qt::MouseFocusReason) hidden_.reset();
  showHiddenSelection();
}

void LineEdit::focusOutEvent(QFocusEvent* event) {
  held_.clear();
  const Selection selection{selStart(), selLength()};
  QLineEdit::focusOutEvent(event);
  if (selection.length > 0 && !hasSelectedText()) hidden_ = selection;
}

void LineEdit::keepSelectionOverClick() {
  if (hasSelectedText()) entered_ = Selection{selStart(), selLength()};
}

bool LineEdit::handleMouseRelease(QEvent* event) {
  const auto entered = std::exchange(entered_, {});
  const bool left = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  const Work work(this, By::Qt);
  const bool handled = QLineEdit::event(event);
  if (entered && left && !hasSelectedText()) {
    setSelStart(entered->start);
    setSelLength(entered->length);
  }
  return handled;
}

void LineEdit::showEvent(QShowEvent* event) {
  FocusCycle::of(window());
  QLineEdit::showEvent(event);
}

void LineEdit::deliverGotFocus() {
  history_.clear();
  TextEdit::deliverGotFocus();
}

}  // namespace tessaria::qt
