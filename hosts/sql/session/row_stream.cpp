#include "hosts/sql/session/row_stream.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/statements/column_texts.h"
#include "hosts/sql/statements/statement_source.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// The number of rows in one FETCH, a multiple of every block size. The first FETCH is sent alone,
// so that its rows appear immediately; the others are sent several at a time, so that the server
// prepares one while the driver receives the one before.
constexpr std::uint32_t kFetchRows = 2048;
constexpr std::uint32_t kFurtherFetches = 8;

// Words before a parenthesis that do not call anything with side effects.
constexpr StringView kHarmless[] = {
    u"abs",        u"all",      u"and",       u"any",        u"as",         u"avg",
    u"between",    u"btrim",    u"by",        u"cast",       u"ceil",       u"char",
    u"coalesce",   u"concat",   u"count",     u"date_part",  u"date_trunc", u"decimal",
    u"dense_rank", u"distinct", u"else",      u"except",     u"exists",     u"extract",
    u"filter",     u"floor",    u"from",      u"greatest",   u"having",     u"ilike",
    u"in",         u"initcap",  u"intersect", u"join",       u"lag",        u"lead",
    u"least",      u"left",     u"length",    u"like",       u"lower",      u"lpad",
    u"ltrim",      u"max",      u"min",       u"mod",        u"not",        u"nullif",
    u"numeric",    u"on",       u"or",        u"over",       u"overlay",    u"position",
    u"rank",       u"replace",  u"right",     u"round",      u"row_number", u"rpad",
    u"rtrim",      u"select",   u"some",      u"split_part", u"string_agg", u"substr",
    u"substring",  u"sum",      u"then",      u"to_char",    u"to_date",    u"to_number",
    u"translate",  u"trim",     u"trunc",     u"union",      u"upper",      u"using",
    u"values",     u"varchar",  u"when",      u"where"};

bool IsNamePart(char16_t c) {
  return c == u'_' || c == u'"' || c == u'$' || c >= 0x80 || (c >= u'0' && c <= u'9') ||
         (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// The word before a position in a text, without the blanks between them.
String WordBefore(const String& text, std::size_t at) {
  while (at > 0 && text[at - 1] <= u' ') --at;
  std::size_t start = at;
  while (start > 0 && IsNamePart(text[start - 1])) --start;
  return LCase(StringView(text).substr(start, at - start));
}

// Whether a query must not run twice, because a function that it calls may have side effects. Text
// between quotes that looks like a call counts too.
bool MayHaveEffects(const String& text) {
  for (std::size_t at = text.find(u'('); at != String::npos; at = text.find(u'(', at + 1)) {
    const String word = WordBefore(text, at);
    const bool harmless =
        std::find(std::begin(kHarmless), std::end(kHarmless), word) != std::end(kHarmless);
    if (!word.empty() && !harmless) return true;
  }
  return false;
}

// The estimate in the first line of a plan, as in "Seq Scan on t (cost=0.00..15.00 rows=850
// width=8)".
double ExpectedRows(const TextRow& plan) {
  constexpr StringView kRows = u" rows=";
  if (plan.empty() || !plan[0]) return 0;
  const std::size_t at = plan[0]->rfind(kRows);
  return at == String::npos ? 0 : Val(plan[0]->substr(at + kRows.size()));
}

constexpr StringView kMayBeExecuted =
    u"O comando pode ter sido executado ou não: a conexão com o servidor caiu antes da resposta. "
    u"Confira antes de repeti-lo.";

}  // namespace

const std::uint32_t RowStream::kFirstRows = (1 + kFurtherFetches) * kFetchRows;
const std::uint32_t RowStream::kFirstFetch = kFetchRows;

RowStream::RowStream(Session& session, const StatementFacts& facts)
    : session_(session), statement_(session.NewStatement()) {
  session.Note(facts);
  const bool isWhole = facts.isSmallQuery && !MayHaveEffects(facts.text);
  cursor_ = facts.isPlainQuery && !isWhole && session.ServerInfo().IsPostgres();
  try {
    cursor_ ? OpenCursor(facts.text) : RunWhole(facts);
    statement_->Bind(columns_);
    FillSourceOf(facts);
  } catch (...) {
    Abandon();
    throw;
  }
}

RowStream::~RowStream() {
  try {
    if (statement_) Finish();
  } catch (...) {
    Abandon();
  }
}

// The driver of SQL Server reports tables and columns only for server cursors.
void RowStream::FillSourceOf(const StatementFacts& facts) {
  const Dialect dialect = session_.ServerInfo().dialect;
  if (!facts.isSingleTable || !IsBracketed(dialect)) return;
  if (const auto source = SourceOf(facts.text, dialect)) FillSource(columns_, *source);
}

// The columns are known before any row is read, so that no query runs twice.
void RowStream::OpenCursor(const String& text) {
  ownTransaction_ = !session_.InTransaction();
  isRepeatable_ = session_.CanBeReadBeside() && !MayHaveEffects(text);
  if (ownTransaction_) session_.BeginReading();
  query_ = text;
  Declare(isRepeatable_ ? u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ; " : u"");
  columns_ = session_.Describe(*statement_);
  if (AnyAsText(columns_)) {
    query_ = WithColumnsAsTexts(columns_, text);
    Declare(u"CLOSE tessaria_rows; ");
  }
  Fetch(1);
}

// `before` is empty or one statement more.
void RowStream::Declare(StringView before) {
  session_.ExecuteBatch(*statement_,
                        String(before) + u"DECLARE tessaria_rows " + String(session_.CursorKind()) +
                            u"NO SCROLL CURSOR FOR " + query_ + u"\n; FETCH 0 FROM tessaria_rows",
                        before.empty() ? 2 : 3);
}

void RowStream::RunWhole(const StatementFacts& facts) {
  const auto execute = [&] {
    session_.Execute(*statement_, facts.text);
    columns_ = session_.Describe(*statement_);
  };
  mayWrite_ = !facts.isPlainQuery;
  mayWrite_ ? InDoubtWhenLost(session_, kMayBeExecuted, execute) : execute();
  if (!facts.isSmallQuery || !AnyAsText(columns_)) return;
  session_.Execute(*statement_, WithColumnsAsTexts(columns_, facts.text));
}

void RowStream::Fetch(std::uint32_t times) {
  asked_ = times * kFetchRows;
  received_ = 0;
  const String fetch = u"FETCH " + FromUtf8(std::to_string(kFetchRows)) + u" FROM tessaria_rows;";
  String text;
  for (; times > 0; --times) text += fetch;
  session_.Execute(*statement_, text);
}

// The number of the next rows, 0 at the end. The FETCHes that are sent together have a result each.
std::uint32_t RowStream::NextBlock() {
  std::uint32_t rows = session_.Fetch(*statement_);
  if (rows == 0 && cursor_ && session_.NextResult(*statement_)) rows = session_.Fetch(*statement_);
  if (rows == 0 && cursor_ && received_ == asked_) {
    Fetch(kFurtherFetches);
    rows = session_.Fetch(*statement_);
  }
  received_ += rows;
  return rows;
}

bool RowStream::Read(ColumnStore& store) {
  if (!statement_ || columns_.empty()) return false;
  try {
    const auto next = [&] { return NextBlock() > 0; };
    const bool isThere = mayWrite_ ? InDoubtWhenLost(session_, kMayBeExecuted, next) : next();
    isThere ? statement_->Take(store) : Finish();
    return isThere;
  } catch (...) {
    Abandon();
    throw;
  }
}

bool RowStream::IsExpectedLarge() {
  const StatementPtr question = session_.InnerStatement();
  session_.Execute(*question, u"EXPLAIN " + query_);
  return ExpectedRows(FirstRow(*question)) > kFirstRows;
}

void RowStream::KeepRest() {
  if (statement_ && cursor_) session_.KeepRest(*statement_, kFurtherFetches);
}

// The side effects of the query's functions are kept, even when not all rows were read.
void RowStream::Finish() {
  StatementPtr statement = std::move(statement_);
  if (cursor_) ownTransaction_ ? session_.EndReading() : CloseCursor();
  cursor_ = false;
  session_.Retire(std::move(statement));  // to which nothing comes any more
}

void RowStream::CloseCursor() {
  session_.Execute(*session_.InnerStatement(), u"CLOSE tessaria_rows");
}

void RowStream::Abandon() noexcept {
  session_.Retire(std::move(statement_));
  if (!std::exchange(cursor_, false)) return;
  if (ownTransaction_) return session_.AbandonReading();
  try {
    CloseCursor();
  } catch (...) {
    // The cursor never existed, or the connection is lost; the first error is the one to report.
  }
}

}  // namespace tessaria::sql
