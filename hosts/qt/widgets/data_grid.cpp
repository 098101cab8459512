#include "hosts/qt/widgets/data_grid.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "hosts/qt/boundary/wait_input.h"
#include "runtime/field_names.h"
#include "services/busy_pointer.h"
#include "tessaria/compare.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
// --- Grid ---------------------------------------------------------------------------------------

DataGridItem::DataGridItem(GridPane& pane, DialogGate& gate)
    : DialogItemOf(pane, gate), pane_(pane) {
  QObject::connect(pane.view().selectionModel(), &QItemSelectionModel::currentRowChanged, &pane,
                   [this](const QModelIndex& current) { rowChosen(current.row()); });
  QObject::connect(&pane.view(), &QTableView::doubleClicked, &pane,
                   [this] { this->gate().raise(OnDblClick); });
  pane.view().columnResized = [this](int column) {
    Long position = column;
    this->gate().raise(OnColResize, position);
  };
  pane.view().endWanted = [this](bool last) { goToEnd(last); };
  QObject::connect(pane.view().horizontalHeader(), &QHeaderView::sectionClicked, &pane,
                   [this](int column) { headClicked(column); });
  pane.view().orderWanted = [this](int column) { headClicked(column); };
  // Rows come in before they are painted, and those that were not foreseen afterwards.
  QObject::connect(pane.view().verticalScrollBar(), &QScrollBar::valueChanged, &pane,
                   [this] { pane_.holdShownRows(); });
  pane.model().rowsMissing = [this] { pane_.holdMissingRows(); };
  // Queued: a box must not open during painting or scrolling.
  pane.model().readingFailed = [this](const std::exception_ptr& failure) {
    runLater(&pane_,
             [this, failure] { this->gate().enter([&] { std::rethrow_exception(failure); }); });
  };
  gate.afterFailure([this] { repair(); });
  AddColumn(0);
}

DataGridItem::~DataGridItem() = default;

void DataGridItem::DataSource(host::RecordsetPtr rows) {
  const QScopedValueRollback echo(following_, true);
  columns_.clear();
  pane_.model().setRows(std::move(rows));
  pane_.showWarning();
  for (int i = 0; i < pane_.model().columnCount(); ++i)
    columns_.push_back(std::make_unique<PaneColumn>(pane_, i));
  ShowCurrentRow();
}

int DataGridItem::existing(Long position, Long count) {
  if (position < 0 || position >= count) throw HostError(errors::SubscriptOutOfRange);
  return position;
}

host::GridColumn& DataGridItem::Column(Long position) {
  return *columns_[std::size_t(existing(position, ColumnCount()))];
}

host::GridColumn& DataGridItem::AddColumn(Long position) {
  const int place = existing(position, ColumnCount() + 1);
  const QScopedValueRollback echo(following_, true);
  pane_.model().insertColumn(place);
  columns_.insert(columns_.begin() + place, std::make_unique<PaneColumn>(pane_, place));
  renumber();
  return *columns_[std::size_t(place)];
}

void DataGridItem::RemoveColumn(Long position) {
  const int place = existing(position, ColumnCount());
  const QScopedValueRollback echo(following_, true);
  columns_.erase(columns_.begin() + place);
  pane_.model().removeColumn(place);
  renumber();
  ShowCurrentRow();
}

void DataGridItem::renumber() {
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i]->moveTo(int(i));
}

void DataGridItem::ShowCurrentRow() {
  const QScopedValueRollback echo(following_, true);
  const auto& rows = pane_.model().rows();
  const bool open = rows && rows->State() != host::state::Closed;
  const int row = open ? int(rows->AbsolutePosition()) - 1 : -1;  // may count the rows
  pane_.model().refresh();
  showOrder();
  const int column = std::max(0, pane_.view().shownColumn(pane_.view().currentIndex().column()));
  const QModelIndex current = pane_.model().index(row, column);
  pane_.view().setCurrentIndex(current);
  if (current.isValid()) pane_.view().scrollTo(current);
}

void DataGridItem::aboutToShow() {
  pane_.view().updateGeometry();
  pane_.updateGeometry();
  ShowCurrentRow();
}

/// An arrow in the header shows which column the rows are ordered by.
void DataGridItem::showOrder() {
  QHeaderView& header = *pane_.view().horizontalHeader();
  const auto& rows = pane_.model().rows();
  const String order = rows && rows->State() != host::state::Closed ? rows->Sort() : String();
  for (std::size_t i = 0; i < columns_.size() && !order.empty(); ++i) {
    if (!EqualNoCase(FieldNameText(columns_[i]->DataField()), order)) continue;
    header.setSortIndicator(int(i), Qt::AscendingOrder);
    return header.setSortIndicatorShown(true);
  }
  header.setSortIndicatorShown(false);
}

// --- The operator -------------------------------------------------------------------------------

void DataGridItem::rowChosen(int row) {
  if (following_ || row < 0) return;
  gate().enter([&] { pane_.model().rows()->AbsolutePosition(row + 1); });
}

void DataGridItem::headClicked(int column) {
  Long position = column;
  gate().raise(OnHeadClick, position);
}

void DataGridItem::goToEnd(bool last) {
  const auto rows = DataSource();
  if (pane_.model().rowCount() == 0) return;
  gate().enter([&] {
    const BusyPointer busy;
    last ? rows->MoveLast() : rows->MoveFirst();
    ShowCurrentRow();
  });
}

/// Called after an event has failed. The record set may be on another row than the one shown; and
/// the message box is closed, but an incomplete list must keep showing its warning.
void DataGridItem::repair() {
  pane_.model().noteFailure();
  ShowCurrentRow();
  pane_.showWarning();
}

}  // namespace tessaria::qt
