#include "hosts/sql/rows/row_window.h"

#include <algorithm>
#include <string>

#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr std::uint32_t kPageRows = 2048;
constexpr std::size_t kMostPages = 12;
// Pages that are read together while rows are asked for one after the other.
constexpr std::uint32_t kPagesAhead = 4;
// The same while all rows are read.
constexpr std::uint32_t kPagesTogether = 8;

constexpr StringView kBroken =
    u"As linhas no servidor não estão mais na mesma ordem. Leia-as de novo.";

String Number(std::uint64_t number) { return FromUtf8(std::to_string(number)); }

}  // namespace

RowWindow::RowWindow(std::shared_ptr<Snapshot> snapshot, String query, Columns columns)
    : snapshot_(std::move(snapshot)),
      query_(std::move(query)),
      columns_(std::move(columns)),
      cursor_(snapshot_->NewCursor()) {}

RowWindow::~RowWindow() {
  if (statement_ && declaredAfter_ == snapshot_->Recoveries()) snapshot_->NoteUnused(cursor_);
  snapshot_->Beside().Retire(std::move(statement_));
}

void RowWindow::Declare() {
  Session& session = snapshot_->Beside();
  if (isBroken_) throw HostError(errors::ProviderError, String(kBroken));
  if (statement_ && declaredAfter_ == snapshot_->Recoveries()) return;
  session.Retire(std::move(statement_));
  at_.reset();
  const std::vector<String> unused = snapshot_->TakeUnused();
  String text;
  for (const String& cursor : unused) text += u"CLOSE " + cursor + u"; ";
  text += u"DECLARE " + cursor_ + u" " + String(session.CursorKind()) + u"SCROLL CURSOR FOR " +
          query_ + u"\n; FETCH 0 FROM " + cursor_;
  StatementPtr statement = session.NewStatement();
  session.ExecuteBatch(*statement, text, 2 + static_cast<int>(unused.size()));
  statement->Bind(columns_);
  statement_ = std::move(statement);
  declaredAfter_ = snapshot_->Recoveries();
  at_ = 0;
  RequireSameRows();
}

// The query has run again: its rows must come as before.
void RowWindow::RequireSameRows() {
  if (pages_.empty()) return;
  ColumnStore again(columns_);
  Move(pages_.front().number * kPageRows, 1);
  Take(again);
  isBroken_ = again != pages_.front().rows;
  if (isBroken_) throw HostError(errors::ProviderError, String(kBroken));
}

// A failed statement leaves the transaction unusable, and the cursor with it.
template <class Request>
auto RowWindow::Ask(Request request) {
  Patience& waits = snapshot_->Beside().Waits();
  waits.RequireIdle();
  const Patience::Request whole(waits, host::Awaited::Rows);
  waits.Breathe();
  try {
    Declare();
    return request();
  } catch (...) {
    const auto failure = std::current_exception();
    try {
      snapshot_->Recover();
    } catch (const HostError&) {
      // The link is lost; its own error says more.
    }
    Patience::RethrowFromReading(failure);
  }
}

// Stands on the first of so many results of kPageRows rows each.
void RowWindow::Move(std::uint32_t first, std::uint32_t fetches) {
  String text;
  int results = 1;
  if (at_ != first) {
    text = u"MOVE ABSOLUTE " + Number(first) + u" FROM " + cursor_ + u"; ";
    ++results;
  }
  for (std::uint32_t i = 0; i < fetches; ++i)
    text += u"FETCH FORWARD " + Number(kPageRows) + u" FROM " + cursor_ + u";";
  at_.reset();
  snapshot_->Beside().ExecuteBatch(*statement_, text, results);
}

void RowWindow::Take(ColumnStore& to) {
  while (snapshot_->Beside().Fetch(*statement_) > 0) statement_->Take(to);
}

// `end` is where the rows end that have just been read or moved over.
void RowWindow::NoteRows(std::uint32_t end, bool isLast) {
  known_ = std::max(known_, end);
  if (isLast && end > 0) isEndKnown_ = true;
}

bool RowWindow::StartsWith(const ColumnStore& rows) {
  ColumnStore own(columns_);
  Ask([&] {
    const std::uint32_t fetches = (rows.RowCount() + kPageRows - 1) / kPageRows;
    Move(0, fetches);
    for (std::uint32_t i = 0; i < fetches; ++i) {
      if (i > 0) snapshot_->Beside().NextResult(*statement_);
      Take(own);
    }
    at_ = own.RowCount();
  });
  NoteRows(own.RowCount(), false);
  return own == rows;
}

RowWindow::Page* RowWindow::Find(std::uint32_t page) {
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& p) { return p.number == page; });
  if (found == pages_.end()) return nullptr;
  pages_.splice(pages_.begin(), pages_, found);
  return &pages_.front();
}

bool RowWindow::Holds(std::uint32_t number) const {
  return std::any_of(pages_.begin(), pages_.end(), [&](const Page& page) {
    return page.number == number / kPageRows && number % kPageRows < page.rows.RowCount();
  });
}

std::uint32_t RowWindow::PagesToRead(std::uint32_t page) const {
  return lastLoaded_ && page == *lastLoaded_ + 1 ? kPagesAhead : 1;
}

RowWindow::Page& RowWindow::Load(std::uint32_t page) {
  if (Page* const held = Find(page)) return *held;
  const std::uint32_t pages = PagesToRead(page);
  const std::uint32_t first = page * kPageRows;
  std::list<Page> read;
  Ask([&] {
    read.clear();
    Move(first, pages);
    std::uint32_t rows = 0;
    for (std::uint32_t i = 0; i < pages; ++i) {
      if (i > 0) snapshot_->Beside().NextResult(*statement_);
      Take(read.emplace_back(Page{page + i, ColumnStore(columns_)}).rows);
      rows += read.back().rows.RowCount();
    }
    const bool isLast = rows < pages * kPageRows;
    if (!isLast) at_ = first + rows;
    if (rows > 0 || first == 0) NoteRows(first + rows, isLast);
  });
  lastLoaded_ = page + pages - 1;
  pages_.splice(pages_.begin(), read);
  while (pages_.size() > kMostPages) pages_.pop_back();
  return pages_.front();
}

bool RowWindow::Reach(std::uint32_t number) {
  if (number < known_) return true;
  if (isEndKnown_) return false;
  Load(number / kPageRows);
  return number < known_ || number < Count();
}

std::uint32_t RowWindow::Count() {
  if (isEndKnown_) return known_;
  Ask([&] {
    Session& session = snapshot_->Beside();
    if (!at_) session.Execute(*statement_, u"MOVE ABSOLUTE 0 FROM " + cursor_);
    const std::uint32_t before = at_.value_or(0);
    at_.reset();
    const std::int64_t moved =
        session.ExecuteWith(*statement_, u"MOVE FORWARD ALL FROM " + cursor_, {});
    known_ = before + static_cast<std::uint32_t>(moved);
    isEndKnown_ = true;
  });
  return known_;
}

void RowWindow::TakeCount(const RowWindow& other) {
  known_ = other.known_;
  isEndKnown_ = other.isEndKnown_;
}

CellPlace RowWindow::PlaceOf(std::uint32_t number) {
  Page& page = Load(number / kPageRows);
  if (number % kPageRows >= page.rows.RowCount()) throw HostError(errors::NoCurrentRecord);
  return {&page.rows, number % kPageRows};
}

void RowWindow::ReadOn(std::uint32_t from, ColumnStore& to) {
  const std::uint32_t before = to.RowCount();
  Ask([&] {
    std::uint32_t end = 0, rows = 0;
    do {
      snapshot_->Beside().Waits().Breathe();
      rows = end;
      Move(from + rows, kPagesTogether);
      for (std::uint32_t i = 0; i < kPagesTogether; ++i) {
        if (i > 0) snapshot_->Beside().NextResult(*statement_);
        Take(to);
      }
      end = to.RowCount() - before;
      at_ = from + end;
    } while (end - rows == kPagesTogether * kPageRows);
    at_.reset();
  });
}

}  // namespace tessaria::sql
