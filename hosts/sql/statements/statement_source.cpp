#include "hosts/sql/statements/statement_source.h"

#include <algorithm>
#include <set>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

using Kind = SqlToken::Kind;

struct SourcePiece {
  Kind kind = Kind::End;
  String text;  ///< a quoted name without its quotes

  bool IsName() const { return kind == Kind::Word || kind == Kind::QuotedName; }
  bool IsWord(StringView word) const { return kind == Kind::Word && EqualNoCase(text, word); }
  bool IsSymbol(StringView symbol) const { return kind == Kind::Symbol && text == symbol; }
};

using SourcePieces = std::vector<SourcePiece>;

// Words that are values, not columns.
const std::set<String> kValues = {u"NULL",         u"TRUE",         u"FALSE",
                                  u"CURRENT_DATE", u"CURRENT_TIME", u"CURRENT_TIMESTAMP",
                                  u"CURRENT_USER", u"SESSION_USER", u"SYSTEM_USER",
                                  u"USER"};

String Unquoted(StringView quoted) {
  const String close(1, quoted.back());
  return Replace(quoted.substr(1, quoted.size() - 2), close + close, close);
}

SourcePieces SourcePiecesOf(StringView text, Dialect dialect) {
  SourcePieces pieces;
  SqlScanner scanner(text, RulesOf(dialect));
  for (SqlToken token = scanner.Next(); !token.Is(Kind::End); token = scanner.Next()) {
    const StringView found = scanner.TextOf(token);
    const bool quoted = token.Is(Kind::QuotedName) && found.size() >= 2;
    pieces.push_back({token.kind, quoted ? Unquoted(found) : String(found)});
  }
  return pieces;
}

// The position after "Select", "All", "Top 10", "Top (10) Percent".
std::size_t StartOfItems(const SourcePieces& pieces) {
  std::size_t at = 1;
  const auto is = [&](StringView word) { return at < pieces.size() && pieces[at].IsWord(word); };
  if (is(u"ALL")) ++at;
  if (!is(u"TOP")) return at;
  if (++at < pieces.size() && pieces[at].IsSymbol(u"(")) {
    while (at < pieces.size() && !pieces[at].IsSymbol(u")")) ++at;
  }
  ++at;
  if (is(u"PERCENT")) ++at;
  return at;
}

// The names of "a.b.c" from a position on, which moves past them. An omitted name is empty.
std::vector<String> TakeNames(const SourcePieces& pieces, std::size_t& at) {
  std::vector<String> names;
  while (at < pieces.size() && pieces[at].IsName()) {
    names.push_back(pieces[at++].text);
    bool more = false;
    while (at < pieces.size() && pieces[at].IsSymbol(u".")) {
      if (more) names.emplace_back();
      more = true;
      ++at;
    }
    if (!more) return names;
  }
  return {};  // ends with a point, or is no name
}

// "[table.]column [[As] alias]"; nothing for anything else.
std::optional<String> ColumnOf(const SourcePieces& item) {
  std::size_t at = 0;
  const std::vector<String> names = TakeNames(item, at);
  if (names.empty()) return std::nullopt;
  if (names.size() == 1 && item[0].kind == Kind::Word && kValues.count(UCase(names[0])) > 0) {
    return std::nullopt;
  }
  if (at < item.size() && item[at].IsWord(u"AS")) ++at;
  if (at < item.size() && item[at].IsName()) ++at;
  return at == item.size() ? std::optional(names.back()) : std::nullopt;
}

bool IsStar(const SourcePieces& item) {
  return !item.empty() && item.back().IsSymbol(u"*") &&
         (item.size() == 1 || item[item.size() - 2].IsSymbol(u"."));
}

// The items up to the outermost "From", which the position then moves past.
std::vector<SourcePieces> TakeItems(const SourcePieces& pieces, std::size_t& at) {
  std::vector<SourcePieces> items(1);
  int depth = 0;
  for (; at < pieces.size(); ++at) {
    const SourcePiece& piece = pieces[at];
    if (depth == 0 && piece.IsWord(u"FROM")) return ++at, items;
    if (piece.IsSymbol(u"(")) ++depth;
    if (piece.IsSymbol(u")")) --depth;
    if (depth == 0 && piece.IsSymbol(u",")) {
      items.emplace_back();
    } else {
      items.back().push_back(piece);
    }
  }
  return {};
}

bool TakeTable(const SourcePieces& pieces, std::size_t at, StatementSource& source) {
  std::vector<String> names = TakeNames(pieces, at);
  // A "#" or another sign directly after the name means that it was not understood.
  if (names.empty() || names.size() > 3) return false;
  if (at < pieces.size() && pieces[at].kind == Kind::Symbol) return false;
  names.insert(names.begin(), 3 - names.size(), String());
  source.catalogue = names[0];
  source.schema = names[1];
  source.table = names[2];
  return true;
}

}  // namespace

std::optional<StatementSource> SourceOf(StringView text, Dialect dialect) {
  const SourcePieces pieces = SourcePiecesOf(text, dialect);
  if (pieces.empty() || !pieces[0].IsWord(u"SELECT")) return std::nullopt;
  StatementSource source;
  std::size_t at = StartOfItems(pieces);
  const std::vector<SourcePieces> items = TakeItems(pieces, at);
  if (items.empty() || !TakeTable(pieces, at, source)) return std::nullopt;
  source.isWhole = items.size() == 1 && IsStar(items[0]);
  if (source.isWhole) return source;
  for (const SourcePieces& item : items) {
    // It is unknown here how many columns a star among other items stands for.
    if (IsStar(item)) return std::nullopt;
    source.items.push_back(ColumnOf(item));
  }
  return source;
}

void FillSource(Columns& columns, const StatementSource& source) {
  const bool told = std::any_of(columns.begin(), columns.end(),
                                [](const Column& column) { return !column.table.empty(); });
  if (told || (!source.isWhole && source.items.size() != columns.size())) return;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::optional<String> name =
        source.isWhole ? std::optional(columns[i].name) : source.items[i];
    if (!name) continue;
    columns[i].baseColumn = *name;
    columns[i].table = source.table;
    columns[i].schema = source.schema;
    columns[i].catalogue = source.catalogue;
  }
}

}  // namespace tessaria::sql
