// The fields over the current row of an item grid.
#pragma once

#include <QTableView>
#include <QWidget>
#include <functional>
#include <vector>

#include "tessaria/qt/tstext.h"

class QLabel;

namespace tessaria::qt {

/// A line with a field, or a label for a computed value, in each column. It lies over one row of
/// the view and shows as much of it as the view does.
class ItemLine final : public QWidget {
  Q_OBJECT

 public:
  explicit ItemLine(QWidget* parent) : QWidget(parent) {}

  /// Both belong to the line; the columns follow in their order.
  void addField(TsText* field);
  void addLabel(QLabel* label);
  /// Null for a computed column.
  TsText* field(int column) const { return cells_[std::size_t(column)].field; }
  QLabel* label(int column) const { return cells_[std::size_t(column)].label; }
  int count() const { return int(cells_.size()); }
  /// The column of the field that has the focus of the window; -1 for none.
  int focusedColumn() const;
  /// The next column, from `column` on, whose field takes the focus; -1 for none.
  int nextColumn(int column, int step) const;
  /// Height of a row that the fields need.
  int rowHeight() const;
  /// Over that row of the view, out of sight when the view does not show it.
  void place(const QTableView& view, int row);

  /// The Tab key leaves the line in a direction. Returns whether it has moved the focus.
  std::function<bool(bool next)> left;

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  struct Cell {
    TsText* field;
    QLabel* label;
  };
  std::vector<Cell> cells_;
};

/// Whether the field edits the cells of an item grid, which checks it itself.
bool isItemField(const TsText& field);

}  // namespace tessaria::qt
