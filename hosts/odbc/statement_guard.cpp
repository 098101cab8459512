#include "hosts/odbc/statement_guard.h"

#include <algorithm>
#include <set>
#include <vector>

#include "hosts/odbc/diagnostics.h"
#include "runtime/text.h"
#include "runtime/well_formed.h"

namespace tessaria::odbc {
namespace {

using Kind = SqlToken::Kind;

// A limit up to this is not worth a cursor.
constexpr Long kSmallLimit = 1000;

const std::set<String> kReaders = {u"SELECT", u"VALUES", u"TABLE", u"WITH"};
// Anywhere in a reader's text: it does more than read.
const std::set<String> kWriters = {u"INSERT", u"UPDATE", u"DELETE", u"MERGE", u"INTO", u"SHARE"};
// Outermost words behind which a row is no longer one row of one table.
const std::set<String> kMixers = {u"JOIN",  u"UNION",    u"INTERSECT", u"EXCEPT",
                                  u"GROUP", u"DISTINCT", u"HAVING",    u"WITH"};
// Reserved words of SQL Server that start a statement and never stand inside a query, where no
// column can have such a name without quotes, nor behind a point. A Merge and a With need a
// semicolon before or behind them.
const std::set<String> kStarters = {
    u"ADD",        u"ALTER",   u"BACKUP",   u"BEGIN",     u"BREAK",    u"CHECKPOINT",
    u"CLOSE",      u"COMMIT",  u"CONTINUE", u"CREATE",    u"DBCC",     u"DEALLOCATE",
    u"DECLARE",    u"DELETE",  u"DENY",     u"DROP",      u"DUMP",     u"EXEC",
    u"EXECUTE",    u"GOTO",    u"GRANT",    u"IF",        u"INSERT",   u"KILL",
    u"LOAD",       u"OPEN",    u"PRINT",    u"RAISERROR", u"READTEXT", u"RECONFIGURE",
    u"RESTORE",    u"RETURN",  u"REVERT",   u"REVOKE",    u"ROLLBACK", u"SAVE",
    u"SET",        u"SETUSER", u"SHUTDOWN", u"TRIGGER",   u"TRUNCATE", u"UPDATE",
    u"UPDATETEXT", u"USE",     u"WAITFOR",  u"WHILE",     u"WRITETEXT"};
// Behind USE in the hints of a query.
const std::set<String> kHints = {u"HINT", u"PLAN"};
// Before a further outermost Select of the same query.
const std::set<String> kCombiners = {u"UNION", u"EXCEPT", u"INTERSECT", u"ALL"};

[[noreturn]] void Refuse(StringView reason) {
  throw HostError(errors::ErrorsInCommand, String(reason));
}

// The tokens of a text, words in upper case.
struct Piece {
  Kind kind;
  String text;
  int depth;  ///< open parentheses around it
};

std::vector<Piece> PiecesOf(StringView text, SqlRules rules) {
  std::vector<Piece> pieces;
  SqlScanner scanner(text, rules);
  int depth = 0;
  for (SqlToken token = scanner.Next(); !token.Is(Kind::End); token = scanner.Next()) {
    String piece(scanner.TextOf(token));
    if (token.Is(Kind::Word)) piece = UCase(piece);
    if (piece == u")") --depth;
    pieces.push_back({token.kind, std::move(piece), depth});
    if (pieces.back().text == u"(") ++depth;
  }
  return pieces;
}

bool IsSymbol(const Piece& piece, StringView text) {
  return piece.kind == Kind::Symbol && piece.text == text;
}
bool IsWordOf(const Piece& piece, const std::set<String>& words) {
  return piece.kind == Kind::Word && words.count(piece.text) > 0;
}

[[noreturn]] void RefuseUnreadable(StringView found) {
  Refuse(u"O comando SQL não pode ser lido com certeza a partir de \"" + Left(found, 20) +
         u"\": falta fechar um texto, um nome ou um comentário, ou há sinais que não são aceitos.");
}

// Where the statement ends: before its trailing semicolons.
std::size_t EndOfStatement(StringView text, SqlRules rules) {
  SqlScanner scanner(text, rules);
  std::size_t end = text.size();
  bool closed = false;
  for (SqlToken token = scanner.Next(); !token.Is(Kind::End); token = scanner.Next()) {
    if (token.Is(Kind::Unreadable)) RefuseUnreadable(text.substr(token.start));
    const bool semicolon = token.Is(Kind::Symbol) && scanner.TextOf(token) == u";";
    if (semicolon && !closed) end = token.start;
    if (semicolon) closed = true;
    if (!semicolon && closed) Refuse(u"O texto contém mais de um comando SQL.");
  }
  return end;
}

void RefuseForeignQuoting(StringView text, Dialect dialect) {
  if (dialect == Dialect::Other && text.find(u';') != StringView::npos) {
    Refuse(u"O texto contém um \";\", que pode separar comandos SQL neste banco de dados.");
  }
}

void RefuseDriverMarks(const std::vector<Piece>& pieces, Dialect dialect) {
  if (dialect != Dialect::PostgreSql) return;
  for (const Piece& piece : pieces) {
    if (piece.kind != Kind::Symbol) continue;
    if (piece.text == u"?" || piece.text == u"{" || piece.text == u"}") {
      Refuse(u"Erro de sintaxe em \"" + piece.text + u"\": fora de apóstrofos não é aceito.");
    }
  }
}

bool StartsStatement(const std::vector<Piece>& pieces, std::size_t at) {
  if (!IsWordOf(pieces[at], kStarters)) return false;
  const bool hint = at + 1 < pieces.size() && IsWordOf(pieces[at + 1], kHints);
  return pieces[at].text != u"USE" || !hint;
}

// A With has its first outermost Select behind its tables.
bool HasSecondSelect(const std::vector<Piece>& pieces) {
  bool selected = false;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const bool outermost = pieces[i].depth <= 0 && pieces[i].kind == Kind::Word;
    if (!outermost || pieces[i].text != u"SELECT") continue;
    if (selected && !IsWordOf(pieces[i - 1], kCombiners)) return true;
    selected = true;
  }
  return false;
}

void RefuseHiddenStatement(const std::vector<Piece>& pieces, Dialect dialect) {
  if (dialect != Dialect::SqlServer || !IsWordOf(pieces.front(), kReaders)) return;
  bool hidden = HasSecondSelect(pieces);
  for (std::size_t i = 0; i < pieces.size(); ++i) hidden = hidden || StartsStatement(pieces, i);
  if (hidden) Refuse(u"O texto contém mais de um comando SQL.");
}

StatementFacts::Control ControlOf(const std::vector<Piece>& pieces) {
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

String ModesOf(const std::vector<Piece>& pieces) {
  String modes;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    if (i == 1 && (pieces[i].text == u"WORK" || pieces[i].text == u"TRANSACTION")) continue;
    modes += (modes.empty() ? u"" : u" ") + pieces[i].text;
  }
  return modes;
}

bool IsPlainQuery(const std::vector<Piece>& pieces) {
  return IsWordOf(pieces.front(), kReaders) &&
         std::none_of(pieces.begin(), pieces.end(),
                      [](const Piece& piece) { return IsWordOf(piece, kWriters); });
}

bool HasSmallLimit(const std::vector<Piece>& pieces) {
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    if (pieces[i].depth == 0 && pieces[i].kind == Kind::Word && pieces[i].text == u"LIMIT") {
      const String& limit = pieces[i + 1].text;
      const bool whole = limit.find_first_not_of(u"0123456789") == String::npos;
      return whole && limit.size() <= 4 && std::stol(ToUtf8(limit)) <= kSmallLimit;
    }
  }
  return false;
}

// One name behind the outermost From, no comma in that list, and none of the mixers.
bool IsSingleTable(const std::vector<Piece>& pieces) {
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

bool IsName(const std::vector<Piece>& pieces) {
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
  facts.text = String(text.substr(0, EndOfStatement(text, rules)));
  RefuseForeignQuoting(facts.text, dialect);
  const std::vector<Piece> pieces = PiecesOf(facts.text, rules);
  if (pieces.empty()) Refuse(u"O texto do comando SQL está vazio.");
  RefuseDriverMarks(pieces, dialect);
  RefuseHiddenStatement(pieces, dialect);
  facts.control = ControlOf(pieces);
  if (facts.control == StatementFacts::Control::Begin) facts.modes = ModesOf(pieces);
  facts.isPlainQuery = IsPlainQuery(pieces);
  facts.isSmallQuery = facts.isPlainQuery && HasSmallLimit(pieces);
  facts.isSingleTable = IsSingleTable(pieces);
  facts.isName = IsName(pieces);
  return facts;
}

}  // namespace tessaria::odbc
