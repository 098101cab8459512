// The widgets of the library's own windows and pages, as the logic of a dialog drives them.
//
// Positions and sizes are in twips. Events are raised only by the operator, with one exception: a
// text box raises `Change` for every assignment that changes its text, as its own contract says.
// When a click takes the focus from another widget, that widget's `OnLostFocus` has returned before
// the click's handler is called, also when the click came by a mnemonic or by the default button.
#pragma once

#include <functional>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/host/form.h"
#include "tessaria/host/widgets.h"

namespace tessaria::host {

/// What all widgets of a surface have.
class TESSARIA_CORE_API DialogWidget {
 public:
  DialogWidget() = default;
  DialogWidget(const DialogWidget&) = delete;
  DialogWidget& operator=(const DialogWidget&) = delete;
  virtual ~DialogWidget() = default;

  /// The name of the frame or tab strip that it stands in; "" for the surface itself.
  virtual String Container() const = 0;
  /// The page of that tab strip, from 0; -1 where the container is none.
  virtual Long Page() const = 0;
  virtual Long Left() const = 0;
  virtual void Left(Long twips) = 0;
  virtual Long Top() const = 0;
  virtual void Top(Long twips) = 0;
  virtual Long Width() const = 0;
  virtual void Width(Long twips) = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  /// The widget's own flag: true also on a page that is not in front.
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  /// The widget's own flag: true also inside a disabled frame.
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool enabled) = 0;
  virtual bool TabStop() const = 0;
  virtual void TabStop(bool stop) = 0;
  /// Does nothing where the operator could not bring the focus there.
  virtual void SetFocus() = 0;

  /// Free text for the code that uses the widget.
  String Tag;

  /// Keys, before the widget acts on them. A text box reports its keys itself, and so does a
  /// control of the library.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  /// A key gives a character. Code 0 swallows it.
  std::function<void(Integer& KeyAscii)> OnKeyPress;
  /// Not raised while the window is left for a box or another window.
  std::function<void()> OnGotFocus;
  /// The focus has gone to another widget of the same window.
  std::function<void()> OnLostFocus;
};

/// A text beside other widgets.
class TESSARIA_CORE_API DialogLabel : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
};

/// A push button.
class TESSARIA_CORE_API DialogButton : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  /// The caption's colour; drawn a little lower while the button is pressed.
  virtual Colour TextColour() const = 0;
  virtual void TextColour(Colour colour) = 0;
  /// The face's colour; the system's own until one is assigned.
  virtual Colour BackColor() const = 0;
  virtual void BackColor(Colour colour) = 0;
  /// The operator has pressed it, by mouse, key or mnemonic.
  std::function<void()> OnClick;
};

/// A box that shows text and accepts none from the keyboard.
class TESSARIA_CORE_API DialogDisplay : public virtual DialogWidget {
 public:
  virtual String Text() const = 0;
  virtual void Text(const String& text) = 0;
};

/// A box with text that the operator edits: one line, or several that "\r\n" separates.
class TESSARIA_CORE_API DialogTextBox : public virtual DialogWidget {
 public:
  /// The box and its contract. It raises its own key events; focus events are raised by the widget.
  virtual TextBox& Box() = 0;
};

/// A list that drops down, with the chosen row in its box. A combo box also takes texts that are no
/// row; a drop-down list does not. Rows are numbered from 0.
class TESSARIA_CORE_API DialogCombo : public virtual DialogWidget {
 public:
  virtual Long ListCount() const = 0;
  /// "" outside the rows.
  virtual String List(Long row) const = 0;
  /// Adds a row at the end.
  virtual void AddItem(const String& text) = 0;
  /// Removes all rows, and the text.
  virtual void Clear() = 0;
  /// The chosen row; -1 for none.
  virtual Long ListIndex() const = 0;
  /// Error 380 for a row that does not exist. -1 empties the text.
  virtual void ListIndex(Long row) = 0;
  virtual String Text() const = 0;
  /// Chooses the first row of that text, or none. A drop-down list raises error 383 for a text that
  /// is no row, and keeps its choice.
  virtual void Text(const String& text) = 0;

  /// A row was chosen, the present one too.
  std::function<void()> OnClick;
  /// The text of a combo box was edited.
  std::function<void()> OnChange;
};

/// A box that is checked or not.
class TESSARIA_CORE_API DialogCheckBox : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  /// 0 or 1.
  virtual Integer Value() const = 0;
  /// Error 380 for another number.
  virtual void Value(Integer value) = 0;
  /// The operator has checked or cleared it.
  std::function<void()> OnClick;
};

/// One of the choices of its container, of which at most one is set.
class TESSARIA_CORE_API DialogOption : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  virtual bool Value() const = 0;
  /// Setting one clears the others of its container; clearing one leaves the others alone.
  virtual void Value(bool value) = 0;
  /// The operator has set it; a click on one that is set is none.
  std::function<void()> OnClick;
};

/// A box around widgets. What stands in a disabled frame cannot be used, and keeps its own flag.
class TESSARIA_CORE_API DialogFrame : public virtual DialogWidget {
 public:
  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
};

/// Pages of widgets, one in front. The operator cannot choose a disabled page; disabling the page
/// in front leaves it there, and its widgets usable. Pages are numbered from 0; error 380 for a
/// page that does not exist.
class TESSARIA_CORE_API DialogTabs : public virtual DialogWidget {
 public:
  virtual Long Tabs() const = 0;
  /// The text on a tab.
  virtual String TabCaption(Long page) const = 0;
  virtual Long Tab() const = 0;
  virtual void Tab(Long page) = 0;
  /// Whether the operator can choose the page.
  virtual bool TabEnabled(Long page) const = 0;
  virtual void TabEnabled(Long page, bool enabled) = 0;
  /// A tab was chosen, the one in front too.
  std::function<void(Long previous)> OnClick;
};

/// A row of a list view. Valid until it is removed.
class TESSARIA_CORE_API ListRow {
 public:
  ListRow() = default;
  ListRow(const ListRow&) = delete;
  ListRow& operator=(const ListRow&) = delete;
  virtual ~ListRow() = default;

  /// Position from 1.
  virtual Long Index() const = 0;
  virtual String Text() const = 0;
  virtual void Text(const String& text) = 0;
  virtual bool Checked() const = 0;
  virtual void Checked(bool checked) = 0;
  virtual bool Selected() const = 0;
  /// True takes the selection from the row that had it.
  virtual void Selected(bool selected) = 0;
  virtual Long SubItemCount() const = 0;
  /// By position from 1. Error 9 outside the sub-items.
  virtual String SubItem(Long position) const = 0;
  virtual void SubItem(Long position, const String& text) = 0;
  /// Adds a text in the next column.
  virtual void AddSubItem(const String& text) = 0;
  /// Scrolls until the row can be seen.
  virtual void EnsureVisible() = 0;

  /// Free text for the code that uses the row.
  String Tag;
};

/// Rows with columns, of which one can be selected. The first row that comes into an empty list is
/// selected; removing the selected row selects none. Positions are from 1, error 9 outside the
/// rows; texts compare exactly.
class TESSARIA_CORE_API DialogListView : public virtual DialogWidget {
 public:
  virtual Long Count() const = 0;
  /// The row at a position.
  virtual ListRow& Item(Long position) = 0;
  /// Inserts a row before that position; 0 adds it at the end.
  virtual ListRow& Add(const String& text, Long position = 0) = 0;
  /// Removes a row; references to it become invalid.
  virtual void Remove(Long position) = 0;
  virtual void Clear() = 0;
  /// Null for none.
  virtual ListRow* SelectedItem() = 0;
  /// The first row of that text, or of that tag; null for none.
  virtual ListRow* FindItem(const String& text) = 0;
  /// The first row whose `Tag` is that text; null for none.
  virtual ListRow* FindTag(const String& tag) = 0;
  /// The topmost row that can be seen; null for none.
  virtual ListRow* FirstVisible() = 0;

  /// A row was selected by mouse or keyboard, the selected one too.
  std::function<void(ListRow& row)> OnItemClick;
  /// A row's check box was changed.
  std::function<void(ListRow& row)> OnItemCheck;
  /// The operator has clicked a row twice.
  std::function<void()> OnDblClick;
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
  /// Twips of a new column. Its first caption may make it wider.
  static constexpr float NewWidth = 1440;

  GridColumn() = default;
  GridColumn(const GridColumn&) = delete;
  GridColumn& operator=(const GridColumn&) = delete;
  virtual ~GridColumn() = default;

  virtual String Caption() const = 0;
  virtual void Caption(const String& text) = 0;
  /// Twips.
  virtual float Width() const = 0;
  virtual void Width(float twips) = 0;
  /// A column preview shows a hidden column too, dimmed.
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  /// The field that the column shows; an assigned name that is no field shows nothing.
  virtual String DataField() const = 0;
  virtual void DataField(const String& field) = 0;
  /// Format pattern of the values; "" shows them as text.
  virtual String Format() const = 0;
  virtual void Format(const String& pattern) = 0;
};

/// A read-only grid over a record set. The grid's current row is the record set's. A grid that
/// never had rows shows one column without a caption.
class TESSARIA_CORE_API DataGrid : public virtual DialogWidget {
 public:
  /// The rows shown; null empties the grid. New rows replace the columns; captions and widths are
  /// those of the fields.
  virtual RecordsetPtr DataSource() const = 0;
  virtual void DataSource(RecordsetPtr rows) = 0;
  virtual Long ColumnCount() const = 0;
  /// By position from 0. Error 9 outside the columns.
  virtual GridColumn& Column(Long position) = 0;
  /// A new column without caption and field, before that position from 0; the count adds it at the
  /// end. Error 9 beyond it.
  virtual GridColumn& AddColumn(Long position) = 0;
  /// Removes a column; references to it become invalid. Error 9 outside the columns.
  virtual void RemoveColumn(Long position) = 0;
  /// Shows the record set's current row after code outside the grid has moved it or reordered the
  /// rows.
  virtual void ShowCurrentRow() = 0;

  /// The operator has clicked a row twice.
  std::function<void()> OnDblClick;
  /// A column's header was clicked; position from 0.
  std::function<void(Long position)> OnHeadClick;
  /// A column's width was changed at its header; position from 0.
  std::function<void(Long position)> OnColResize;
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
  /// Adds an entry at the end of the menu.
  virtual void AddMenu(const MenuEntry& entry) = 0;
  virtual void Refresh() = 0;

  /// The button itself was pressed, not its menu.
  std::function<void()> OnButtonClick;
  /// Position from 1.
  std::function<void(Long position)> OnMenuClick;
};

/// A month with its days, of which one is selected.
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
  /// The operator has chosen another drive.
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
  /// The operator has clicked a file twice.
  std::function<void()> OnDblClick;
};

}  // namespace tessaria::host
