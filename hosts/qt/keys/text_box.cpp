#include "hosts/qt/keys/text_box.h"

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/fonts.h"
#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/pages.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

/// Calls a copy of the slot: the handler may destroy its owner.
template <class Slot, class... Arguments>
void raise(const Slot& slot, Arguments&... arguments) {
  if (const Slot copy = slot) copy(arguments...);
}

}  // namespace

TextBox::TextBox(LineEdit& edit) : edit_(&edit) { edit.setEvents(this); }

TextBox::~TextBox() {
  if (edit_) edit_->setEvents(nullptr);
}

LineEdit& TextBox::edit() const {
  if (!edit_) throw ControlGone{};
  return *edit_;
}

// --- Text

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
String TextBox::PasswordChar() const { return passwordChar_; }

void TextBox::PasswordChar(const String& text) {
  passwordChar_ = text.substr(0, 1);
  edit().setEchoMode(passwordChar_.empty() ? QLineEdit::Normal : QLineEdit::Password);
}

// --- Looks

host::Alignment TextBox::Alignment() const {
  return edit().alignment().testFlag(Qt::AlignRight) ? host::Alignment::Right
                                                     : host::Alignment::Left;
}

void TextBox::Alignment(host::Alignment alignment) {
  const bool right = alignment == host::Alignment::Right;
  edit().setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// The box's own flag, even if its surface is disabled.
bool TextBox::Enabled() const { return !edit().testAttribute(Qt::WA_ForceDisabled); }

void TextBox::Enabled(bool enabled) {
  edit().setEnabled(enabled);
  applyColours();
}

bool TextBox::Visible() const { return !edit().isHidden(); }

void TextBox::ForeColor(Colour colour) {
  if (colour == foreColor_) return;
  foreColor_ = colour;
  applyColours();
}

void TextBox::BackColor(Colour colour) {
  if (colour == backColor_) return;
  backColor_ = colour;
  applyColours();
}

/// A literal background gets a literal text colour if the theme's is not readable on it.
QColor TextBox::textColour(const QColor& wanted, const QColor& back) const {
  if (isSystemColour(foreColor_) && !isReadableOn(wanted, back)) return textColourOn(back);
  return readableOn(wanted, back);
}

/// The colours apply to the present state of the box: the theme draws the other one.
void TextBox::applyColours() {
  const QWidget* around = edit().parentWidget();
  const QPalette theme = around ? around->palette() : QPalette();
  const bool themed = isThemesBase(backColor_, theme);
  const QColor back = themed ? theme.color(QPalette::Base) : toQColor(backColor_, theme);
  const QColor fore = textColour(toQColor(foreColor_, theme), back);
  QPalette palette;
  for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    if ((group == QPalette::Disabled) == Enabled()) continue;
    if (!themed && back != theme.color(group, QPalette::Base))
      palette.setColor(group, QPalette::Base, back);
    if (group == QPalette::Disabled) continue;
    if (fore != theme.color(group, QPalette::Text)) palette.setColor(group, QPalette::Text, fore);
  }
  const bool isPlain = palette.resolveMask() == 0 && !edit().testAttribute(Qt::WA_SetPalette);
  if (!isPlain) edit().setPalette(palette);
}

host::Font TextBox::Font() const { return font_ ? *font_ : toFont(edit().font()); }

void TextBox::Font(const host::Font& font) {
  font_ = font;
  const QWidget* around = edit().parentWidget();
  edit().setFont(toQFont(font, around ? around->font() : QFont()));
}

Long TextBox::Width() const { return twipsX(edit().width(), edit()); }
void TextBox::Width(Long twips) { edit().resize(pixelsX(twips, edit()), edit().height()); }
Long TextBox::Height() const { return twipsY(edit().height(), edit()); }
void TextBox::Height(Long twips) { edit().resize(edit().width(), pixelsY(twips, edit())); }

void TextBox::SetFocus() {
  if (!edit().isEnabled() || !Visible()) return;
  showPagesOf(&edit());
  edit().setFocus(Qt::OtherFocusReason);
}

// --- Events

void TextBox::changed() {
  guarded(edit_, [this] { raise(OnChange); });
}

void TextBox::sameText() {
  guarded(edit_, [this] { raise(OnSameText); });
}

KeyFate TextBox::keyDown(Integer code, Integer shift, KeyReach reach) {
  const Integer original = code;
  KeyFate fate = KeyFate::LeftAlone;
  guarded(edit_, [&, alive = edit_] {
    // A key that has no code is 0 from the start.
    const auto taken = [&] { return alive && code == 0 && original != 0; };
    raise(Surface.OnKeyDown, code, shift);
    if (taken()) fate = KeyFate::TakenBySurface;
    if (!alive || taken() || reach == KeyReach::SurfaceOnly) return;
    raise(OnKeyDown, code, shift);
    if (taken()) fate = KeyFate::TakenByBox;
  });
  return fate;
}

KeyFate TextBox::keyPress(Integer& code) {
  KeyFate fate = KeyFate::LeftAlone;
  guarded(edit_, [&, alive = edit_] {
    raise(Surface.OnKeyPress, code);
    if (code == 0) fate = KeyFate::TakenBySurface;
    if (!alive || code == 0) return;
    raise(OnKeyPress, code);
    if (code == 0) fate = KeyFate::TakenByBox;
  });
  return fate;
}

/// A key-up goes to the box that received the key-down; the surface receives every key-up.
void TextBox::keyUp(Integer code, Integer shift, PressedIn where) {
  guarded(edit_, [&, alive = edit_] {
    raise(Surface.OnKeyUp, code, shift);
    if (alive && where == PressedIn::Box) raise(OnKeyUp, code, shift);
  });
}

void TextBox::gotFocus() {
  guarded(edit_, [this] { raise(OnGotFocus); });
}

void TextBox::lostFocus() {
  guarded(edit_, [this] { raise(OnLostFocus); });
}

MaskInUse TextBox::maskInUse() const { return Mask ? Mask() : MaskInUse{}; }

Typing TextBox::typing() const { return Typed ? Typed() : Typing{}; }

void TextBox::restoreTyping(const Typing& typing) {
  if (RestoreTyped) RestoreTyped(typing);
}

}  // namespace tessaria::qt
