#include "hosts/sql/rows/server_find.h"

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/statements/column_texts.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"

namespace tessaria::sql {
namespace {

// Rows with Null come first or last, but never match; where they come last they are not counted.
String Question(const Columns& columns, const String& query, const FindCriterion& criterion) {
  const SortKey key{criterion.ColumnNumber(), false};
  const String from = ServerSource(columns, query);
  return u"SELECT " + DictionaryQuestion(columns, key, from) + u", count(*) FROM " + from +
         u" WHERE " + ServerName(key) + u" < " +
         ValueSlot(columns[key.column], Dialect::PostgreSql);
}

}  // namespace

std::optional<std::uint32_t> RowsBeforeMatches(Snapshot& snapshot, const Columns& columns,
                                               const String& query,
                                               const FindCriterion& criterion) {
  const auto least = criterion.LeastMatch();
  if (!least) return std::nullopt;
  const Column& column = columns[criterion.ColumnNumber()];
  if (!IsSortedByServer(column)) return std::nullopt;
  try {
    Session& beside = snapshot.Beside();
    const Patience::Request request(beside.Waits());
    const StatementPtr statement = beside.NewStatement();
    beside.ExecuteWith(*statement, Question(columns, query, criterion),
                       {ParameterOf(column, *least, Dialect::PostgreSql)});
    const TextRow answer = FirstRow(*statement);
    if (answer[0] != u"1") return std::nullopt;
    return static_cast<std::uint32_t>(CLng(*answer[1]));
  } catch (const HostError& error) {
    if (!snapshot.Beside().IsOpen() || error.Number() == errors::Cancelled) throw;
    snapshot.Recover();
    return std::nullopt;
  }
}

}  // namespace tessaria::sql
