// Editing the rows of a record set.
#include <algorithm>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/recordset.h"
#include "runtime/well_formed.h"

namespace tessaria::odbc {
namespace {

// A double stands for every exact number that reads as it.
bool IsInexact(const Variant& value) { return value.TryGet<double>() || value.TryGet<float>(); }

void Remove(std::vector<RowId>& rows, RowId row) {
  rows.erase(std::remove(rows.begin(), rows.end(), row), rows.end());
}

}  // namespace

bool OdbcRecordset::IsWritable(std::size_t column) const {
  Table();
  return writer_ && writer_->IsWritable(column);
}

void OdbcRecordset::RequireUpdatable() const {
  Table();
  if (writer_) return;
  throw HostError(errors::NotUpdatable, u"O conjunto de registros não permite atualização.");
}

void OdbcRecordset::RequireRow() const {
  if (edit_ == host::EditMode::Add || StandsOnRow()) return;
  throw HostError(errors::NoCurrentRecord, u"Não há registro atual.");
}

Variant OdbcRecordset::FieldValue(std::size_t column) const {
  RequireRow();
  const auto change = changes_.find(column);
  if (change != changes_.end()) return change->second;
  if (edit_ == host::EditMode::Add) return Variant::Null();
  return table_->Value(RowAt(position_), column);
}

void OdbcRecordset::FieldValue(std::size_t column, const Variant& value) {
  RequireRow();
  if (const String* text = value.TryGet<String>()) RequireWellFormed(*text);
  const Column& info = ColumnInfo()[column];
  Variant converted = ConvertFor(info, value);
  const Variant present = FieldValue(column);
  const bool isNumber = present.IsNumeric() && !converted.IsNull();
  if (IsSame(present, isNumber && IsInexact(value) ? value : converted)) return;
  // A single is narrower than the double that it is compared with.
  if (info.storage == Storage::Single && IsSame(present, converted)) return;
  if (!IsWritable(column)) {
    throw HostError(errors::NotUpdatable,
                    u"O campo \"" + info.name + u"\" não permite atualização.");
  }
  changes_[column] = std::move(converted);
  if (edit_ == host::EditMode::None) edit_ = host::EditMode::InProgress;
}

host::EditMode OdbcRecordset::EditMode() const {
  Table();
  return onDeleted_ ? host::EditMode::Delete : edit_;
}

void OdbcRecordset::AddNew() {
  RequireUpdatable();
  WriteEdit();
  onDeleted_ = false;
  edit_ = host::EditMode::Add;
}

void OdbcRecordset::Update() {
  Table();
  WriteEdit();
}

// The edit ends only once the database has taken it.
void OdbcRecordset::WriteEdit() {
  if (edit_ == host::EditMode::Add) {
    const RowId row = table_->Add(writer_->Insert(changes_));
    Order().push_back(row);
    if (!sort_.empty()) unsorted_.push_back(row);
    position_ = static_cast<std::int64_t>(order_->size()) - 1;
  } else if (edit_ == host::EditMode::InProgress) {
    const RowId row = RowAt(position_);
    table_->Replace(row, writer_->Update(*table_, row, changes_));
  }
  edit_ = host::EditMode::None;
  changes_.clear();
}

void OdbcRecordset::CancelUpdate() {
  Table();
  edit_ = host::EditMode::None;
  changes_.clear();
}

void OdbcRecordset::Delete() {
  RequireUpdatable();
  if (edit_ == host::EditMode::Add) return CancelUpdate();
  RequireRow();
  const RowId row = RowAt(position_);
  writer_->Delete(*table_, row);
  CancelUpdate();
  Remove(Order(), row);
  if (!sort_.empty()) Remove(unsorted_, row);
  onDeleted_ = true;
}

}  // namespace tessaria::odbc
