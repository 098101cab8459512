#include "tessaria/memory/dialogs/text_item.h"

namespace tessaria::memory {

TextBoxPart::TextBoxPart(String name) : PartWith(std::move(name), u"TextBox") {
  box_.OnSetFocus = [this] {
    if (const auto form = OwnerForm()) form->MoveFocusTo(shared_from_this());
  };
}

ExitVerdict TextBoxPart::Leave() {
  box_.LoseFocus();
  return ExitVerdict::Left;
}

DialogTextBox::DialogTextBox(const std::shared_ptr<TextBoxPart>& part)
    : DialogItemOf(part), box_(part->Box()) {}

void DialogTextBox::Enabled(bool enabled) {
  box_.Enabled(enabled);
  LeaveUnusable();
}

void DialogTextBox::Visible(bool visible) {
  box_.Visible(visible);
  LeaveUnusable();
}

/// The box raises its events itself.
void DialogTextBox::Abandon() {
  DialogItemOf::Abandon();
  box_.OnChange = box_.OnSameText = box_.OnGotFocus = box_.OnLostFocus = nullptr;
  box_.OnKeyDown = box_.OnKeyUp = nullptr;
  box_.OnKeyPress = nullptr;
}

}  // namespace tessaria::memory
