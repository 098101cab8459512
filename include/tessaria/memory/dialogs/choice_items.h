// The widgets of memory surfaces with which the operator chooses: lists that drop down, check
// boxes, options, tabs.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"
#include "tessaria/memory/dialogs/dialog_part.h"

namespace tessaria::memory {

/// The up and down keys choose the row before and after. The caret of a combo box stays behind its
/// text.
class TESSARIA_MEMORY_API DialogCombo final : public DialogItemOf<host::DialogCombo> {
 public:
  enum class Texts { RowsOnly, Any };
  DialogCombo(std::shared_ptr<memory::Part> part, Texts texts, std::span<const StringView> rows)
      : DialogItemOf(std::move(part)), texts_(texts), rows_(rows.begin(), rows.end()) {}

  Long ListCount() const override { return static_cast<Long>(rows_.size()); }
  String List(Long row) const override;
  void AddItem(const String& text) override { rows_.push_back(text); }
  void Clear() override;
  Long ListIndex() const override { return index_; }
  void ListIndex(Long row) override;
  String Text() const override { return text_; }
  void Text(const String& text) override;

  /// The operator chooses a row. Error 380 for one that does not exist.
  void Choose(Long row);
  bool OwnKey(const Stroke& stroke) override;

 private:
  bool HasRow(Long row) const { return row >= 0 && row < ListCount(); }
  /// -1 for none.
  Long RowOf(const String& text) const;
  void Edit(const String& text);

  Texts texts_;
  std::vector<String> rows_;
  Long index_ = -1;
  String text_;
};

/// A check box that a script clicks.
class TESSARIA_MEMORY_API DialogCheckBox final : public DialogItemOf<host::DialogCheckBox> {
 public:
  DialogCheckBox(std::shared_ptr<memory::Part> part, StringView caption)
      : DialogItemOf(std::move(part)), caption_(caption) {}

  String Caption() const override { return caption_; }
  Integer Value() const override { return value_; }
  void Value(Integer value) override;

  /// The space bar clicks it.
  bool OwnKey(const Stroke& stroke) override;
  void Click() override;
  String Mnemonic() const override { return caption_; }

 private:
  String caption_;
  Integer value_ = 0;
};

class DialogOption;

/// The options of one container.
struct TESSARIA_MEMORY_API OptionGroup {
  const DialogOption* Chosen = nullptr;
};

/// An option that a script clicks.
class TESSARIA_MEMORY_API DialogOption final : public DialogItemOf<host::DialogOption> {
 public:
  DialogOption(std::shared_ptr<memory::Part> part, StringView caption,
               std::shared_ptr<OptionGroup> group)
      : DialogItemOf(std::move(part)), caption_(caption), group_(std::move(group)) {}

  String Caption() const override { return caption_; }
  bool Value() const override { return group_->Chosen == this; }
  void Value(bool value) override;

  /// The space bar sets it.
  bool OwnKey(const Stroke& stroke) override;
  void Click() override;
  String Mnemonic() const override { return caption_; }

 private:
  String caption_;
  std::shared_ptr<OptionGroup> group_;
};

/// The left and right keys choose the enabled page before and after.
class TESSARIA_MEMORY_API DialogTabs final : public DialogItemOf<host::DialogTabs> {
 public:
  DialogTabs(const std::shared_ptr<DialogPart>& part, std::span<const StringView> captions);

  Long Tabs() const override { return static_cast<Long>(pages_.size()); }
  String TabCaption(Long page) const override { return pages_[Index(page)].Caption; }
  Long Tab() const override { return front_; }
  void Tab(Long page) override;
  bool TabEnabled(Long page) const override { return pages_[Index(page)].Enabled; }
  void TabEnabled(Long page, bool enabled) override { pages_[Index(page)].Enabled = enabled; }

  /// The operator chooses a page; one that is disabled stays where it is.
  void Choose(Long page);
  bool OwnKey(const Stroke& stroke) override;

 private:
  struct PageState {
    String Caption;
    bool Enabled = true;
  };
  std::size_t Index(Long page) const;
  bool ChooseBeside(Long step);

  std::vector<PageState> pages_;
  Long front_ = 0;
};

}  // namespace tessaria::memory
