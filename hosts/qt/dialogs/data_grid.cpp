#include "hosts/qt/dialogs/data_grid.h"
#include "hosts/qt/boundary/wait_input.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include "runtime/field_names.h"
#include "services/busy_pointer.h"
#include "tessaria/compare.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

constexpr int kRowPadding = 6;  // pixels, above and below together

// Rows around the shown ones that are read ahead, and the pause after the last movement before that
// is done; both times are in milliseconds.
constexpr int kRowsAround = 500;
constexpr int kPause = 300;
constexpr int kRetry = 200;

}  // namespace

// --- View ---------------------------------------------------------------------------------------

GridView::GridView(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setToolTip(
      QStringLiteral("Clique para ordenar por esta coluna.\nCtrl+← e Ctrl+→ ordenam pela coluna ao "
                     "lado."));
}

QSize GridView::sizeHint() const {
  const int around = 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return {horizontalHeader()->length() + around, QTableView::sizeHint().height()};
}

int GridView::shownColumn(int column) const {
  const QHeaderView& header = *horizontalHeader();
  if (column >= 0 && column < header.count() && !header.isSectionHidden(column)) return column;
  for (int place = 0; place < header.count(); ++place)
    if (const int first = header.logicalIndex(place); !header.isSectionHidden(first)) return first;
  return -1;
}

int GridView::columnBeside(int step) const {
  const QHeaderView& header = *horizontalHeader();
  const int from = header.isSortIndicatorShown() ? header.visualIndex(header.sortIndicatorSection())
                                                 : (step > 0 ? -1 : header.count());
  for (int place = from + step; place >= 0 && place < header.count(); place += step)
    if (const int next = header.logicalIndex(place); !header.isSectionHidden(next)) return next;
  return -1;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool sideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
  if (sideways && event->modifiers().testFlag(Qt::ControlModifier)) {
    const int column = columnBeside(event->key() == Qt::Key_Right ? 1 : -1);
    if (column >= 0 && orderWanted) orderWanted(column);
    return;
  }
  if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
    if (endWanted) endWanted(event->key() == Qt::Key_End);
    return;
  }
  // A column may have been hidden since the current row was shown.
  const QModelIndex current = currentIndex();
  const int column = shownColumn(current.column());
  if (current.isValid() && column != current.column())
    setCurrentIndex(current.siblingAtColumn(column));
  QTableView::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  const auto command = QTableView::selectionCommand(index, event);
  return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

GridPane::GridPane(QWidget* parent)
    : QWidget(parent),
      view_(new GridView(this)),
      model_(new RecordModel(this)),
      warning_(new QLabel(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(view_);
  column->addWidget(warning_);
  warning_->setTextFormat(Qt::PlainText);
  warning_->setWordWrap(true);
  warning_->hide();
  view_->setModel(model_);
  setFocusProxy(view_);
  missing_.setSingleShot(true);
  QObject::connect(&missing_, &QTimer::timeout, this, [this] {
    const QPointer<GridPane> self(this);
    const bool areHeld = holdRows(0);
    if (!self) return;
    // While the server is asked for something else, the rows have to wait.
    areHeld ? view_->viewport()->update() : missing_.start(kRetry);
  });
  ahead_.setSingleShot(true);
  ahead_.setInterval(kPause);
  QObject::connect(&ahead_, &QTimer::timeout, this, [this] { holdRows(kRowsAround); });
}

bool GridPane::holdRows(int around) {
  const int first = view_->rowAt(0);
  const int bottom = view_->rowAt(view_->viewport()->height() - 1);
  const int last = bottom < 0 ? model_->rowCount() - 1 : bottom;
  const QPointer<GridPane> self(this);
  const bool areHeld = first < 0 || model_->hold(first - around, last + around);
  if (self) showWarning();
  return areHeld;
}

void GridPane::holdShownRows() {
  const QPointer<GridPane> self(this);
  if (holdRows(0) && self) ahead_.start();
}

void GridPane::holdMissingRows() {
  if (!missing_.isActive()) missing_.start(0);
}

void GridPane::showWarning() {
  const QString text = model_->warning();
  warning_->setText(text);
  warning_->setVisible(!text.isEmpty());
}

// --- Columns ------------------------------------------------------------------------------------

class DataGridItem::FieldColumn final : public host::GridColumn {
 public:
  FieldColumn(GridPane& pane, int position)
      : pane_(pane),
        position_(position),
        field_(fromQt(pane.model().caption(position))),
        width_(float(twipsX(wantedPixels(), pane))) {
    show();
  }

  const String& field() const { return field_; }

  String Caption() const override { return fromQt(pane_.model().caption(position_)); }
  void Caption(const String& text) override { pane_.model().setCaption(position_, toQt(text)); }
  /// The operator may have made it wider.
  float Width() const override {
    const int now = header().sectionSize(position_);
    return now == 0 || now == pixels() ? width_ : float(twipsX(now, pane_));
  }
  void Width(float twips) override {
    width_ = twips;
    show();
  }
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override {
    visible_ = visible;
    show();
  }
  String DataField() const override { return field_; }
  String Format() const override { return pane_.model().format(position_); }
  void Format(const String& pattern) override { pane_.model().setFormat(position_, pattern); }

 private:
  QHeaderView& header() const { return *pane_.view().horizontalHeader(); }
  int pixels() const { return pixelsX(static_cast<Long>(width_), pane_); }
  int wantedPixels() const {
    return pane_.fontMetrics().averageCharWidth() * pane_.model().charactersOf(position_);
  }
  /// A column without width is hidden.
  void show() {
    const bool shows = visible_ && pixels() > 0;
    header().setSectionHidden(position_, !shows);
    if (shows) header().resizeSection(position_, pixels());
  }

  GridPane& pane_;
  int position_;
  String field_;
  float width_;
  bool visible_ = true;
};

// --- Grid ---------------------------------------------------------------------------------------

DataGridItem::DataGridItem(GridPane& pane, DialogGate& gate)
    : DialogItemOf(pane, gate), pane_(pane) {
  QObject::connect(pane.view().selectionModel(), &QItemSelectionModel::currentRowChanged, &pane,
                   [this](const QModelIndex& current) { rowChosen(current.row()); });
  QObject::connect(&pane.view(), &QTableView::doubleClicked, &pane,
                   [this] { this->gate().raise(OnDblClick); });
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
}

DataGridItem::~DataGridItem() = default;

void DataGridItem::DataSource(host::RecordsetPtr rows) {
  const QScopedValueRollback echo(following_, true);
  columns_.clear();
  pane_.model().setRows(std::move(rows));
  pane_.showWarning();
  for (int i = 0; i < pane_.model().columnCount(); ++i)
    columns_.push_back(std::make_unique<FieldColumn>(pane_, i));
  ShowCurrentRow();
}

host::GridColumn& DataGridItem::Column(Long position) {
  if (position < 0 || position >= ColumnCount()) throw HostError(errors::SubscriptOutOfRange);
  return *columns_[static_cast<std::size_t>(position)];
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
    if (!EqualNoCase(FieldNameText(columns_[i]->field()), order)) continue;
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
