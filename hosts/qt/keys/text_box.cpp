#include "hosts/qt/keys/text_box.h"

#include "tessaria/qt/text.h"

namespace tessaria::qt {

TextBox::TextBox(LineEdit& edit) : EditPort(edit) { edit.setEvents(this); }

TextBox::~TextBox() {
  if (!isGone()) edit().setEvents(nullptr);
}

String TextBox::Text() const { return fromQt(edit().text()); }
void TextBox::Text(const String& text) { edit().assignText(toQt(text)); }
Long TextBox::SelStart() const { return edit().selStart(); }
void TextBox::SelStart(Long position) { edit().setSelStart(position); }
Long TextBox::SelLength() const { return edit().selLength(); }
void TextBox::SelLength(Long length) { edit().setSelLength(length); }
String TextBox::SelText() const { return fromQt(edit().selText()); }
void TextBox::SelText(const String& text) { edit().replaceSelection(toQt(text)); }
Long TextBox::MaxLength() const { return edit().limit(); }
void TextBox::MaxLength(Long characters) { edit().setLimit(characters); }

void TextBox::PasswordChar(const String& text) {
  EditPort::PasswordChar(text);
  edit().setEchoMode(PasswordChar().empty() ? QLineEdit::Normal : QLineEdit::Password);
}

host::Alignment TextBox::Alignment() const {
  return edit().alignment().testFlag(Qt::AlignRight) ? host::Alignment::Right
                                                     : host::Alignment::Left;
}

void TextBox::Alignment(host::Alignment alignment) {
  const bool right = alignment == host::Alignment::Right;
  edit().setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

MaskInUse TextBox::maskInUse() const { return Mask ? Mask() : MaskInUse{}; }

Typing TextBox::typing() const { return Typed ? Typed() : Typing{}; }

void TextBox::restoreTyping(const Typing& typing) {
  if (RestoreTyped) RestoreTyped(typing);
}

}  // namespace tessaria::qt
