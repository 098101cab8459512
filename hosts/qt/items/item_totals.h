// The totals under the columns of an item grid.
#pragma once

#include <QTableView>
#include <QWidget>
#include <vector>

class QLabel;

namespace tessaria::qt {

class ItemModel;

/// A label under each totalled column.
class ItemTotals final : public QWidget {
 public:
  explicit ItemTotals(QWidget* parent) : QWidget(parent) {}

  void make(const ItemModel& model);
  void show(const ItemModel& model);
  /// Under the columns of the view.
  void place(const QTableView& view);
  bool isEmpty() const { return labels_.empty(); }

 private:
  struct Total {
    int column;
    QLabel* label;
  };
  std::vector<Total> labels_;
};

}  // namespace tessaria::qt
