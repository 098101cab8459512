#include "tessaria/memory/dialogs/dialog_items.h"

namespace tessaria::memory {
namespace {

constexpr Integer kBlank = 32;

}  // namespace

bool DialogButton::OwnKey(const Stroke& stroke) {
  if (stroke.Code != static_cast<Integer>(Key::Enter) && stroke.Code != kBlank) return false;
  if (CanBeWorked()) Click();
  return true;
}

DialogField::DialogField(std::shared_ptr<TsText> control)
    : DialogItemOf(control), control_(std::move(control)) {
  control_->OnChange = [this] { Raise(OnChange); };
  control_->OnKeyDown = [this](Integer& code, Integer& shift) { Raise(OnKeyDown, code, shift); };
  control_->OnKeyPress = [this](Integer& code) { Raise(OnKeyPress, code); };
}

void ToolBar::Click() {
  if (buttonEnabled_) Raise(OnButtonClick);
}

std::vector<String> ToolBar::MenuTexts() const {
  std::vector<String> texts;
  for (const auto& entry : menu_) texts.push_back(entry.Text);
  return texts;
}

std::size_t ToolBar::Index(Long position) const {
  if (position < 1 || position > MenuCount()) throw HostError(errors::SubscriptOutOfRange);
  return static_cast<std::size_t>(position - 1);
}

bool Calendar::OwnKey(const Stroke& stroke) {
  static constexpr struct {
    Key Arrow;
    int Days;
  } kSteps[] = {{Key::Left, -1}, {Key::Right, 1}, {Key::Up, -7}, {Key::Down, 7}};
  for (const auto& step : kSteps) {
    if (stroke.Code == static_cast<Integer>(step.Arrow)) value_.Days += step.Days;
  }
  return false;
}

}  // namespace tessaria::memory
