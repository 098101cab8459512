#include "hosts/memory/recordset.h"

#include <algorithm>
#include <cmath>

#include "runtime/compare.h"
#include "runtime/conversion.h"
#include "runtime/well_formed.h"

namespace tessaria::memory {
namespace {

constexpr Long kEditPending = 3219;

bool IsInexact(const Variant& value) { return value.TryGet<double>() || value.TryGet<float>(); }

/// Equality of two values of one column: dates to the second, numbers exactly.
bool SameValue(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() && b.IsNull();
  const Date* first = a.TryGet<Date>();
  const Date* second = b.TryGet<Date>();
  if (first && second) return std::abs(first->Days - second->Days) * 86400 < 0.5;
  if (!a.IsNumeric() || !b.IsNumeric()) return Equal(a, b);
  return IsInexact(a) ? CDbl(a) == CDbl(b) : IsSameNumber(a, b);
}

bool SameRow(const Row& a, const Row& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameValue);
}

/// One column, as long as its record set is open.
class ColumnField final : public host::Field {
 public:
  ColumnField(std::weak_ptr<Recordset> rows, std::size_t column)
      : rows_(std::move(rows)), column_(column) {}

  String Name() const override { return Definition().Name; }
  Long Type() const override { return Definition().Type; }
  Long Attributes() const override { return Definition().Attributes(); }
  Long DefinedSize() const override { return Definition().DefinedSize; }
  Long Precision() const override { return Definition().Precision; }
  Long NumericScale() const override { return Definition().NumericScale; }
  Variant Value() const override { return Rows()->Value(column_); }
  void Value(const Variant& value) override { Rows()->Value(column_, value); }

 private:
  std::shared_ptr<Recordset> Rows() const {
    auto rows = rows_.lock();
    if (!rows || rows->State() == host::state::Closed) throw HostError(errors::ObjectClosed);
    return rows;
  }

  const Column& Definition() const {
    const auto& columns = Rows()->Columns();
    if (column_ >= columns.size()) throw HostError(errors::ItemNotFound);
    return columns[column_];
  }

  std::weak_ptr<Recordset> rows_;
  std::size_t column_;
};

}  // namespace

class Recordset::FieldList final : public host::Fields {
 public:
  explicit FieldList(Recordset& rows) : rows_(rows) {}

  Long Count() const override { return static_cast<Long>(rows_.Columns().size()); }

  host::FieldPtr Item(Long ordinal) const override {
    if (ordinal < 0 || ordinal >= Count()) throw HostError(errors::ItemNotFound);
    return Make(static_cast<std::size_t>(ordinal));
  }

  host::FieldPtr Item(const String& name) const override {
    const auto column = ColumnByName(rows_.Columns(), name);
    if (!column) throw HostError(errors::ItemNotFound);
    return Make(*column);
  }

 private:
  host::FieldPtr Make(std::size_t column) const {
    return std::make_shared<ColumnField>(rows_.weak_from_this(), column);
  }

  Recordset& rows_;
};

Recordset::Recordset(std::unique_ptr<RowSource> rows, String source)
    : rowSource_(std::move(rows)),
      source_(std::move(source)),
      fields_(std::make_unique<FieldList>(*this)) {}

Recordset::~Recordset() = default;

std::shared_ptr<Recordset> Recordset::Open(std::unique_ptr<RowSource> rows, String source) {
  std::shared_ptr<Recordset> set(new Recordset(std::move(rows), std::move(source)));
  set->Load();
  return set;
}

void Recordset::Load() {
  RowSource::Answer answer = rowSource_->Run();
  columns_ = std::move(answer.Columns);
  rows_ = std::move(answer.Rows);
  origin_ = std::move(answer.Origin);
  key_ = std::move(answer.Key);
  open_ = !columns_.empty();
  position_ = 0;
  onDeleted_ = false;
  ApplyOrder();
}

// --- Where the set stands -----------------------------------------------------------------------

void Recordset::RequireOpen() const {
  if (!open_) throw HostError(errors::ObjectClosed);
}

bool Recordset::IsOnRow() const {
  return editMode_ == host::EditMode::Add || (!onDeleted_ && position_ >= 0 && position_ < Count());
}

void Recordset::RequireRow() const {
  RequireOpen();
  if (!IsOnRow()) throw HostError(errors::NoCurrentRecord);
}

bool Recordset::Bof() const {
  RequireOpen();
  if (IsOnRow() || onDeleted_) return false;
  return rows_.empty() || position_ < 0;
}

bool Recordset::Eof() const {
  RequireOpen();
  if (IsOnRow() || onDeleted_) return false;
  return rows_.empty() || position_ >= Count();
}

host::Fields& Recordset::Fields() { return *fields_; }

Long Recordset::RecordCount() {
  RequireOpen();
  return static_cast<Long>(Count());
}

Long Recordset::AbsolutePosition() const {
  if (Bof()) return -1;
  if (Eof()) return -3;
  const bool isNew = editMode_ == host::EditMode::Add;
  return static_cast<Long>((isNew ? Count() : position_) + 1);
}

// --- Moves --------------------------------------------------------------------------------------

void Recordset::Settle() {
  Update();
  doubt_ = Doubt::None;
}

void Recordset::MoveFirst() {
  Settle();
  if (rows_.empty()) throw HostError(errors::NoCurrentRecord);
  onDeleted_ = false;
  position_ = 0;
}

void Recordset::MoveLast() {
  Settle();
  if (rows_.empty()) throw HostError(errors::NoCurrentRecord);
  onDeleted_ = false;
  position_ = Count() - 1;
}

void Recordset::MoveNext() {
  Settle();
  if (Eof()) throw HostError(errors::NoCurrentRecord);
  // The row behind a deleted one has already come up to its place.
  if (!onDeleted_) ++position_;
  onDeleted_ = false;
}

void Recordset::MovePrevious() {
  Settle();
  if (Bof()) throw HostError(errors::NoCurrentRecord);
  onDeleted_ = false;
  --position_;
}

void Recordset::AbsolutePosition(Long row) {
  Settle();
  if (row < 1 || row > Count()) throw HostError(errors::NoCurrentRecord);
  onDeleted_ = false;
  position_ = row - 1;
}

void Recordset::Find(const String& criteria) {
  Settle();
  const Criterion criterion(columns_, criteria);
  RequireRow();
  while (position_ < Count() &&
         !criterion.Matches(rows_[static_cast<std::size_t>(position_)].Cells))
    ++position_;
}

void Recordset::Sort(const String& order) {
  Settle();
  SortKeys(columns_, order);
  order_ = order;
  ApplyOrder();
  onDeleted_ = false;
  position_ = 0;
}

void Recordset::ApplyOrder() {
  const auto keys = SortKeys(columns_, order_);
  std::sort(rows_.begin(), rows_.end(), [&](const Table::Stored& a, const Table::Stored& b) {
    if (StandsBefore(keys, a.Cells, b.Cells)) return true;
    return !StandsBefore(keys, b.Cells, a.Cells) && a.Id < b.Id;
  });
}

// --- Values and edits ---------------------------------------------------------------------------

const std::vector<Column>& Recordset::Columns() const {
  RequireOpen();
  return columns_;
}

const Row& Recordset::CurrentCells() const {
  if (editMode_ != host::EditMode::None) return edit_;
  return rows_[static_cast<std::size_t>(position_)].Cells;
}

Variant Recordset::Value(std::size_t column) const {
  RequireRow();
  return CurrentCells().at(column);
}

Long Recordset::RowsRead() const {
  RequireOpen();
  return static_cast<Long>(Count());
}

Variant Recordset::ValueAt(Long row, Long ordinal) const {
  if (row < 1 || row > RowsRead()) throw HostError(errors::NoCurrentRecord);
  if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= columns_.size())
    throw HostError(errors::ItemNotFound);
  return rows_[static_cast<std::size_t>(row - 1)].Cells[static_cast<std::size_t>(ordinal)];
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
  // A stored text that is no value of the type is no edit when it comes back.
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
    DropEdit();
    ShowNewRow(std::move(written));
  } else if (editMode_ == host::EditMode::InProgress) {
    Table::Stored& row = rows_[static_cast<std::size_t>(position_)];
    Write(Doubt::Edit, [&] { written = origin_->Update(row.Id, row.Version, edit_); });
    DropEdit();
    row = std::move(written);
  }
}

// What was typed since is an edit of the row that is stored now.
void Recordset::SettleDoubt() {
  rowSource_->Write([] {});
  const bool isNew = editMode_ == host::EditMode::Add;
  const auto position = static_cast<std::size_t>(position_);
  const Table::Stored* stored = isNew ? FindInserted() : origin_->Find(rows_[position].Id);
  const bool isStored = stored != nullptr && SameRow(stored->Cells, sent_);
  if (isNew && stored != nullptr && !isStored) throw HostError(errors::WriteInDoubt);
  doubt_ = Doubt::None;
  if (!isStored) return;
  const Row typed = edit_;
  DropEdit();
  isNew ? ShowNewRow(*stored) : static_cast<void>(rows_[position] = *stored);
  if (SameRow(CurrentCells(), typed)) return;
  edit_ = typed;
  editMode_ = host::EditMode::InProgress;
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
  DropEdit();
  onDeleted_ = true;
}

void Recordset::Requery() {
  RequireOpen();
  // A new row in doubt is kept, to be looked for among the rows.
  const bool isKept = editMode_ == host::EditMode::Add && doubt_ == Doubt::Edit;
  if (editMode_ != host::EditMode::None && !isKept) throw HostError(kEditPending);
  Load();
  doubt_ = Doubt::None;
}

void Recordset::Close() {
  RequireOpen();
  Drop();
}

void Recordset::Drop() {
  open_ = false;
  DropEdit();
  rows_.clear();
  origin_.reset();
}

}  // namespace tessaria::memory
