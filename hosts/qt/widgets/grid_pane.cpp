#include "hosts/qt/widgets/grid_pane.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

#include "hosts/qt/boundary/wait_input.h"

namespace tessaria::qt {
namespace {

constexpr int kRowPadding = 6;  // pixels, above and below together

// Rows around the shown ones that are read ahead, and the pause after the last movement before that
// is done; both times are in milliseconds.
constexpr int kRowsAround = 500;
constexpr int kPause = 300;
constexpr int kRetry = 200;

QString headerTip(GridPane::HiddenColumns hidden) {
  if (hidden == GridPane::HiddenColumns::Dimmed)
    return QStringLiteral("Clique para ajustar esta coluna.");
  return QStringLiteral(
      "Clique para ordenar por esta coluna.\nCtrl+← e Ctrl+→ ordenam pela coluna ao lado.");
}

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
  horizontalHeader()->viewport()->installEventFilter(this);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int column) { resized_ = column; });
}

/// A width changes with each movement of the mouse. The operator has changed it when the button
/// comes up; it is reported when the header has finished with the event.
bool GridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != horizontalHeader()->viewport()) return QTableView::eventFilter(watched, event);
  if (event->type() == QEvent::MouseButtonPress) resized_ = -1;
  if (event->type() != QEvent::MouseButtonRelease) return false;
  if (const int column = std::exchange(resized_, -1); column >= 0)
    runLater(this, [this, column] {
      if (columnResized) columnResized(column);
    });
  return false;
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
  if (sideways && model()->rowCount() == 0)  // no cell to go to
    return horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Right
                                                    ? QScrollBar::SliderSingleStepAdd
                                                    : QScrollBar::SliderSingleStepSub);
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

GridPane::GridPane(QWidget* parent, HiddenColumns hidden)
    : QWidget(parent),
      hidden_(hidden),
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
  view_->horizontalHeader()->setToolTip(headerTip(hidden));
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

}  // namespace tessaria::qt
