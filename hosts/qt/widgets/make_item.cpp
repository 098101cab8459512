#include "hosts/qt/widgets/make_item.h"

#include <utility>

#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/multi_line_edit.h"
#include "hosts/qt/widgets/choice_items.h"
#include "hosts/qt/widgets/container_items.h"
#include "hosts/qt/widgets/data_grid.h"
#include "hosts/qt/widgets/drive_list.h"
#include "hosts/qt/widgets/edit_items.h"
#include "hosts/qt/widgets/file_list.h"
#include "hosts/qt/widgets/folder_list.h"
#include "hosts/qt/widgets/list_view.h"
#include "hosts/qt/widgets/simple_items.h"
#include "hosts/qt/widgets/tool_bar.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

using host::WidgetKind;
using ItemPtr = std::unique_ptr<DialogItem>;

/// What a widget is made of.
struct Place {
  const host::WidgetDescription& widget;
  QWidget& parent;
  QWidget& container;
  DialogGate& gate;
  QString caption;
  QString spoken;  ///< its accessible name
};

/// A widget that does not show its caption.
template <class Item, class Widget, class... Arguments>
ItemPtr named(const Place& place, Arguments&&... arguments) {
  auto* widget = new Widget(&place.parent);
  auto item = std::make_unique<Item>(*widget, place.gate, std::forward<Arguments>(arguments)...);
  item->focusTarget().setAccessibleName(place.spoken);
  return item;
}

ItemPtr makeList(const Place& place, ListView::Boxes boxes) {
  auto* view = new ListView(&place.parent, boxes);
  view->setHeadings(place.widget.Rows);
  view->setAccessibleName(place.spoken);
  return std::make_unique<ListViewItem>(*view, place.gate);
}

ItemPtr makeGrid(const Place& place, GridPane::HiddenColumns hidden) {
  auto* pane = new GridPane(&place.parent, hidden);
  auto item = std::make_unique<DataGridItem>(*pane, place.gate);
  item->focusTarget().setAccessibleName(place.spoken);
  return item;
}

ItemPtr makeCombo(const Place& place, ComboItem::Takes takes) {
  auto* box = new QComboBox(&place.parent);
  box->setAccessibleName(place.spoken);
  auto item = std::make_unique<ComboItem>(*box, place.gate, takes);
  for (const StringView row : place.widget.Rows) item->AddItem(String(row));
  return item;
}

/// The kinds that show a caption of their own.
ItemPtr makeCaptioned(const Place& place) {
  QWidget* parent = &place.parent;
  switch (place.widget.Kind) {
    case WidgetKind::Label:
      return std::make_unique<LabelItem>(*new QLabel(parent), place.gate, place.caption);
    case WidgetKind::CommandButton:
      return std::make_unique<ButtonItem>(*new ColouredButton(place.caption, parent), place.gate);
    case WidgetKind::CheckBox:
      return std::make_unique<CheckItem>(*new QCheckBox(place.caption, parent), place.gate);
    case WidgetKind::OptionButton:
      return std::make_unique<OptionItem>(*new QRadioButton(place.caption, parent), place.gate,
                                          place.container);
    case WidgetKind::Frame:
      return std::make_unique<FrameItem>(*new QGroupBox(place.caption, parent), place.gate);
    case WidgetKind::ToolBar:
      return std::make_unique<ToolBarItem>(
          *new DialogToolBar(place.caption, toQt(place.widget.ToolTip), parent), place.gate);
    case WidgetKind::TsText:
      return std::make_unique<FieldItem>(*new TsText(parent), place.gate, place.spoken);
    default:
      return nullptr;
  }
}

ItemPtr makeNamed(const Place& place) {
  switch (place.widget.Kind) {
    case WidgetKind::Display:
      return named<DisplayItem, QLineEdit>(place);
    case WidgetKind::TextBox:
      return named<EditItem, LineEdit>(place);
    case WidgetKind::MultiLineText:
      return named<EditItem, MultiLineEdit>(place);
    case WidgetKind::ComboBox:
      return makeCombo(place, ComboItem::Takes::AnyText);
    case WidgetKind::DropDownList:
      return makeCombo(place, ComboItem::Takes::RowsOnly);
    case WidgetKind::TabStrip:
      return named<TabsItem, TabStrip>(place, place.widget.Rows);
    case WidgetKind::ListView:
      return makeList(place, ListView::Boxes::None);
    case WidgetKind::CheckList:
      return makeList(place, ListView::Boxes::InRows);
    case WidgetKind::DataGrid:
      return makeGrid(place, GridPane::HiddenColumns::Gone);
    case WidgetKind::ColumnPreview:
      return makeGrid(place, GridPane::HiddenColumns::Dimmed);
    case WidgetKind::Calendar:
      return named<CalendarItem, QCalendarWidget>(place);
    case WidgetKind::DriveList:
      return named<DriveListItem, QComboBox>(place);
    case WidgetKind::FolderList:
      return named<FolderListItem, FolderTree>(place);
    case WidgetKind::FileList:
      return named<FileListItem, FileNames>(place);
    default:
      throw HostError(errors::InvalidArgument);
  }
}

}  // namespace

ItemPtr makeItem(const host::WidgetDescription& widget, QWidget& parent, QWidget& container,
                 DialogGate& gate) {
  const bool hasSpoken = !widget.AccessibleName.empty();
  const Place place{widget,
                    parent,
                    container,
                    gate,
                    toQt(widget.Caption),
                    toQt(hasSpoken ? widget.AccessibleName : widget.Caption)};
  ItemPtr item = makeCaptioned(place);
  if (!item) item = makeNamed(place);
  item->standsIn(widget.Container, widget.Page);
  item->face().setObjectName(toQt(widget.Name));
  item->face().setToolTip(toQt(widget.ToolTip));
  // Qt makes the name of a widget with a caption from that.
  if (hasSpoken) item->focusTarget().setAccessibleName(place.spoken);
  return item;
}

}  // namespace tessaria::qt
