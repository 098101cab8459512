#include "tessaria/memory/ts_text.h"

#include <algorithm>
#include <iterator>

#include "control/storage/properties.h"
#include "tessaria/field_settings.h"
#include "tessaria/memory/property_bag.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria::memory {
namespace {

constexpr Integer kSpace = 32;
constexpr Integer kEnter = 13;

/// A separate window token for each surface.
Long NextSurface() {
  static thread_local Long last = 0;
  return ++last;
}

}  // namespace

class TsText::Site final : public host::ControlSite {
 public:
  explicit Site(TsText& owner) : owner_(owner) {}

  bool UserMode() const override {
    const auto form = owner_.OwnerForm();
    return !form || form->UserMode();
  }
  String DisplayName() const override { return owner_.Settings().Name; }
  host::Font AmbientFont() const override {
    host::Font font;
    font.Name = u"MS Sans Serif";
    return font;
  }
  host::FormPtr Parent() const override {
    if (owner_.IsGone()) throw host::ControlGone{};
    if (auto form = owner_.OwnerForm()) return form;
    throw HostError(errors::ObjectNotSet);
  }
  host::WidgetPtr Extender() const override { return owner_.AsWidget(); }
  bool TabStop() const override { return owner_.Settings().TabStop; }
  void TabStop(bool stop) override { owner_.Settings().TabStop = stop; }
  Long hWnd() const override { return window_; }
  Long Width() const override { return owner_.Settings().Width; }
  Long Height() const override { return owner_.Settings().Height; }
  void Height(Long twips) override { owner_.Settings().Height = twips; }
  void BackColor(Colour colour) override { owner_.surfaceColour_ = colour; }
  String ActiveControlName() const override {
    if (!owner_.HasFocus()) throw HostError(errors::ObjectNotSet);
    return owner_.inner_ == Inner::Button ? u"btnBrowse" : u"txtEdit";
  }
  void PropertyChanged(const String& name) override { owner_.changed_.push_back(name); }

 private:
  TsText& owner_;
  Long window_ = NextSurface();
};

/// Records each event, then passes it to the application's handler.
class TsText::EventSink final : public tsTextEvents {
 public:
  explicit EventSink(TsText& owner) : owner_(owner) {}

  void Show() override { Raise({ControlEvent::Kind::Show}, owner_.OnShow); }
  void Change() override { Raise({ControlEvent::Kind::Change}, owner_.OnChange); }
  void KeyDown(Integer& code, Integer& shift) override {
    Raise({ControlEvent::Kind::KeyDown, code, shift}, owner_.OnKeyDown, code, shift);
  }
  void KeyPress(Integer& code) override {
    Raise({ControlEvent::Kind::KeyPress, code}, owner_.OnKeyPress, code);
  }
  void KeyUp(Integer& code, Integer& shift) override {
    Raise({ControlEvent::Kind::KeyUp, code, shift}, owner_.OnKeyUp, code, shift);
  }
  void BrowseReturn(bool& changed, Variant& last) override {
    Raise({ControlEvent::Kind::BrowseReturn, 0, 0, changed, last}, owner_.OnBrowseReturn, changed,
          last);
  }

 private:
  template <class Slot, class... Arguments>
  void Raise(ControlEvent event, const Slot& slot, Arguments&... arguments) {
    owner_.log_.push_back(std::move(event));
    if (const Slot copy = slot) copy(arguments...);
  }

  TsText& owner_;
};

TsText::TsText(String name) : PartWith(std::move(name), u"tsText") {
  Create();
  core_->UserControl_InitProperties();
  core_->UserControl_Resize();
}

TsText::TsText(String name, const host::PropertyBag& stored)
    : PartWith(std::move(name), u"tsText") {
  LoadFrom(stored);
}

TsText::TsText(const FieldSettings& settings) : PartWith(settings.name, u"tsText") {
  PropertyBag bag;
  WriteSettings(settings, bag);
  LoadFrom(bag);
  core_->Validator(settings.validator);
}

TsText::~TsText() { Terminate(); }

void TsText::LoadFrom(const host::PropertyBag& stored) {
  Create();
  core_->UserControl_ReadProperties(stored);
  core_->UserControl_Resize();
}

void TsText::Create() {
  site_ = std::make_unique<Site>(*this);
  sink_ = std::make_unique<EventSink>(*this);
  core_ = std::make_unique<tsText>(*site_, box_, button_, *sink_);
  // An error of the change is reported as an error of an event, whoever has changed the text.
  box_.OnChange = [this, change = box_.OnChange] {
    if (const auto form = OwnerForm())
      form->RunEvent(change);
    else
      change();
  };
  box_.OnSetFocus = [this] { FocusInner(Inner::Box); };
  box_.Surface.OnKeyDown = [this](Integer& code, Integer& shift) {
    core_->UserControl_KeyDown(code, shift);
  };
  box_.Surface.OnKeyPress = [this](Integer& code) { core_->UserControl_KeyPress(code); };
  box_.Surface.OnKeyUp = [this](Integer& code, Integer& shift) {
    core_->UserControl_KeyUp(code, shift);
  };
}

void TsText::Terminate() {
  if (!core_) return;
  core_->UserControl_Terminate();
  retired_ = std::move(core_);  // a call into it may still be on the stack
  box_.OnSetFocus = nullptr;
  box_.Surface = {};
}

_tsText& TsText::Control() const {
  Live();
  return **this;
}

tsText& TsText::operator*() const {
  if (!core_) throw HostError(errors::ObjectNotSet);
  return *core_;
}

std::vector<ControlEvent> TsText::Events(ControlEvent::Kind kind) const {
  std::vector<ControlEvent> found;
  std::copy_if(log_.begin(), log_.end(), std::back_inserter(found),
               [kind](const ControlEvent& event) { return event.What == kind; });
  return found;
}

Variant TsText::Get(const String& property) const {
  if (Live(); FindProperty(property) == nullptr) return Properties().Get(property);
  return GetProperty(**this, property);
}

void TsText::Let(const String& property, const Variant& value) {
  if (Live(); FindProperty(property) == nullptr) return Properties().Let(property, value);
  LetProperty(**this, property, value);
}

void TsText::Resize(Long width, Long height) {
  Live().Width = width;
  Settings().Height = height;
  (*this)->UserControl_Resize();
}

// --- Focus --------------------------------------------------------------------------------------

void TsText::FirstShow() { (*this)->UserControl_Show(); }

Part::ShowRank TsText::Rank() const {
  const tsText& control = **this;
  if (control.DataSource().empty() || control.DataField().empty()) return ShowRank::Unbound;
  switch (control.TipoControle()) {
    case TipoControle::Browse:
      return ShowRank::Key;
    case TipoControle::Descricao:
      return ShowRank::Description;
    default:
      return ShowRank::Bound;
  }
}

bool TsText::TakesFocus() const { return CanBeUsed() && box_.Enabled(); }

bool TsText::HasFocus() const {
  const auto form = OwnerForm();
  return form && form->IsActive(*this);
}

void TsText::FocusInner(Inner inner) {
  const auto form = OwnerForm();
  if (!form || !TakesFocus()) return;
  inner_ = inner;
  form->MoveFocusTo(shared_from_this());
  if (!HasFocus()) inner_ = Inner::Box;  // the field that was left took the focus back
  if (entered_) ShowInnerFocus();
}

void TsText::ShowInnerFocus() {
  if (inner_ == Inner::Box) {
    box_.GainFocus();
  } else {
    box_.LoseFocus();
  }
}

void TsText::Enter() {
  const auto form = OwnerForm();
  form->RunEvent([this] { (*this)->UserControl_EnterFocus(); });
  if (!HasFocus()) return;
  entered_ = true;
  form->RunEvent([this] { ShowInnerFocus(); });
}

ExitVerdict TsText::Leave() {
  entered_ = false;
  inner_ = Inner::Box;
  OwnerForm()->RunEvent([this] { box_.LoseFocus(); });
  return Exit();
}

bool TsText::HasToSettle(const String& action) const {
  const tsText& control = **this;
  const bool cancels = !action.empty() && EqualNoCase(control.ObjetoCancelar(), action);
  return !cancels && control.HasToSettle();
}

ExitVerdict TsText::Settle() {
  inner_ = Inner::Box;
  OwnerForm()->RunEvent([this] { ShowInnerFocus(); });
  return Exit();
}

ExitVerdict TsText::Exit() {
  ExitVerdict verdict = ExitVerdict::Left;
  OwnerForm()->RunEvent([&] { verdict = (*this)->UserControl_ExitFocus(); });
  return verdict;
}

void TsText::ClickButton() {
  const auto form = OwnerForm();
  if (!form || !button_.CanBePressed()) return;
  form->RunEvent([&] {
    FocusInner(Inner::Button);
    if (HasFocus()) button_.Press();
  });
}

// --- Keys ---------------------------------------------------------------------------------------

void TsText::Hold(const Stroke& stroke) {
  if (inner_ == Inner::Box) return box_.Hold(stroke);
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  (*this)->UserControl_KeyDown(code, shift);
  if (code == kSpace || code == kEnter) button_.Press();
}

void TsText::Release(const Stroke& stroke) {
  if (inner_ == Inner::Box) return box_.Release(stroke);
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  (*this)->UserControl_KeyUp(code, shift);
}

}  // namespace tessaria::memory
