#include "hosts/sql/rows/row_table.h"

namespace tessaria::sql {
namespace {

// Rows that are read immediately, so that small results are complete when they are opened.
constexpr std::uint32_t kFirstPage = 1000;
// The identities of added rows start here.
constexpr RowId kAdded = 0x8000'0000;

}  // namespace

RowTable::RowTable(SessionPtr session, const StatementFacts& facts) : session_(std::move(session)) {
  const Patience::Request request(session_->Waits());
  stream_ = std::make_unique<RowStream>(*session_, facts);
  columns_ = stream_->StatementColumns();
  read_.emplace(columns_);
  while (read_->RowCount() < kFirstPage && ReadBlock()) {
  }
  if (failure_) std::rethrow_exception(failure_);
  if (stream_) session_->Pending(this);
}

RowTable::RowTable(SessionPtr session, Columns columns, ColumnStore rows)
    : session_(std::move(session)), columns_(std::move(columns)), read_(std::move(rows)) {}

RowTable::~RowTable() { session_->Finished(this); }

bool RowTable::ReadBlock() {
  if (!stream_) return false;
  session_->Waits().RequireIdle();
  try {
    // The first rows come with the statement, whose outcome is not to be hidden.
    if (read_->RowCount() >= kFirstPage) session_->Waits().Breathe();
    if (stream_->Read(*read_)) return true;
  } catch (...) {
    failure_ = std::current_exception();
  }
  stream_.reset();
  session_->Finished(this);
  return false;
}

bool RowTable::Reach(std::uint32_t number) {
  if (number < read_->RowCount()) return true;
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  const Patience::Request request(session_->Waits());
  while (number >= read_->RowCount() && ReadBlock()) {
  }
  if (stream_) stream_->KeepRest();
  if (number < read_->RowCount()) return true;
  if (failure_) std::rethrow_exception(failure_);
  return false;
}

std::uint32_t RowTable::RowCount() {
  Reach(kAdded - 1);
  return read_->RowCount();
}

void RowTable::ReadRest() noexcept {
  if (!CanRead()) return;
  const auto keep = weak_from_this().lock();
  const Patience::Request request(session_->Waits());
  while (ReadBlock()) {
  }
}

CellPlace RowTable::PlaceOf(RowId row) const {
  if (!replaced_.empty()) {
    const auto replaced = replaced_.find(row);
    if (replaced != replaced_.end()) return {&written_[replaced->second], 0};
  }
  return {&*read_, row};
}

bool RowTable::IsNull(RowId row, std::size_t column) const {
  const CellPlace place = PlaceOf(row);
  return place.store->IsNull(place.row, column);
}

Variant RowTable::Value(RowId row, std::size_t column) const {
  const CellPlace place = PlaceOf(row);
  return CellValue(*place.store, columns_, place.row, column);
}

double RowTable::Rank(RowId row, std::size_t column) const {
  const CellPlace place = PlaceOf(row);
  return CellRank(*place.store, columns_, place.row, column);
}

int RowTable::Compare(RowId a, RowId b, std::size_t column) const {
  return CompareCells(columns_, column, PlaceOf(a), PlaceOf(b));
}

std::string_view RowTable::Text(RowId row, std::size_t column) const {
  const CellPlace place = PlaceOf(row);
  return place.store->Text(place.row, column);
}

std::optional<String> RowTable::Parameter(RowId row, std::size_t column) const {
  const CellPlace place = PlaceOf(row);
  if (place.store->IsNull(place.row, column)) return std::nullopt;
  return CellParameter(*place.store, columns_, place.row, column);
}

void RowTable::CopyCell(RowId row, std::size_t column, ColumnStore& to) const {
  const CellPlace place = PlaceOf(row);
  to.AppendCell(column, *place.store, place.row);
}

void RowTable::Replace(RowId row, ColumnStore values) {
  written_.push_back(std::move(values));
  replaced_[row] = written_.size() - 1;
}

RowId RowTable::Add(ColumnStore values) {
  const RowId row = kAdded + added_++;
  Replace(row, std::move(values));
  return row;
}

}  // namespace tessaria::sql
