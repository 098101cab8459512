// Editing the rows of a record set.
#include <algorithm>
#include <cmath>

#include "hosts/memory/same_value.h"
#include "runtime/well_formed.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/recordset.h"
#include "tessaria/stored_match.h"

namespace tessaria::memory {
namespace {

constexpr Long kEditPending = 3219;

bool IsInexact(const Variant& value) { return value.TryGet<double>() || value.TryGet<float>(); }

bool IsStoredRow(const Row& given, const Row& stored, const std::vector<Column>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    const ColumnShape shape{column.Type, column.DefinedSize, column.NumericScale};
    if (!IsStoredFrom(given[i], stored[i], shape)) return false;
  }
  return true;
}

}  // namespace

bool SameValue(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() && b.IsNull();
  const Date* first = a.TryGet<Date>();
  const Date* second = b.TryGet<Date>();
  if (first && second) return std::abs(first->Days - second->Days) * 86400 < 0.5;
  if (!a.IsNumeric() || !b.IsNumeric()) return Equal(a, b);
  if (!IsInexact(a)) return IsSameNumber(a, b);
  const double x = CDbl(a), y = CDbl(b);
  return x == y || (std::isnan(x) && std::isnan(y));
}

void Recordset::RequireUpdatable() const {
  if (!origin_) throw HostError(errors::NotUpdatable);
}

void Recordset::Value(std::size_t column, const Variant& value) {
  RequireRow();
  if (const String* text = value.TryGet<String>()) RequireWellFormed(*text);
  const Column& definition = columns_.at(column);
  const Variant& present = CurrentCells()[column];
  if (value.IsNull() && present.IsNull()) return;
  // Assigning the stored text again is not an edit, even if it is not a value of the column's type.
  if (value.IsString() && present.IsString() && SameValue(value, present)) return;
  const bool writable = origin_ != nullptr && definition.Updatable;
  Variant typed;
  try {
    typed = ValueOfType(definition, value);
  } catch (const HostError&) {
    if (!writable) throw HostError(errors::NotUpdatable);
    throw;
  }
  if (SameValue(typed, present)) return;
  if (!writable) throw HostError(errors::NotUpdatable);
  origin_->CheckField(definition.Name);
  if (editMode_ == host::EditMode::None) {
    edit_ = CurrentCells();
    editMode_ = host::EditMode::InProgress;
  }
  edit_[column] = typed;
}

host::EditMode Recordset::EditMode() const {
  RequireOpen();
  return onDeleted_ ? host::EditMode::Delete : editMode_;
}

bool Recordset::IsInDoubt() const {
  RequireOpen();
  return doubt_ != Doubt::None;
}

void Recordset::AddNew() {
  Settle();
  RequireUpdatable();
  onDeleted_ = false;
  edit_.assign(columns_.size(), Variant::Null());
  editMode_ = host::EditMode::Add;
}

void Recordset::Write(Doubt doubt, const std::function<void()>& change) {
  try {
    rowSource_->Write(change);
  } catch (const HostError& error) {
    if (error.Number() == errors::WriteInDoubt) {
      doubt_ = doubt;
      sent_ = edit_;
    }
    throw;
  }
}

// A write that the table accepted ends the edit.
void Recordset::Update() {
  RequireOpen();
  if (doubt_ == Doubt::Edit) SettleDoubt();
  Table::Stored written;
  if (editMode_ == host::EditMode::Add) {
    Write(Doubt::Edit, [&] { written = origin_->Insert(edit_); });
    NoteWritten({rowSource_->Transactions(), editMode_, position_, {}, edit_});
    DropEdit();
    ShowNewRow(std::move(written));
  } else if (editMode_ == host::EditMode::InProgress) {
    Table::Stored& row = rows_[static_cast<std::size_t>(position_)];
    Write(Doubt::Edit, [&] { written = origin_->Update(row.Id, row.Version, edit_); });
    NoteWritten({rowSource_->Transactions(), editMode_, position_, row, edit_});
    DropEdit();
    row = std::move(written);
  }
}

// What was typed since then is an edit of the row that is stored now.
bool Recordset::SettleDoubt() {
  rowSource_->Write([] {});
  const bool isNew = editMode_ == host::EditMode::Add;
  const auto position = static_cast<std::size_t>(position_);
  const Table::Stored* stored = isNew ? FindInserted() : origin_->Find(rows_[position].Id);
  const bool isStored = stored != nullptr && IsStoredRow(sent_, stored->Cells, columns_);
  const bool isAsRead = stored == nullptr || (!isNew && stored->Version == rows_[position].Version);
  if (!isStored && !isAsRead) throw HostError(errors::WriteInDoubt);
  doubt_ = Doubt::None;
  if (!isStored) return false;
  const Row typed = edit_;
  DropEdit();
  isNew ? ShowNewRow(*stored) : static_cast<void>(rows_[position] = *stored);
  if (IsStoredRow(typed, CurrentCells(), columns_)) return true;
  edit_ = typed;
  editMode_ = host::EditMode::InProgress;
  return true;
}

const Table::Stored* Recordset::FindInserted() const {
  const auto hasKey = [&](const Row& cells) {
    return std::all_of(key_.begin(), key_.end(),
                       [&](std::size_t column) { return SameValue(cells[column], sent_[column]); });
  };
  const auto isUnknown = [&](std::size_t column) { return sent_[column].IsNull(); };
  if (key_.empty() || std::any_of(key_.begin(), key_.end(), isUnknown))
    throw HostError(errors::WriteInDoubt);
  const auto& rows = origin_->Rows();
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const Table::Stored& r) { return hasKey(r.Cells); });
  return row == rows.end() ? nullptr : &*row;
}

void Recordset::ShowNewRow(Table::Stored row) {
  rows_.push_back(std::move(row));
  position_ = Count() - 1;
  onDeleted_ = false;
}

void Recordset::DropEdit() {
  editMode_ = host::EditMode::None;
  doubt_ = Doubt::None;
}

void Recordset::CancelUpdate() {
  RequireOpen();
  DropEdit();
}

void Recordset::Delete() {
  RequireRow();
  RequireUpdatable();
  if (editMode_ == host::EditMode::Add) return CancelUpdate();
  if (doubt_ == Doubt::Edit) SettleDoubt();
  const auto row = rows_.begin() + position_;
  const bool mayBeGone = doubt_ == Doubt::Deletion && origin_->Find(row->Id) == nullptr;
  Write(Doubt::Deletion, [&] {
    if (!mayBeGone) origin_->Delete(row->Id, row->Version);
  });
  rows_.erase(row);
  written_.reset();
  DropEdit();
  onDeleted_ = true;
}

void Recordset::Requery() {
  RequireOpen();
  // A new row in doubt is kept, so that it can be looked for among the rows.
  const bool isKept = editMode_ == host::EditMode::Add && doubt_ == Doubt::Edit;
  if (editMode_ != host::EditMode::None && !isKept) throw HostError(kEditPending);
  Load();
  doubt_ = Doubt::None;
}

}  // namespace tessaria::memory
