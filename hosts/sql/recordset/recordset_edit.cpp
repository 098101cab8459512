// Editing the rows of a record set.
#include <algorithm>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/recordset/recordset.h"
#include "runtime/well_formed.h"

namespace tessaria::sql {
bool SqlRecordset::IsWritable(std::size_t column) const {
  Table();
  return writer_ && writer_->IsWritable(column);
}

void SqlRecordset::RequireUpdatable() const {
  Table();
  if (writer_) return;
  throw HostError(errors::NotUpdatable, u"O conjunto de registros não permite atualização.");
}

void SqlRecordset::RequireRow() const {
  if (edit_ == host::EditMode::Add || StandsOnRow()) return;
  throw HostError(errors::NoCurrentRecord, u"Não há registro atual.");
}

Variant SqlRecordset::FieldValue(std::size_t column) const {
  const auto keep = Keep();
  RequireRow();
  const auto change = changes_.find(column);
  if (change != changes_.end()) return change->second;
  if (edit_ == host::EditMode::Add) return Variant::Null();
  return table_->Value(CurrentRow(), column);
}

// Whether the value is the text that the row holds in a column of another kind. False while a write
// is in doubt, because it is unknown then what the row holds.
bool SqlRecordset::TakesBack(std::size_t column, const Variant& value) const {
  const bool isEdit = edit_ == host::EditMode::InProgress && doubt_ == Doubt::None;
  if (!value.IsString() || !isEdit || !changes_.contains(column)) return false;
  return !changes_.at(column).IsString() && IsSame(table_->Value(CurrentRow(), column), value);
}

void SqlRecordset::FieldValue(std::size_t column, const Variant& value) {
  session_->Waits().RequireIdle();
  RequireRow();
  if (const String* text = value.TryGet<String>()) RequireWellFormed(*text);
  const Column& info = ColumnInfo()[column];
  const Variant present = FieldValue(column);
  // Assigning a stored text that is not a value of the column's kind once more is no edit, even
  // after another value.
  if (value.IsString() && IsSame(present, value)) return;
  if (TakesBack(column, value)) {
    changes_.erase(column);
    if (changes_.empty()) edit_ = host::EditMode::None;
    return;
  }
  Variant converted = ConvertFor(info, value);
  if (IsSame(present, converted)) return;
  if (!IsWritable(column)) {
    throw HostError(errors::NotUpdatable,
                    u"O campo \"" + info.name + u"\" não permite atualização.");
  }
  changes_[column] = std::move(converted);
  if (edit_ == host::EditMode::None) edit_ = host::EditMode::InProgress;
}

host::EditMode SqlRecordset::EditMode() const {
  Table();
  return onDeleted_ ? host::EditMode::Delete : edit_;
}

bool SqlRecordset::IsInDoubt() const {
  Table();
  return doubt_ != Doubt::None;
}

void SqlRecordset::AddNew() {
  const auto keep = Keep();
  RequireUpdatable();
  WriteEdit();
  onDeleted_ = false;
  edit_ = host::EditMode::Add;
}

void SqlRecordset::Update() {
  const auto keep = Keep();
  Table();
  WriteEdit();
}

// Records a write whose answer is lost.
template <class Write>
auto SqlRecordset::Send(Doubt doubt, Write write) {
  try {
    return write();
  } catch (const HostError& error) {
    if (error.Number() == errors::WriteInDoubt) {
      doubt_ = doubt;
      sent_ = changes_;
    }
    throw;
  }
}

// The edit ends once the database has accepted it, whatever fails afterwards.
void SqlRecordset::WriteEdit() {
  session_->Waits().RequireIdle();
  const Patience::Request request(session_->Waits(), host::Awaited::Write);
  if (doubt_ == Doubt::Edit) SettleDoubt();
  if (edit_ == host::EditMode::Add) {
    ColumnStore written = Send(Doubt::Edit, [&] { return writer_->Insert(changes_); });
    Written note{session_->Transactions(), edit_, 0, position_, ColumnStore({}), changes_};
    DropEdit();
    ShowNewRow(std::move(written));
    note.row = CurrentRow();
    NoteWritten(std::move(note));
  } else if (edit_ == host::EditMode::InProgress) {
    const RowId row = CurrentRow();
    // The copy may fail, so it is made before the row is written.
    Written note{session_->Transactions(),
                 edit_,
                 row,
                 position_,
                 session_->InTransaction() ? CellsOf(row) : ColumnStore({}),
                 changes_};
    ColumnStore written =
        Send(Doubt::Edit, [&] { return writer_->Update(*table_, row, changes_); });
    NoteWritten(std::move(note));
    DropEdit();
    table_->Replace(row, std::move(written));
  }
}

// Finds out whether the edit in doubt was stored. If so, what was typed since then is an edit of
// the row that is stored now; if not, the edit is written as if for the first time.
bool SqlRecordset::SettleDoubt() {
  const bool isNew = edit_ == host::EditMode::Add;
  const RowId row = isNew ? 0 : CurrentRow();
  auto stored = isNew ? writer_->FindInserted(sent_) : writer_->FindUpdated(*table_, row, sent_);
  doubt_ = Doubt::None;
  if (!stored) return false;
  Changes typedSince = writer_->MissingIn(*stored, changes_);
  DropEdit();
  isNew ? ShowNewRow(std::move(*stored)) : table_->Replace(row, std::move(*stored));
  changes_ = std::move(typedSince);
  if (!changes_.empty()) edit_ = host::EditMode::InProgress;
  return true;
}

void SqlRecordset::DropEdit() {
  edit_ = host::EditMode::None;
  changes_.clear();
  doubt_ = Doubt::None;
  sent_.clear();
}

void SqlRecordset::ShowNewRow(ColumnStore values) {
  const RowId row = table_->Add(std::move(values));
  position_ = shown_->Add(row);
}

void SqlRecordset::HideRow(RowId row) {
  shown_->Hide(row);
  onDeleted_ = true;
  written_.reset();
}

void SqlRecordset::CancelUpdate() {
  Table();
  session_->Waits().RequireIdle();
  DropEdit();
}

void SqlRecordset::Delete() {
  const auto keep = Keep();
  RequireUpdatable();
  if (edit_ == host::EditMode::Add) return CancelUpdate();
  RequireRow();
  const Patience::Request request(session_->Waits(), host::Awaited::Deletion);
  const RowId row = CurrentRow();
  if (doubt_ == Doubt::Edit) SettleDoubt();
  const bool isGone = doubt_ == Doubt::Deletion && !writer_->IsThere(*table_, row);
  if (!isGone) Send(Doubt::Deletion, [&] { writer_->Delete(*table_, row); });
  DropEdit();
  HideRow(row);
}

}  // namespace tessaria::sql
