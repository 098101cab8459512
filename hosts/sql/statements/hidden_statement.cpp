#include "hosts/sql/statements/hidden_statement.h"

namespace tessaria::sql {
namespace {

using Kind = SqlToken::Kind;

constexpr StringView kChangers[] = {u"INSERT", u"UPDATE", u"DELETE"};
// Reserved words of SQL Server that start a statement and never appear inside a query, where no
// column can have such a name without quotes, not even after a point. A Merge and a With need a
// semicolon before or after them.
constexpr StringView kStarters[] = {
    u"ADD",        u"ALTER",   u"BACKUP",   u"BEGIN",     u"BREAK",    u"CHECKPOINT",
    u"CLOSE",      u"COMMIT",  u"CONTINUE", u"CREATE",    u"DBCC",     u"DEALLOCATE",
    u"DECLARE",    u"DELETE",  u"DENY",     u"DROP",      u"DUMP",     u"EXEC",
    u"EXECUTE",    u"GOTO",    u"GRANT",    u"IF",        u"INSERT",   u"KILL",
    u"LOAD",       u"OPEN",    u"PRINT",    u"RAISERROR", u"READTEXT", u"RECONFIGURE",
    u"RESTORE",    u"RETURN",  u"REVERT",   u"REVOKE",    u"ROLLBACK", u"SAVE",
    u"SET",        u"SETUSER", u"SHUTDOWN", u"TRIGGER",   u"TRUNCATE", u"UPDATE",
    u"UPDATETEXT", u"USE",     u"WAITFOR",  u"WHILE",     u"WRITETEXT"};
// After USE in the hints of a query.
constexpr StringView kHints[] = {u"HINT", u"PLAN"};
// Before a further outermost Select of the same query.
constexpr StringView kCombiners[] = {u"UNION", u"EXCEPT", u"INTERSECT", u"ALL"};
// Before a query in parentheses that belongs to the statement around it.
constexpr StringView kTakesQuery[] = {
    u"ALL",    u"AND",       u"ANY",    u"APPLY",    u"AS",     u"BETWEEN", u"BY",
    u"CASE",   u"ELSE",      u"EXCEPT", u"FROM",     u"EXISTS", u"IN",      u"HAVING",
    u"JOIN",   u"INTERSECT", u"LIKE",   u"DISTINCT", u"NOT",    u"ON",      u"OR",
    u"SELECT", u"SOME",      u"THEN",   u"UNION",    u"WHEN",   u"WHERE",   u"TOP"};
constexpr StringView kOperators = u"=<>+-*/%,&|^~!(";

// Walks through a statement and consumes what its first words allow.
class Reading {
 public:
  explicit Reading(const Pieces& pieces) : pieces_(pieces) {
    while (start_ < pieces.size() && IsSymbol(pieces[start_], u"(")) ++start_;
    if (start_ == pieces.size()) return;
    first_ = pieces[start_].text;
    checked_ = IsWordOf(pieces[start_], kReaders) || IsWordOf(pieces[start_], kChangers);
    hasRows_ = start_ > 0 || (first_ != u"WITH" && first_ != u"INSERT");
  }

  bool FindsSecond() {
    if (!checked_) return false;
    for (std::size_t i = start_ + 1; i < pieces_.size(); ++i) {
      if (StartsStatement(i) || IsSecondSelect(i) || IsLooseQuery(i)) return true;
      NoteRows(i);
    }
    return false;
  }

 private:
  bool Is(std::size_t i, StringView word) const {
    return i < pieces_.size() && pieces_[i].kind == Kind::Word && pieces_[i].text == word;
  }

  bool StartsStatement(std::size_t i) {
    if (!IsWordOf(pieces_[i], kStarters)) return false;
    if (Is(i, u"USE") && i + 1 < pieces_.size() && IsWordOf(pieces_[i + 1], kHints)) return false;
    const bool sets = first_ == u"UPDATE" && Is(i, u"SET");
    const bool runs = first_ == u"INSERT" && !hasRows_ && (Is(i, u"EXEC") || Is(i, u"EXECUTE"));
    if (taken_ || !(sets || runs)) return true;
    taken_ = true;
    hasRows_ = hasRows_ || runs;
    return false;
  }

  // A With and an Insert have their first outermost Select after other words.
  bool IsSecondSelect(std::size_t i) const {
    if (!Is(i, u"SELECT") || pieces_[i].depth > 0) return false;
    return hasRows_ && !IsWordOf(pieces_[i - 1], kCombiners);
  }

  // A query in parentheses that does not belong to what stands before it.
  bool IsLooseQuery(std::size_t i) {
    if (pieces_[i].depth > 0 || !OpensQuery(i)) return false;
    const Piece& before = pieces_[i - 1];
    if (IsWordOf(before, kTakesQuery)) return false;
    if (before.kind == Kind::Symbol && kOperators.find(before.text) != StringView::npos)
      return false;
    const bool isSource = first_ == u"INSERT" && !hasRows_;
    if (isSource) hasRows_ = true;
    return !isSource;
  }

  bool OpensQuery(std::size_t i) const {
    if (!IsSymbol(pieces_[i], u"(")) return false;
    while (i < pieces_.size() && IsSymbol(pieces_[i], u"(")) ++i;
    return Is(i, u"SELECT");
  }

  void NoteRows(std::size_t i) {
    const bool outermost = pieces_[i].depth <= 0;
    if (outermost && (Is(i, u"SELECT") || Is(i, u"VALUES"))) hasRows_ = true;
  }

  const Pieces& pieces_;
  std::size_t start_ = 0;
  String first_;
  bool checked_ = false;
  bool hasRows_ = false;  // no further outermost Select belongs to the statement
  bool taken_ = false;    // the statement's own Set or Exec was found
};

}  // namespace

bool HoldsHiddenStatement(const Pieces& pieces) { return Reading(pieces).FindsSecond(); }

}  // namespace tessaria::sql
