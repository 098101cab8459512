#include "hosts/qt/widgets/list_view.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "hosts/qt/boundary/wait_input.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

/// Average characters that a column shows at most before the operator widens it.
constexpr int kMostCharactersFitted = 40;

}  // namespace

// --- Rows ---------------------------------------------------------------------------------------

ViewRow::ViewRow(ListView& view, const String& text) : view_(view) {
  setText(0, toQt(text));
  setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
           Qt::ItemNeverHasChildren);
  if (view.hasBoxes()) setCheckState(0, Qt::Unchecked);
}

Long ViewRow::Index() const { return view_.indexOfTopLevelItem(const_cast<ViewRow*>(this)) + 1; }

String ViewRow::textAt(int column) const { return fromQt(text(column)); }

void ViewRow::setTextAt(int column, const String& text) {
  const ListView::Assignment assignment(view_);
  setText(column, toQt(text));
}

void ViewRow::Checked(bool checked) {
  checked_ = checked;
  if (!view_.hasBoxes()) return;
  const ListView::Assignment assignment(view_);
  setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
}

bool ViewRow::noteCheck() {
  const bool now = checkState(0) == Qt::Checked;
  return std::exchange(checked_, now) != now;
}

void ViewRow::Selected(bool selected) {
  if (selected != isSelected()) view_.select(selected ? this : nullptr);
}

int ViewRow::existing(Long position) const {
  if (position < 1 || position > subItems_) throw HostError(errors::SubscriptOutOfRange);
  return position;
}

void ViewRow::SubItem(Long position, const String& text) { setTextAt(existing(position), text); }

void ViewRow::AddSubItem(const String& text) {
  ++subItems_;
  while (view_.columnCount() <= subItems_) view_.addColumn();
  setTextAt(subItems_, text);
}

void ViewRow::EnsureVisible() { view_.scrollToItem(this); }

// --- View ---------------------------------------------------------------------------------------

ListView::ListView(QWidget* parent, Boxes boxes) : QTreeWidget(parent), boxes_(boxes) {
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setExpandsOnDoubleClick(false);
  header()->setSectionsMovable(false);
  header()->setStretchLastSection(false);
  connect(header(), &QHeaderView::sectionResized, this, [this](int column) {
    if (column != columnCount() - 1) fillWithLastColumn();
  });
  setHorizontalScrollMode(ScrollPerPixel);
  growth_.setSingleShot(true);
  growth_.setInterval(0);
  connect(&growth_, &QTimer::timeout, this, &ListView::growColumns);
  connect(this, &QTreeWidget::itemChanged, this, &ListView::changed);
}

void ListView::setHeadings(std::span<const StringView> headings) {
  QStringList texts;
  for (const StringView heading : headings) texts << toQt(heading);
  setColumnCount(std::max<int>(1, int(texts.size())));
  setHeaderLabels(texts);
  setHeaderHidden(texts.isEmpty());
}

void ListView::addColumn() {
  setColumnCount(columnCount() + 1);
  headerItem()->setText(columnCount() - 1, {});
}

void ListView::fitColumns() {
  for (int column = 0; column + 1 < columnCount(); ++column)
    header()->resizeSection(column, wantedWidth(column));
  fillWithLastColumn();
}

void ListView::growColumns() {
  for (int column = 0; column + 1 < columnCount(); ++column)
    header()->resizeSection(column, std::max(header()->sectionSize(column), wantedWidth(column)));
  fillWithLastColumn();
}

int ListView::wantedWidth(int column) const {
  const int most = fontMetrics().averageCharWidth() * kMostCharactersFitted;
  return std::min(std::max(sizeHintForColumn(column), header()->sectionSizeHint(column)), most);
}

/// Qt would cut it short when the room that the others leave is too little for its contents.
void ListView::fillWithLastColumn() {
  const int last = columnCount() - 1;
  const int contents = std::max(sizeHintForColumn(last), header()->sectionSizeHint(last));
  const int room = viewport()->width() - header()->sectionPosition(last);
  header()->resizeSection(last, std::max(contents, room));
}

void ListView::resizeEvent(QResizeEvent* event) {
  QTreeWidget::resizeEvent(event);
  fillWithLastColumn();
}

/// Qt would select a neighbour.
void ListView::forget(const ViewRow* row) {
  if (row == currentItem()) setCurrentItem(nullptr, 0, QItemSelectionModel::NoUpdate);
  if (row->isSelected()) clearSelection();
  if (row == checked_) checked_ = nullptr;
}

void ListView::select(ViewRow* row) {
  const Assignment assignment(*this);
  setCurrentItem(row);
  if (!row) clearSelection();
}

ViewRow* ListView::selectedRow() const {
  const auto rows = selectedItems();
  return rows.isEmpty() ? nullptr : static_cast<ViewRow*>(rows.first());
}

QItemSelectionModel::SelectionFlags ListView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  const auto command = QTreeWidget::selectionCommand(index, event);
  const bool clears = command.testFlag(QItemSelectionModel::Deselect) || !index.isValid();
  return clears ? QItemSelectionModel::NoUpdate : command;
}

// --- The operator -------------------------------------------------------------------------------

void ListView::changed(QTreeWidgetItem* item) {
  growColumnsSoon();
  auto* row = static_cast<ViewRow*>(item);
  if (assigning_ > 0 || !hasBoxes() || !row->noteCheck()) return;
  checked_ = row;
  // An assistive technology checks a row without an event.
  if (!inEvent_) runLater(this, [this] { reportCheck(); });
}

void ListView::reportCheck() {
  ViewRow* row = std::exchange(checked_, nullptr);
  if (row && rowChecked) rowChecked(*row);
}

/// A click on a check box counts as one on the row only if it selects another row.
void ListView::reportClick(ViewRow* row) {
  const QPointer<ListView> self(this);
  const bool isClick = row && (row != before_ || !checked_);
  if (isClick && rowClicked) rowClicked(*row);
  if (self) reportCheck();
}

void ListView::keyPressEvent(QKeyEvent* event) {
  before_ = selectedRow();
  {
    const QScopedValueRollback working(inEvent_, true);
    QTreeWidget::keyPressEvent(event);
  }
  ViewRow* now = selectedRow();
  reportClick(now == before_ ? nullptr : now);
}

void ListView::mousePressEvent(QMouseEvent* event) {
  before_ = selectedRow();
  pressed_ = event->button() == Qt::LeftButton && itemAt(event->position().toPoint());
  QTreeWidget::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
  {
    const QScopedValueRollback working(inEvent_, true);
    QTreeWidget::mouseReleaseEvent(event);
  }
  if (std::exchange(pressed_, false)) reportClick(selectedRow());
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
  const bool isOnRow = event->button() == Qt::LeftButton && itemAt(event->position().toPoint());
  {
    const QScopedValueRollback working(inEvent_, true);
    QTreeWidget::mouseDoubleClickEvent(event);
  }
  const QPointer<ListView> self(this);
  reportCheck();
  if (self && isOnRow && rowDoubleClicked) rowDoubleClicked();
}

// --- Port ---------------------------------------------------------------------------------------

ListViewItem::ListViewItem(ListView& view, const DialogGate& gate)
    : DialogItemOf(view, gate), view_(view) {
  view.rowClicked = [this](ViewRow& row) { raiseClick(OnItemClick, row); };
  view.rowChecked = [this](ViewRow& row) { raiseClick(OnItemCheck, row); };
  view.rowDoubleClicked = [this] { raiseClick(OnDblClick); };
}

int ListViewItem::existing(Long position) const {
  if (position < 1 || position > Count()) throw HostError(errors::SubscriptOutOfRange);
  return position - 1;
}

host::ListRow& ListViewItem::Add(const String& text, Long position) {
  const int place = position == 0 ? view_.topLevelItemCount() : existing(position);
  const ListView::Assignment assignment(view_);
  auto* row = new ViewRow(view_, text);
  view_.insertTopLevelItem(place, row);
  view_.growColumnsSoon();
  if (Count() == 1) {
    view_.select(row);
    // The rows that the program adds next are measured too.
    QMetaObject::invokeMethod(&view_, &ListView::fitColumns, Qt::QueuedConnection);
  }
  return *row;
}

void ListViewItem::Remove(Long position) {
  ViewRow* row = view_.rowAt(existing(position));
  const ListView::Assignment assignment(view_);
  view_.forget(row);
  delete row;
  view_.growColumnsSoon();
}

void ListViewItem::Clear() {
  while (Count() > 0) Remove(Count());
}

template <class Matches>
host::ListRow* ListViewItem::find(const Matches& matches) {
  for (int i = 0; i < view_.topLevelItemCount(); ++i)
    if (ViewRow* row = view_.rowAt(i); matches(*row)) return row;
  return nullptr;
}

host::ListRow* ListViewItem::SelectedItem() {
  return find([](const ViewRow& row) { return row.isSelected(); });
}

host::ListRow* ListViewItem::FindItem(const String& text) {
  return find([&](const ViewRow& row) { return row.Text() == text; });
}

host::ListRow* ListViewItem::FindTag(const String& tag) {
  return find([&](const ViewRow& row) { return row.Tag == tag; });
}

host::ListRow* ListViewItem::FirstVisible() { return static_cast<ViewRow*>(view_.itemAt(0, 0)); }

}  // namespace tessaria::qt
