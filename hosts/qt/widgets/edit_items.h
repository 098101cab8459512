// Text boxes of surfaces.
#pragma once

#include "hosts/qt/keys/text_box.h"
#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

/// A box of either kind. Its own events do not come through the gate.
class EditItem final : public DialogItemOf<host::DialogTextBox> {
 public:
  EditItem(TextEdit& edit, const DialogGate& gate)
      : DialogItemOf(edit.widget(), gate), box_(edit) {}

  host::TextBox& Box() override { return box_; }
  using DialogItemOf::Enabled;
  void Enabled(bool enabled) override { box_.Enabled(enabled); }
  void previewFor(const host::Surface& surface) override {
    box_.Surface.OnKeyDown = [this, &surface](Integer& code, Integer& shift) {
      this->gate().raise(surface.OnKeyDown, code, shift);
      takeIfGone(code);
    };
    box_.Surface.OnKeyPress = [this, &surface](Integer& code) {
      this->gate().raise(surface.OnKeyPress, code);
      takeIfGone(code);
    };
  }
  bool previewsKeys() const override { return true; }
  void silence() override { box_.silence(); }

 private:
  /// A key ends with the surface, or with its window.
  void takeIfGone(Integer& code) const {
    if (!gate().isOpen() || !face().isVisible()) code = 0;
  }

  TextBox box_;
};

}  // namespace tessaria::qt
