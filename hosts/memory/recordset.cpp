#include "tessaria/memory/recordset.h"

#include <algorithm>

#include "runtime/well_formed.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"

namespace tessaria::memory {
namespace {

/// One column, usable while its record set is open.
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
  written_.reset();
  ApplyOrder();
}

// --- Position -----------------------------------------------------------------------------------

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
  written_.reset();
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
  // The row after a deleted one has already moved to its position.
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

// --- Values -------------------------------------------------------------------------------------

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
