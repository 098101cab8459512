#include "hosts/sql/rows/server_order.h"

#include <algorithm>
#include <array>

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/statements/column_texts.h"
#include "hosts/sql/values/text_order.h"
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

bool IsSortable(const Columns& columns, const SortKey& key) {
  const String& type = columns[key.column].typeName;
  return IsOneOf(type, kByValue) || IsOneOf(type, kTexts);
}

bool IsText(const Column& column) { return IsOneOf(column.typeName, kTexts); }

String NameOf(const SortKey& key) { return u"tessaria_rows." + TextColumnName(key.column); }

String From(const Columns& columns, const String& query) {
  String names;
  for (std::size_t i = 0; i < columns.size(); ++i)
    names += (i == 0 ? u"" : u", ") + TextColumnName(i);
  return u"(" + query + u"\n) AS tessaria_rows (" + names + u")";
}

// What the server is asked about a column, as "1" or "0": whether it holds Null, and whether its
// collation puts letters in the order of a dictionary. The second does not read any row.
String NullQuestion(const Columns& columns, const SortKey& key, const String& from) {
  if (!columns[key.column].nullable) return u"0";
  return u"(SELECT count(*) FROM (SELECT 1 FROM " + from + u" WHERE " + NameOf(key) +
         u" IS NULL LIMIT 1) AS tessaria_nulls)";
}

String DictionaryQuestion(const Columns& columns, const SortKey& key, const String& from) {
  if (!IsText(columns[key.column])) return u"0";
  const auto less = [](const char16_t* a, const char16_t* b) {
    return u"coalesce(tessaria_one.c, " + String(a) + u") < coalesce(tessaria_one.c, " + b + u")";
  };
  return u"(SELECT CASE WHEN " + less(u"'a'", u"'B'") + u" AND " + less(u"'\u00C1b'", u"'ac'") +
         u" THEN 1 ELSE 0 END FROM (SELECT) AS tessaria_none LEFT JOIN (SELECT " + NameOf(key) +
         u" AS c FROM " + from + u" LIMIT 0) AS tessaria_one ON true)";
}

// Characters, and what they become: lower case, or lower case without accents. Characters that all
// encodings of the Latin alphabet have.
String Folded(const String& name, String (*fold)(StringView)) {
  String from, to;
  for (char16_t c = u'A'; c <= u'\u00FF'; ++c) {
    const String folded = fold(StringView(&c, 1));
    if (folded == StringView(&c, 1) || folded.size() != 1) continue;
    from += c;
    to += folded;
  }
  return u"translate(" + name + u"::text, '" + from + u"', '" + to + u"') COLLATE \"C\"";
}

String Lower(StringView text) { return LCase(text); }

String Item(const String& value, const SortKey& key, bool hasNulls) {
  String item = value + (key.descending ? u" DESC" : u"");
  if (hasNulls) item += key.descending ? u" NULLS LAST" : u" NULLS FIRST";
  return item;
}

// The server puts false first, this layer true, as its number is -1.
String ItemsOf(const Columns& columns, SortKey key, bool hasNulls, bool isDictionary) {
  const String name = NameOf(key);
  if (columns[key.column].typeName == u"bool") {
    return Item(u"(NOT " + name + u")", key, hasNulls);
  }
  if (!IsText(columns[key.column]) || isDictionary) return Item(name, key, hasNulls);
  return Item(Folded(name, BaseKey), key, hasNulls) + u", " +
         Item(Folded(name, Lower), key, hasNulls);
}

TextRow Ask(Snapshot& snapshot, const String& question) {
  const StatementPtr statement = snapshot.Beside().NewStatement();
  snapshot.Beside().Execute(*statement, question);
  return FirstRow(*statement);
}

String OrderOf(Snapshot& snapshot, const Columns& columns, const String& from,
               const std::vector<SortKey>& keys) {
  String questions, order;
  for (const SortKey& key : keys) {
    questions += (questions.empty() ? u"SELECT " : u", ") + NullQuestion(columns, key, from) +
                 u", " + DictionaryQuestion(columns, key, from);
  }
  const TextRow answers = Ask(snapshot, questions);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    order += (i == 0 ? u" ORDER BY " : u", ") +
             ItemsOf(columns, keys[i], answers[2 * i] == kYes, answers[2 * i + 1] == kYes);
  }
  return order;
}

}  // namespace

std::optional<String> OrderedQuery(Snapshot& snapshot, const Columns& columns, const String& query,
                                   const std::vector<SortKey>& keys) {
  const auto sortable = [&](const SortKey& key) { return IsSortable(columns, key); };
  if (keys.empty()) return AnyAsText(columns) ? WithColumnsAsTexts(columns, query) : query;
  if (!std::all_of(keys.begin(), keys.end(), sortable)) return std::nullopt;
  try {
    const Patience::Request request(snapshot.Beside().Waits());
    return WithColumnsAsTexts(columns, query) +
           OrderOf(snapshot, columns, From(columns, query), keys);
  } catch (const HostError& error) {
    if (!snapshot.Beside().IsOpen() || error.Number() == errors::Cancelled) throw;
    snapshot.Recover();
    return std::nullopt;
  }
}

}  // namespace tessaria::sql
