// The widgets of a memory surface, and the operator's hands on them.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/dialog.h"
#include "tessaria/memory/dialogs/choice_items.h"
#include "tessaria/memory/dialogs/data_grid.h"
#include "tessaria/memory/dialogs/dialog_items.h"
#include "tessaria/memory/dialogs/dialog_part.h"
#include "tessaria/memory/dialogs/dialog_world.h"
#include "tessaria/memory/dialogs/file_lists.h"
#include "tessaria/memory/dialogs/list_view.h"
#include "tessaria/memory/dialogs/text_item.h"
#include "tessaria/memory/form.h"

namespace tessaria::memory {

/// What a surface in a frame and a dialog have in common. It contains a form of its name with a
/// part for each widget, which keeps the focus, Tab, the controls and the unhandled errors. A
/// widget that can no longer be used gives the focus to the next one.
class TESSARIA_MEMORY_API SurfaceBody {
 public:
  SurfaceBody(const SurfaceBody&) = delete;
  SurfaceBody& operator=(const SurfaceBody&) = delete;
  virtual ~SurfaceBody();

  /// What `BackColor` returns.
  Colour BackColour = host::colour::ButtonFace;

  // --- What the operator sees ------------------------------------------------------------------
  StringView Name() const { return description_.Name; }
  bool IsShown() const { return shown_; }
  /// The name of the widget that has the focus; "" for none.
  String Focused() const;
  /// A control on the surface. Errors: 730 no such widget, 13 another kind.
  TsText& Field(StringView name) { return Find<DialogField>(name).Whole(); }
  memory::Form& TheForm() const { return *form_; }
  const std::vector<HostError>& UnhandledErrors() const { return form_->UnhandledErrors(); }

  // --- Operator input -------------------------------------------------------------------------
  // For a surface that is shown, with no window in front of it; anything else is a fault of the
  // script. Each is an event: an error that leaves a handler is shown in a box and kept, and the
  // surface continues. What cannot be reached (hidden, disabled, in a disabled frame, on a page
  // that is not in front) does nothing. A widget that takes the focus gets it first, and does
  // nothing when the widget that was left takes it back.

  /// Surface first, then the widget that has the focus: key-down, key-press, the widget's own
  /// action, key-up. Tab moves the focus. Enter that no widget uses presses the default button.
  void Press(Key key, Integer shift = modifier::None);
  /// Types each character with its key, or keys, wherever the focus is.
  void Type(StringView text);
  /// Alt and a letter: clicks the first widget with that mnemonic.
  void Mnemonic(char16_t letter);
  /// Moves the focus by a click that does nothing else.
  void FocusOn(StringView name, Integer index = -1);
  /// Clicks a button, the button of a tool bar, a check box or an option.
  void Click(StringView name, Integer index = -1);
  /// A row of a combo box or a drop-down list, by number from 0.
  void Choose(StringView name, Long row);
  /// A page of a tab strip, by number from 0.
  void ClickTab(StringView name, Long page);
  /// A row of a list view, or its check box, by position from 1.
  void ClickRow(StringView name, Long row);
  /// Clicks the check box of a list's row; position from 1.
  void CheckRow(StringView name, Long row);
  /// Clicks a list's row twice; position from 1.
  void DoubleClickRow(StringView name, Long row);
  /// A grid or a list of files.
  void DoubleClick(StringView name);
  /// An entry of a tool bar's menu, by position from 1.
  void ClickMenu(StringView name, Long position);
  /// The header of a grid's column, by position from 0.
  void ClickHeader(StringView name, Long column);
  /// Drags the header of a grid's column to that width.
  void ResizeColumn(StringView name, Long column, Long twips);
  /// A row of a grid, by number from 1.
  void SelectRow(StringView name, Long row);
  /// Clicks a day of a calendar.
  void PickDay(StringView name, Date day);
  /// An entry of a list of drives.
  void ChooseDrive(StringView name, const String& entry);
  /// Opens a folder of a folder list.
  void OpenFolder(StringView name, const String& path);
  /// A file of a list of files, by its name.
  void SelectFile(StringView name, const String& fileName);

 protected:
  SurfaceBody(std::shared_ptr<DialogWorld> world, const host::DialogDescription& description);
  void Build();

  virtual host::Surface& Port() = 0;
  /// Keeps the surface while a handler runs.
  virtual std::shared_ptr<const void> Life() = 0;
  /// Whether no window is in front of the surface.
  virtual bool IsInFront() const = 0;

  DialogItem& Item(StringView name, Integer index);
  DialogWorld& World() { return *world_; }
  const DialogWorld& World() const { return *world_; }
  Long Window() const { return window_; }
  void Connect(host::ConnectionPtr connection);
  void ShowWidgets();
  void HideWidgets();
  /// The last handle is gone: no handler runs any more, and the surface hides.
  void Abandon();
  /// The slot is copied, since its owner may go away while it runs.
  template <class Slot, class... Arguments>
  void Raise(const Slot& slot, Arguments&... arguments) {
    if (abandoned_) return;
    if (const Slot copy = slot) copy(arguments...);
  }
  /// An action of the operator.
  template <class Body>
  void Act(Body&& body);

 private:
  using ItemPtr = std::unique_ptr<DialogItem>;
  struct Entry {
    const host::WidgetDescription* Description;
    ItemPtr Item;
  };

  template <class Target>
  Target& Find(StringView name, Integer index = -1) {
    return Port().Find<Target>(name, index);
  }
  ItemPtr MakeItem(const host::WidgetDescription& widget);
  ItemPtr MakeChoiceItem(const host::WidgetDescription& widget);
  std::shared_ptr<OptionGroup> OptionsOf(const host::WidgetDescription& widget);
  std::shared_ptr<DialogPart> AddPart(const host::WidgetDescription& widget, const String& typeName,
                                      DialogPart::Focus focus);
  std::shared_ptr<TextBoxPart> AddTextBox(const host::WidgetDescription& widget);
  std::shared_ptr<TsText> AddField(const host::WidgetDescription& widget);
  void PutInto(memory::Part& part, const host::WidgetDescription& widget);

  template <class Target, class Body>
  void ActOn(StringView name, Body&& body);
  bool TakeFocus(DialogItem& item);
  void ClickItem(DialogItem& item);
  bool PressDefault();
  void HoldOn(DialogItem& item, const Stroke& stroke);

  std::shared_ptr<DialogWorld> world_;
  const host::DialogDescription& description_;
  std::shared_ptr<memory::Form> form_;
  std::vector<Entry> entries_;
  std::map<String, std::shared_ptr<OptionGroup>> options_;  ///< by container
  Long window_;
  bool shown_ = false;
  bool abandoned_ = false;
};

/// A surface that its logic drives through the given port.
template <class PortType>
class TESSARIA_MEMORY_API SurfaceOf : public PortType, public SurfaceBody {
 public:
  using PortType::Find;

  Long hWnd() const override { return Window(); }
  Colour BackColor() const override { return BackColour; }
  void dbForm(host::ConnectionPtr connection) override { Connect(std::move(connection)); }

 protected:
  using SurfaceBody::SurfaceBody;

  host::DialogWidget& Widget(StringView name, Integer index) override {
    return Item(name, index).Port();
  }
  host::Surface& Port() override { return *this; }
};

template <class Body>
void SurfaceBody::Act(Body&& body) {
  if (!shown_ || !IsInFront())
    return world_->Script.Fault(u"The window " + String(Name()) + u" is not in front");
  const auto alive = Life();
  form_->RunEvent(std::forward<Body>(body));
}

}  // namespace tessaria::memory
