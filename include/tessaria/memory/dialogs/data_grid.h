// The grid of memory surfaces.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"

namespace tessaria::memory {

/// Columns over a record set. The arrow keys move its current row.
class TESSARIA_MEMORY_API DataGrid final : public DialogItemOf<host::DataGrid> {
 public:
  enum class HiddenColumns { Gone, Dimmed };

  DataGrid(std::shared_ptr<memory::Part> part, HiddenColumns hidden);

  host::RecordsetPtr DataSource() const override { return rows_; }
  void DataSource(host::RecordsetPtr rows) override;
  Long ColumnCount() const override { return static_cast<Long>(columns_.size()); }
  host::GridColumn& Column(Long position) override;
  host::GridColumn& AddColumn(Long position) override;
  void RemoveColumn(Long position) override;
  void ShowCurrentRow() override { ++looks_; }

  /// Whether the operator can reach the column's header.
  bool ShowsColumn(Long position);
  bool OwnKey(const Stroke& stroke) override;

  /// The captions of the columns, in order.
  std::vector<String> Captions();
  /// What a column shows of the current row; "" without one.
  String CellText(Long position);
  /// How often the current row was to be shown.
  int Looks() const { return looks_; }

  /// A fault on demand: the last column that is left cannot be removed, which is error 380.
  bool keepsLastColumn = false;

 private:
  class FieldColumn;
  std::ptrdiff_t Index(Long position) const;

  const HiddenColumns hidden_;
  host::RecordsetPtr rows_;
  bool hadRows_ = false;
  std::vector<std::unique_ptr<host::GridColumn>> columns_;
  int looks_ = 0;
};

}  // namespace tessaria::memory
