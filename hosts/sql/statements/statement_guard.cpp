#include "hosts/sql/statements/statement_guard.h"

#include <algorithm>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/statements/hidden_statement.h"
#include "runtime/well_formed.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

using Kind = SqlToken::Kind;

// A query with a limit of up to this does not need a cursor.
constexpr Long kSmallLimit = 1000;

// A statement that starts as a reader but contains one of these does more than read.
constexpr StringView kWriters[] = {u"INSERT", u"UPDATE", u"DELETE", u"MERGE", u"INTO", u"SHARE"};
// After one of these outermost words a row is no longer one row of one table.
constexpr StringView kMixers[] = {u"JOIN",  u"UNION",    u"INTERSECT", u"EXCEPT",
                                  u"GROUP", u"DISTINCT", u"HAVING",    u"WITH"};

[[noreturn]] void Refuse(StringView reason) {
  throw HostError(errors::ErrorsInCommand, String(reason));
}

[[noreturn]] void RefuseUnreadable(StringView found) {
  Refuse(u"O comando SQL não pode ser lido com certeza a partir de \"" + Left(found, 20) +
         u"\": falta fechar um texto, um nome ou um comentário, ou há sinais que não são aceitos.");
}

// Takes the trailing semicolons off the pieces of a text. Returns where its statement ends.
std::size_t EndStatement(StringView text, Pieces& pieces) {
  const auto isEnd = [](const Piece& piece) { return IsSymbol(piece, u";"); };
  const auto end = std::find_if(pieces.begin(), pieces.end(), isEnd);
  for (auto piece = pieces.begin(); piece != pieces.end(); ++piece) {
    if (piece->kind == Kind::Unreadable) RefuseUnreadable(text.substr(piece->start));
    if (piece > end && !isEnd(*piece)) Refuse(u"O texto contém mais de um comando SQL.");
  }
  const std::size_t length = end == pieces.end() ? text.size() : end->start;
  pieces.erase(end, pieces.end());
  return length;
}

void RefuseForeignQuoting(StringView text, Dialect dialect) {
  if (dialect == Dialect::Other && text.find(u';') != StringView::npos) {
    Refuse(u"O texto contém um \";\", que pode separar comandos SQL neste banco de dados.");
  }
}

void RefuseDriverMarks(const Pieces& pieces, Dialect dialect) {
  if (dialect != Dialect::PostgreSql) return;
  for (const Piece& piece : pieces) {
    if (piece.kind != Kind::Symbol) continue;
    if (piece.text == u"?" || piece.text == u"{" || piece.text == u"}") {
      Refuse(u"Erro de sintaxe em \"" + piece.text + u"\": fora de apóstrofos não é aceito.");
    }
  }
}

// SQL Server removes a line end after a backslash from a text, so what it reads differs from what
// is written.
void RefuseBrokenLines(const Pieces& pieces) {
  for (const Piece& piece : pieces) {
    if (piece.kind != Kind::Text && piece.kind != Kind::QuotedName) continue;
    for (const StringView broken : {u"\\\n", u"\\\r"}) {
      const auto at = piece.text.find(broken);
      if (at != String::npos) RefuseUnreadable(StringView(piece.text).substr(at));
    }
  }
}

void RefuseHiddenStatement(const Pieces& pieces, Dialect dialect) {
  if (dialect != Dialect::SqlServer) return;
  RefuseBrokenLines(pieces);
  if (HoldsHiddenStatement(pieces)) Refuse(u"O texto contém mais de um comando SQL.");
}

StatementFacts::Control ControlOf(const Pieces& pieces) {
  using Control = StatementFacts::Control;
  const auto word = [&](std::size_t i) { return i < pieces.size() ? pieces[i].text : String(); };
  const bool longer = pieces.size() > 1 && word(1) != u"WORK" && word(1) != u"TRANSACTION";
  if (word(0) == u"BEGIN" || (word(0) == u"START" && word(1) == u"TRANSACTION")) {
    return Control::Begin;
  }
  if (word(0) == u"SAVEPOINT" || word(0) == u"RELEASE") return Control::Savepoint;
  if (word(0) == u"ROLLBACK") {
    const bool toSavepoint = std::any_of(pieces.begin(), pieces.end(),
                                         [](const Piece& piece) { return piece.text == u"TO"; });
    return toSavepoint ? Control::Savepoint : longer ? Control::None : Control::Rollback;
  }
  if (word(0) == u"ABORT" && !longer) return Control::Rollback;
  if ((word(0) == u"COMMIT" || word(0) == u"END") && !longer) return Control::Commit;
  return Control::None;
}

String ModesOf(const Pieces& pieces) {
  String modes;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (i == 1 && (pieces[i].text == u"WORK" || pieces[i].text == u"TRANSACTION")) continue;
    modes += (modes.empty() ? u"" : u" ") + pieces[i].text;
  }
  return modes;
}

bool IsPlainQuery(const Pieces& pieces) {
  return IsWordOf(pieces.front(), kReaders) &&
         std::none_of(pieces.begin(), pieces.end(),
                      [](const Piece& piece) { return IsWordOf(piece, kWriters); });
}

// Of the others, none keeps readers out.
bool MayLockTables(const Pieces& pieces) {
  static constexpr StringView kLockers[] = {
      u"ALTER", u"CALL",     u"CLUSTER", u"CREATE",  u"DO",       u"DROP",  u"EXECUTE",
      u"LOCK",  u"REASSIGN", u"REFRESH", u"REINDEX", u"TRUNCATE", u"VACUUM"};
  return IsWordOf(pieces.front(), kLockers);
}

bool LeavesState(const Pieces& pieces) {
  static constexpr StringView kFirst[] = {u"SET",  u"RESET",   u"DISCARD", u"DO",
                                          u"CALL", u"EXECUTE", u"LOAD",    u"SECURITY"};
  static constexpr StringView kAnywhere[] = {u"SET_CONFIG", u"TEMP", u"TEMPORARY"};
  return IsWordOf(pieces.front(), kFirst) ||
         std::any_of(pieces.begin(), pieces.end(),
                     [](const Piece& piece) { return IsWordOf(piece, kAnywhere); });
}

bool HasSmallLimit(const Pieces& pieces) {
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    if (pieces[i].depth == 0 && pieces[i].kind == Kind::Word && pieces[i].text == u"LIMIT") {
      const String& limit = pieces[i + 1].text;
      const bool whole = limit.find_first_not_of(u"0123456789") == String::npos;
      return whole && limit.size() <= 4 && std::stol(ToUtf8(limit)) <= kSmallLimit;
    }
  }
  return false;
}

// Where the outermost order begins; the end of the pieces for none.
std::size_t OrderOf(const Pieces& pieces) {
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    const bool isOrder = pieces[i].depth == 0 && pieces[i].kind == Kind::Word &&
                         pieces[i].text == u"ORDER" && pieces[i + 1].text == u"BY";
    if (isOrder) return i;
  }
  return pieces.size();
}

// Which rows there are, or what they show, depends on their order, or the statement does not end
// with it.
bool NeedsItsOrder(const Pieces& pieces) {
  static constexpr StringView kWords[] = {u"LIMIT", u"OFFSET", u"FETCH", u"DISTINCT", u"FOR"};
  return std::any_of(pieces.begin(), pieces.end(), [](const Piece& piece) {
    const bool counts = piece.kind == Kind::Word && piece.text == u"OVER";
    return counts || (piece.depth == 0 && IsWordOf(piece, kWords));
  });
}

String FirstOrder(const Pieces& pieces, std::size_t order) {
  const std::size_t name = order + 2;
  const bool isColumn = name < pieces.size() &&
                        (pieces[name].kind == Kind::Word || pieces[name].kind == Kind::Number);
  if (!isColumn) return {};
  const bool isWhole = name + 1 == pieces.size() || IsSymbol(pieces[name + 1], u",") ||
                       (pieces[name + 1].text == u"ASC" &&
                        (name + 2 == pieces.size() || IsSymbol(pieces[name + 2], u",")));
  return isWhole ? pieces[name].text : String();
}

void ReadOrder(StatementFacts& facts, const Pieces& pieces) {
  if (!facts.isPlainQuery || NeedsItsOrder(pieces)) return;
  const std::size_t order = OrderOf(pieces);
  const bool hasOrder = order < pieces.size();
  facts.rowsEnd = hasOrder ? pieces[order].start : facts.text.size();
  if (hasOrder) facts.firstOrder = FirstOrder(pieces, order);
}

// One name after the outermost From, no comma in that list, and none of the mixers.
bool IsSingleTable(const Pieces& pieces) {
  if (pieces.front().text != u"SELECT") return false;
  bool inFrom = false;
  int tables = 0;
  for (const Piece& piece : pieces) {
    if (piece.depth > 0) continue;
    if (IsWordOf(piece, kMixers)) return false;
    if (piece.kind == Kind::Word && piece.text == u"FROM") {
      inFrom = true;
      ++tables;
    } else if (piece.kind == Kind::Word && (piece.text == u"WHERE" || piece.text == u"ORDER")) {
      inFrom = false;
    } else if (inFrom && (IsSymbol(piece, u",") || IsSymbol(piece, u"("))) {
      return false;
    }
  }
  return tables == 1;
}

bool IsName(const Pieces& pieces) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const bool name = pieces[i].kind == Kind::Word || pieces[i].kind == Kind::QuotedName;
    if (i % 2 == 0 ? !name : !IsSymbol(pieces[i], u".")) return false;
  }
  return pieces.size() % 2 == 1;
}

}  // namespace

StatementFacts RequireSingleStatement(StringView text, Dialect dialect, bool backslashes) {
  RequireWellFormed(text);
  const SqlRules rules = RulesOf(dialect, backslashes);
  StatementFacts facts;
  Pieces pieces = PiecesOf(text, rules);
  facts.text = String(text.substr(0, EndStatement(text, pieces)));
  RefuseForeignQuoting(facts.text, dialect);
  if (pieces.empty()) Refuse(u"O texto do comando SQL está vazio.");
  RefuseDriverMarks(pieces, dialect);
  RefuseHiddenStatement(pieces, dialect);
  facts.control = ControlOf(pieces);
  if (facts.control == StatementFacts::Control::Begin) facts.modes = ModesOf(pieces);
  facts.isPlainQuery = IsPlainQuery(pieces);
  facts.mayLockTables = MayLockTables(pieces);
  facts.leavesState = LeavesState(pieces);
  facts.isSmallQuery = facts.isPlainQuery && HasSmallLimit(pieces);
  ReadOrder(facts, pieces);
  facts.isSingleTable = IsSingleTable(pieces);
  facts.isName = IsName(pieces);
  return facts;
}

}  // namespace tessaria::sql
