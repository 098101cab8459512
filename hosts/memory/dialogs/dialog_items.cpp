#include "tessaria/memory/dialogs/dialog_items.h"

namespace tessaria::memory {
namespace {

constexpr Integer kBlank = 32;

}  // namespace

void DialogButton::OwnKey(const Stroke& stroke) {
  if (stroke.Code != static_cast<Integer>(Key::Enter) && stroke.Code != kBlank) return;
  if (const auto click = OnClick; click && CanBeWorked()) click();
}

DialogField::DialogField(std::shared_ptr<TsText> control)
    : DialogItemOf(control), control_(std::move(control)) {
  const auto raise = [](const auto& slot, auto&... arguments) {
    if (const auto copy = slot) copy(arguments...);
  };
  control_->OnChange = [this, raise] { raise(OnChange); };
  control_->OnKeyDown = [this, raise](Integer& code, Integer& shift) {
    raise(OnKeyDown, code, shift);
  };
  control_->OnKeyPress = [this, raise](Integer& code) { raise(OnKeyPress, code); };
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

void Calendar::OwnKey(const Stroke& stroke) {
  static constexpr struct {
    Key Arrow;
    int Days;
  } kSteps[] = {{Key::Left, -1}, {Key::Right, 1}, {Key::Up, -7}, {Key::Down, 7}};
  for (const auto& step : kSteps) {
    if (stroke.Code == static_cast<Integer>(step.Arrow)) value_.Days += step.Days;
  }
}

}  // namespace tessaria::memory
