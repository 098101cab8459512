#include "tessaria/memory/table.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

bool IsBlank(const Variant& value) {
  if (value.IsEmpty() || value.IsMissing()) return true;
  const String* text = value.TryGet<String>();
  return text != nullptr && Trim(*text).empty();
}

Variant TextOf(const Column& column, const Variant& value) {
  String text = CStr(value);
  if (column.DefinedSize > 0 && Len(text) > column.DefinedSize) {
    throw HostError(kRefusedValue, u"O texto é maior que o campo " + column.Name + u".");
  }
  return text;
}

Variant SingleOf(const Variant& value) {
  const auto single = static_cast<float>(CDbl(value));
  if (std::isinf(single)) throw HostError(errors::Overflow);
  return single;
}

Variant NumberOrDateOf(Long type, const Variant& value) {
  switch (type) {
    case host::type::SmallInt:
    case host::type::TinyInt:
      return CInt(value);
    case host::type::Integer:
      return CLng(value);
    case host::type::Single:
      return SingleOf(value);
    case host::type::Double:
      return CDbl(value);
    case host::type::Currency:
      return CCur(value);
    case host::type::Decimal:
    case host::type::Numeric:
      return ExactDecimal(value);
    case host::type::Boolean:
      return CBool(value);
    case host::type::Date:
    case host::type::DBDate:
    case host::type::DBTime:
    case host::type::DBTimeStamp:
      return CDate(value);
    default:
      return value;
  }
}

/// Whether the value is the text that is already stored.
bool IsKeptText(const Variant& stored, const Variant& value) {
  const auto* text = stored.TryGet<String>();
  return text != nullptr && value.IsString() && *text == *value.TryGet<String>();
}

}  // namespace

Long Column::Attributes() const {
  return (Nullable ? host::attribute::IsNullable | host::attribute::MayBeNull : 0) |
         (Updatable ? host::attribute::Updatable : 0);
}

bool IsTextType(Long type) {
  return type == host::type::Char || type == host::type::WChar || type == host::type::VarChar ||
         type == host::type::VarWChar;
}

Variant ValueOfType(const Column& column, const Variant& value) {
  const bool text = IsTextType(column.Type);
  if (value.IsNull() || (!text && IsBlank(value))) {
    if (column.Nullable) return Variant::Null();
    throw HostError(kRefusedValue, u"O campo " + column.Name + u" não aceita nulo.");
  }
  return text ? TextOf(column, value) : NumberOrDateOf(column.Type, value);
}

std::optional<std::size_t> ColumnByName(const std::vector<Column>& columns, StringView name) {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const Column& c) { return EqualNoCase(c.Name, name); });
  if (found == columns.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns.begin());
}

Table::Table(std::vector<Column> columns, std::vector<Row> rows) : columns_(std::move(columns)) {
  for (Row& row : rows) Append(std::move(row));
}

Row Table::Typed(Row cells) const {
  cells.resize(columns_.size(), Variant::Null());
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = Storable(i, cells[i]);
  return cells;
}

Variant Table::Storable(std::size_t column, const Variant& value) const {
  const Column& definition = columns_[column];
  const Variant typed = ValueOfType(definition, value);
  if (definition.Precision == 0 || !typed.TryGet<Decimal>()) return typed;
  return ToDecimal(
      Rounded(DigitsOf(typed), static_cast<int>(definition.NumericScale), Halves::AwayFromZero));
}

void Table::RunTrigger(Row& cells) const {
  if (trigger_) trigger_(cells);
}

Table::Stored Table::Insert(Row cells) {
  CheckWrite();
  RunTrigger(cells);
  Append(std::move(cells));
  return rows_.back();
}

Table::Stored Table::Update(Long id, Long version, Row cells) {
  CheckWrite();
  const auto row = Unchanged(id, version);
  cells.resize(columns_.size(), Variant::Null());
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!IsKeptText(row->Cells[i], cells[i])) cells[i] = Storable(i, cells[i]);
  }
  RunTrigger(cells);
  row->Cells = std::move(cells);
  ++row->Version;
  return *row;
}

void Table::Delete(Long id, Long version) {
  CheckWrite();
  rows_.erase(Unchanged(id, version));
}

std::vector<Table::Stored>::iterator Table::Unchanged(Long id, Long version) {
  const auto row =
      std::find_if(rows_.begin(), rows_.end(), [id](const Stored& r) { return r.Id == id; });
  if (row == rows_.end() || row->Version != version) throw HostError(errors::RowChanged);
  return row;
}

void Table::CheckWrite() {
  if (const auto error = std::exchange(refusal_, std::nullopt)) throw *error;
}

void Table::CheckField(const String& column) const {
  const auto fault = refusedFields_.find(LCase(column));
  if (fault != refusedFields_.end()) throw fault->second;
}

void Table::Append(Row cells) { rows_.push_back({++lastId_, 0, Typed(std::move(cells))}); }

const Table::Stored* Table::Find(Long id) const {
  const auto row =
      std::find_if(rows_.begin(), rows_.end(), [id](const Stored& r) { return r.Id == id; });
  return row == rows_.end() ? nullptr : &*row;
}

void Table::Change(std::size_t row, const String& column, const Variant& value) {
  const auto at = RequireColumn(column);
  Put(row, at, ValueOfType(columns_[at], value));
}

void Table::KeepText(std::size_t row, const String& column, const String& text) {
  Put(row, RequireColumn(column), text);
}

std::size_t Table::RequireColumn(const String& name) const {
  const auto at = ColumnByName(columns_, name);
  if (!at) throw HostError(errors::ItemNotFound);
  return *at;
}

void Table::Put(std::size_t row, std::size_t column, Variant value) {
  rows_.at(row).Cells[column] = std::move(value);
  ++rows_[row].Version;
}

void Table::Remove(std::size_t row) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

void Table::RefuseField(const String& column, HostError error) {
  refusedFields_.insert_or_assign(LCase(column), std::move(error));
}

void Table::AcceptField(const String& column) { refusedFields_.erase(LCase(column)); }

}  // namespace tessaria::memory
