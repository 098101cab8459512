#include "hosts/qt/dialogs/make_item.h"

#include "hosts/qt/dialogs/data_grid.h"
#include "hosts/qt/dialogs/drive_list.h"
#include "hosts/qt/dialogs/file_list.h"
#include "hosts/qt/dialogs/folder_list.h"
#include "hosts/qt/dialogs/simple_items.h"
#include "hosts/qt/dialogs/tool_bar.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

using host::WidgetKind;
using ItemPtr = std::unique_ptr<DialogItem>;

/// A widget whose caption is its accessible name.
template <class Item, class Widget>
ItemPtr named(QWidget& window, DialogGate& gate, const QString& caption) {
  auto* widget = new Widget(&window);
  auto item = std::make_unique<Item>(*widget, gate);
  item->focusTarget().setAccessibleName(caption);
  return item;
}

ItemPtr makeKind(WidgetKind kind, QWidget& window, DialogGate& gate, const QString& caption,
                 const QString& toolTip) {
  switch (kind) {
    case WidgetKind::Label:
      return std::make_unique<LabelItem>(*new QLabel(&window), gate, caption);
    case WidgetKind::CommandButton:
      return std::make_unique<ButtonItem>(*new ColouredButton(caption, &window), gate);
    case WidgetKind::TextBox:
      return named<DisplayItem, QLineEdit>(window, gate, caption);
    case WidgetKind::TsText:
      return std::make_unique<FieldItem>(*new TsText(&window), gate, caption);
    case WidgetKind::DataGrid:
      return named<DataGridItem, GridPane>(window, gate, caption);
    case WidgetKind::ToolBar:
      return std::make_unique<ToolBarItem>(*new DialogToolBar(caption, toolTip, &window), gate);
    case WidgetKind::Calendar:
      return named<CalendarItem, QCalendarWidget>(window, gate, caption);
    case WidgetKind::DriveList:
      return named<DriveListItem, QComboBox>(window, gate, caption);
    case WidgetKind::FolderList:
      return named<FolderListItem, FolderTree>(window, gate, caption);
    case WidgetKind::FileList:
      return named<FileListItem, FileNames>(window, gate, caption);
  }
  throw HostError(errors::InvalidArgument);
}

}  // namespace

ItemPtr makeItem(const host::WidgetDescription& widget, QWidget& window, DialogGate& gate) {
  const QString toolTip = toQt(widget.ToolTip);
  ItemPtr item = makeKind(widget.Kind, window, gate, toQt(widget.Caption), toolTip);
  item->face().setObjectName(toQt(widget.Name));
  item->face().setToolTip(toolTip);
  return item;
}

}  // namespace tessaria::qt
