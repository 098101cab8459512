#include "hosts/sql/rows/server_order.h"

#include <algorithm>
#include <array>

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/statements/column_texts.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr StringView kYes = u"1";

// Types that the server sorts by their values.
constexpr std::array<StringView, 12> kByValue = {
    u"int2",  u"int4", u"int8", u"numeric", u"float4",    u"float8",
    u"money", u"date", u"time", u"bool",    u"timestamp", u"timestamptz"};
constexpr std::array<StringView, 4> kTexts = {u"text", u"varchar", u"bpchar", u"name"};

bool IsOneOf(const String& name, const auto& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsText(const Column& column) { return IsOneOf(column.typeName, kTexts); }

// An expression that gives 1 when the column holds Null, else 0.
String NullQuestion(const SortKey& key, const String& from) {
  return u"(SELECT count(*) FROM (SELECT 1 FROM " + from + u" WHERE " + ServerName(key) +
         u" IS NULL LIMIT 1) AS tessaria_nulls)";
}

String Item(const String& value, const SortKey& key, bool hasNulls) {
  String item = value + (key.descending ? u" DESC" : u"");
  if (hasNulls) item += key.descending ? u" NULLS LAST" : u" NULLS FIRST";
  return item;
}

// The server puts false first, this layer true, as its number is -1.
String ItemOf(const Columns& columns, const SortKey& key, bool hasNulls) {
  const bool isBoolean = columns[key.column].typeName == u"bool";
  return Item(isBoolean ? u"(NOT " + ServerName(key) + u")" : ServerName(key), key, hasNulls);
}

TextRow Ask(Snapshot& snapshot, const String& question) {
  const StatementPtr statement = snapshot.Beside().NewStatement();
  snapshot.Beside().Execute(*statement, question);
  return FirstRow(*statement);
}

// Nothing when a column's texts would come in another order than here.
std::optional<String> OrderOf(Snapshot& snapshot, const Columns& columns, const String& from,
                              const std::vector<SortKey>& keys) {
  String questions, order;
  for (const SortKey& key : keys) {
    questions += (questions.empty() ? u"SELECT " : u", ") + NullQuestion(key, from) + u", " +
                 DictionaryQuestion(columns, key, from);
  }
  const TextRow answers = Ask(snapshot, questions);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (answers[2 * i + 1] != kYes) return std::nullopt;
    order += (i == 0 ? u" ORDER BY " : u", ") + ItemOf(columns, keys[i], answers[2 * i] == kYes);
  }
  return order;
}

}  // namespace

String ServerName(const SortKey& key) { return u"tessaria_rows." + TextColumnName(key.column); }

String ServerSource(const Columns& columns, const String& query) {
  String names;
  for (std::size_t i = 0; i < columns.size(); ++i)
    names += (i == 0 ? u"" : u", ") + TextColumnName(i);
  return u"(" + query + u"\n) AS tessaria_rows (" + names + u")";
}

bool IsSortedByServer(const Column& column) {
  return IsOneOf(column.typeName, kByValue) || IsText(column);
}

String DictionaryQuestion(const Columns& columns, const SortKey& key, const String& from) {
  if (!IsText(columns[key.column])) return u"1";
  const auto less = [](const char16_t* a, const char16_t* b) {
    return u"coalesce(tessaria_one.c, " + String(a) + u") < coalesce(tessaria_one.c, " + b + u")";
  };
  return u"(SELECT CASE WHEN " + less(u"'i'", u"'I'") + u" AND " + less(u"'a'", u"'B'") + u" AND " +
         less(u"'\u00C1b'", u"'ac'") +
         u" THEN 1 ELSE 0 END FROM (SELECT) AS tessaria_none LEFT JOIN (SELECT " + ServerName(key) +
         u" AS c FROM " + from + u" LIMIT 0) AS tessaria_one ON true)";
}

std::optional<String> OrderedQuery(Snapshot& snapshot, const Columns& columns, const String& query,
                                   const std::vector<SortKey>& keys) {
  const auto sortable = [&](const SortKey& key) { return IsSortedByServer(columns[key.column]); };
  if (keys.empty()) return AnyAsText(columns) ? WithColumnsAsTexts(columns, query) : query;
  if (!std::all_of(keys.begin(), keys.end(), sortable)) return std::nullopt;
  try {
    const Patience::Request request(snapshot.Beside().Waits());
    const auto order = OrderOf(snapshot, columns, ServerSource(columns, query), keys);
    if (!order) return std::nullopt;
    return WithColumnsAsTexts(columns, query) + *order;
  } catch (const HostError& error) {
    if (!snapshot.Beside().IsOpen() || error.Number() == errors::Cancelled) throw;
    snapshot.Recover();
    return std::nullopt;
  }
}

}  // namespace tessaria::sql
