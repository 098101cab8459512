// What the grid of a surface is made of: a table view over a record set, and a warning.
#pragma once

#include <QLabel>
#include <QTableView>
#include <QTimer>
#include <functional>

#include "hosts/qt/widgets/record_model.h"

namespace tessaria::qt {

/// Selects whole rows, one at a time. Letters are left to the dialog; Home and End go to the ends
/// of the list, and Control with the left and right arrows moves the order from column to column.
class GridView final : public QTableView {
  Q_OBJECT

 public:
  explicit GridView(QWidget* parent);
  void keyboardSearch(const QString&) override {}
  /// A hint that is wide enough for all columns.
  QSize sizeHint() const override;
  /// The column, or the first visible one if it is hidden: keys move through the rows in a visible
  /// column. -1 if none is visible.
  int shownColumn(int column) const;

  /// Called for the keys that go to the list's ends and that change the order. Neither may throw.
  std::function<void(bool last)> endWanted;
  std::function<void(int column)> orderWanted;
  /// The operator has changed the width of a column. Must not throw.
  std::function<void(int column)> columnResized;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// Keeps the current row selected.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  /// The visible column next to the one of the present order, in steps of 1 or -1. -1 at the end.
  int columnBeside(int step) const;

  int resized_ = -1;  ///< the column whose width has changed since the mouse was pressed
};

/// The table, and below it a warning if its rows are incomplete.
class GridPane final : public QWidget {
  Q_OBJECT

 public:
  enum class HiddenColumns { Gone, Dimmed };

  GridPane(QWidget* parent, HiddenColumns hidden);

  GridView& view() const { return *view_; }
  RecordModel& model() const { return *model_; }
  bool dimsHidden() const { return hidden_ == HiddenColumns::Dimmed; }
  /// Shows the model's, or hides it.
  void showWarning();
  /// Reads the rows that the view is about to show, and later those around them.
  void holdShownRows();
  /// The same for rows that turned out to be missing while they were painted.
  void holdMissingRows();

 private:
  bool holdRows(int around);

  const HiddenColumns hidden_;
  GridView* view_;
  RecordModel* model_;
  QLabel* warning_;
  QTimer missing_;
  QTimer ahead_;
};

}  // namespace tessaria::qt
