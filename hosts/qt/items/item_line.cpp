#include "hosts/qt/items/item_line.h"

#include <QHeaderView>
#include <QLabel>
#include <algorithm>

namespace tessaria::qt {

bool isItemField(const TsText& field) { return qobject_cast<ItemLine*>(field.parentWidget()); }

void ItemLine::addField(TsText* field) { cells_.push_back({field, nullptr}); }
void ItemLine::addLabel(QLabel* label) { cells_.push_back({nullptr, label}); }

int ItemLine::focusedColumn() const {
  const QWidget* focus = window()->focusWidget();
  for (int column = 0; focus && column < count(); ++column)
    if (field(column) && field(column)->isAncestorOf(focus)) return column;
  return -1;
}

int ItemLine::nextColumn(int column, int step) const {
  while (column >= 0 && column < count()) {
    if (field(column) && field(column)->isFieldEnabled()) return column;
    column += step;
  }
  return -1;
}

int ItemLine::rowHeight() const {
  int height = fontMetrics().height();
  for (const Cell& cell : cells_)
    if (cell.field) height = std::max(height, cell.field->sizeHint().height());
  return height;
}

void ItemLine::place(const QTableView& view, int row) {
  const QWidget* const viewport = view.viewport();
  const QPoint origin = viewport->mapTo(parentWidget(), QPoint());
  const int top = view.rowViewportPosition(row);
  const QRect line(0, top, viewport->width(), view.rowHeight(row));
  const QRect seen = line & viewport->rect();
  // A line out of sight keeps the focus, which a hidden one would lose.
  if (seen.isEmpty()) return move(-width() - 1, 0);
  setGeometry(seen.translated(origin));
  for (int column = 0; column < count(); ++column) {
    const Cell& cell = cells_[std::size_t(column)];
    QWidget* const widget = cell.field ? static_cast<QWidget*>(cell.field) : cell.label;
    widget->setGeometry(view.columnViewportPosition(column), top - seen.top(),
                        view.columnWidth(column), line.height());
  }
}

bool ItemLine::focusNextPrevChild(bool next) {
  const int step = next ? 1 : -1;
  const int column = focusedColumn();
  const int target = column < 0 ? -1 : nextColumn(column + step, step);
  if (target >= 0) {
    field(target)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  if (left && left(next)) return true;
  return QWidget::focusNextPrevChild(next);
}

}  // namespace tessaria::qt
