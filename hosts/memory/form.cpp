#include "tessaria/memory/form.h"

#include <algorithm>
#include <utility>

#include "tessaria/host/application.h"
#include "tessaria/host/control.h"
#include "tessaria/memory/controls.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::memory {

/// A running event: keeps the form alive, and ends it afterwards when it was closed.
class Form::Event {
 public:
  explicit Event(Form& form) : form_(form.shared_from_this()) { ++form_->eventDepth_; }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() {
    if (--form_->eventDepth_ > 0) return;
    for (const auto& part : std::exchange(form_->removed_, {})) part->Terminate();
    if (form_->closed_) form_->End();
  }

 private:
  std::shared_ptr<Form> form_;
};

std::shared_ptr<Form> Form::Create(String name, Mode mode) {
  return std::shared_ptr<Form>(new Form(std::move(name), mode));
}

Form::Form(String name, Mode mode) : name_(std::move(name)), mode_(mode) {
  properties_.Add(u"Name", [this] { return Variant(name_); });
  properties_.Add(u"Visible", [this] { return Variant(visible_); });
  properties_.AddValue(u"Caption", u"");
}

Form::~Form() {
  for (const auto& part : parts_) part->MarkGone();
  End();
}

void Form::RequireLife() const {
  if (closed_) throw HostError(errors::ObjectNotSet);
}

String Form::Name() const {
  RequireLife();
  return name_;
}

Variant Form::Get(const String& property) const {
  RequireLife();
  return properties_.Get(property);
}

void Form::Let(const String& property, const Variant& value) {
  RequireLife();
  properties_.Let(property, value);
}

// --- Controls -----------------------------------------------------------------------------------

Form::PartPtr Form::Find(const String& name) const {
  const auto part = std::find_if(parts_.begin(), parts_.end(), [&](const PartPtr& p) {
    return EqualNoCase(p->Settings().Name, name);
  });
  return part == parts_.end() ? nullptr : *part;
}

Form::PartPtr Form::Require(const String& name) const {
  RequireLife();
  if (auto part = Find(name)) return part;
  throw HostError(errors::ControlNotFound,
                  ErrorDescription(errors::ControlNotFound) + u": '" + name + u"'");
}

host::WidgetPtr Form::Controls(const String& name) const { return Require(name)->AsWidget(); }

std::vector<host::WidgetPtr> Form::Controls() const {
  RequireLife();
  std::vector<host::WidgetPtr> widgets;
  for (const auto& part : parts_) widgets.push_back(part->AsWidget());
  return widgets;
}

host::WidgetPtr Form::ActiveControl() const {
  RequireLife();
  if (action_) return action_;
  return active_ ? active_->AsWidget() : nullptr;
}

void Form::Place(const PartPtr& part) {
  RequireLife();
  parts_.push_back(part);
  part->PlaceOn(shared_from_this(), shared_from_this());
  if (!shown_) return;
  RunEvent([&] {
    if (UserMode()) part->Load();
    part->FirstShow();
  });
}

void Form::Remove(const String& name) {
  const Event event(*this);
  const auto part = Require(name);
  std::erase(parts_, part);
  part->MarkGone();
  if (active_ == part) active_ = nullptr;
  if (entered_ == part) entered_ = nullptr;
  removed_.push_back(part);
}

// --- Life ---------------------------------------------------------------------------------------

void Form::Show() {
  RequireLife();
  const Event event(*this);
  visible_ = true;
  if (std::exchange(shown_, true)) return;
  FirstShow();
  if (!closed_ && UserMode() && !active_) MoveByTab(false);
}

void Form::FirstShow() {
  std::vector<PartPtr> order = parts_;
  if (UserMode())
    for (const auto& part : order) RunEvent([&] { part->Load(); });
  std::stable_sort(order.begin(), order.end(),
                   [](const PartPtr& a, const PartPtr& b) { return a->Rank() < b->Rank(); });
  for (const auto& part : order) {
    if (!part->IsGone()) RunEvent([&] { part->FirstShow(); });
  }
}

void Form::Close() {
  if (closed_) return;
  const Event event(*this);
  closed_ = true;
  visible_ = false;
  active_ = entered_ = nullptr;
  for (const auto& part : parts_) part->MarkGone();
}

void Form::End() {
  for (const auto& part : std::exchange(parts_, {})) part->Terminate();
}

void Form::RunEvent(const std::function<void()>& body) {
  const Event event(*this);
  try {
    body();
  } catch (const host::ControlGone&) {
    // The form was closed during the event.
  } catch (const HostError& error) {
    Report(error);
  } catch (const std::exception& error) {
    Report(HostError(0, FromUtf8(error.what())));
  }
}

void Form::Report(const HostError& error) {
  unhandled_.push_back(error);
  if (tessaria::State().application != nullptr) {
    App().ShowMessageBox(0, error.Description(), host::box::Stop, name_);
  }
}

// --- Focus --------------------------------------------------------------------------------------

void Form::MoveFocusTo(const PartPtr& part) {
  if (closed_ || part->IsGone() || !part->TakesFocus()) return;
  active_ = part;
  if (!delivering_) DeliverFocus();
}

void Form::DeliverFocus() {
  const Event event(*this);
  delivering_ = true;
  while (!closed_ && entered_ != active_) {
    if (const auto left = std::exchange(entered_, nullptr)) {
      RunEvent([&] { left->Leave(); });
      RaiseSlot(left->OnLeft);
    } else if ((entered_ = active_)) {
      const PartPtr entered = entered_;
      RunEvent([&] { entered->Enter(); });
      if (entered == active_) RaiseSlot(entered->OnEntered);
    }
  }
  delivering_ = false;
}

/// As an event of its own; the slot is copied, since its owner may go away while it runs.
void Form::RaiseSlot(const std::function<void()>& slot) {
  if (const auto copy = slot) RunEvent(copy);
}

void Form::LeaveUnusable() {
  if (closed_ || !active_ || active_->TakesFocus()) return;
  const auto unusable = active_;
  MoveByTab(false);
  if (active_ != unusable) return;
  active_ = nullptr;
  if (!delivering_) DeliverFocus();
}

void Form::Focus(const String& name) {
  const auto part = Require(name);
  MoveFocusTo(part);
}

void Form::MoveByTab(bool backwards) {
  std::vector<PartPtr> stops;
  for (const auto& part : parts_) {
    if (part == active_ || (part->TakesFocus() && part->Settings().TabStop)) stops.push_back(part);
  }
  if (stops.empty()) return;
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  const auto at = std::find(stops.begin(), stops.end(), active_) - stops.begin();
  const auto first = backwards ? count - 1 : 0;
  const auto next = at == count ? first : (at + (backwards ? count - 1 : 1)) % count;
  MoveFocusTo(stops[static_cast<std::size_t>(next)]);
}

// --- Keys and mouse -----------------------------------------------------------------------------

void Form::Type(StringView text) {
  for (char16_t character : String(text)) {
    for (const auto& stroke : StrokesOf(character)) Strike(stroke);
  }
}

void Form::Press(Key key, Integer shift) {
  if (closed_) return;
  const Event event(*this);
  if (key == Key::Tab) {
    MoveByTab((shift & modifier::Shift) != 0);
    return Release(StrokeOf(key, shift));
  }
  const auto isDefault = [](const Part& part) {
    const auto* button = dynamic_cast<const Button*>(&part);
    return button != nullptr && button->Default && button->TakesFocus();
  };
  const auto isCancel = [](const Part& part) {
    const auto* button = dynamic_cast<const Button*>(&part);
    return button != nullptr && button->Cancel && button->TakesFocus();
  };
  const bool onButton = dynamic_cast<const Button*>(active_.get()) != nullptr;
  if (key == Key::Enter && !onButton && PressButton(isDefault)) return;
  if (key == Key::Escape && PressButton(isCancel)) return;
  Strike(StrokeOf(key, shift));
}

bool Form::PressButton(bool(IsWanted)(const Part&)) {
  const auto button =
      std::find_if(parts_.begin(), parts_.end(), [&](const PartPtr& p) { return IsWanted(*p); });
  if (button == parts_.end()) return false;
  ClickPart(PartPtr(*button));
  return true;
}

void Form::Strike(const Stroke& stroke) {
  if (closed_) return;
  const Event event(*this);
  Hold(stroke);
  Release(stroke);
}

void Form::Hold(const Stroke& stroke) {
  if (const auto target = active_) RunEvent([&] { target->Hold(stroke); });
}

void Form::Release(const Stroke& stroke) {
  if (const auto target = active_) RunEvent([&] { target->Release(stroke); });
}

// --- Actions ------------------------------------------------------------------------------------

void Form::RunAction(const String& name, const std::function<void()>& action) {
  const Event event(*this);
  if (Settle(name) && !closed_) RunEvent(action);
}

void Form::CloseByFrame() {
  const Event event(*this);
  if (Settle(u"")) Close();
}

/// Without a name, the control in focus stays the active one.
bool Form::Settle(const String& name) {
  const auto part = entered_;
  if (closed_ || delivering_ || !part || !part->HasToSettle(name)) return true;
  ExitVerdict verdict = ExitVerdict::Left;
  delivering_ = true;
  if (!name.empty()) action_ = std::make_shared<Button>(name)->AsWidget();
  RunEvent([&] { verdict = part->Settle(); });
  action_ = nullptr;
  entered_ = nullptr;
  delivering_ = false;
  if (!closed_) DeliverFocus();
  return verdict == ExitVerdict::Left;
}

void Form::Click(const String& name) {
  const Event event(*this);
  ClickPart(Require(name));
}

void Form::ClickPart(const PartPtr& part) {
  if (part->TakesFocus()) {
    MoveFocusTo(part);
    if (!IsActive(*part)) return;
  }
  RunEvent([&] { part->Click(); });
}

}  // namespace tessaria::memory
