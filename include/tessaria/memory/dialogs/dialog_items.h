// The simple widgets of memory surfaces, which store what is assigned to them.
#pragma once

#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"
#include "tessaria/memory/ts_text.h"

namespace tessaria::memory {

/// A text.
class TESSARIA_MEMORY_API DialogLabel final : public DialogItemOf<host::DialogLabel> {
 public:
  DialogLabel(std::shared_ptr<memory::Part> part, StringView caption)
      : DialogItemOf(std::move(part)), caption_(caption) {}

  String Caption() const override { return caption_; }
  void Caption(const String& text) override { caption_ = text; }

 private:
  String caption_;
};

/// A button that a script presses.
class TESSARIA_MEMORY_API DialogButton final : public DialogItemOf<host::DialogButton> {
 public:
  DialogButton(std::shared_ptr<memory::Part> part, StringView caption)
      : DialogItemOf(std::move(part)), caption_(caption) {}

  String Caption() const override { return caption_; }
  Colour TextColour() const override { return textColour_; }
  void TextColour(Colour colour) override { textColour_ = colour; }
  Colour BackColor() const override { return backColor_; }
  void BackColor(Colour colour) override { backColor_ = colour; }

  /// Enter presses it where no other widget has a use for that key.
  bool Default = false;

  /// Enter and the space bar press it.
  bool OwnKey(const Stroke& stroke) override;
  void Click() override { Raise(OnClick); }
  String Mnemonic() const override { return caption_; }

 private:
  String caption_;
  Colour textColour_ = host::colour::WindowText;
  Colour backColor_ = host::colour::ButtonFace;
};

/// A box that shows text.
class TESSARIA_MEMORY_API DialogDisplay final : public DialogItemOf<host::DialogDisplay> {
 public:
  using DialogItemOf::DialogItemOf;

  String Text() const override { return text_; }
  void Text(const String& text) override { text_ = text; }

 private:
  String text_;
};

/// A box around widgets.
class TESSARIA_MEMORY_API DialogFrame final : public DialogItemOf<host::DialogFrame> {
 public:
  DialogFrame(std::shared_ptr<memory::Part> part, StringView caption)
      : DialogItemOf(std::move(part)), caption_(caption) {}

  String Caption() const override { return caption_; }
  void Caption(const String& text) override { caption_ = text; }

 private:
  String caption_;
};

/// A whole control on the surface's form.
class TESSARIA_MEMORY_API DialogField final : public DialogItemOf<host::DialogField> {
 public:
  explicit DialogField(std::shared_ptr<TsText> control);

  host::TsTextWidget& Control() override { return *control_; }
  void Width(Long twips) override { control_->Resize(twips, Height()); }
  void Height(Long twips) override { control_->Resize(Width(), twips); }
  using DialogItemOf::Height;
  using DialogItemOf::Width;

  TsText& Whole() { return *control_; }

 private:
  std::shared_ptr<TsText> control_;
};

/// A tool bar with its menu.
class TESSARIA_MEMORY_API ToolBar final : public DialogItemOf<host::ToolBar> {
 public:
  using DialogItemOf::DialogItemOf;

  bool ButtonEnabled() const override { return buttonEnabled_; }
  void ButtonEnabled(bool enabled) override { buttonEnabled_ = enabled; }
  Long MenuCount() const override { return static_cast<Long>(menu_.size()); }
  host::MenuEntry Menu(Long position) const override { return menu_[Index(position)]; }
  void Menu(Long position, const host::MenuEntry& entry) override {
    menu_[Index(position)] = entry;
  }
  void AddMenu(const host::MenuEntry& entry) override { menu_.push_back(entry); }
  void Refresh() override { ++refreshes_; }

  /// Presses the bar's button.
  void Click() override;
  /// The texts of the menu, in order.
  std::vector<String> MenuTexts() const;
  int Refreshes() const { return refreshes_; }

 private:
  std::size_t Index(Long position) const;

  bool buttonEnabled_ = true;
  std::vector<host::MenuEntry> menu_;
  int refreshes_ = 0;
};

/// A calendar that selects by keys and by a script.
class TESSARIA_MEMORY_API Calendar final : public DialogItemOf<host::Calendar> {
 public:
  using DialogItemOf::DialogItemOf;

  Date Value() const override { return value_; }
  void Value(Date day) override { value_ = day; }

  /// The arrow keys move the selection by a day or a week.
  bool OwnKey(const Stroke& stroke) override;

 private:
  Date value_;
};

}  // namespace tessaria::memory
