#include "hosts/qt/keys/multi_line_box.h"

#include <QTextCursor>
#include <QTextOption>
#include <algorithm>

#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

String withPortLineEnds(QString text) {
  return fromQt(text.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

/// A position in the document, which counts one character for the end of a line, as the port's.
Long toPort(const QString& text, int position) {
  return MultiLineEdit::lengthOf(text.left(position));
}

int fromPort(const QString& text, Long position) {
  int own = 0;
  for (Long rest = position; own < text.size(); ++own) {
    rest -= text.at(own) == QLatin1Char('\n') ? 2 : 1;
    if (rest < 0) break;
  }
  return own;
}

}  // namespace

MultiLineBox::MultiLineBox(MultiLineEdit& edit) : EditPort(edit) { edit.setEvents(this); }

MultiLineBox::~MultiLineBox() {
  if (!isGone()) edit().setEvents(nullptr);
}

String MultiLineBox::Text() const { return withPortLineEnds(edit().toPlainText()); }
void MultiLineBox::Text(const String& text) { edit().assignText(toQt(text)); }

Long MultiLineBox::SelStart() const {
  return toPort(edit().toPlainText(), edit().textCursor().selectionStart());
}

void MultiLineBox::SelStart(Long position) { select(position, 0); }

Long MultiLineBox::SelLength() const {
  return toPort(edit().toPlainText(), edit().textCursor().selectionEnd()) - SelStart();
}

void MultiLineBox::SelLength(Long length) { select(SelStart(), length); }

void MultiLineBox::select(Long start, Long length) {
  const QString text = edit().toPlainText();
  const Long from = std::max<Long>(start, 0);
  // A length may be as large as any number.
  const Long room = std::max<Long>(MultiLineEdit::lengthOf(text) - from, 0);
  QTextCursor cursor = edit().textCursor();
  cursor.setPosition(fromPort(text, from));
  cursor.setPosition(fromPort(text, from + std::clamp<Long>(length, 0, room)),
                     QTextCursor::KeepAnchor);
  edit().setTextCursor(cursor);
}

String MultiLineBox::SelText() const {
  const QTextCursor cursor = edit().textCursor();
  const QString text = edit().toPlainText();
  const int start = cursor.selectionStart();
  return withPortLineEnds(text.mid(start, cursor.selectionEnd() - start));
}

void MultiLineBox::SelText(const String& text) { edit().replaceSelection(toQt(text)); }
Long MultiLineBox::MaxLength() const { return edit().limit(); }
void MultiLineBox::MaxLength(Long characters) { edit().setLimit(characters); }

host::Alignment MultiLineBox::Alignment() const {
  const bool right = edit().document()->defaultTextOption().alignment().testFlag(Qt::AlignRight);
  return right ? host::Alignment::Right : host::Alignment::Left;
}

void MultiLineBox::Alignment(host::Alignment alignment) {
  QTextOption option = edit().document()->defaultTextOption();
  option.setAlignment(alignment == host::Alignment::Right ? Qt::AlignRight : Qt::AlignLeft);
  edit().document()->setDefaultTextOption(option);
}

}  // namespace tessaria::qt
