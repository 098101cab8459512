#include "hosts/odbc/row_stream.h"

#include <string>
#include <utility>

#include "hosts/odbc/statement_source.h"
#include "runtime/text.h"
#include "tessaria/error.h"

namespace tessaria::odbc {
namespace {

// Rows in one FETCH, a multiple of every block size. The first should show at once, so one FETCH
// goes alone; the rest should come fast, so several go together and the server prepares one while
// the driver takes in the one before.
constexpr std::uint32_t kFetchRows = 2048;
constexpr std::uint32_t kFurtherFetches = 8;

}  // namespace

RowStream::RowStream(Session& session, const StatementFacts& facts)
    : session_(session), statement_(session.NewStatement()) {
  cursor_ = facts.isPlainQuery && !facts.isSmallQuery && session.ServerInfo().IsPostgres();
  try {
    cursor_ ? OpenCursor(facts.text) : session_.Execute(*statement_, facts.text);
    columns_ = DescribeColumns(*statement_, session_.ServerInfo().IsPostgres());
    FillSourceOf(facts);
    if (!columns_.empty()) reader_.emplace(*statement_, columns_, session_.ServerInfo().rereads);
  } catch (...) {
    Abandon();
    throw;
  }
}

RowStream::~RowStream() {
  try {
    if (statement_) Finish();
  } catch (const HostError&) {
    Abandon();
  }
}

// SQL Server's driver tells tables and columns of server cursors only.
void RowStream::FillSourceOf(const StatementFacts& facts) {
  const Dialect dialect = session_.ServerInfo().dialect;
  if (!facts.isSingleTable || !IsBracketed(dialect)) return;
  if (const auto source = SourceOf(facts.text, dialect)) FillSource(columns_, *source);
}

void RowStream::OpenCursor(const String& text) {
  ownTransaction_ = !session_.InTransaction();
  if (ownTransaction_) session_.BeginReading();
  session_.Execute(*statement_, u"DECLARE tessaria_rows NO SCROLL CURSOR FOR " + text);
  Fetch(1);
}

void RowStream::Fetch(std::uint32_t times) {
  SQLFreeStmt(statement_->get(), SQL_CLOSE);
  asked_ = times * kFetchRows;
  received_ = 0;
  const String fetch = u"FETCH " + FromUtf8(std::to_string(kFetchRows)) + u" FROM tessaria_rows;";
  String text;
  for (; times > 0; --times) text += fetch;
  session_.Execute(*statement_, text);
}

// The rows of the FETCH sent together with the last one. 0 when there is none left.
std::uint32_t RowStream::ReadNextFetch(ColumnStore& store) {
  const SQLRETURN result = SQLMoreResults(statement_->get());
  if (result == SQL_NO_DATA) return 0;
  session_.Check(result, *statement_);
  return reader_->Read(store);
}

bool RowStream::Read(ColumnStore& store) {
  if (!statement_ || !reader_) return false;
  try {
    std::uint32_t rows = reader_->Read(store);
    if (rows == 0 && cursor_) rows = ReadNextFetch(store);
    if (rows == 0 && cursor_ && received_ == asked_) {
      Fetch(kFurtherFetches);
      rows = reader_->Read(store);
    }
    received_ += rows;
    if (rows == 0) Finish();
    return rows > 0;
  } catch (...) {
    Abandon();
    throw;
  }
}

// What the query's functions did stays done, also when not all rows were wanted.
void RowStream::Finish() {
  reader_.reset();
  statement_.reset();
  if (!cursor_) return;
  cursor_ = false;
  if (ownTransaction_) return session_.EndReading();
  CloseCursor();
}

void RowStream::CloseCursor() {
  session_.Execute(session_.InnerStatement(), u"CLOSE tessaria_rows");
}

void RowStream::Abandon() noexcept {
  reader_.reset();
  statement_.reset();
  if (!std::exchange(cursor_, false)) return;
  if (ownTransaction_) return session_.AbandonReading();
  try {
    CloseCursor();
  } catch (const HostError&) {
    // It was never there, or the connection is gone; the first error tells.
  }
}

}  // namespace tessaria::odbc
