// The current row of a record set beside its values: edits of a transaction that was undone, and
// rows that another user has changed.
#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/recordset/recordset.h"
#include "hosts/sql/values/cell.h"

namespace tessaria::sql {
namespace {

/// The only row of a store.
class SqlStoredRow final : public host::StoredRow {
 public:
  SqlStoredRow(Columns columns, ColumnStore cells)
      : columns_(std::move(columns)), cells_(std::move(cells)) {}

  Variant Value(Long ordinal) const override {
    if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= columns_.size())
      throw HostError(errors::ItemNotFound);
    return CellValue(cells_, columns_, 0, static_cast<std::size_t>(ordinal));
  }
  const ColumnStore& Cells() const { return cells_; }
  bool IsOf(const Columns& columns) const { return columns.size() == columns_.size(); }

 private:
  Columns columns_;
  ColumnStore cells_;
};

[[noreturn]] void ThrowNoStoredRow() {
  throw HostError(errors::NoCurrentRecord, u"Não há registro atual.");
}

}  // namespace

Variant SqlRecordset::Former(Long ordinal) const {
  const auto keep = Keep();
  const std::size_t column = ColumnOf(ordinal);
  RequireRow();
  return edit_ == host::EditMode::Add ? Variant::Null() : table_->Value(CurrentRow(), column);
}

ColumnStore SqlRecordset::CellsOf(RowId row) const {
  ColumnStore cells(table_->TableColumns());
  for (std::size_t i = 0; i < table_->TableColumns().size(); ++i) table_->CopyCell(row, i, cells);
  cells.EndRows(1);
  return cells;
}

// Further writes of the same row continue the first one.
void SqlRecordset::NoteWritten(Written written) {
  if (!session_->InTransaction()) return written_.reset();
  if (!written_ || written_->transaction != written.transaction || written_->row != written.row) {
    written_ = std::move(written);
    return;
  }
  for (auto& [column, value] : written.changes) written_->changes[column] = std::move(value);
}

void SqlRecordset::TakeBack(bool mayBeStored) {
  Table();
  session_->Waits().RequireIdle();
  if (!written_ || written_->transaction != session_->Transactions()) return;
  Written written = *std::exchange(written_, std::nullopt);
  for (auto& [column, value] : changes_) written.changes[column] = std::move(value);
  if (written.edit == host::EditMode::Add) {
    shown_->Hide(written.row);
    position_ = written.position;
  } else {
    table_->Replace(written.row, std::move(written.before));
  }
  edit_ = written.edit;
  changes_ = std::move(written.changes);
  doubt_ = mayBeStored ? Doubt::Edit : Doubt::None;
  sent_ = mayBeStored ? changes_ : Changes();
}

bool SqlRecordset::FindOut() {
  const auto keep = Keep();
  Table();
  session_->Waits().RequireIdle();
  const Patience::Request request(session_->Waits(), host::Awaited::Rows);
  return doubt_ == Doubt::Edit && SettleDoubt();
}

host::StoredRowPtr SqlRecordset::ReadStored() {
  const auto keep = Keep();
  RequireUpdatable();
  if (edit_ == host::EditMode::Add || !StandsOnRow()) ThrowNoStoredRow();
  const Patience::Request request(session_->Waits(), host::Awaited::Rows);
  auto cells = writer_->Read(*table_, CurrentRow());
  if (!cells) return nullptr;
  return std::make_shared<SqlStoredRow>(table_->TableColumns(), std::move(*cells));
}

void SqlRecordset::Rebase(const host::StoredRowPtr& stored) {
  RequireUpdatable();
  session_->Waits().RequireIdle();
  if (edit_ == host::EditMode::Add || !StandsOnRow()) ThrowNoStoredRow();
  if (!stored) return BecomeNew();
  const auto* row = dynamic_cast<const SqlStoredRow*>(stored.get());
  if (!row || !row->IsOf(ColumnInfo())) throw HostError(errors::InvalidArgument);
  table_->Replace(CurrentRow(), row->Cells());
  std::erase_if(changes_, [&](const auto& change) {
    return IsSame(change.second, table_->Value(CurrentRow(), change.first));
  });
  doubt_ = Doubt::None;
  if (changes_.empty()) edit_ = host::EditMode::None;
}

// The row was deleted by another user.
void SqlRecordset::BecomeNew() {
  const RowId row = CurrentRow();
  const bool isEdited = edit_ != host::EditMode::None;
  for (std::size_t column = 0; isEdited && column < ColumnInfo().size(); ++column) {
    const Variant value = table_->Value(row, column);
    if (writer_->IsWritable(column) && !value.IsNull()) changes_.emplace(column, value);
  }
  HideRow(row);
  doubt_ = Doubt::None;
  if (!isEdited) return;
  onDeleted_ = false;
  edit_ = host::EditMode::Add;
}

}  // namespace tessaria::sql
