// The grid of a dialog: a table view over a record set.
#pragma once

#include <memory>
#include <vector>

#include "hosts/qt/widgets/dialog_item.h"
#include "hosts/qt/widgets/grid_column.h"

namespace tessaria::qt {

class DataGridItem final : public DialogItemOf<host::DataGrid> {
 public:
  DataGridItem(GridPane& pane, DialogGate& gate);
  ~DataGridItem() override;

  host::RecordsetPtr DataSource() const override { return pane_.model().rows(); }
  void DataSource(host::RecordsetPtr rows) override;
  Long ColumnCount() const override { return static_cast<Long>(columns_.size()); }
  host::GridColumn& Column(Long position) override;
  host::GridColumn& AddColumn(Long position) override;
  void RemoveColumn(Long position) override;
  void ShowCurrentRow() override;
  void aboutToShow() override;

 private:
  static int existing(Long position, Long count);
  void renumber();
  void rowChosen(int row);
  void headClicked(int column);
  void goToEnd(bool last);
  void repair();
  void showOrder();

  GridPane& pane_;
  std::vector<std::unique_ptr<PaneColumn>> columns_;
  bool following_ = false;  ///< the current row is set on the view, not reported by it
};

}  // namespace tessaria::qt
