#include "hosts/sql/rows/shown_rows.h"

#include <algorithm>

#include "tessaria/error.h"

namespace tessaria::sql {
namespace {

// The position of the first added row while it is not known how many rows are before it.
constexpr std::int64_t kFirstAdded = std::int64_t{1} << 40;

}  // namespace

// Of the statement's rows before `end`.
std::int64_t ShownRows::HiddenBelow(RowId end) const {
  return std::lower_bound(hidden_.begin(), hidden_.end(), end) - hidden_.begin();
}

// The statement's row at a position, as if there were enough of them.
RowId ShownRows::StatementRow(std::int64_t position) const {
  auto row = static_cast<RowId>(position);
  for (const RowId hidden : hidden_) {
    if (hidden > row) break;
    ++row;
  }
  return row;
}

// The statement's rows that are shown, as far as they are known.
std::int64_t ShownRows::KnownOfStatement() const {
  const std::uint32_t rows = table_.RowsKnown();
  return rows - HiddenBelow(rows);
}

// Below 0 for a row of the statement.
std::int64_t ShownRows::AddedIndex(std::int64_t position) const {
  if (position >= kFirstAdded) return position - kFirstAdded;
  if (position < KnownOfStatement()) return -1;
  if (table_.MayGrow() && table_.Reach(StatementRow(position))) return -1;
  return position - KnownOfStatement();
}

bool ShownRows::Has(std::int64_t position) const {
  if (position < 0) return false;
  if (order_) return position < static_cast<std::int64_t>(order_->size());
  if (AddedIndex(position) < static_cast<std::int64_t>(added_.size())) return true;
  table_.RequireSound();
  return false;
}

RowId ShownRows::At(std::int64_t position) const {
  if (order_) return (*order_)[static_cast<std::size_t>(position)];
  const std::int64_t added = AddedIndex(position);
  return added < 0 ? StatementRow(position) : added_[static_cast<std::size_t>(added)];
}

std::int64_t ShownRows::Count() const {
  const std::int64_t rows = table_.RowCount();
  if (order_) return static_cast<std::int64_t>(order_->size());
  return rows - static_cast<std::int64_t>(hidden_.size()) +
         static_cast<std::int64_t>(added_.size());
}

// Rows that could not be read do not count.
std::int64_t ShownRows::Number(std::int64_t position) const {
  if (position < kFirstAdded) return position;
  try {
    table_.RowCount();
  } catch (const HostError&) {
    // Whoever asks for them gets the error.
  }
  return KnownOfStatement() + position - kFirstAdded;
}

bool ShownRows::IsNumbered(std::int64_t position) const {
  return position < kFirstAdded || !table_.MayGrow();
}

std::int64_t ShownRows::Known() const {
  if (order_) return static_cast<std::int64_t>(order_->size());
  const auto added = table_.MayGrow() ? 0 : static_cast<std::int64_t>(added_.size());
  return KnownOfStatement() + added;
}

std::int64_t ShownRows::NumberOfNext() const {
  return Number(kFirstAdded + static_cast<std::int64_t>(added_.size()));
}

std::int64_t ShownRows::Add(RowId row) {
  added_.push_back(row);
  if (!order_) return kFirstAdded + static_cast<std::int64_t>(added_.size()) - 1;
  order_->push_back(row);
  return static_cast<std::int64_t>(order_->size()) - 1;
}

void ShownRows::Hide(RowId row) {
  if (order_) std::erase(*order_, row);
  if (std::erase(added_, row) > 0) return;
  hidden_.insert(std::lower_bound(hidden_.begin(), hidden_.end(), row), row);
}

std::vector<RowId> ShownRows::InStatementOrder() const {
  std::vector<RowId> rows = table_.InStatementOrder();
  std::erase_if(
      rows, [this](RowId row) { return std::binary_search(hidden_.begin(), hidden_.end(), row); });
  rows.insert(rows.end(), added_.begin(), added_.end());
  return rows;
}

void ShownRows::Order(std::vector<RowId> rows) { order_ = std::move(rows); }

}  // namespace tessaria::sql
