#include "hosts/qt/keys/multi_line_edit.h"

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QTextCursor>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <utility>

#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/focus/dialog_keys.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/keys/paste_refusal.h"
#include "tessaria/comforts.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// Whether the character changes the text: printed ones, and the end of a line.
bool writes(const QString& typed) {
  return typed == QLatin1String("\r") ||
         (!typed.isEmpty() && typed.front() >= QLatin1Char(' ') && typed.front() != QChar(127));
}

QString withOwnLineEnds(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

QString lineEndOf(const QString& text) {
  const bool hasOwn = text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
  return hasOwn ? QStringLiteral("\n") : QStringLiteral("\r\n");
}

}  // namespace

/// Changes made meanwhile are reported at the end of the outermost one, which may destroy the edit.
class MultiLineEdit::Work {
 public:
  explicit Work(MultiLineEdit* edit) : edit_(edit) { ++edit->working_; }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    if (!edit_) return;
    --edit_->working_;
    edit_->flush();
  }

 private:
  QPointer<MultiLineEdit> edit_;
};

MultiLineEdit::MultiLineEdit(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    edited_ = true;
    flush();
  });
}

// --- Text and selection

QString MultiLineEdit::boxText() const {
  if (document()->revision() == assignedRevision_) return assigned_;
  return toPlainText().replace(QLatin1Char('\n'), lineEnd_);
}

void MultiLineEdit::assignText(const QString& text) {
  const Work work(this);
  const QString own = withOwnLineEnds(text);
  if (own != toPlainText()) setPlainText(own);
  moveCursor(QTextCursor::Start);
  lineEnd_ = lineEndOf(text);
  assigned_ = text;
  assignedRevision_ = document()->revision();
  edited_ = false;
}

void MultiLineEdit::replaceSelection(const QString& text) {
  const Work work(this);
  insertPlainText(withOwnLineEnds(text));
  edited_ = false;
}

/// Of a text with "\n" at the ends of its lines.
int MultiLineEdit::lengthOf(const QString& text) const {
  return int(text.size() + text.count(QLatin1Char('\n')) * (lineEnd_.size() - 1));
}

/// The position in such a text.
int MultiLineEdit::fromBox(const QString& text, int position) const {
  int own = 0;
  for (int rest = position; own < text.size(); ++own) {
    rest -= text.at(own) == QLatin1Char('\n') ? int(lineEnd_.size()) : 1;
    if (rest < 0) break;
  }
  return own;
}

int MultiLineEdit::selStart() const {
  return lengthOf(toPlainText().left(textCursor().selectionStart()));
}

int MultiLineEdit::selLength() const {
  return lengthOf(toPlainText().left(textCursor().selectionEnd())) - selStart();
}

void MultiLineEdit::select(int start, int length) {
  const QString text = toPlainText();
  const int from = std::max(start, 0);
  // A length may be as large as any number.
  const int room = std::max(lengthOf(text) - from, 0);
  QTextCursor cursor = textCursor();
  cursor.setPosition(fromBox(text, from));
  cursor.setPosition(fromBox(text, from + std::clamp(length, 0, room)), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

// --- Looks

bool MultiLineEdit::isAlignedRight() const {
  return document()->defaultTextOption().alignment().testFlag(Qt::AlignRight);
}

void MultiLineEdit::alignRight(bool right) {
  QTextOption option = document()->defaultTextOption();
  option.setAlignment(right ? Qt::AlignRight : Qt::AlignLeft);
  document()->setDefaultTextOption(option);
}

/// As wide as the box of one line, and so many lines high.
QSize MultiLineEdit::hintFor(int lines) const {
  constexpr int kCharacters = 17;
  const QFontMetrics metrics = fontMetrics();
  const int edges = 2 * (frameWidth() + int(std::ceil(document()->documentMargin())));
  return {metrics.horizontalAdvance(QLatin1Char('x')) * kCharacters + edges,
          metrics.lineSpacing() * lines + edges};
}

// --- Changes

/// The part of the operator's text that has room in place of the selection.
QString MultiLineEdit::fitting(const QString& text) const {
  if (limit_ == 0) return text;
  const QString selected = textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
  const int room = limit_ - (lengthOf(toPlainText()) - lengthOf(selected));
  QString part = text;
  while (!part.isEmpty() && lengthOf(part) > room)
    part = toQt(LeftWhole(fromQt(part), Long(part.size()) - 1));
  return part;
}

/// Keeps the selection if nothing fits in its place.
void MultiLineEdit::insertFitting(const QString& text) {
  const QString part = fitting(withOwnLineEnds(text));
  if (!part.isEmpty()) insertPlainText(part);
}

/// What the operator changes without a key is followed by one key-up of code 0.
void MultiLineEdit::flush() {
  if (working_ > 0) return;
  const QPointer<MultiLineEdit> self(this);
  const bool byOperator = std::exchange(edited_, false);
  const bool hasKey = handledKeys_ > 0;
  const QString now = toPlainText();
  if (now != known_) {
    known_ = now;
    endDescription();
    if (events_) events_->changed();
  } else if (byOperator && events_) {
    events_->sameText();
  }
  if (self && byOperator && !hasKey && events_) events_->keyUp(0, 0, PressedIn::Box);
}

// --- Keys

void MultiLineEdit::keyPressEvent(QKeyEvent* event) {
  const QPointer<MultiLineEdit> self(this);
  event->accept();
  if (isHeldFromElsewhere(*event)) return;
  const KeyFate fate = askKeyDown(*event, KeyReach::Box);
  if (!self || fate != KeyFate::LeftAlone) return;
  ++handledKeys_;
  const QStringList units = charactersOf(*event);
  if (!units.isEmpty()) {
    pressCharacters(event, units);
  } else {
    const Work work(this);
    QPlainTextEdit::keyPressEvent(event);
  }
  if (self) --handledKeys_;
}

void MultiLineEdit::pressCharacters(QKeyEvent* event, const QStringList& units) {
  const QPointer<MultiLineEdit> self(this);
  for (const QString& unit : units) {
    QString typed;
    const KeyFate fate = askKeyPress(unit, typed);
    if (!self) return;
    if (fate != KeyFate::LeftAlone) continue;
    const Work work(this);
    if (typed == unit && !writes(typed))
      QPlainTextEdit::keyPressEvent(event);
    else if (writes(typed))
      insertFitting(typed);
    ensureCursorVisible();
  }
  // Enter ends a line here; Escape presses the form's cancel button.
  if (self && event->key() == Qt::Key_Escape)
    event->setAccepted(pressDialogButton(this, event->key()));
}

void MultiLineEdit::keyReleaseEvent(QKeyEvent* event) { reportKeyRelease(*event); }

// --- Text that comes without keys

void MultiLineEdit::inputMethodEvent(QInputMethodEvent* event) {
  const QPointer<MultiLineEdit> self(this);
  QString left;
  for (const QString& unit : charactersOf(event->commitString())) {
    QString typed;
    const KeyFate fate = askKeyPress(unit, typed);
    if (!self) return;
    if (fate == KeyFate::LeftAlone) left += typed;
  }
  const Work work(this);
  QInputMethodEvent passed(event->preeditString(), event->attributes());
  passed.setCommitString(fitting(left), event->replacementStart(), event->replacementLength());
  QPlainTextEdit::inputMethodEvent(&passed);
  event->accept();
}

/// What is pasted or dropped.
void MultiLineEdit::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  const QString text = withOwnLineEnds(source->text());
  if (comforts().PasteWholeOrNothing && fitting(text) != text) return tellRefusedPaste(*this);
  const Work work(this);
  insertFitting(text);
  ensureCursorVisible();
}

void MultiLineEdit::dropEvent(QDropEvent* event) {
  if (takesFocusForDrop()) QPlainTextEdit::dropEvent(event);
}

// --- Focus

void MultiLineEdit::focusOutEvent(QFocusEvent* event) {
  held_.clear();
  QPlainTextEdit::focusOutEvent(event);
}

void MultiLineEdit::showEvent(QShowEvent* event) {
  FocusCycle::of(window());
  QPlainTextEdit::showEvent(event);
}

}  // namespace tessaria::qt
