#include "tessaria/memory/dialogs/choice_items.h"

#include <algorithm>

namespace tessaria::memory {
namespace {

constexpr Integer kSpaceBar = 32;

/// -1 for a key that moves back, 1 for one that moves forth, 0 for any other.
Long StepOf(const Stroke& stroke, Key back, Key forth) {
  if (stroke.Code == static_cast<Integer>(back)) return -1;
  return stroke.Code == static_cast<Integer>(forth) ? 1 : 0;
}

}  // namespace

// --- Lists that drop down -----------------------------------------------------------------------

String DialogCombo::List(Long row) const {
  return HasRow(row) ? rows_[static_cast<std::size_t>(row)] : String();
}

void DialogCombo::Clear() {
  rows_.clear();
  index_ = -1;
  text_.clear();
}

void DialogCombo::ListIndex(Long row) {
  if (row != -1 && !HasRow(row)) throw HostError(errors::InvalidPropertyValue);
  index_ = row;
  text_ = List(row);
}

Long DialogCombo::RowOf(const String& text) const {
  const auto row = std::find(rows_.begin(), rows_.end(), text);
  return row == rows_.end() ? -1 : static_cast<Long>(row - rows_.begin());
}

void DialogCombo::Text(const String& text) {
  const Long row = RowOf(text);
  if (row == -1 && texts_ == Texts::RowsOnly) throw HostError(errors::PropertyIsReadOnly);
  index_ = row;
  text_ = text;
}

void DialogCombo::Choose(Long row) {
  if (!HasRow(row)) throw HostError(errors::InvalidPropertyValue);
  ListIndex(row);
  Raise(OnClick);
}

void DialogCombo::Edit(const String& text) {
  if (text == text_) return;
  Text(text);
  Raise(OnChange);
}

bool DialogCombo::OwnKey(const Stroke& stroke) {
  if (const Long step = StepOf(stroke, Key::Up, Key::Down); step != 0) {
    if (HasRow(index_ + step)) Choose(index_ + step);
    return true;
  }
  if (texts_ == Texts::RowsOnly) return false;
  if (stroke.Code == static_cast<Integer>(Key::Backspace)) {
    Edit(text_.substr(0, text_.empty() ? 0 : text_.size() - 1));
    return true;
  }
  if (stroke.Character < u' ') return false;
  Edit(text_ + stroke.Character);
  return true;
}

// --- Check boxes and options --------------------------------------------------------------------

void DialogCheckBox::Value(Integer value) {
  if (value != 0 && value != 1) throw HostError(errors::InvalidPropertyValue);
  value_ = value;
}

void DialogCheckBox::Click() {
  value_ = value_ == 0 ? 1 : 0;
  Raise(OnClick);
}

bool DialogCheckBox::OwnKey(const Stroke& stroke) {
  if (stroke.Code != kSpaceBar) return false;
  Click();
  return true;
}

void DialogOption::Value(bool value) {
  if (value) {
    group_->Chosen = this;
  } else if (Value()) {
    group_->Chosen = nullptr;
  }
}

void DialogOption::Click() {
  if (Value()) return;
  Value(true);
  Raise(OnClick);
}

bool DialogOption::OwnKey(const Stroke& stroke) {
  if (stroke.Code != kSpaceBar) return false;
  Click();
  return true;
}

// --- Tabs ---------------------------------------------------------------------------------------

DialogTabs::DialogTabs(const std::shared_ptr<DialogPart>& part,
                       std::span<const StringView> captions)
    : DialogItemOf(part) {
  for (const StringView caption : captions) pages_.push_back({String(caption)});
  part->OnIsInFront = [this](Long page) { return page == front_; };
}

std::size_t DialogTabs::Index(Long page) const {
  if (page < 0 || page >= Tabs()) throw HostError(errors::InvalidPropertyValue);
  return static_cast<std::size_t>(page);
}

void DialogTabs::Tab(Long page) {
  Index(page);
  front_ = page;
  LeaveUnusable();
}

void DialogTabs::Choose(Long page) {
  if (!TabEnabled(page)) return;
  const Long previous = front_;
  Tab(page);
  Raise(OnClick, previous);
}

bool DialogTabs::ChooseBeside(Long step) {
  for (Long page = front_ + step; page >= 0 && page < Tabs(); page += step) {
    if (!TabEnabled(page)) continue;
    Choose(page);
    break;
  }
  return true;
}

bool DialogTabs::OwnKey(const Stroke& stroke) {
  const Long step = StepOf(stroke, Key::Left, Key::Right);
  return step != 0 && ChooseBeside(step);
}

}  // namespace tessaria::memory
