// The boxes with text of memory surfaces, of one line or of several.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"
#include "tessaria/memory/text_box.h"

namespace tessaria::memory {

/// A text box as a part of the surface's form. The box itself says whether it is enabled and
/// visible.
class TESSARIA_MEMORY_API TextBoxPart final : public PartWith<host::Widget> {
 public:
  explicit TextBoxPart(String name);

  TextBox& Box() { return box_; }

  bool TakesFocus() const override { return CanBeUsed() && box_.Enabled() && box_.Visible(); }
  void Enter() override { box_.GainFocus(); }
  ExitVerdict Leave() override;
  void Hold(const Stroke& stroke) override { box_.Hold(stroke); }
  void Release(const Stroke& stroke) override { box_.Release(stroke); }

 private:
  TextBox box_;
};

/// A box that a script types into.
class TESSARIA_MEMORY_API DialogTextBox final : public DialogItemOf<host::DialogTextBox> {
 public:
  explicit DialogTextBox(const std::shared_ptr<TextBoxPart>& part);

  host::TextBox& Box() override { return box_; }
  bool Enabled() const override { return box_.Enabled(); }
  void Enabled(bool enabled) override;
  bool Visible() const override { return box_.Visible(); }
  void Visible(bool visible) override;
  Long Width() const override { return box_.Width(); }
  void Width(Long twips) override { box_.Width(twips); }
  Long Height() const override { return box_.Height(); }
  void Height(Long twips) override { box_.Height(twips); }

  void Abandon() override;

 private:
  TextBox& box_;  ///< in the part, which is kept
};

}  // namespace tessaria::memory
