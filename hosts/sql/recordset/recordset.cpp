#include "hosts/sql/recordset/recordset.h"

#include <algorithm>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/rows/find_criterion.h"
#include "hosts/sql/rows/server_find.h"
#include "hosts/sql/rows/sort_order.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr Long kPositionBof = -1;
constexpr Long kPositionEof = -3;

[[noreturn]] void ThrowNoRow() {
  throw HostError(errors::NoCurrentRecord, u"Não há registro atual.");
}

// The column of a statement's order: a number from 1, or a name.
std::optional<std::size_t> ColumnOfOrder(const Columns& columns, const String& item) {
  if (item.empty() || item.find_first_not_of(u"0123456789") != String::npos) {
    const auto isNamedSo = [&](const Column& column) { return EqualNoCase(column.name, item); };
    const bool isOne = std::count_if(columns.begin(), columns.end(), isNamedSo) == 1;
    return isOne ? ColumnOfName(columns, item) : std::nullopt;
  }
  const double number = Val(item);
  if (number < 1 || number > static_cast<double>(columns.size())) return std::nullopt;
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

SqlRecordset::SqlRecordset(SessionPtr session, StatementFacts facts, String source,
                           host::LockType lock)
    : session_(std::move(session)),
      facts_(std::move(facts)),
      source_(std::move(source)),
      lock_(lock),
      fields_(*this) {
  Run();
}

SqlRecordset::SqlRecordset(SessionPtr session, std::function<std::shared_ptr<RowTable>()> open)
    : session_(std::move(session)), open_(std::move(open)), fields_(*this) {
  Run();
}

SqlRecordset::SqlRecordset(SessionPtr session, String source)
    : session_(std::move(session)), source_(std::move(source)), fields_(*this) {}

SqlRecordset::~SqlRecordset() = default;

// Runs the statement and moves to the first row.
void SqlRecordset::Run() {
  using host::Awaited;
  const Patience::Request request(session_->Waits(),
                                  facts_.isPlainQuery ? Awaited::Rows : Awaited::Answer);
  if (lock_ != host::LockType::ReadOnly) session_->ForgetTables();
  auto table = open_ ? open_() : std::make_shared<RowTable>(session_, facts_);
  std::optional<KeyTable> key;
  if (lock_ != host::LockType::ReadOnly && facts_.isSingleTable) {
    key = FindKeyTable(*session_, table->TableColumns());
  }
  writer_.reset();
  sort_.clear();
  position_ = 0;
  onDeleted_ = false;
  Show(table->TableColumns().empty() ? nullptr : std::move(table));
  if (!table_) return;
  fields_.Provide(table_->TableColumns().size());
  firstOrder_ = FirstOrderOf({});
  if (key) writer_.emplace(session_, table_->TableColumns(), std::move(*key), facts_.text);
}

void SqlRecordset::Show(std::shared_ptr<RowTable> table) {
  shown_.reset();
  written_.reset();
  table_ = std::move(table);
  if (table_) shown_.emplace(*table_);
}

RowTable& SqlRecordset::Table() const {
  if (!table_) throw HostError(errors::ObjectClosed, u"O conjunto de registros está fechado.");
  return *table_;
}

const Columns& SqlRecordset::ColumnInfo() const { return Table().TableColumns(); }

Long SqlRecordset::State() const { return table_ ? host::state::Open : host::state::Closed; }

bool SqlRecordset::HasRow(std::int64_t position) const {
  Table();
  return shown_->Has(position);
}

bool SqlRecordset::StandsOnRow() const { return !onDeleted_ && HasRow(position_); }

bool SqlRecordset::Bof() const {
  const auto keep = Keep();
  if (edit_ == host::EditMode::Add || onDeleted_) return Table(), false;
  return !HasRow(0) || position_ == kBof;
}

bool SqlRecordset::Eof() const {
  const auto keep = Keep();
  if (edit_ == host::EditMode::Add || onDeleted_) return Table(), false;
  return !HasRow(0) || (position_ != kBof && !HasRow(position_));
}

Long SqlRecordset::RecordCount() {
  const auto keep = Keep();
  Table();
  return static_cast<Long>(shown_->Count());
}

Long SqlRecordset::AbsolutePosition() const {
  const auto keep = Keep();
  if (edit_ == host::EditMode::Add) {
    Table();
    return static_cast<Long>(shown_->NumberOfNext()) + 1;
  }
  if (Bof()) return kPositionBof;
  return Eof() ? kPositionEof : static_cast<Long>(shown_->Number(position_)) + 1;
}

Long SqlRecordset::PositionIfKnown() const {
  Table();
  const bool isKnown = edit_ != host::EditMode::Add && shown_->IsNumbered(position_);
  return isKnown ? AbsolutePosition() : 0;
}

// The edit is written before the move. When the target cannot be read, the position does not
// change.
void SqlRecordset::MoveTo(std::int64_t position) {
  if (shown_->Has(position)) table_->Pin(shown_->At(position));
  position_ = position;
  onDeleted_ = false;
  doubt_ = Doubt::None;
  written_.reset();
}

void SqlRecordset::MoveFirst() {
  const auto keep = Keep();
  WriteEdit();
  if (!HasRow(0)) ThrowNoRow();
  MoveTo(0);
}

void SqlRecordset::MoveLast() {
  const auto keep = Keep();
  WriteEdit();
  Table();
  const Patience::Request request(session_->Waits(), host::Awaited::LastRow);
  const std::int64_t rows = shown_->Count();
  if (rows == 0) ThrowNoRow();
  MoveTo(rows - 1);
}

void SqlRecordset::MoveNext() {
  const auto keep = Keep();
  WriteEdit();
  if (Eof()) ThrowNoRow();
  // The row after a deleted one has taken its position.
  const std::int64_t next = onDeleted_ ? position_ : position_ + 1;
  HasRow(next);
  MoveTo(next);
}

void SqlRecordset::MovePrevious() {
  const auto keep = Keep();
  WriteEdit();
  if (Bof()) ThrowNoRow();
  MoveTo(Eof() ? shown_->Count() - 1 : shown_->Number(position_) - 1);
}

void SqlRecordset::AbsolutePosition(Long row) {
  const auto keep = Keep();
  WriteEdit();
  if (row < 1 || !HasRow(row - 1)) ThrowNoRow();
  MoveTo(row - 1);
}

void SqlRecordset::Find(const String& criteria) {
  const auto keep = Keep();
  const FindCriterion criterion(ColumnInfo(), criteria);
  WriteEdit();
  const Patience::Request request(session_->Waits(), host::Awaited::Match);
  if (!StandsOnRow()) ThrowNoRow();
  std::int64_t position = position_;
  const auto isHeld = [&] {
    return position < shown_->Known() && table_->Holds(shown_->At(position));
  };
  while (isHeld() && !criterion.Matches(*table_, shown_->At(position))) ++position;
  if (!isHeld()) position = FirstMatch(criterion, position);  // a match may be far from here
  MoveTo(position);
}

// The position of the first match from there on, or the number of rows.
std::int64_t SqlRecordset::FirstMatch(const FindCriterion& criterion, std::int64_t position) const {
  const auto before = RowsBefore(criterion);
  position = std::max<std::int64_t>(position, before.value_or(0));
  while (HasRow(position) && !criterion.Matches(*table_, shown_->At(position))) {
    position = before && sort_.empty() && criterion.IsOneNumber() ? shown_->Count() : position + 1;
  }
  return position;
}

// The number of first rows that do not match, as far as the server knows.
std::optional<std::uint32_t> SqlRecordset::RowsBefore(const FindCriterion& criterion) const {
  const bool isInOrder = firstOrder_ == criterion.ColumnNumber() && facts_.rowsEnd > 0;
  if (!isInOrder || table_->IsWritten() || shown_->IsChanged() || !table_->IsDistant()) {
    return std::nullopt;
  }
  return RowsBeforeMatches(table_->Moment(), table_->TableColumns(),
                           facts_.text.substr(0, facts_.rowsEnd), criterion);
}

void SqlRecordset::Sort(const String& order) {
  const auto keep = Keep();
  const std::vector<SortKey> keys = ParseSortOrder(ColumnInfo(), order);
  WriteEdit();
  const Patience::Request request(session_->Waits(), host::Awaited::Order);
  if (!SortAtServer(keys)) {
    std::vector<RowId> rows = shown_->InStatementOrder();
    SortRows(*table_, keys, rows);
    const bool isAsRead = keys.empty() && table_->IsInStatementOrder();
    isAsRead ? shown_->ForgetOrder() : shown_->Order(std::move(rows));
  }
  sort_ = keys.empty() ? String() : order;
  MoveTo(0);
}

std::optional<std::size_t> SqlRecordset::FirstOrderOf(const std::vector<SortKey>& keys) const {
  if (keys.empty()) return ColumnOfOrder(table_->TableColumns(), facts_.firstOrder);
  return keys.front().descending ? std::nullopt : std::optional(keys.front().column);
}

// Rows that are equal come in the statement's order, as far as its first column tells it.
std::vector<SortKey> SqlRecordset::WithOwnOrder(std::vector<SortKey> keys) const {
  const auto own = FirstOrderOf({});
  if (!keys.empty() && own) keys.push_back({*own, false});
  return keys;
}

// Rows that are at the server are sorted there.
bool SqlRecordset::SortAtServer(const std::vector<SortKey>& keys) {
  if (!table_->IsDistant()) return false;
  const bool anew = table_->IsWritten() || shown_->IsChanged();
  auto sorted = table_->Sorted(facts_, WithOwnOrder(keys), anew);
  if (!sorted) sorted = table_->Sorted(facts_, keys, anew);
  if (!sorted) {
    table_->HoldRows();
    return false;
  }
  Show(std::move(sorted));
  firstOrder_ = FirstOrderOf(keys);
  return true;
}

Long SqlRecordset::RowsRead() const {
  Table();
  return static_cast<Long>(shown_->Known());
}

bool SqlRecordset::Holds(Long row) const {
  return row >= 1 && row <= RowsRead() && table_->Holds(shown_->At(row - 1));
}

bool SqlRecordset::Hold(Long first, Long last) {
  const auto keep = Keep();
  if (!Table().CanRead()) return false;
  for (Long row = std::max(first, Long{1}); row <= std::min(last, RowsRead()); ++row)
    table_->Hold(shown_->At(row - 1));
  return true;
}

bool SqlRecordset::Complete() const { return Table().IsComplete(); }

bool SqlRecordset::FetchMore(Long rows) {
  const auto keep = Keep();
  const Long before = RowsRead();
  if (Complete() || rows < 1 || !Table().CanRead()) return false;
  HasRow(before + rows - 1);
  return RowsRead() > before;
}

std::size_t SqlRecordset::ColumnOf(Long ordinal) const {
  if (ordinal < 0 || static_cast<std::size_t>(ordinal) >= ColumnInfo().size())
    throw HostError(errors::ItemNotFound);
  return static_cast<std::size_t>(ordinal);
}

Variant SqlRecordset::ValueAt(Long row, Long ordinal) const {
  const auto keep = Keep();
  if (row < 1 || row > RowsRead()) ThrowNoRow();
  return table_->Value(shown_->At(row - 1), ColumnOf(ordinal));
}

void SqlRecordset::Requery() {
  const auto keep = Keep();
  Table();
  // A new row in doubt is kept, so that it can be looked for among the rows.
  const bool isKept = edit_ == host::EditMode::Add && doubt_ == Doubt::Edit;
  if (edit_ != host::EditMode::None && !isKept) {
    throw HostError(errors::EditPending, u"Há uma edição pendente no registro atual.");
  }
  Run();
  doubt_ = Doubt::None;
  sent_.clear();
}

void SqlRecordset::Close() {
  Table();
  session_->Waits().RequireIdle();
  DropEdit();
  writer_.reset();
  Show(nullptr);
}

}  // namespace tessaria::sql
