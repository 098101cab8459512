#include "hosts/qt/keys/text_box.h"

#include <utility>

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
void raiseSlot(const Slot& slot, Arguments&... arguments) {
  if (const Slot copy = slot) copy(arguments...);
}

}  // namespace

TextBox::TextBox(TextEdit& edit) : edit_(&edit), face_(&edit.widget()) { edit.setEvents(this); }

TextBox::~TextBox() {
  if (face_) edit_->setEvents(nullptr);
}

TextEdit& TextBox::edit() const {
  if (!face_) throw ControlGone{};
  return *edit_;
}

void TextBox::setEdit(TextEdit& edit) {
  TextEdit& before = *std::exchange(edit_, &edit);
  before.setEvents(nullptr);
  face_ = &edit.widget();
  edit.assignText(before.boxText());
  edit.setSelStart(before.selStart());
  edit.setSelLength(before.selLength());
  edit.setLimit(before.limit());
  edit.alignRight(before.isAlignedRight());
  edit.hideText(!passwordChar_.empty());
  if (font_) Font(*font_);
  Enabled(!before.widget().testAttribute(Qt::WA_ForceDisabled));
  edit.setEvents(this);
}

// --- Text

String TextBox::Text() const { return fromQt(edit().boxText()); }
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
  passwordChar_ = text.substr(0, 1);
  edit().hideText(!passwordChar_.empty());
}

MaskInUse TextBox::maskInUse() const { return Mask ? Mask() : MaskInUse{}; }

Typing TextBox::typing() const { return Typed ? Typed() : Typing{}; }

void TextBox::restoreTyping(const Typing& typing) {
  if (RestoreTyped) RestoreTyped(typing);
}

// --- Looks

/// The box's own flag, even if its surface is disabled.
bool TextBox::Enabled() const { return !face().testAttribute(Qt::WA_ForceDisabled); }

void TextBox::Enabled(bool enabled) {
  face().setEnabled(enabled);
  applyColours();
}

bool TextBox::Visible() const { return !face().isHidden(); }

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
  const QWidget* around = face().parentWidget();
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
  const bool isPlain = palette.resolveMask() == 0 && !face().testAttribute(Qt::WA_SetPalette);
  if (!isPlain) face().setPalette(palette);
}

host::Font TextBox::Font() const { return font_ ? *font_ : toFont(face().font()); }

void TextBox::Font(const host::Font& font) {
  font_ = font;
  const QWidget* around = face().parentWidget();
  face().setFont(toQFont(font, around ? around->font() : QFont()));
}

Long TextBox::Width() const { return twipsX(face().width(), face()); }
void TextBox::Width(Long twips) { face().resize(pixelsX(twips, face()), face().height()); }
Long TextBox::Height() const { return twipsY(face().height(), face()); }
void TextBox::Height(Long twips) { face().resize(face().width(), pixelsY(twips, face())); }

host::Alignment TextBox::Alignment() const {
  return edit().isAlignedRight() ? host::Alignment::Right : host::Alignment::Left;
}

void TextBox::Alignment(host::Alignment alignment) {
  edit().alignRight(alignment == host::Alignment::Right);
}

void TextBox::SetFocus() {
  if (!face().isEnabled() || !Visible()) return;
  showPagesOf(&face());
  face().setFocus(Qt::OtherFocusReason);
}

// --- Events

void TextBox::silence() {
  Surface = {};
  OnChange = OnSameText = OnGotFocus = OnLostFocus = nullptr;
  OnKeyDown = OnKeyUp = nullptr;
  OnKeyPress = nullptr;
}

void TextBox::changed() {
  guarded(face_, [this] { raiseSlot(OnChange); });
}

void TextBox::sameText() {
  guarded(face_, [this] { raiseSlot(OnSameText); });
}

KeyFate TextBox::keyDown(Integer code, Integer shift, KeyReach reach) {
  const Integer original = code;
  KeyFate fate = KeyFate::LeftAlone;
  guarded(face_, [&, alive = face_] {
    // A key that has no code is 0 from the start.
    const auto taken = [&] { return alive && code == 0 && original != 0; };
    raiseSlot(Surface.OnKeyDown, code, shift);
    if (taken()) fate = KeyFate::TakenBySurface;
    if (!alive || taken() || reach == KeyReach::SurfaceOnly) return;
    raiseSlot(OnKeyDown, code, shift);
    if (taken()) fate = KeyFate::TakenByBox;
  });
  return fate;
}

KeyFate TextBox::keyPress(Integer& code) {
  KeyFate fate = KeyFate::LeftAlone;
  guarded(face_, [&, alive = face_] {
    raiseSlot(Surface.OnKeyPress, code);
    if (code == 0) fate = KeyFate::TakenBySurface;
    if (!alive || code == 0) return;
    raiseSlot(OnKeyPress, code);
    if (code == 0) fate = KeyFate::TakenByBox;
  });
  return fate;
}

/// A key-up goes to the box that received the key-down; the surface receives every key-up.
void TextBox::keyUp(Integer code, Integer shift, PressedIn where) {
  guarded(face_, [&, alive = face_] {
    raiseSlot(Surface.OnKeyUp, code, shift);
    if (alive && where == PressedIn::Box) raiseSlot(OnKeyUp, code, shift);
  });
}

void TextBox::gotFocus() {
  guarded(face_, [this] { raiseSlot(OnGotFocus); });
}

void TextBox::lostFocus() {
  guarded(face_, [this] { raiseSlot(OnLostFocus); });
}

}  // namespace tessaria::qt
