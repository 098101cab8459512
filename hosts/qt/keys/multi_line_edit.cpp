#include "hosts/qt/keys/multi_line_edit.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "hosts/qt/conversion/key_codes.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// The code of a character that has none.
constexpr Integer kNoWesternCode = u'?';

/// Whether the character changes the text: printed ones, and the end of a line.
bool writes(const QString& typed) {
  return typed == QLatin1String("\r") ||
         (!typed.isEmpty() && typed.front() >= QLatin1Char(' ') && typed.front() != QChar(127));
}

QString withOwnLineEnds(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
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

void MultiLineEdit::setLimit(int characters) { limit_ = std::max(characters, 0); }

int MultiLineEdit::lengthOf(const QString& text) {
  return int(text.size() + text.count(QLatin1Char('\n')));
}

void MultiLineEdit::assignText(const QString& text) {
  const Work work(this);
  const QString own = withOwnLineEnds(text);
  if (own != toPlainText()) setPlainText(own);
  moveCursor(QTextCursor::Start);
  edited_ = false;
}

void MultiLineEdit::replaceSelection(const QString& text) {
  const Work work(this);
  insertPlainText(withOwnLineEnds(text));
  edited_ = false;
}

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

void MultiLineEdit::flush() {
  if (working_ > 0) return;
  const bool byOperator = std::exchange(edited_, false);
  const QString now = toPlainText();
  if (now != known_) {
    known_ = now;
    if (events_) events_->changed();
  } else if (byOperator && events_) {
    events_->sameText();
  }
}

// --- Keys

void MultiLineEdit::keyPressEvent(QKeyEvent* event) {
  const QPointer<MultiLineEdit> self(this);
  const Integer code = virtualKey(*event);
  const Integer shift = shiftState(event->modifiers());
  const KeyFate fate = events_ ? events_->keyDown(code, shift, KeyReach::Box) : KeyFate::LeftAlone;
  event->accept();
  if (!self || fate != KeyFate::LeftAlone) return;
  const QStringList units = charactersOf(*event);
  if (!units.isEmpty()) return pressCharacters(event, units);
  const Work work(this);
  QPlainTextEdit::keyPressEvent(event);
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
}

/// Calls the handlers; `typed` receives the character as they have changed it.
KeyFate MultiLineEdit::askKeyPress(const QString& unit, QString& typed) {
  typed = unit;
  if (!events_) return KeyFate::LeftAlone;
  const Integer original = unit.size() == 1 ? AnsiCode(unit.front().unicode()) : kNoWesternCode;
  Integer code = original;
  const KeyFate fate = events_->keyPress(code);
  if (fate == KeyFate::LeftAlone && code != original) {
    const bool western = code > 0 && code <= 255;
    typed = western ? QString(QChar(AnsiCharacter(code))) : QString();
  }
  return fate;
}

void MultiLineEdit::keyReleaseEvent(QKeyEvent* event) {
  event->accept();
  if (event->isAutoRepeat() || !events_) return;
  events_->keyUp(virtualKey(*event), shiftState(event->modifiers()), PressedIn::Box);
}

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
  const Work work(this);
  if (source->hasText()) insertFitting(source->text());
  ensureCursorVisible();
}

}  // namespace tessaria::qt
