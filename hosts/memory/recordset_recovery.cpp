// The current row of a record set beside its values: edits of a transaction that was undone, and
// rows that another user has changed.
#include <algorithm>
#include <utility>

#include "hosts/memory/same_value.h"
#include "tessaria/memory/recordset.h"

namespace tessaria::memory {
namespace {

class MemoryStoredRow final : public host::StoredRow {
 public:
  explicit MemoryStoredRow(Table::Stored row) : row_(std::move(row)) {}

  Variant Value(Long ordinal) const override {
    if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= row_.Cells.size())
      throw HostError(errors::ItemNotFound);
    return row_.Cells[static_cast<std::size_t>(ordinal)];
  }
  const Table::Stored& Stored() const { return row_; }

 private:
  Table::Stored row_;
};

}  // namespace

Variant Recordset::Former(Long ordinal) const {
  RequireRow();
  if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= columns_.size())
    throw HostError(errors::ItemNotFound);
  if (editMode_ == host::EditMode::Add) return Variant::Null();
  return rows_[static_cast<std::size_t>(position_)].Cells[static_cast<std::size_t>(ordinal)];
}

// Further writes of the same row continue the first one.
void Recordset::NoteWritten(Written written) {
  if (!rowSource_->InTransaction()) return written_.reset();
  if (!written_ || written_->Transaction != written.Transaction) {
    written_ = std::move(written);
    return;
  }
  written_->Edit = std::move(written.Edit);
}

void Recordset::TakeBack(bool mayBeStored) {
  RequireOpen();
  if (!written_ || written_->Transaction != rowSource_->Transactions()) return;
  Written written = *std::exchange(written_, std::nullopt);
  const Row edit = editMode_ == host::EditMode::None ? written.Edit : edit_;
  const auto row = rows_.begin() + position_;
  written.Mode == host::EditMode::Add ? static_cast<void>(rows_.erase(row))
                                      : static_cast<void>(*row = std::move(written.Before));
  position_ = written.Position;
  editMode_ = written.Mode;
  edit_ = edit;
  doubt_ = mayBeStored ? Doubt::Edit : Doubt::None;
  sent_ = edit;
}

bool Recordset::FindOut() {
  RequireOpen();
  return doubt_ == Doubt::Edit && SettleDoubt();
}

Table::Stored& Recordset::StoredRowInHand() {
  RequireRow();
  RequireUpdatable();
  if (editMode_ == host::EditMode::Add) throw HostError(errors::NoCurrentRecord);
  return rows_[static_cast<std::size_t>(position_)];
}

host::StoredRowPtr Recordset::ReadStored() {
  const Table::Stored& read = StoredRowInHand();
  rowSource_->Write([] {});
  const Table::Stored* now = origin_->Find(read.Id);
  return now ? std::make_shared<const MemoryStoredRow>(*now) : nullptr;
}

void Recordset::Rebase(const host::StoredRowPtr& stored) {
  Table::Stored& row = StoredRowInHand();
  const bool isEdited = editMode_ != host::EditMode::None;
  doubt_ = Doubt::None;
  if (!stored) {
    rows_.erase(rows_.begin() + position_);
    onDeleted_ = !isEdited;
    if (isEdited) editMode_ = host::EditMode::Add;
    return;
  }
  const auto* now = dynamic_cast<const MemoryStoredRow*>(stored.get());
  if (!now || now->Stored().Cells.size() != columns_.size())
    throw HostError(errors::InvalidArgument);
  // What the edit has not changed is as it is stored now.
  for (std::size_t i = 0; isEdited && i < columns_.size(); ++i)
    if (SameValue(edit_[i], row.Cells[i])) edit_[i] = now->Stored().Cells[i];
  row = now->Stored();
  const bool isLeft = isEdited && !std::equal(edit_.begin(), edit_.end(), row.Cells.begin(),
                                              row.Cells.end(), SameValue);
  if (!isLeft) editMode_ = host::EditMode::None;
}

}  // namespace tessaria::memory
