// A modal window without a screen, operated by a script while it is open.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/dialog.h"
#include "tessaria/memory/dialogs/data_grid.h"
#include "tessaria/memory/dialogs/dialog_items.h"
#include "tessaria/memory/dialogs/dialog_part.h"
#include "tessaria/memory/dialogs/file_lists.h"
#include "tessaria/memory/dialogs/modal_script.h"
#include "tessaria/memory/form.h"

namespace tessaria::memory {

/// What the windows of one desktop share; outlives the desktop while a window does.
struct TESSARIA_MEMORY_API DialogWorld {
  explicit DialogWorld(ModalScript::FaultHandler onFault) : Script(std::move(onFault)) {}

  ModalScript Script;
  std::shared_ptr<FileSystem> Files = std::make_shared<FileSystem>();
  Long DialogWidth = 6000;
  Long DialogHeight = 4000;
};

/// A window built from its description. It contains a form of its name with a part for each widget,
/// which keeps the focus, Tab, the controls and the unhandled errors.
class TESSARIA_MEMORY_API Dialog final : public host::Dialog,
                                         public std::enable_shared_from_this<Dialog> {
 public:
  static host::DialogPtr Make(std::shared_ptr<DialogWorld> world,
                              const host::DialogDescription& description);
  ~Dialog() override;

  String Caption() const override { return caption_; }
  void Caption(const String& text) override { caption_ = text; }
  Long Left() const override { return form_->Left(); }
  void Left(Long twips) override { form_->Left(twips); }
  Long Top() const override { return form_->Top(); }
  void Top(Long twips) override { form_->Top(twips); }
  Long Width() const override { return width_; }
  void Width(Long twips) override { Size(twips, height_); }
  Long Height() const override { return height_; }
  void Height(Long twips) override { Size(width_, twips); }
  Colour BackColor() const override { return BackColour; }
  Long hWnd() const override { return window_; }
  void dbForm(host::ConnectionPtr connection) override;
  void ShowModal() override;
  void Hide() override;

  /// What `BackColor` returns.
  Colour BackColour = host::colour::ButtonFace;

  // --- What the operator sees ------------------------------------------------------------------
  StringView Name() const { return description_.Name; }
  bool IsShown() const { return shown_; }
  /// The name of the widget that has the focus; "" for none.
  String Focused() const;
  /// A control on the dialog. Errors: 730 no such widget, 13 another kind.
  TsText& Field(StringView name) { return Find<DialogField>(name).Whole(); }
  memory::Form& TheForm() { return *form_; }
  const std::vector<HostError>& UnhandledErrors() const { return form_->UnhandledErrors(); }

  // --- Operator input -------------------------------------------------------------------------
  // For the window in front only; anything else is a fault of the script. Each is an event: an
  // error that leaves a handler is shown in a box and kept, and the window continues. What cannot
  // be reached (hidden, disabled) does nothing.

  /// Window first, then the widget that has the focus: key-down, key-press, the widget's own
  /// action, key-up. Tab moves the focus.
  void Press(Key key, Integer shift = modifier::None);
  void Type(StringView text);
  void FocusOn(StringView name, Integer index = -1);
  /// Presses a button, or the button of a tool bar.
  void Click(StringView name, Integer index = -1);
  /// A grid or a list of files.
  void DoubleClick(StringView name);
  /// An entry of a tool bar's menu, by position from 1.
  void ClickMenu(StringView name, Long position);
  /// The header of a grid's column, by position from 0.
  void ClickHeader(StringView name, Long column);
  /// A row of a grid, by number from 1.
  void SelectRow(StringView name, Long row);
  void PickDay(StringView name, Date day);
  /// An entry of a list of drives.
  void ChooseDrive(StringView name, const String& entry);
  void OpenFolder(StringView name, const String& path);
  /// A file of a list of files, by its name.
  void SelectFile(StringView name, const String& fileName);
  void Resize(Long width, Long height);
  /// The window's own close button.
  void CloseWindow();
  /// The window is in front again: a box over it is gone, or the operator is back from another
  /// program. A script need not call this after a window over it has closed.
  void Reactivate();

 private:
  using ItemPtr = std::unique_ptr<DialogItem>;
  struct Entry {
    const host::WidgetDescription* Description;
    ItemPtr Item;
  };

  Dialog(std::shared_ptr<DialogWorld> world, const host::DialogDescription& description);
  void Build();
  ItemPtr MakeItem(const host::WidgetDescription& widget);
  std::shared_ptr<DialogPart> AddPart(const host::WidgetDescription& widget, const String& typeName,
                                      DialogPart::Focus focus);
  std::shared_ptr<TsText> AddField(const host::WidgetDescription& widget);
  DialogItem& Item(StringView name, Integer index);
  host::DialogWidget& Widget(StringView name, Integer index) override;

  class InFront;
  /// Lets its script operate the window, and hides the window afterwards.
  void WorkInFront();
  /// The last handle is gone: no handler runs any more, and the window hides.
  void Abandon();
  void Size(Long width, Long height);
  template <class Slot, class... Arguments>
  void Raise(const Slot& slot, Arguments&... arguments);
  template <class Body>
  void Act(Body&& body);
  template <class Target, class Body>
  void ActOn(StringView name, Body&& body);
  bool TakeFocus(DialogItem& item);
  void HoldOn(DialogItem& item, const Stroke& stroke);

  std::shared_ptr<DialogWorld> world_;
  const host::DialogDescription& description_;
  std::shared_ptr<memory::Form> form_;
  std::vector<Entry> entries_;
  String caption_;
  Long width_;
  Long height_;
  Long window_;
  bool shown_ = false;
  bool wasShown_ = false;
  bool abandoned_ = false;
};

/// The slot is copied, since its owner may go away while it runs.
template <class Slot, class... Arguments>
void Dialog::Raise(const Slot& slot, Arguments&... arguments) {
  if (abandoned_) return;
  if (const Slot copy = slot) copy(arguments...);
}

}  // namespace tessaria::memory
