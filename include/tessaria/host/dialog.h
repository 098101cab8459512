// The library's own windows: what a dialog is made of, and the widgets that its logic drives.
//
// The logic of a dialog is a class of the core. It gives the host a description, which is one
// table; the host builds the window from it and adds only geometry and looks. Widgets and window
// live until the dialog is destroyed; a dialog destroyed inside its modal loop is hidden at once
// and goes away when the loop has returned. Positions and sizes are in twips.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/host/form.h"

namespace tessaria::host {

enum class WidgetKind {
  Label,
  CommandButton,
  TextBox,
  TsText,
  DataGrid,
  ToolBar,
  Calendar,
  DriveList,
  FolderList,
  FileList
};

/// One widget of a dialog.
struct TESSARIA_CORE_API WidgetDescription {
  StringView Name;
  WidgetKind Kind;
  StringView Caption = {};  ///< text on the widget; for a list or box, its accessible name
  StringView ToolTip = {};
  Integer Index = -1;  ///< place in an array of widgets of one name, from 0; -1 for none
};

/// A whole dialog. The texts outlive every dialog made from them.
struct TESSARIA_CORE_API DialogDescription {
  StringView Name;
  StringView Caption;
  std::span<const WidgetDescription> Widgets;
};

/// What all widgets of a dialog have. Events are raised only by the operator.
class TESSARIA_CORE_API DialogWidget {
 public:
  DialogWidget() = default;
  DialogWidget(const DialogWidget&) = delete;
  DialogWidget& operator=(const DialogWidget&) = delete;
  virtual ~DialogWidget() = default;

  virtual Long Left() const = 0;
  virtual void Left(Long twips) = 0;
  virtual Long Top() const = 0;
  virtual void Top(Long twips) = 0;
  virtual Long Width() const = 0;
  virtual void Width(Long twips) = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool enabled) = 0;
  virtual bool TabStop() const = 0;
  virtual void TabStop(bool stop) = 0;
  virtual void SetFocus() = 0;

  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  std::function<void(Integer& KeyAscii)> OnKeyPress;
};

class TESSARIA_CORE_API DialogLabel : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
};

class TESSARIA_CORE_API DialogButton : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  /// The caption's colour; drawn a little lower while the button is pressed.
  virtual Colour TextColour() const = 0;
  virtual void TextColour(Colour colour) = 0;
  /// The face's colour; the system's own until one is assigned.
  virtual Colour BackColor() const = 0;
  virtual void BackColor(Colour colour) = 0;
  std::function<void()> OnClick;
};

/// A box that shows text and accepts none from the keyboard.
class TESSARIA_CORE_API DialogDisplay : public virtual DialogWidget {
 public:
  virtual String Text() const = 0;
  virtual void Text(const String& text) = 0;
};

/// A control of this library on a dialog; its properties are reached by name.
class TESSARIA_CORE_API DialogField : public virtual DialogWidget {
 public:
  virtual TsTextWidget& Control() = 0;
  /// Any change of the box.
  std::function<void()> OnChange;
};

/// A column of a grid. The grid raises error 9 when there is no such column.
class TESSARIA_CORE_API GridColumn {
 public:
  GridColumn() = default;
  GridColumn(const GridColumn&) = delete;
  GridColumn& operator=(const GridColumn&) = delete;
  virtual ~GridColumn() = default;

  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
  /// Twips.
  virtual float Width() const = 0;
  virtual void Width(float twips) = 0;
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  /// The field that the column shows.
  virtual String DataField() const = 0;
  /// Format pattern of the values; "" shows them as text.
  virtual String Format() const = 0;
  virtual void Format(const String& pattern) = 0;
};

/// A read-only grid over a record set. The grid's current row is the record set's.
class TESSARIA_CORE_API DataGrid : public virtual DialogWidget {
 public:
  /// The rows shown; null empties the grid. New rows replace the columns; captions and widths are
  /// those of the fields.
  virtual RecordsetPtr DataSource() const = 0;
  virtual void DataSource(RecordsetPtr rows) = 0;
  virtual Long ColumnCount() const = 0;
  /// By position from 0. Error 9 outside the columns.
  virtual GridColumn& Column(Long position) = 0;
  /// Shows the record set's current row after code outside the grid has moved it or reordered the
  /// rows.
  virtual void ShowCurrentRow() = 0;

  std::function<void()> OnDblClick;
  /// A column's header was clicked; position from 0.
  std::function<void(Long position)> OnHeadClick;
};

/// One entry of the drop-down menu of a tool bar's button.
struct TESSARIA_CORE_API MenuEntry {
  String Text;  ///< "-" is a separator, which counts as an entry
  String Tag;
};

/// A tool bar with one button that has a drop-down menu.
class TESSARIA_CORE_API ToolBar : public virtual DialogWidget {
 public:
  virtual bool ButtonEnabled() const = 0;
  virtual void ButtonEnabled(bool enabled) = 0;
  virtual Long MenuCount() const = 0;
  /// By position from 1. Error 9 outside the entries.
  virtual MenuEntry Menu(Long position) const = 0;
  virtual void Menu(Long position, const MenuEntry& entry) = 0;
  virtual void AddMenu(const MenuEntry& entry) = 0;
  virtual void Refresh() = 0;

  std::function<void()> OnButtonClick;
  /// Position from 1.
  std::function<void(Long position)> OnMenuClick;
};

class TESSARIA_CORE_API Calendar : public virtual DialogWidget {
 public:
  /// The selected day.
  virtual Date Value() const = 0;
  virtual void Value(Date day) = 0;
  /// A click on a day.
  std::function<void()> OnClick;
};

/// The drives or mounted volumes of the system.
class TESSARIA_CORE_API DriveList : public virtual DialogWidget {
 public:
  /// The selected entry.
  virtual String Drive() const = 0;
  /// Selects the entry that a path is on. Error 68 when there is none.
  virtual void Drive(const String& path) = 0;
  virtual std::vector<String> List() const = 0;
  std::function<void()> OnChange;
};

/// The folders inside one folder, and those above it.
class TESSARIA_CORE_API FolderList : public virtual DialogWidget {
 public:
  virtual String Path() const = 0;
  /// Error 76 for a folder that does not exist or cannot be read.
  virtual void Path(const String& path) = 0;
  /// Raised by assignments too.
  std::function<void()> OnChange;
};

/// The files of one folder that match a pattern.
class TESSARIA_CORE_API FileList : public virtual DialogWidget {
 public:
  virtual String Path() const = 0;
  /// Error 76 for a folder that does not exist or cannot be read.
  virtual void Path(const String& path) = 0;
  virtual String Pattern() const = 0;
  virtual void Pattern(const String& pattern) = 0;
  virtual std::vector<String> List() const = 0;
  /// The selected file; "" for none.
  virtual String FileName() const = 0;
  /// Selects by position from 0. Error 9 outside the list.
  virtual void Select(Long position) = 0;
  std::function<void()> OnDblClick;
};

/// A modal window of the library. Keys reach the window before the widget that has the focus.
class TESSARIA_CORE_API Dialog {
 public:
  Dialog() = default;
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  virtual ~Dialog() = default;

  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
  virtual Long Left() const = 0;
  virtual void Left(Long twips) = 0;
  virtual Long Top() const = 0;
  virtual void Top(Long twips) = 0;
  virtual Long Width() const = 0;
  virtual void Width(Long twips) = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  virtual Colour BackColor() const = 0;
  /// A 32-bit token for the window.
  virtual Long hWnd() const = 0;
  /// The connection that controls on the dialog find; null for none.
  virtual void dbForm(ConnectionPtr connection) = 0;

  /// Shows the window and returns when it is hidden or closed. Controls receive their first show;
  /// then `OnResize` (at the first show) and `OnActivate` are raised.
  virtual void ShowModal() = 0;
  virtual void Hide() = 0;

  /// The widget of that name as a T. Errors: 730 no such widget, 13 another kind.
  template <class T>
  T& Find(StringView name, Integer index = -1) {
    if (auto* widget = dynamic_cast<T*>(&Widget(name, index))) return *widget;
    throw HostError(errors::TypeMismatch);
  }

  /// The window has become the active one: at each show, and each time it returns to the front from
  /// behind another window of the library, a box or another program.
  std::function<void()> OnActivate;
  /// The operator closes the window by its frame. Without a handler it hides.
  std::function<void()> OnCloseRequest;
  /// Also when the size changes while the window shows, by the operator or by the program.
  std::function<void()> OnResize;
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  std::function<void(Integer& KeyAscii)> OnKeyPress;

 protected:
  virtual DialogWidget& Widget(StringView name, Integer index) = 0;
};

using DialogPtr = std::shared_ptr<Dialog>;

/// What dialogs need from the desktop. Owned by the host; one per thread (`State().desktop`).
class TESSARIA_CORE_API Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// The screen, in twips.
  virtual Long ScreenWidth() const = 0;
  virtual Long ScreenHeight() const = 0;
  virtual Date Today() const = 0;
  /// Creates a hidden window from its description, which must outlive the window.
  virtual DialogPtr MakeDialog(const DialogDescription& description) = 0;
  /// Shows the wait pointer until each call with true is matched by one with false.
  virtual void Busy(bool busy) = 0;
  /// Replaces the contents of the clipboard.
  virtual void ClipboardText(const String& text) = 0;
  /// The name of the first ordinary file that a path with wildcards matches; "" for none.
  /// "*.*" matches every name.
  virtual String Dir(const String& pattern) const = 0;
  /// Whether a drive, as `DriveList` names it, can be read.
  virtual bool DriveReady(const String& drive) const = 0;
};

}  // namespace tessaria::host
