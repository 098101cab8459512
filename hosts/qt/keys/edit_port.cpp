#include "hosts/qt/keys/edit_port.h"

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/fonts.h"
#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/pages.h"

namespace tessaria::qt {
namespace {

/// Calls a copy of the slot: the handler may destroy its owner.
template <class Slot, class... Arguments>
void raiseSlot(const Slot& slot, Arguments&... arguments) {
  if (const Slot copy = slot) copy(arguments...);
}

}  // namespace

QWidget& EditPort::face() const {
  if (!face_) throw ControlGone{};
  return *face_;
}

void EditPort::PasswordChar(const String& text) { passwordChar_ = text.substr(0, 1); }

// --- Looks

/// The box's own flag, even if its surface is disabled.
bool EditPort::Enabled() const { return !face().testAttribute(Qt::WA_ForceDisabled); }

void EditPort::Enabled(bool enabled) {
  face().setEnabled(enabled);
  applyColours();
}

bool EditPort::Visible() const { return !face().isHidden(); }

void EditPort::ForeColor(Colour colour) {
  if (colour == foreColor_) return;
  foreColor_ = colour;
  applyColours();
}

void EditPort::BackColor(Colour colour) {
  if (colour == backColor_) return;
  backColor_ = colour;
  applyColours();
}

/// A literal background gets a literal text colour if the theme's is not readable on it.
QColor EditPort::textColour(const QColor& wanted, const QColor& back) const {
  if (isSystemColour(foreColor_) && !isReadableOn(wanted, back)) return textColourOn(back);
  return readableOn(wanted, back);
}

/// The colours apply to the present state of the box: the theme draws the other one.
void EditPort::applyColours() {
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

host::Font EditPort::Font() const { return font_ ? *font_ : toFont(face().font()); }

void EditPort::Font(const host::Font& font) {
  font_ = font;
  const QWidget* around = face().parentWidget();
  face().setFont(toQFont(font, around ? around->font() : QFont()));
}

Long EditPort::Width() const { return twipsX(face().width(), face()); }
void EditPort::Width(Long twips) { face().resize(pixelsX(twips, face()), face().height()); }
Long EditPort::Height() const { return twipsY(face().height(), face()); }
void EditPort::Height(Long twips) { face().resize(face().width(), pixelsY(twips, face())); }

void EditPort::SetFocus() {
  if (!face().isEnabled() || !Visible()) return;
  showPagesOf(&face());
  face().setFocus(Qt::OtherFocusReason);
}

// --- Events

void EditPort::silence() {
  Surface = {};
  OnChange = OnSameText = OnGotFocus = OnLostFocus = nullptr;
  OnKeyDown = OnKeyUp = nullptr;
  OnKeyPress = nullptr;
}

void EditPort::changed() {
  guarded(face_, [this] { raiseSlot(OnChange); });
}

void EditPort::sameText() {
  guarded(face_, [this] { raiseSlot(OnSameText); });
}

KeyFate EditPort::keyDown(Integer code, Integer shift, KeyReach reach) {
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

KeyFate EditPort::keyPress(Integer& code) {
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
void EditPort::keyUp(Integer code, Integer shift, PressedIn where) {
  guarded(face_, [&, alive = face_] {
    raiseSlot(Surface.OnKeyUp, code, shift);
    if (alive && where == PressedIn::Box) raiseSlot(OnKeyUp, code, shift);
  });
}

void EditPort::gotFocus() {
  guarded(face_, [this] { raiseSlot(OnGotFocus); });
}

void EditPort::lostFocus() {
  guarded(face_, [this] { raiseSlot(OnLostFocus); });
}

}  // namespace tessaria::qt
