// The library's own windows and pages: what they are made of, and how their logic drives them.
//
// The logic of a dialog is a class of the core. It gives the host a description, which is one
// table; the host builds the surface from it and adds only geometry and looks. A surface stands in
// a modal window of the library, or in a frame of the hosting program. Widgets and window live
// until the dialog is destroyed; a dialog destroyed inside its modal loop is hidden at once and
// goes away when the loop has returned. Positions and sizes are in twips.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/dialog_widgets.h"

namespace tessaria::host {

/// The kinds of widget that a surface is made of.
enum class WidgetKind {
  Label,
  CommandButton,
  Display,  ///< a box that shows text and accepts none from the keyboard
  TextBox,
  MultiLineText,
  ComboBox,
  DropDownList,
  CheckBox,
  OptionButton,
  Frame,
  TabStrip,
  ListView,
  CheckList,  ///< a list view with a check box in each row
  TsText,
  DataGrid,
  ColumnPreview,  ///< a data grid that keeps hidden columns in sight, so that they can be chosen
  ToolBar,
  Calendar,
  DriveList,
  FolderList,
  FileList
};

/// One widget of a surface. It comes after the container that it stands in.
struct TESSARIA_CORE_API WidgetDescription {
  StringView Name;
  WidgetKind Kind;
  StringView Caption = {};  ///< text on the widget; for a list or box, its accessible name
  StringView ToolTip = {};
  Integer Index = -1;         ///< place in an array of widgets of one name, from 0; -1 for none
  StringView Container = {};  ///< the frame or tab strip around it; empty for the surface
  Integer Page = -1;          ///< the page of that tab strip, from 0
  /// First rows of a combo box, captions of the pages of a tab strip, headings of a list view.
  std::span<const StringView> Rows = {};
  /// What a screen reader says, where the caption is only a sign; empty stands for the caption.
  StringView AccessibleName = {};
};

/// A whole dialog or page. The texts outlive every surface made from them.
struct TESSARIA_CORE_API DialogDescription {
  StringView Name;
  StringView Caption;
  std::span<const WidgetDescription> Widgets;
};

/// Widgets by name. Keys reach the surface before the widget that has the focus.
class TESSARIA_CORE_API Surface {
 public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  /// A 32-bit token for the window that it stands in.
  virtual Long hWnd() const = 0;
  virtual Colour BackColor() const = 0;
  /// The connection that controls on the surface find; null for none.
  virtual void dbForm(ConnectionPtr connection) = 0;

  /// The widget of that name as a T. Errors: 730 no such widget, 13 another kind.
  template <class T>
  T& Find(StringView name, Integer index = -1) {
    if (auto* widget = dynamic_cast<T*>(&Widget(name, index))) return *widget;
    throw HostError(errors::TypeMismatch);
  }

  /// A key went down anywhere on the surface. Code 0 swallows it.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  /// A key gives a character. Code 0 swallows it.
  std::function<void(Integer& KeyAscii)> OnKeyPress;

 protected:
  virtual DialogWidget& Widget(StringView name, Integer index) = 0;
};

using SurfacePtr = std::shared_ptr<Surface>;

/// A modal window of the library around a surface.
class TESSARIA_CORE_API Dialog : public Surface {
 public:
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

  /// Shows the window and returns when it is hidden or closed. Controls receive their first show;
  /// then `OnResize` (at the first show) and `OnActivate` are raised.
  virtual void ShowModal() = 0;
  virtual void Hide() = 0;

  /// The window has become the active one: at each show, and each time it returns to the front from
  /// behind another window of the library, a box or another program.
  std::function<void()> OnActivate;
  /// The operator closes the window by its frame. Without a handler it hides.
  std::function<void()> OnCloseRequest;
  /// Also when the size changes while the window shows, by the operator or by the program.
  std::function<void()> OnResize;
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
