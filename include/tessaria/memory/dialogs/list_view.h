// The list views of memory surfaces.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"

namespace tessaria::memory {

/// The up and down keys select the row before and after; the space bar changes the selected row's
/// check box where rows have one. A row is as high as a line of text.
class TESSARIA_MEMORY_API DialogListView final : public DialogItemOf<host::DialogListView> {
 public:
  enum class Checks { None, EachRow };
  DialogListView(std::shared_ptr<memory::Part> part, Checks checks)
      : DialogItemOf(std::move(part)), checks_(checks) {}

  Long Count() const override { return static_cast<Long>(rows_.size()); }
  host::ListRow& Item(Long position) override { return *rows_[Index(position)]; }
  host::ListRow& Add(const String& text, Long position = 0) override;
  void Remove(Long position) override;
  void Clear() override;
  host::ListRow* SelectedItem() override { return selected_; }
  host::ListRow* FindItem(const String& text) override;
  host::ListRow* FindTag(const String& tag) override;
  host::ListRow* FirstVisible() override;

  // The operator clicks a row, or its check box. Error 9 outside the rows.
  /// The operator clicks a row. Error 9 outside the rows, as below.
  void ClickRow(Long position);
  /// The operator clicks the check box of a row.
  void CheckRow(Long position);
  /// The operator clicks a row twice.
  void DoubleClickRow(Long position);
  bool OwnKey(const Stroke& stroke) override;

 private:
  class Row;
  std::size_t Index(Long position) const;
  Long PositionOf(const host::ListRow& row) const;
  bool ClickBeside(Long step);
  /// Scrolls as little as it takes to see the row.
  void ScrollTo(Long position);

  Checks checks_;
  std::vector<std::unique_ptr<host::ListRow>> rows_;
  host::ListRow* selected_ = nullptr;
  Long top_ = 1;  ///< position of the first row that can be seen
};

}  // namespace tessaria::memory
