#include "hosts/sql/session/key_columns.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// The name that Access gives to the index of a primary key.
constexpr StringView kPrimaryIndex = u"PrimaryKey";

// The position after the last part of the index that starts at `start`.
std::vector<KeyPart>::const_iterator EndOfIndex(std::vector<KeyPart>::const_iterator start,
                                                const std::vector<KeyPart>& parts) {
  return std::find_if(start, parts.end(), [&](const KeyPart& p) { return p.key != start->key; });
}

bool IsPrimaryIndex(const KeyPart& part) {
  return part.key && EqualNoCase(*part.key, kPrimaryIndex);
}

bool IsInResult(const String& name, const Columns& columns) {
  return std::any_of(columns.begin(), columns.end(), [&](const Column& column) {
    return EqualNoCase(column.baseColumn, name) && !column.nullable;
  });
}

std::optional<std::vector<KeyPart>> AskedKey(Session& session, const TablePlace& table) {
  return session.AskCatalogue([table](Link& link) { return link.PrimaryKey(table); });
}

std::vector<KeyPart> AskedIndexes(Session& session, const TablePlace& table) {
  return session.AskCatalogue([table](Link& link) { return link.UniqueIndexes(table); });
}

}  // namespace

std::vector<KeyPart> PrimaryKeyOf(Session& session, const TablePlace& table) {
  if (auto key = AskedKey(session, table)) return std::move(*key);
  std::vector<KeyPart> parts = AskedIndexes(session, table);
  parts.erase(std::remove_if(parts.begin(), parts.end(),
                             [](const KeyPart& part) { return !IsPrimaryIndex(part); }),
              parts.end());
  return parts;
}

std::vector<String> ChooseUniqueIndex(const std::vector<KeyPart>& parts, const Columns& columns) {
  std::vector<String> chosen;
  for (auto start = parts.begin(); start != parts.end();) {
    const auto end = EndOfIndex(start, parts);
    const bool usable = std::all_of(
        start, end, [&](const KeyPart& part) { return IsInResult(part.column, columns); });
    if (usable && (chosen.empty() || IsPrimaryIndex(*start))) {
      chosen.clear();
      std::transform(start, end, std::back_inserter(chosen),
                     [](const KeyPart& part) { return part.column; });
    }
    start = end;
  }
  return chosen;
}

std::vector<String> RowKeyOf(Session& session, const Column& source, const Columns& columns) {
  const TablePlace place{source.catalogue, source.schema, source.table};
  const auto key = AskedKey(session, place);
  if (!key) return ChooseUniqueIndex(AskedIndexes(session, place), columns);
  std::vector<String> names;
  for (const KeyPart& part : *key) names.push_back(part.column);
  return names;
}

}  // namespace tessaria::sql
