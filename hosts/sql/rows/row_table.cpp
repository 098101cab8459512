#include "hosts/sql/rows/row_table.h"

#include <algorithm>
#include <numeric>

#include "hosts/sql/rows/same_rows.h"
#include "hosts/sql/rows/server_order.h"
#include "tessaria/error.h"

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
  while ((session_->IsAdopted() || read_->RowCount() < kFirstPage) && ReadBlock()) {
  }
  RequireSound();
  if (stream_) session_->Pending(this);
}

RowTable::RowTable(SessionPtr session, Columns columns, ColumnStore rows)
    : session_(std::move(session)), columns_(std::move(columns)), read_(std::move(rows)) {}

RowTable::RowTable(SessionPtr session, Columns columns, std::unique_ptr<RowWindow> window,
                   String ownQuery)
    : session_(std::move(session)),
      columns_(std::move(columns)),
      window_(std::move(window)),
      ownQuery_(std::move(ownQuery)) {
  read_.emplace(columns_);
  session_->Add(this);
}

RowTable::~RowTable() {
  session_->Finished(this);
  session_->Remove(this);
}

void RowTable::EndStream() noexcept {
  stream_.reset();
  session_->Finished(this);
}

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
  EndStream();
  return false;
}

// Whoever asks for rows that are far away, or for the link, is not to wait for the first rows of a
// large result. The question runs in the transaction of the rows: its failure is theirs.
bool RowTable::MayMoveToWindow(std::uint32_t number) {
  if (!stream_ || isWindowRefused_ || !CanRead() || !stream_->IsRepeatable()) return false;
  if (read_->RowCount() >= RowStream::kFirstRows) return true;
  if (number < RowStream::kFirstRows || read_->RowCount() != RowStream::kFirstFetch) return false;
  try {
    return stream_->IsExpectedLarge();
  } catch (...) {
    failure_ = std::current_exception();
  }
  EndStream();
  return false;
}

// A second reading shows the same rows in the same order, or nothing changes. When the operator
// gives up while its session is opened, the next request reads on as the rows come.
bool RowTable::MoveToWindow(std::uint32_t number) {
  if (!MayMoveToWindow(number)) return false;
  isWindowRefused_ = true;
  const SessionPtr beside = Snapshot::OpenBeside(*session_);
  try {
    window_ = WindowOfTheStream(beside);
  } catch (const HostError& error) {
    if (error.Number() != errors::Cancelled) return false;
    failure_ = std::current_exception();
  } catch (...) {
    failure_ = std::current_exception();
  }
  if (window_) session_->Add(this);
  if (window_ || failure_) EndStream();
  return window_ != nullptr;
}

std::unique_ptr<RowWindow> RowTable::WindowOfTheStream(const SessionPtr& beside) const {
  auto snapshot = Snapshot::Shared(*session_, beside);
  if (!snapshot) return nullptr;
  auto window = std::make_unique<RowWindow>(std::move(snapshot), stream_->Query(), columns_);
  if (!window->StartsWith(*read_)) return nullptr;
  window->Moment()->Accept();
  return window;
}

// As far as the first rows do, or the reading of all.
void RowTable::ReadUpTo(std::uint32_t number) {
  while (number >= read_->RowCount()) {
    if (MoveToWindow(number) || !ReadBlock()) return;
  }
}

bool RowTable::IsDistant() {
  ReadUpTo(kAdded - 1);
  return window_ != nullptr;
}

bool RowTable::Reach(std::uint32_t number) {
  if (number < read_->RowCount()) return true;
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  const Patience::Request request(session_->Waits(), host::Awaited::Rows);
  if (!window_) ReadUpTo(number);
  if (stream_) stream_->KeepRest();
  if (number < read_->RowCount()) return true;
  if (window_) return window_->Reach(number);
  RequireSound();
  return false;
}

std::uint32_t RowTable::RowCount() {
  const auto keep = weak_from_this().lock();
  const Patience::Request request(session_->Waits(), host::Awaited::Count);
  if (!window_) ReadUpTo(kAdded - 1);
  if (window_) return window_->Count();
  RequireSound();
  return read_->RowCount();
}

// Rows that were given up keep their positions.
std::uint32_t RowTable::RowsKnown() const {
  return std::max({window_ ? window_->Known() : 0, read_->RowCount(), knownBefore_});
}

bool RowTable::MayGrow() const { return stream_ || (window_ && !window_->IsEndKnown()); }

bool RowTable::IsComplete() const { return !failure_ && !MayGrow(); }

bool RowTable::Holds(RowId row) const {
  return row < read_->RowCount() || replaced_.contains(row) || (window_ && window_->Holds(row));
}

std::shared_ptr<RowTable> RowTable::Sorted(const StatementFacts& statement,
                                           const std::vector<SortKey>& keys, bool anew) {
  const auto snapshot = anew ? Snapshot::Now(*session_) : window_->Moment();
  if (!snapshot) return nullptr;
  if (anew) snapshot->Accept();
  const bool isWhole = keys.empty() || statement.rowsEnd == 0;
  const String query = isWhole ? statement.text : statement.text.substr(0, statement.rowsEnd);
  const auto sorted = OrderedQuery(*snapshot, columns_, query, keys);
  if (!sorted) return nullptr;
  String own = keys.empty() ? String() : *OrderedQuery(*snapshot, columns_, statement.text, {});
  auto window = std::make_unique<RowWindow>(snapshot, *sorted, columns_);
  if (!anew) window->TakeCount(*window_);
  if (window->Reach(0)) window->PlaceOf(0);  // the sort itself, which may fail
  return std::make_shared<RowTable>(session_, columns_, std::move(window), std::move(own));
}

void RowTable::Hold(RowId row) const {
  if (!Holds(row)) PlaceOf(row);
}

void RowTable::ReadRest() noexcept {
  if (!CanRead()) return;
  const auto keep = weak_from_this().lock();
  const Patience::Request request(session_->Waits(), host::Awaited::Rows);
  try {
    ReadUpTo(kAdded - 1);
  } catch (...) {
    // The rows go on coming, and whoever wanted the connection sees that something was given up.
  }
}

void RowTable::HoldRows() {
  if (!window_) return;
  const auto keep = weak_from_this().lock();
  const Patience::Request request(session_->Waits(), host::Awaited::Rows);
  ColumnStore own(columns_);
  if (!ownQuery_.empty()) RowWindow(window_->Moment(), ownQuery_, columns_).ReadOn(0, own);
  window_->ReadOn(read_->RowCount(), *read_);
  if (!ownQuery_.empty()) ownOrder_ = NumbersInOrderOf(own, *read_);
  EndWindow();
}

void RowTable::EndWindow() noexcept {
  window_.reset();
  session_->Remove(this);
}

void RowTable::HoldAll() noexcept {
  try {
    HoldRows();
  } catch (...) {
    // The rows stay where they are. Whoever needs one of them gets the error.
  }
}

void RowTable::HoldOrGiveUp() noexcept {
  try {
    HoldRows();
  } catch (...) {
    failure_ = std::current_exception();
    knownBefore_ = RowsKnown();
    EndWindow();
  }
}

String RowTable::Reader() const {
  return window_ ? window_->Moment()->Beside().Process() : String();
}

std::vector<RowId> RowTable::InStatementOrder() {
  std::vector<RowId> rows(RowCount());
  std::iota(rows.begin(), rows.end(), RowId{0});
  return ownOrder_.empty() ? rows : ownOrder_;
}

void RowTable::Pin(RowId row) {
  if (!window_ || row < read_->RowCount() || replaced_.contains(row)) return;
  ColumnStore one(columns_);
  for (std::size_t column = 0; column < columns_.size(); ++column) CopyCell(row, column, one);
  one.EndRows(1);
  pinned_.emplace(row, std::move(one));
}

CellPlace RowTable::PlaceOf(RowId row) const {
  if (!replaced_.empty()) {
    const auto replaced = replaced_.find(row);
    if (replaced != replaced_.end()) return {&written_[replaced->second], 0};
  }
  if (row < read_->RowCount()) return {&*read_, row};
  if (pinned_ && pinned_->first == row) return {&pinned_->second, 0};
  if (!window_) {
    RequireSound();
    throw HostError(errors::NoCurrentRecord);
  }
  return window_->PlaceOf(row);
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
