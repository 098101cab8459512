// The rows of one running statement.
#pragma once

#include <cstdint>

#include "hosts/sql/session/session.h"
#include "hosts/sql/statements/statement_guard.h"

namespace tessaria::sql {

/// Runs a statement and returns its rows block by block. Queries on PostgreSQL go through a cursor
/// of this layer's own, so that neither server nor driver holds the whole result: the driver would
/// keep all rows in its memory, and its own cursors can end early without an error. Each FETCH is a
/// statement that succeeds or fails by itself, and one that returns fewer rows than asked for is
/// the last.
///
/// Columns that the driver would harm are asked for as texts, through the same cursor. A query of
/// one page that calls no function runs without a cursor, and runs a second time when it has such
/// columns.
class RowStream {
 public:
  RowStream(Session& session, const StatementFacts& facts);
  RowStream(const RowStream&) = delete;
  RowStream& operator=(const RowStream&) = delete;
  /// Rows that were not read are discarded.
  ~RowStream();

  /// Empty for a statement that returns no rows.
  const Columns& StatementColumns() const { return columns_; }
  /// Appends the next block. Returns false when there is none; the statement is finished then.
  bool Read(ColumnStore& store);
  /// Rows that come in quickly, before it must be decided how to go on with a large result.
  static const std::uint32_t kFirstRows;
  /// Those of them that come first; the link is free for a question once they are read.
  static const std::uint32_t kFirstFetch;
  /// Whether the server expects more than `kFirstRows` rows. It reads none to tell.
  bool IsExpectedLarge();
  /// Whether the rows that were read can be read once more beside this session: the transaction
  /// shows all statements the same, and the query has no effects.
  bool IsRepeatable() const { return statement_ && cursor_ && isRepeatable_; }
  /// The query as the cursor runs it.
  const String& Query() const { return query_; }
  /// Before a pause of unknown length: lets the server finish what it was asked for.
  void KeepRest();

 private:
  void FillSourceOf(const StatementFacts& facts);
  void OpenCursor(const String& text);
  void Declare(StringView before);
  void RunWhole(const StatementFacts& facts);
  void Fetch(std::uint32_t times);
  std::uint32_t NextBlock();
  void CloseCursor();
  void Finish();
  void Abandon() noexcept;

  Session& session_;
  StatementPtr statement_;  // until all rows are read
  Columns columns_;
  String query_;
  bool cursor_ = false;
  bool ownTransaction_ = false;
  bool isRepeatable_ = false;
  bool mayWrite_ = false;       // the text is not a query alone
  std::uint32_t asked_ = 0;     // rows that the current FETCHes ask for
  std::uint32_t received_ = 0;  // rows of these that have arrived
};

}  // namespace tessaria::sql
